// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "app/controls/PopUp.h"
#include "ui/controls/Chart.h"

#include <qcustomplot.h>

namespace vorhaven {

/// A chart's columns: the first series on the left axis in the colour of the chart's side, the second, thin
/// and quiet, on an axis of its own on the right; what the chart says about them; and exact values as
/// diamonds.
class ChartView final : public QCustomPlot {
public:
    explicit ChartView(QWidget* parent = nullptr);

    /// Shows a chart, which must outlive the view, as it is now and becomes. Bind calls it.
    void Show(Chart& chart);

    [[nodiscard]] QSize sizeHint() const override;

    /// Categories, counted from 0; the one that the user is at, -1 for none.
    [[nodiscard]] int RowCount() const { return static_cast<int>(chart_->Rows().size()); }
    [[nodiscard]] int CurrentRow() const { return current_; }
    [[nodiscard]] QString DetailsOf(int row) const;
    /// A category's strip of the chart with its label below, in the view.
    [[nodiscard]] QRect PlaceOf(int row) const;
    /// The category at a place in the view; -1 outside of the chart's area.
    [[nodiscard]] int RowAt(const QPoint& place) const;

protected:
    bool event(QEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;

private:
    // ChartView.cpp

    /// Opens the chart's own menu.
    void OpenMenu(const QPoint& position, MenuAsked asked);
    void CopyNumbers() const;
    /// Makes a category the current one and shows its details as hovering does.
    void GoTo(int row);

    // ChartContents.cpp

    void MakeHeading();
    void MakeAxes();
    void MakePlottables();

    // What is shown is made anew whenever the chart, the colours, the font or the size change.
    void ShowAll();
    /// Puts the legend beside the title, or below it where there is no room.
    void PlaceLegend();
    void ShowColours();
    void ShowColumns();
    /// Gives the axes the room that the figures take above the highest column.
    void MakeHeadroom();
    void SetHeadroom(double headroom);
    void ShowFigures();
    /// A category's figure and where it goes if no other one is in the way, in pixels. `turnsBefore`,
    /// `turns`: the second series' values of the category before and of this one.
    std::pair<QCPItemText*, QRectF> MakeFigure(const Chart::Row& row, double category, double turnsBefore,
                                               double turns);
    void ShowMean();
    /// Labels as many categories as there is room for, those that cannot occur more faintly.
    void ShowLabels();
    /// Marks on the axis where one category ends and the next one begins.
    void ShowBorders();
    void ShowUnreachable();
    QCPItemText* MakeText(const QString& text, const QColor& colour);
    /// What the labels of all categories take side by side, in pixels.
    [[nodiscard]] int WidthOfLabels() const;
    /// Text colour over the Base colour, in a share of the text's.
    [[nodiscard]] QColor Shaded(double share) const;
    [[nodiscard]] QColor ColourOfSide() const;
    [[nodiscard]] QFont FigureFont() const;

    Chart* chart_ = nullptr;
    QCPLayoutGrid* heading_ = nullptr;
    QCPTextElement* title_;
    QCPTextElement* sentence_;
    std::array<QCPBars*, 2> series_{};
    QCPGraph* exact_ = nullptr;
    int current_ = -1;
    /// The chart has changed since it was shown.
    bool isStale_ = false;
};

} // namespace vorhaven
