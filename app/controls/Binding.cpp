// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/Binding.h"

#include "app/controls/ChartView.h"
#include "app/controls/GridView.h"
#include "app/controls/NumberBox.h"
#include "app/controls/Picker.h"
#include "app/program/ErrorReport.h"
#include "app/setup/ArmyListView.h"

#include <QAction>
#include <QCheckBox>
#include <QDateTime>
#include <QEvent>
#include <QGroupBox>
#include <QLabel>
#include <QLineEdit>
#include <QLocale>
#include <QMenu>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <QTimer>
#include <QToolTip>
#include <QValidator>

#include <algorithm>
#include <chrono>

namespace vorhaven {
namespace {

QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

int ToQt(Long value) {
    return value.Value();
}

/// Keeps a connection for as long as its parent lives.
class Keeper final : public QObject {
public:
    Keeper(QObject* parent, Connection connection) : QObject(parent), connection_(std::move(connection)) {}

private:
    Connection connection_;
};

/// Shows the control with `update`, now and whenever it changes, for as long as the widget lives.
template <class Widget, class ControlType, class Update>
void ShowWith(Widget& widget, ControlType& control, Update update) {
    KeepWith(widget, control.Changed.Connect([&widget, &control, update] { update(widget, control); }));
    update(widget, control);
}

/// Drops every character that the control does not admit, typed or pasted.
class KeyFilter final : public QValidator {
public:
    KeyFilter(QObject* parent, const TextBox& control) : QValidator(parent), control_(&control) {}

    State validate(QString& input, int& position) const override {
        for (qsizetype i = input.size() - 1; i >= 0; --i) {
            if (control_->Admits(input[i].unicode()))
                continue;
            input.remove(i, 1);
            if (i < position)
                --position;
        }
        return Acceptable;
    }

private:
    const TextBox* control_;
};

class FocusReporter final : public QObject {
public:
    FocusReporter(QObject* parent, Form& form, Control& control)
        : QObject(parent), form_(&form), control_(&control) {}

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::FocusIn)
            RunOutermost([&] { form_->MoveFocus(control_); });
        return QObject::eventFilter(watched, event);
    }

private:
    Form* form_;
    Control* control_;
};

void ShowEntries(QComboBox& widget, const ComboBox& control) {
    const QSignalBlocker blocker(widget);
    widget.setEnabled(control.Enabled);
    const auto& items = control.Items();
    while (widget.count() > static_cast<int>(items.size()))
        widget.removeItem(widget.count() - 1);
    for (int i = widget.count(); i < static_cast<int>(items.size()); ++i)
        widget.addItem(ToQt(items[static_cast<std::size_t>(i)].Text));
    widget.setCurrentIndex(ToQt(control.ListIndex()));
}

void ShowLines(ArmyListView& widget, const ListBox& control) {
    const QSignalBlocker blocker(widget);
    const int count = ToQt(control.ListCount());
    const int shownCount = widget.count();
    while (widget.count() > count)
        delete widget.takeItem(widget.count() - 1);
    for (int line = 0; line < count; ++line) {
        if (line == widget.count())
            widget.addItem(QString());
        const QString text = ToQt(control.Entry(line).Text);
        QListWidgetItem& item = *widget.item(line);
        if (item.text() != text)
            item.setText(text);
        const QString note = ToQt(control.Note(line));
        const ListBox::Figure& figure = control.FigureOf(line);
        item.setData(ArmyListView::NoteRole, note);
        item.setData(ArmyListView::FigureRole, ToQt(figure.Text));
        const auto joined = [](QStringList parts, const QString& separator) {
            parts.removeAll(QString());
            return parts.join(separator);
        };
        const QString remarks = joined({note, ToQt(figure.Sentence)}, "\n");
        item.setToolTip(remarks.isEmpty() ? QString() : ToQt(control.ToolTip) + '\n' + remarks);
        item.setData(Qt::AccessibleTextRole, joined({text, note, ToQt(figure.Words)}, ", "));
    }
    QItemSelectionModel& selection = *widget.selectionModel();
    for (int line = 0; line < count; ++line) {
        const QModelIndex index = widget.model()->index(line, 0);
        if (selection.isSelected(index) != control.Selected(line))
            selection.select(index, control.Selected(line) ? QItemSelectionModel::Select
                                                           : QItemSelectionModel::Deselect);
    }
    if (widget.currentRow() != ToQt(control.ListIndex())) {
        widget.setCurrentRow(ToQt(control.ListIndex()), QItemSelectionModel::NoUpdate);
        if (widget.currentItem() != nullptr)
            widget.scrollToItem(widget.currentItem());
    }
    // What was added is at the end.
    if (count > shownCount)
        widget.ShowLastLine();
}

