// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/setup/ArmyListView.h"

#include "app/program/Shade.h"
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

/// How strongly the highlight colour shows in the selection of a list that is without the focus.
constexpr double DimSelection = 0.3;

class LineDelegate final : public QStyledItemDelegate {
public:
    explicit LineDelegate(ArmyListView& list) : QStyledItemDelegate(&list), list_(&list) {}

    [[nodiscard]] QSize sizeHint(const QStyleOptionViewItem& /*option*/,
                                 const QModelIndex& /*index*/) const override {
        // What does not fit in the list's width is cut.
        return {1, list_->LineHeight()};
    }

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        QStyleOptionViewItem line = option;
        initStyleOption(&line, index);
        const bool isSelected = line.state.testFlag(QStyle::State_Selected);
        const bool isDim = isSelected && !list_->hasFocus();
        if (isDim)
            DimSelectionOf(line.palette);

        const QFont noteFont = Small(line.font);
        const QFontMetrics noteMetrics(noteFont);
        const int gap = line.fontMetrics.averageCharWidth();
        const int end = gap + list_->FigureColumnWidth();
        const int width = line.rect.width() - TextMargin(line) - end;
        const int nameWidth = line.fontMetrics.horizontalAdvance(line.text);
        const QString note =
            Cut(index.data(ArmyListView::NoteRole).toString(), noteMetrics, width - nameWidth - gap);
        const int noteWidth = noteMetrics.horizontalAdvance(note);
        const int nameRoom = note.isEmpty() ? width : width - noteWidth - gap;
        if (nameWidth > nameRoom)
            line.text = line.fontMetrics.elidedText(line.text, line.textElideMode, nameRoom);
        list_->style()->drawControl(QStyle::CE_ItemViewItem, &line, painter, list_);

        painter->save();
        if (index == list_->currentIndex() && !isSelected) {
            painter->setPen(FocusColour(line.palette));
            painter->drawRect(line.rect.adjusted(0, 0, -1, -1));
        }
        painter->setFont(noteFont);
        painter->setPen(NoteColour(line.palette, isSelected, isDim));
        // The words keep their order where the window is mirrored.
        painter->setLayoutDirection(Qt::LeftToRight);
        const auto drawUpTo = [&](int right, const QString& text) {
            const int textWidth = noteMetrics.horizontalAdvance(text);
            const QRect place(right - textWidth, line.rect.top(), textWidth, line.rect.height());
            painter->drawText(QStyle::visualRect(line.direction, line.rect, place), Qt::AlignVCenter, text);
        };
        drawUpTo(line.rect.right() + 1 - end, note);
        if (list_->FigureColumnWidth() > 0)
            drawUpTo(line.rect.right() + 1 - gap, index.data(ArmyListView::FigureRole).toString());
        painter->restore();
    }

private:
    /// The least contrast of a text is kept on the dimmer selection too.
    static void DimSelectionOf(QPalette& palette) {
        const QColor fill =
            Mixed(palette.color(QPalette::Highlight), palette.color(QPalette::Base), DimSelection);
        const QColor text =
            MovedToContrast(palette.color(QPalette::Text), FarthestFrom(fill), fill, LeastContrast::Text);
        palette.setColor(QPalette::Highlight, fill);
        palette.setColor(QPalette::HighlightedText, text);
    }

    static QColor NoteColour(const QPalette& palette, bool isSelected, bool isDim) {
        if (isDim)
            return Shaded(palette.color(QPalette::HighlightedText), palette.color(QPalette::Highlight),
                          Shade::QuietSelected);
        if (isSelected)
            return palette.color(QPalette::HighlightedText);
        return Shaded(palette.color(QPalette::Text), palette.color(QPalette::Base), Shade::Quiet);
    }

    /// A note, cut at its end to what fits in a width; where not even a letter does, it is wider.
    static QString Cut(const QString& note, const QFontMetrics& metrics, int width) {
        const int least = metrics.horizontalAdvance(QStringLiteral("…"));
        return metrics.elidedText(note, Qt::ElideRight, std::max(width, least));
    }

    /// From a line's edge to its name, as the style has it.
    [[nodiscard]] int TextMargin(const QStyleOptionViewItem& line) const {
        return list_->style()->pixelMetric(QStyle::PM_FocusFrameHMargin, &line, list_) + 1;
    }

    ArmyListView* list_;
};

} // namespace

ArmyListView::ArmyListView(QWidget* parent) : QListWidget(parent) {
    setSelectionMode(ExtendedSelection);
    setVerticalScrollMode(ScrollPerPixel);
    setUniformItemSizes(true);
    setItemDelegate(new LineDelegate(*this));
    setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    // A name that is too long keeps the mark at its end.
    setTextElideMode(Qt::ElideMiddle);
}

int ArmyListView::LeastLineHeight() const {
    return fontMetrics().height() + 2;
}

int ArmyListView::FigureColumnWidth() const {
    constexpr int leastWidthInEm = 17;
    if (viewport()->width() < leastWidthInEm * QFontInfo(font()).pixelSize())
        return 0;
    const QFontMetrics metrics(Small(font()));
    return metrics.horizontalAdvance(QStringLiteral("100%")) + 2 * metrics.averageCharWidth();
}

