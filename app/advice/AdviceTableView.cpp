// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/advice/AdviceTableView.h"

#include "app/controls/Binding.h"
#include "app/controls/CopyTable.h"
#include "app/program/ErrorReport.h"
#include "app/program/Shade.h"
#include "app/program/SideColours.h"

#include <QHeaderView>
#include <QKeyEvent>
#include <QPainter>
#include <QScrollBar>
#include <QStyledItemDelegate>

#include <algorithm>

namespace vorhaven {
namespace {

/// How strongly a side's colour shows in the bar behind a share.
constexpr double BarShare = 0.28;

QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

const AdviceTable::Cell* CellOf(const AdviceTable& table, int row, int column) {
    const auto& cells = table.Rows()[static_cast<std::size_t>(row)].Cells;
    return static_cast<std::size_t>(column) < cells.size() ? &cells[static_cast<std::size_t>(column)]
                                                           : nullptr;
}

} // namespace

/// The rows as the model has them.
class AdviceTableView::Rows final : public QAbstractTableModel {
public:
    Rows(const AdviceTable& table, QObject* parent) : QAbstractTableModel(parent), table_(&table) {}

    [[nodiscard]] int rowCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(table_->Rows().size());
    }
    [[nodiscard]] int columnCount(const QModelIndex& parent) const override {
        return parent.isValid() ? 0 : static_cast<int>(table_->Columns().size());
    }
    [[nodiscard]] Qt::ItemFlags flags(const QModelIndex& index) const override {
        return RowOf(index).IsHeading ? Qt::NoItemFlags : Qt::ItemIsEnabled | Qt::ItemIsSelectable;
    }
    [[nodiscard]] QVariant data(const QModelIndex& index, int role) const override {
        const AdviceTable::Cell* const cell = CellOf(*table_, index.row(), index.column());
        if (cell == nullptr)
            return {};
        switch (role) {
        case Qt::DisplayRole:
            return ToQt(cell->Text);
        case Qt::AccessibleTextRole:
            return ToQt(cell->Words.empty() ? cell->Text : cell->Words);
        case Qt::ToolTipRole:
            return ToQt(RowOf(index).ToolTip);
        case Qt::TextAlignmentRole:
            return AlignmentOf(index.column());
        default:
            return {};
        }
    }
    [[nodiscard]] QVariant headerData(int section, Qt::Orientation orientation, int role) const override {
        if (orientation == Qt::Vertical)
            return {};
        switch (role) {
        case Qt::DisplayRole:
            return ToQt(ColumnOf(section).Header);
        case Qt::TextAlignmentRole:
            return AlignmentOf(section);
        case Qt::InitialSortOrderRole:
            return FirstOrderOf(ColumnOf(section));
        default:
            return {};
        }
    }

    void Reset() {
        beginResetModel();
        endResetModel();
    }
    [[nodiscard]] const AdviceTable::Row& RowOf(const QModelIndex& index) const {
        return table_->Rows()[static_cast<std::size_t>(index.row())];
    }
    [[nodiscard]] const AdviceTable::Column& ColumnOf(int column) const {
        return table_->Columns()[static_cast<std::size_t>(column)];
    }
    [[nodiscard]] const AdviceTable& Table() const { return *table_; }

private:
    [[nodiscard]] QVariant AlignmentOf(int column) const {
        // The decimals are below each other in every layout.
        return static_cast<int>(
            (ColumnOf(column).IsFigure ? Qt::AlignRight | Qt::AlignAbsolute : Qt::AlignLeft) |
            Qt::AlignVCenter);
    }

    /// The best figures come first, and words by the alphabet.
    static Qt::SortOrder FirstOrderOf(const AdviceTable::Column& column) {
        return column.IsFigure && !column.IsCost ? Qt::DescendingOrder : Qt::AscendingOrder;
    }

    const AdviceTable* table_;
};