void TakeSelection(const ArmyListView& widget, ListBox& control) {
    ListBox::Selection selection{widget.currentRow(), {}};
    for (const QModelIndex& index : widget.selectionModel()->selectedIndexes())
        selection.Lines.emplace_back(index.row());
    control.Select(selection);
}

} // namespace

void KeepWith(QObject& owner, Connection connection) {
    new Keeper(&owner, std::move(connection));
}

void Identify(QWidget& widget, const Control& control) {
    if (!control.Name.empty())
        widget.setObjectName(ToQt(control.Name));
    widget.setToolTip(ToQt(control.ToolTip));
    widget.setAccessibleDescription(widget.toolTip());
}

void Bind(QLabel& widget, Label& control) {
    Identify(widget, control);
    ShowWith(widget, control, [](QLabel& label, const Label& model) { label.setText(ToQt(model.Caption)); });
}

void Bind(QGroupBox& widget, Frame& control) {
    Identify(widget, control);
    ShowWith(widget, control, [](QGroupBox& box, const Frame& model) { box.setTitle(ToQt(model.Caption)); });
}

void Bind(QPushButton& widget, Button& control) {
    Identify(widget, control);
    ShowWith(widget, control, [](QPushButton& button, const Button& model) {
        // The window keeps the focus of a disabled button, not the next widget: a key that is held on the
        // button must not go on elsewhere. It does so also while another window is the active one.
        const bool isEnabled = model.Enabled && model.Offered;
        if (!isEnabled && button.window()->focusWidget() == &button)
            button.window()->setFocus();
        button.setEnabled(isEnabled);
        button.setText(ToQt(model.Caption));
        if (!model.CaptionInWords.Get().empty())
            button.setAccessibleName(ToQt(model.CaptionInWords));
        // Without a parent it would come up as a window of its own.
        if (!model.Visible || (button.isHidden() && button.parentWidget() != nullptr))
            button.setVisible(model.Visible);
    });
    QSizePolicy policy = widget.sizePolicy();
    policy.setRetainSizeWhenHidden(true);
    widget.setSizePolicy(policy);
    // Enter presses the focused button, in every kind of window.
    widget.setAutoDefault(true);
    QObject::connect(&widget, &QPushButton::clicked, &widget, [&widget, &control] {
        // An access key presses the button without moving the focus, yet a field that was being edited is
        // left.
        widget.setFocus(Qt::ShortcutFocusReason);
        const QPointer<QPushButton> button = &widget;
        RunOutermost([&] { control.Press(); });
        // A button that was disabled while it worked gets its focus back, unless the user has moved on.
        if (button && button->isEnabled() && button->window()->focusWidget() == button->window())
            button->setFocus(Qt::OtherFocusReason);
    });
}

void Bind(QCheckBox& widget, CheckButton& control) {
    Identify(widget, control);
    ShowWith(widget, control, [](QCheckBox& box, const CheckButton& model) {
        const QSignalBlocker blocker(box);
        box.setText(ToQt(model.Caption));
        box.setChecked(model.Checked);
    });
    QObject::connect(&widget, &QCheckBox::toggled, &widget, [&control](bool checked) {
        if (checked != control.Checked)
            RunOutermost([&] { control.Toggle(); });
    });
}

void Bind(QLineEdit& widget, TextBox& control) {
    Identify(widget, control);
    ShowWith(widget, control, [](QLineEdit& edit, const TextBox& model) {
        if (edit.text() != ToQt(model.Text()))
            edit.setText(ToQt(model.Text()));
    });
    widget.setMaxLength(control.MaxLength);
    if (control.KeyPress)
        widget.setValidator(new KeyFilter(&widget, control));
    QObject::connect(&widget, &QLineEdit::textChanged, &widget, [&control](const QString& text) {
        RunOutermost([&] { control.SetText(text.toStdString()); });
    });
}

void Bind(DropDown& widget, ComboBox& control) {
    Identify(widget, control);
    ShowWith(widget, control, ShowEntries);
    QObject::connect(&widget, &QComboBox::activated, &widget,
                     [&control](int index) { RunOutermost([&] { control.Choose(index); }); });
}