int ArmyListView::MarginOfFigures() const {
    return width() - viewport()->geometry().right() - 1 + fontMetrics().averageCharWidth();
}

void ArmyListView::FitLines(int room) {
    const int least = LeastLineHeight();
    const int borders = 2 * frameWidth();
    const int height = std::clamp((room - borders) / MaxLines, least, least + 10);
    setMaximumHeight(height * MaxLines + borders);
    if (height == lineHeight_)
        return;
    lineHeight_ = height;
    scheduleDelayedItemsLayout();
}

QSize ArmyListView::sizeHint() const {
    constexpr int widthInEm = 25;
    return {QFontInfo(font()).pixelSize() * widthInEm, LeastLineHeight() * MaxLines + 2 * frameWidth()};
}

QSize ArmyListView::minimumSizeHint() const {
    constexpr int widthInEm = 8;
    return {QFontInfo(font()).pixelSize() * widthInEm, LeastLineHeight() * LinesPerStack};
}

void ArmyListView::ShowStacks() {
    areStacksShown_ = true;
    viewport()->update();
}

void ArmyListView::PaintStacks(QPainter& painter) const {
    const QColor text = palette().color(QPalette::Text);
    const QColor base = palette().color(QPalette::Base);
    const int height = LinesPerStack * LineHeight();
    for (int stack = 1; stack < MaxStacks; ++stack) {
        const QRect area(0, stack * height - verticalScrollBar()->value(), viewport()->width(), height);
        if (stack % 2 == 1)
            painter.fillRect(area, Shaded(text, base, Shade::Area));
        painter.setPen(Shaded(text, base, Shade::ListLine));
        painter.drawLine(area.topLeft(), area.topRight());
    }
}

void ArmyListView::paintEvent(QPaintEvent* event) {
    if (areStacksShown_) {
        QPainter painter(viewport());
        PaintStacks(painter);
    }
    QListWidget::paintEvent(event);
    if (hasFocus()) {
        QPainter painter(viewport());
        painter.setPen(FocusColour(palette()));
        painter.drawRect(viewport()->rect().adjusted(0, 0, -1, -1));
    }
}

void ArmyListView::scrollContentsBy(int dx, int dy) {
    QListWidget::scrollContentsBy(dx, dy);
    // The mark of the focus stays where it is, unlike the lines below it.
    viewport()->update();
}

QModelIndex ArmyListView::moveCursor(CursorAction action, Qt::KeyboardModifiers modifiers) {
    // From nowhere the toolkit would go to the first line, whatever the key.
    if (action == MoveEnd && !currentIndex().isValid())
        return model()->index(count() - 1, 0);
    return QListWidget::moveCursor(action, modifiers);
}

void ArmyListView::contextMenuEvent(QContextMenuEvent* event) {
    event->accept();
    if (event->reason() == QContextMenuEvent::Keyboard)
        RequestMenuAtCurrentLine();
    else if (!indexAt(event->pos()).isValid())
        BareMenuRequested(event->globalPos());
    else if (SelectCurrentLine())
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
    if (!SelectCurrentLine()) {
        BareMenuRequested(viewport()->mapToGlobal(QPoint(0, 0)));
        return;
    }
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

FigureCaption::FigureCaption(ArmyListView& list, QWidget* parent) : QLabel(parent), list_(&list) {
    setFont(Small(list.font()));
    setAlignment(Qt::AlignRight | Qt::AlignBottom);
    list.viewport()->installEventFilter(this);
}

QSize FigureCaption::sizeHint() const {
    return {0, fontMetrics().height()};
}

bool FigureCaption::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::Resize)
        setContentsMargins(0, 0, list_->MarginOfFigures(), 0);
    return QLabel::eventFilter(watched, event);
}

void FigureCaption::paintEvent(QPaintEvent* event) {
    if (list_->FigureColumnWidth() > 0)
        QLabel::paintEvent(event);
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
    const int lineHeight = list_->LineHeight();
    for (std::size_t stack = 0; stack < labels_.size(); ++stack) {
        const int offset =
            static_cast<int>(stack) * LinesPerStack * lineHeight - list_->verticalScrollBar()->value();
        QLabel& label = *labels_[stack];
        const int height = std::max(lineHeight, label.sizeHint().height());
        const QRect place(0, top + offset, width(), height);
        if (label.geometry() != place)
            label.setGeometry(place);
        const bool isBesideList = offset >= 0 && offset + height <= list_->viewport()->height();
        if (label.isHidden() == isBesideList)
            label.setVisible(isBesideList);
    }
}

QSize UprightLabel::sizeHint() const {
    return QLabel::sizeHint().transposed();
}

QSize UprightLabel::minimumSizeHint() const {
    return QLabel::minimumSizeHint().transposed();
}

void UprightLabel::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.translate(0, height());
    painter.rotate(-90);
    style()->drawItemText(&painter, QRect(QPoint(0, 0), size().transposed()), Qt::AlignCenter, palette(),
                          isEnabled(), text(), foregroundRole());
}

} // namespace vorhaven