/// The rows as the user has sorted them.
class AdviceTableView::Order final : public QSortFilterProxyModel {
public:
    Order(Rows& rows, QObject* parent) : QSortFilterProxyModel(parent), rows_(&rows) {
        setSourceModel(&rows);
    }

protected:
    [[nodiscard]] bool lessThan(const QModelIndex& left, const QModelIndex& right) const override {
        const auto group = [this](const QModelIndex& index) {
            const AdviceTable::Row& row = rows_->RowOf(index);
            return std::pair(row.OfSide, !row.IsHeading);
        };
        // Groups keep their places, whichever way their rows are sorted.
        if (group(left) != group(right))
            return (group(left) < group(right)) == (sortOrder() == Qt::AscendingOrder);
        const auto* const a = CellOf(rows_->Table(), left.row(), left.column());
        const auto* const b = CellOf(rows_->Table(), right.row(), right.column());
        if (a == nullptr || b == nullptr)
            return false;
        return rows_->ColumnOf(left.column()).IsFigure ? a->Value < b->Value
                                                       : ToQt(a->Text).localeAwareCompare(ToQt(b->Text)) < 0;
    }

private:
    Rows* rows_;
};

namespace {

/// The toolkit keeps room for an arrow as wide as the header is high and draws it half as wide, which in
/// headers of two lines takes the cells' room.
class Header final : public QHeaderView {
public:
    explicit Header(QWidget* parent) : QHeaderView(Qt::Horizontal, parent) {}

protected:
    [[nodiscard]] QSize sectionSizeFromContents(int section) const override {
        const QSize size = QHeaderView::sectionSizeFromContents(section);
        return isSortIndicatorShown() ? size - QSize(size.height() / 2, 0) : size;
    }
};

/// Shows how much a cell's text matters, and a share as a bar behind it.
class CellDelegate final : public QStyledItemDelegate {
public:
    CellDelegate(const AdviceTable& table, const QSortFilterProxyModel& order, QObject* parent)
        : QStyledItemDelegate(parent), table_(&table), order_(&order) {}

    void paint(QPainter* painter, const QStyleOptionViewItem& option,
               const QModelIndex& index) const override {
        const QModelIndex source = order_->mapToSource(index);
        const AdviceTable::Row& row = table_->Rows()[static_cast<std::size_t>(source.row())];
        const QColor base = option.palette.color(QPalette::Base);
        if (row.IsHeading)
            painter->fillRect(option.rect, Shaded(option.palette.color(QPalette::Text), base, Shade::Area));
        const AdviceTable::Cell* const cell = CellOf(*table_, source.row(), source.column());
        if (cell != nullptr && cell->Share && !option.state.testFlag(QStyle::State_Selected)) {
            QRect bar = option.rect.adjusted(2, 1, -2, -2);
            bar.setWidth(qRound(*cell->Share * bar.width()));
            const QColor side = SideColour(row.OfSide, option.palette);
            painter->fillRect(QStyle::visualRect(option.direction, option.rect, bar),
                              Mixed(side, base, BarShare));
        }
        QStyledItemDelegate::paint(painter, option, index);
    }

protected:
    void initStyleOption(QStyleOptionViewItem* option, const QModelIndex& index) const override {
        QStyledItemDelegate::initStyleOption(option, index);
        using Weight = AdviceTable::Weight;
        const QModelIndex source = order_->mapToSource(index);
        const AdviceTable::Row& row = table_->Rows()[static_cast<std::size_t>(source.row())];
        const Weight look = table_->Columns()[static_cast<std::size_t>(source.column())].Look;
        option->font.setBold(row.IsHeading || look == Weight::Strong);
        option->fontMetrics = QFontMetrics(option->font);
        // Texts are read from the left in every layout: "2 medals", "−7.9".
        option->displayAlignment = QStyle::visualAlignment(option->direction, option->displayAlignment);
        option->direction = Qt::LeftToRight;
        option->state.setFlag(QStyle::State_Enabled);
        // The selection shows the current row.
        if (!table_->IsToRead)
            option->state.setFlag(QStyle::State_HasFocus, false);
        double share = Shade::Full;
        if (table_->IsStale || (row.IsDimmed && look != Weight::Strong))
            share = Shade::Dimmed;
        else if (look == Weight::Quiet)
            share = Shade::Quiet;
        if (share < Shade::Full)
            option->palette.setColor(QPalette::Text, Shaded(option->palette.color(QPalette::Text),
                                                            option->palette.color(QPalette::Base), share));
    }

private:
    const AdviceTable* table_;
    const QSortFilterProxyModel* order_;
};

} // namespace

