// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ArmyListView.h"

#include "app/Shade.h"
#include "model/CAttackArmies.h"

#include <QContextMenuEvent>
#include <QEvent>
#include <QFontInfo>
#include <QKeyEvent>
#include <QLabel>
#include <QMouseEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace vorhaven {
namespace {

class LineDelegate final : public QStyledItemDelegate {
public:
    explicit LineDelegate(ArmyListView& list) : QStyledItemDelegate(&list), list_(&list) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& option,
                                 const QModelIndex& index) const override {
        return {QStyledItemDelegate::sizeHint(option, index).width(), list_->LineHeight()};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyledItemDelegate::paint(painter, option, index);
        painter->save();
        const bool isSelected = option.state.testFlag(QStyle::State_Selected);
        if (index == list_->currentIndex() && !isSelected) {
            painter->setPen(option.palette.color(QPalette::Highlight));
            painter->drawRect(option.rect.adjusted(0, 0, -1, -1));
        }
        PaintNote(*painter, option, index, isSelected);
        painter->restore();
    }

private:
    /// Paints a line's note in what the name leaves of the line.
    static void PaintNote(QPainter& painter, const QStyleOptionViewItem& option, const QModelIndex& index,
                          bool isSelected) {
        const QString note = index.data(ArmyListView::NoteRole).toString();
        if (note.isEmpty())
            return;
        QFont font = option.font;
        font.setPointSizeF(font.pointSizeF() * 0.92);
        painter.setFont(font);
        const QColor text = option.palette.color(isSelected ? QPalette::HighlightedText : QPalette::Text);
        painter.setPen(isSelected ? text : Mixed(text, option.palette.color(QPalette::Base), Shade::Quiet));
        const int gap = option.fontMetrics.averageCharWidth();
        const int nameWidth = option.fontMetrics.horizontalAdvance(index.data().toString()) + 3 * gap;
        // The words keep their order where the window is mirrored.
        painter.setLayoutDirection(Qt::LeftToRight);
        const bool isLeftToRight = option.direction == Qt::LeftToRight;
        const QRect room = isLeftToRight ? option.rect.adjusted(nameWidth, 0, -gap, 0)
                                         : option.rect.adjusted(gap, 0, -nameWidth, 0);
        const Qt::Alignment alignment = Qt::AlignVCenter | (isLeftToRight ? Qt::AlignRight : Qt::AlignLeft);
        painter.drawText(room, static_cast<int>(alignment.toInt()),
                         painter.fontMetrics().elidedText(note, Qt::ElideRight, room.width()));
    }

    ArmyListView* list_;
};

} // namespace

ArmyListView::ArmyListView(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(ExtendedSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setItemDelegate(new LineDelegate(*this));
}

int ArmyListView::LineHeight() const {
    return fontMetrics().height() + 2;
}

QSize ArmyListView::sizeHint() const {
    constexpr int widthInEm = 25;
    return {QFontInfo(font()).pixelSize() * widthInEm, LineHeight() * MaxLines + 2 * frameWidth()};
}

QSize ArmyListView::minimumSizeHint() const {
    constexpr int widthInEm = 8;
    return {QFontInfo(font()).pixelSize() * widthInEm, LineHeight() * LinesPerStack};
}

void ArmyListView::ShowStacks() {
    areStacksShown_ = true;
    viewport()->update();
}

void ArmyListView::paintEvent(QPaintEvent* event) {
    if (areStacksShown_) {
        QPainter painter(viewport());
        const QColor text = palette().color(QPalette::Text);
        const QColor base = palette().color(QPalette::Base);
        const int height = LinesPerStack * LineHeight();
        for (int stack = 1; stack < MaxStacks; ++stack) {
            const QRect area(0, stack * height - verticalScrollBar()->value(), viewport()->width(), height);
            if (stack % 2 == 1)
                painter.fillRect(area, Mixed(text, base, Shade::Area));
            painter.setPen(Mixed(text, base, Shade::ListLine));
            painter.drawLine(area.topLeft(), area.topRight());
        }
    }
    QListWidget::paintEvent(event);
}

void ArmyListView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        RequestMenuAtCurrentLine();
    else if (SelectCurrentLine() && MenuRequested)
        MenuRequested(event->globalPos());
}

void ArmyListView::focusInEvent(QFocusEvent* event) {
    // By the keyboard's focus the toolkit would make the first line current, which nobody has chosen.
    QFocusEvent asByMouse(event->type(), Qt::MouseFocusReason);
    QListWidget::focusInEvent(&asByMouse);
}

bool ArmyListView::SelectCurrentLine() {
    if (currentItem() == nullptr)
        return false;
    if (!currentItem()->isSelected())
        selectionModel()->select(currentIndex(), QItemSelectionModel::ClearAndSelect);
    return true;
}

void ArmyListView::ShowLastLine() {
    if (count() > 0)
        scrollToItem(item(count() - 1));
}

void ArmyListView::RequestMenuAtCurrentLine() {
    if (!SelectCurrentLine() || !MenuRequested)
        return;
    scrollToItem(currentItem());
    MenuRequested(viewport()->mapToGlobal(visualItemRect(currentItem()).bottomLeft()));
}

void ArmyListView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete && event->modifiers() == Qt::NoModifier) {
        if (SelectCurrentLine() && DeletePressed)
            DeletePressed();
    } else if (event->matches(QKeySequence::Copy)) {
        if (CopyPressed)
            CopyPressed();
    } else if (event->matches(QKeySequence::Paste)) {
        if (PastePressed)
            PastePressed();
    } else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier) {
        RequestMenuAtCurrentLine();
    } else {
        QListWidget::keyPressEvent(event);
    }
}

void ArmyListView::mouseDoubleClickEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton)
        QListWidget::mouseDoubleClickEvent(event);
}

StackLabels::StackLabels(ArmyListView& list, const std::vector<QLabel*>& labels, QWidget* parent)
    : QWidget(parent), list_(&list), labels_(labels) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Ignored);
    for (QLabel* label : labels_)
        label->setParent(this);
    list.viewport()->installEventFilter(this);
    connect(list.verticalScrollBar(), &QScrollBar::valueChanged, this, [this] { Align(); });
}

QSize StackLabels::sizeHint() const {
    int width = 0;
    for (const QLabel* label : labels_)
        width = std::max(width, label->sizeHint().width());
    return {width, 0};
}

bool StackLabels::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize || event->type() == QEvent::Show ||
        event->type() == QEvent::FontChange || event->type() == QEvent::Paint)
        Align();
    return QWidget::eventFilter(watched, event);
}

void StackLabels::Align() {
    const int top = list_->viewport()->mapTo(window(), QPoint(0, 0)).y() - mapTo(window(), QPoint(0, 0)).y();
    const int height = list_->LineHeight();
    for (std::size_t stack = 0; stack < labels_.size(); ++stack) {
        const int offset =
            static_cast<int>(stack) * LinesPerStack * height - list_->verticalScrollBar()->value();
        QLabel& label = *labels_[stack];
        const QRect place(0, top + offset, width(), height);
        if (label.geometry() != place)
            label.setGeometry(place);
        const bool isBesideList = offset >= 0 && offset + height <= list_->viewport()->height();
        if (label.isHidden() == isBesideList)
            label.setVisible(isBesideList);
    }
}

} // namespace vorhaven