void Bind(Picker& widget, ComboBox& control) {
    Identify(widget, control);
    if (!control.Note.empty()) {
        // The middle of a long path is its least.
        const QFontMetrics metrics(QToolTip::font());
        const QString note =
            metrics.elidedText(ToQt(control.Note), Qt::ElideMiddle, 80 * metrics.averageCharWidth());
        widget.setToolTip(widget.toolTip() + '\n' + note);
        widget.setAccessibleDescription(widget.toolTip());
    }
    ShowWith(widget, control, [](Picker& picker, const ComboBox& model) {
        const int shownCount = picker.count();
        ShowEntries(picker, model);
        for (int row = shownCount; row < picker.count(); ++row) {
            QStringList details;
            for (const std::string& detail : model.Details(static_cast<std::size_t>(row)))
                details += ToQt(detail);
            picker.setItemData(row, details, Picker::DetailsRole);
        }
    });
    QObject::connect(&widget, &QComboBox::activated, &widget, [&widget, &control](int index) {
        if (widget.TakePick())
            RunOutermost([&] { control.Pick(index); });
    });
}

void Bind(ArmyListView& widget, ListBox& control) {
    Identify(widget, control);
    ShowWith(widget, control, ShowLines);
    const auto take = [&widget, &control] { RunOutermost([&] { TakeSelection(widget, control); }); };
    QObject::connect(&widget, &QListWidget::currentRowChanged, &widget, take);
    QObject::connect(&widget, &QListWidget::itemSelectionChanged, &widget, take);
    QObject::connect(&widget, &QListWidget::itemDoubleClicked, &widget,
                     [&control] { RunOutermost([&] { control.DoubleClick(); }); });
}

void Bind(QProgressBar& widget, ProgressBar& control) {
    widget.setRange(0, 100);
    ShowWith(widget, control, [](QProgressBar& bar, const ProgressBar& model) {
        bar.setVisible(model.Visible);
        // The toolkit would paint the bar at once at every step of a run; like all else it is painted when
        // events are next processed, so that the bar and the text beside it stay in step.
        bar.setUpdatesEnabled(false);
        bar.setValue(ToQt(model.Value));
        bar.setUpdatesEnabled(true);
    });
}

void Bind(QLabel& widget, StatusPanel& control) {
    Identify(widget, control);
    ShowWith(widget, control, [](QLabel& label, const StatusPanel& model) {
        if (model.PanelStyle == StatusPanel::Style::Text)
            label.setText(ToQt(model.Text));
    });
    if (control.PanelStyle == StatusPanel::Style::Text)
        return;
    const auto showClock = [&widget, style = control.PanelStyle] {
        const QDateTime now = QDateTime::currentDateTime();
        widget.setText(style == StatusPanel::Style::Date
                           ? QLocale().toString(now.date(), QLocale::ShortFormat)
                           : QLocale().toString(now.time(), QLocale::ShortFormat));
    };
    showClock();
    auto* const timer = new QTimer(&widget);
    QObject::connect(timer, &QTimer::timeout, &widget, showClock);
    timer->start(std::chrono::seconds(1));
}

void Bind(QAction& action, MenuItem& control) {
    if (control.Caption == MenuItem::Separator) {
        action.setSeparator(true);
        return;
    }
    ShowWith(action, control, [](QAction& item, const MenuItem& model) {
        item.setText(ToQt(model.Caption));
        item.setEnabled(model.Enabled);
        if (item.isCheckable())
            item.setChecked(model.Checked);
    });
    QObject::connect(&action, &QAction::triggered, &action, [&action, &control] {
        RunOutermost([&] { control.Choose(); });
        // The toolkit has flipped the mark by itself; the control knows its state.
        if (action.isCheckable())
            action.setChecked(control.Checked);
    });
}

void AddItem(QMenu& menu, MenuItem& control, const QKeySequence& key) {
    QAction* const action = menu.addAction(QString());
    action->setShortcut(key);
    action->setShortcutContext(Qt::WidgetShortcut);
    action->setShortcutVisibleInContextMenu(true);
    Bind(*action, control);
}

void Bind(GridView& widget, Grid& control) {
    Identify(widget, control);
    widget.Show(control);
}

void Bind(ChartView& widget, Chart& control) {
    widget.Show(control);
}

void Bind(NumberBox& widget, UpDown& control) {
    Identify(widget, control);
    widget.Show(control);
}

void BindFocus(QWidget& widget, Form& form, Control& control) {
    widget.installEventFilter(new FocusReporter(&widget, form, control));
}

void LabelField(QWidget& field, QLabel& label) {
    label.setBuddy(&field);
    // To a screen reader a label's name is its text.
    if (qobject_cast<QLabel*>(&field) != nullptr)
        return;
    QString name = label.text().remove('&');
    if (name.endsWith(':'))
        name.chop(1);
    field.setAccessibleName(name);
}

} // namespace vorhaven