AdviceTableView::AdviceTableView(AdviceTable& table, QWidget* parent)
    : QTableView(parent), table_(&table), rows_(new Rows(table, this)), order_(new Order(*rows_, this)) {
    setHorizontalHeader(new Header(this));
    setModel(order_);
    setItemDelegate(new CellDelegate(table, *order_, this));
    setAccessibleName(ToQt(table.Title));
    setSelectionBehavior(SelectRows);
    setSelectionMode(table.IsToRead ? NoSelection : SingleSelection);
    setEditTriggers(NoEditTriggers);
    setShowGrid(false);
    setWordWrap(false);
    setTabKeyNavigation(false);
    setVerticalScrollMode(ScrollPerItem);
    setHorizontalScrollMode(ScrollPerPixel);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
    SetRowHeight();
    MakeColumns();
    OfferCopy(*this);
    Follow();
    KeepWith(*this, table.Changed.Connect([this] { Follow(); }));
}

AdviceTableView::~AdviceTableView() = default;

void AdviceTableView::MakeColumns() {
    QHeaderView& header = *horizontalHeader();
    header.setHighlightSections(false);
    header.setSectionsClickable(!table_->IsToRead);
    const auto& columns = table_->Columns();
    // Conditions take the spare width, or else what the rows are of; where all are figures, they share it.
    const auto isWords = [](const AdviceTable::Column& column) { return !column.IsFigure; };
    auto wide = std::ranges::find_if(columns, [&](const AdviceTable::Column& column) {
        return isWords(column) && column.Look == AdviceTable::Weight::Quiet;
    });
    if (wide == columns.end())
        wide = std::ranges::find_if(columns, isWords);
    for (int column = 0; column < static_cast<int>(columns.size()); ++column) {
        const bool isWide = wide == columns.end() || column == wide - columns.begin();
        header.setSectionResizeMode(column, isWide ? QHeaderView::Stretch : QHeaderView::ResizeToContents);
    }
    if (table_->IsToRead)
        return;
    header.setSortIndicatorClearable(true);
    header.setSortIndicator(-1, Qt::AscendingOrder);
    setSortingEnabled(true);
}

void AdviceTableView::Follow() {
    isFollowing_ = true;
    const int scrolled = verticalScrollBar()->value();
    const bool isAnew = std::exchange(edition_, table_->Edition()) != table_->Edition();
    if (isAnew)
        rows_->Reset();
    const auto current = table_->Current();
    if (table_->IsToRead) {
        viewport()->update();
        isFollowing_ = false;
        return;
    }
    const QModelIndex index =
        current ? order_->mapFromSource(rows_->index(static_cast<int>(*current), 0)) : QModelIndex();
    if (!index.isValid()) {
        clearSelection();
        setCurrentIndex({});
    } else if (index.row() != currentIndex().row() || selectionModel()->selectedRows().isEmpty()) {
        selectRow(index.row());
        selectionModel()->setCurrentIndex(index, QItemSelectionModel::NoUpdate);
    }
    if (isAnew)
        verticalScrollBar()->setValue(scrolled);
    viewport()->update();
    isFollowing_ = false;
}

void AdviceTableView::currentChanged(const QModelIndex& current, const QModelIndex& previous) {
    QTableView::currentChanged(current, previous);
    if (!isFollowing_ && current.isValid() && current.row() != previous.row())
        RunOutermost([&] { table_->Pick(static_cast<std::size_t>(order_->mapToSource(current).row())); });
}

void AdviceTableView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Return || event->key() == Qt::Key_Enter)
        RunOutermost([this] { table_->Activate(); });
    else
        QTableView::keyPressEvent(event);
}

void AdviceTableView::mouseDoubleClickEvent(QMouseEvent* event) {
    const QModelIndex index = indexAt(event->position().toPoint());
    if (event->button() == Qt::LeftButton && index.isValid() && model()->flags(index) != Qt::NoItemFlags)
        RunOutermost([this] { table_->Activate(); });
}

void AdviceTableView::changeEvent(QEvent* event) {
    QTableView::changeEvent(event);
    if (event->type() == QEvent::FontChange)
        SetRowHeight();
}

void AdviceTableView::SetRowHeight() {
    const int height = fontMetrics().height() + 3;
    verticalHeader()->setMinimumSectionSize(height);
    verticalHeader()->setDefaultSectionSize(height);
}

QSize AdviceTableView::sizeHint() const {
    return {0, horizontalHeader()->sizeHint().height() + 8 * verticalHeader()->defaultSectionSize()};
}

} // namespace vorhaven
