// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/GridView.h"

#include "app/controls/Binding.h"
#include "app/program/ErrorReport.h"
#include "app/program/Shade.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QHeaderView>
#include <QKeyEvent>
#include <QMenu>
#include <QScreen>
#include <QScrollBar>

#include <algorithm>
#include <utility>

namespace vorhaven {
namespace {

/// The rows that a grid has room for on any screen, in pixels: a whole stack of attackers in small print.
constexpr int LeastHeight = 150;

/// What a window puts at the sides of a grid, in pixels, more or less.
constexpr int AroundGrid = 60;

QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

GridView::GridView(QWidget* parent) : QTableWidget(parent) {
    setSelectionBehavior(SelectRows);
    setSelectionMode(SingleSelection);
    setHorizontalScrollMode(ScrollPerPixel);
    setEditTriggers(NoEditTriggers);
    setTabKeyNavigation(false);
    horizontalHeader()->setHighlightSections(false);
    horizontalHeader()->setStretchLastSection(true);
    verticalHeader()->hide();
    verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
}

void GridView::Show(Grid& grid) {
    grid_ = &grid;
    setColumnCount(static_cast<int>(grid.Columns().size()));
    for (int column = 0; column < columnCount(); ++column) {
        auto* const header =
            new QTableWidgetItem(ToQt(grid.Columns()[static_cast<std::size_t>(column)].Header));
        header->setTextAlignment(Qt::AlignLeft | Qt::AlignVCenter);
        setHorizontalHeaderItem(column, header);
    }
    ShowRows();
    KeepWith(*this, grid.Changed.Connect([this] { ShowRows(); }));
    connect(this, &QTableWidget::currentCellChanged, this, [this](int row, int /*column*/, int previousRow) {
        if (row < 0 || row == previousRow)
            return;
        selectRow(row);
        RunOutermost([&] { grid_->PickRow(row + 1); });
    });
}

void GridView::ShowRows() {
    verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 3);
    setRowCount(grid_->LastFilledRow().Value());
    for (int row = 0; row < rowCount(); ++row)
        ShowRow(row);
    for (int column = 0; column < columnCount(); ++column) {
        const int characters = grid_->Columns()[static_cast<std::size_t>(column)].Width;
        resizeColumnToContents(column);
        setColumnWidth(column, std::max(columnWidth(column), characters * fontMetrics().averageCharWidth()));
    }
    updateGeometry();
}

void GridView::ShowRow(int row) {
    const QColor quiet =
        Shaded(palette().color(QPalette::Text), palette().color(QPalette::Base), Shade::Quiet);
    const QString details = ToQt(grid_->Details(row + 1));
    for (int column = 0; column < columnCount(); ++column) {
        auto* const cell = new QTableWidgetItem(ToQt(grid_->Text(row + 1, column)));
        QFont cellFont = font();
        cellFont.setBold(grid_->IsEmphasised(row + 1, column));
        cell->setFont(cellFont);
        if (grid_->IsQuiet(row + 1, column))
            cell->setForeground(quiet);
        cell->setToolTip(details.isEmpty() ? QString() : toolTip() + "\n" + details);
        cell->setData(Qt::AccessibleDescriptionRole, details);
        setItem(row, column, cell);
    }
}

QSize GridView::sizeHint() const {
    return SizeForRows(rowCount());
}

QSize GridView::minimumSizeHint() const {
    const int leastRows = LeastHeight / verticalHeader()->defaultSectionSize();
    return {0, SizeForRows(std::min(rowCount(), leastRows)).height()};
}

int GridView::WidthOfColumns() const {
    int width = verticalScrollBar()->sizeHint().width() + 2 * frameWidth();
    for (int column = 0; column < columnCount() - 1; ++column)
        width += columnWidth(column);
    return width + horizontalHeader()->sectionSizeHint(columnCount() - 1);
}

QSize GridView::SizeForRows(int rows) const {
    const bool isTooWide = hasSideways_ || WidthOfColumns() + AroundGrid > screen()->availableSize().width();
    const int barHeight = isTooWide ? horizontalScrollBar()->sizeHint().height() : 0;
    return {WidthOfColumns(), horizontalHeader()->sizeHint().height() +
                                  rows * verticalHeader()->defaultSectionSize() + barHeight +
                                  2 * frameWidth()};
}

void GridView::resizeEvent(QResizeEvent* event) {
    QTableWidget::resizeEvent(event);
    // The rows keep their room beside the bar that scrolls sideways.
    if (std::exchange(hasSideways_, width() < WidthOfColumns()) != hasSideways_)
        updateGeometry();
}

void GridView::changeEvent(QEvent* event) {
    QTableWidget::changeEvent(event);
    const bool isLook = event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange;
    if (isLook && grid_ != nullptr)
        ShowRows();
}

void GridView::contextMenuEvent(QContextMenuEvent* event) {
    OpenMenu(event->globalPos(),
             event->reason() == QContextMenuEvent::Keyboard ? MenuAsked::ByKeyboard : MenuAsked::ByMouse);
}

void GridView::keyPressEvent(QKeyEvent* event) {
    if (event->matches(QKeySequence::Copy))
        CopyNumbers();
    else if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        OpenMenu(mapToGlobal(viewport()->geometry().topLeft()), MenuAsked::ByKeyboard);
    else
        QTableWidget::keyPressEvent(event);
}

void GridView::CopyNumbers() const {
    QGuiApplication::clipboard()->setText(QString::fromStdString(grid_->Numbers()));
}

void GridView::OpenMenu(const QPoint& position, MenuAsked asked) {
    auto* const menu = new QMenu(this);
    menu->addAction(QString::fromStdString(grid_->CopyNumbers), this, &GridView::CopyNumbers);
    PopUp(*menu, position, asked);
}

} // namespace vorhaven
