// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/ChartView.h"
#include "app/program/Shade.h"
#include "app/program/SideColours.h"

#include <QPainterPath>

#include <algorithm>
#include <cmath>
#include <functional>
#include <limits>
#include <vector>

// What a chart shows; how the user acts on it is in ChartView.cpp.
namespace vorhaven {
namespace {

// Widths of columns and where their middles are, in categories: both columns together are centred on their
// category's label.
constexpr double ColumnWidth = 0.58;
constexpr double ColumnOffset = -0.08;
constexpr double ThinColumnWidth = 0.10;
constexpr double ThinColumnOffset = 0.32;
/// How far the axis goes beyond the first and the last category.
constexpr double Margin = 0.7;

/// How much higher than the highest column an axis may be, to have room for figures above it. In steps, so
/// that two charts of nearly the same height have the same.
constexpr std::array Headrooms{1.3, 1.4, 1.5, 1.6, 1.8, 2.0, 2.2};
constexpr double LeastAxisEnd = 10.0;

/// Between two figures, in pixels.
constexpr double FigureGap = 2.0;
/// By less than this, in pixels, no figure is seen to be higher than another.
constexpr double LeastStep = 4.0;

/// The thin columns' share of the text's colour: quieter than text may be, with a contrast of 3 to 1.
constexpr double ThinColumnShade = 0.42;

constexpr auto BehindColumns = "behind columns";

/// Ticks for an axis of whole numbers up to a limit.
class WholeNumbers final : public QCPAxisTickerFixed {
public:
    explicit WholeNumbers(double limit) : limit_(limit) {
        setTickStep(1.0);
        setScaleStrategy(ssMultiples);
    }

protected:
    QVector<double> createTickVector(double tickStep, const QCPRange& range) override {
        return QCPAxisTickerFixed::createTickVector(tickStep, {range.lower, std::min(range.upper, limit_)});
    }

private:
    double limit_;
};

/// Marks that are whole where they touch the border of the chart's area.
class Marks final : public QCPGraph {
public:
    using QCPGraph::QCPGraph;

protected:
    [[nodiscard]] QRect clipRect() const override { return mParentPlot->rect(); }
};

/// The number above a column. It is drawn over other columns without hiding them: only a rim around its
/// digits has the background's colour. Its box is as high as a digit.
class Figure final : public QCPItemText {
public:
    Figure(QCustomPlot* plot, const QColor& background) : QCPItemText(plot), background_(background) {
        setClipToAxisRect(false);
        setPositionAlignment(Qt::AlignHCenter | Qt::AlignBottom);
        position->setType(QCPItemPosition::ptAbsolute);
    }

    void SetFont(const QFont& font) {
        setFont(font);
        const QFontMetrics metrics(font);
        setPadding({0, metrics.capHeight() - metrics.ascent(), 0, -metrics.descent()});
    }

protected:
    void draw(QCPPainter* painter) override {
        const QPointF start = bottomLeft->pixelPosition();
        QPainterPath outline;
        outline.addText(start, font(), text());
        painter->setAntialiasing(true);
        painter->strokePath(outline, QPen(background_, 3.0, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
        painter->setFont(font());
        painter->setPen(color());
        painter->drawText(start, text());
    }

private:
    QColor background_;
};

QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

int WidthOf(const QCPLayoutElement& element) {
    return element.minimumOuterSizeHint().width();
}

} // namespace

void ChartView::MakeHeading() {
    heading_ = new QCPLayoutGrid;
    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, heading_);
    plotLayout()->setRowStretchFactor(0, 0.001);
    title_->setText(ToQt(chart_->Title));
    title_->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);
    heading_->addElement(0, 0, title_);
    heading_->addElement(0, 1, new QCPLayoutElement(this));
    heading_->addElement(0, 2, legend);
    heading_->setColumnStretchFactor(0, 0.001);
    heading_->setColumnStretchFactor(2, 0.001);
    legend->setVisible(true);
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    legend->setBrush(Qt::NoBrush);
    legend->setBorderPen(Qt::NoPen);
}

void ChartView::MakeAxes() {
    xAxis->setLabel(ToQt(chart_->CategoryTitle));
    yAxis->setLabel(ToQt(chart_->ValueTitles[0]));
    yAxis2->setLabel(ToQt(chart_->ValueTitles[1]));
    yAxis2->setVisible(true);
    // No category occurs more often than always.
    yAxis->setTicker(QSharedPointer<WholeNumbers>::create(100.0));
    yAxis2->setTicker(QSharedPointer<WholeNumbers>::create(std::numeric_limits<double>::infinity()));
    for (QCPAxis* axis : {xAxis, yAxis, yAxis2})
        axis->setSubTicks(false);
    // The mean is shown above the area.
    axisRect()->setMinimumMargins({0, fontMetrics().height() * 5 / 4, 0, 0});
    xAxis->setTickLength(0);
    xAxis->grid()->setVisible(false);
    xAxis->setRange(-Margin, static_cast<double>(chart_->Rows().size()) - 1.0 + Margin);
}

void ChartView::MakePlottables() {
    addLayer(BehindColumns, layer("grid"), limBelow);
    setAutoAddPlottableToLegend(false);
    // The turns are drawn first, but come second in the legend.
    series_[1] = new QCPBars(xAxis, yAxis2);
    series_[0] = new QCPBars(xAxis, yAxis);
    series_[0]->setWidth(ColumnWidth);
    series_[1]->setWidth(ThinColumnWidth);
    for (std::size_t i = 0; i < series_.size(); ++i) {
        series_[i]->setName(ToQt(chart_->ValueTitles[i]));
        series_[i]->addToLegend();
    }
    exact_ = new Marks(xAxis, yAxis);
    exact_->setName(ToQt(chart_->ExactTitle));
    exact_->setLineStyle(QCPGraph::lsNone);
    exact_->setLayer("overlay");
}

void ChartView::ShowAll() {
    isStale_ = false;
    clearItems();
    ShowColours();
    ShowColumns();
    sentence_->setText(ToQt(chart_->Remarks.Get().Sentence));
    // What follows depends on the room that there is.
    PlaceLegend();
    updateLayout();
    ShowLabels();
    MakeHeadroom();
    ShowFigures();
    ShowMean();
    ShowBorders();
    ShowUnreachable();
    setAccessibleDescription(ToQt(chart_->Description()));
    setMinimumSize(std::max({WidthOf(*title_), WidthOf(*legend), WidthOf(*sentence_)}) +
                       fontMetrics().height() * 2,
                   fontMetrics().height() * 15);
    replot(rpQueuedReplot);
}

void ChartView::PlaceLegend() {
    const bool fitsBeside = WidthOf(*title_) + WidthOf(*legend) + 2 * fontMetrics().height() <= width();
    heading_->take(legend);
    heading_->simplify();
    if (fitsBeside)
        heading_->addElement(0, 2, legend);
    else
        heading_->addElement(1, 0, legend);
}

void ChartView::ShowColours() {
    const QColor text = Shaded(Shade::Full);
    const QColor quiet = Shaded(Shade::Quiet);
    const std::array<std::pair<QCPAxis*, QColor>, 3> axes{
        {{xAxis, text}, {yAxis, ColourOfSide()}, {yAxis2, quiet}}};

    setBackground(palette().color(QPalette::Base));
    for (const auto& [axis, colour] : axes) {
        axis->setBasePen(colour);
        axis->setTickPen(colour);
        axis->setLabelColor(colour);
        axis->setTickLabelColor(colour);
        axis->setLabelFont(font());
        axis->setTickLabelFont(font());
        axis->grid()->setPen(QPen(Shaded(Shade::TableLine), 0, Qt::DotLine));
        axis->grid()->setZeroLinePen(Qt::NoPen);
    }
    QFont titleFont = font();
    titleFont.setBold(true);
    title_->setFont(titleFont);
    title_->setTextColor(text);
    sentence_->setFont(font());
    sentence_->setTextColor(text);

    const int em = fontMetrics().height();
    legend->setFont(font());
    legend->setTextColor(text);
    legend->setIconSize(em * 3 / 4, em * 3 / 4);
    for (std::size_t i = 0; i < series_.size(); ++i) {
        series_[i]->setBrush(i == 0 ? ColourOfSide() : Shaded(ThinColumnShade));
        series_[i]->setPen(Qt::NoPen);
    }
    exact_->setScatterStyle({QCPScatterStyle::ssDiamond, QPen(text, 1.5), palette().color(QPalette::Base),
                             fontMetrics().height() * 0.6});
}

void ChartView::ShowColumns() {
    std::array<QVector<double>, 2> keys;
    std::array<QVector<double>, 2> values;
    QVector<double> exactKeys;
    QVector<double> exactValues;
    double category = 0.0;
    for (const Chart::Row& row : chart_->Rows()) {
        if (!row.IsEmpty) {
            keys[0].append(category + ColumnOffset);
            values[0].append(row.Values[0].Value());
            keys[1].append(category + ThinColumnOffset);
            values[1].append(row.Values[1].Value());
        }
        if (row.HasExactMark()) {
            exactKeys.append(category + ColumnOffset);
            exactValues.append(*row.Exact);
        }
        category += 1.0;
    }
    for (std::size_t i = 0; i < series_.size(); ++i)
        series_[i]->setData(keys[i], values[i], true);
    SetHeadroom(Headrooms.front());
    exact_->setData(exactKeys, exactValues, true);
    if (chart_->HasExactMarks())
        exact_->addToLegend();
    else
        exact_->removeFromLegend();
}

void ChartView::SetHeadroom(double headroom) {
    for (std::size_t i = 0; i < series_.size(); ++i)
        series_[i]->valueAxis()->setRange(
            0.0, std::max(LeastAxisEnd, chart_->Remarks.Get().Highest[i] * headroom));
}

void ChartView::MakeHeadroom() {
    const QFontMetrics metrics(FigureFont());
    // Where figures are wider than their categories, neighbours are put one above the other.
    const double category = xAxis->coordToPixel(1.0) - xAxis->coordToPixel(0.0);
    const double levels = std::ceil((metrics.horizontalAdvance(QStringLiteral("<0")) + FigureGap) / category);
    const double needed =
        exact_->scatterStyle().size() / 2.0 + FigureGap + levels * (metrics.capHeight() + FigureGap);
    for (const double headroom : Headrooms) {
        SetHeadroom(headroom);
        if (axisRect()->height() * (1.0 - 1.0 / headroom) >= needed)
            break;
    }
    updateLayout();
}

void ChartView::ShowFigures() {
    std::vector<std::pair<QCPItemText*, QRectF>> figures;
    double category = 0.0;
    double turnsBefore = 0.0;
    for (const Chart::Row& row : chart_->Rows()) {
        const double turns = row.IsEmpty ? 0.0 : row.Values[1].Value();
        if (!row.Figure.empty())
            figures.push_back(MakeFigure(row, category, turnsBefore, turns));
        turnsBefore = turns;
        category += 1.0;
    }
    // The lowest first, and from left to right where they are about as high: a figure that another one is in
    // the way of goes above that one.
    std::ranges::sort(figures, {}, [](const auto& figure) {
        return std::pair{-qRound(figure.second.bottom() / LeastStep), figure.second.left()};
    });
    for (auto figure = figures.begin(); figure != figures.end(); ++figure) {
        QRectF& place = figure->second;
        const auto isInTheWay = [&place](const auto& other) {
            return other.second.adjusted(-FigureGap, -FigureGap, FigureGap, FigureGap).intersects(place);
        };
        for (auto other = figures.begin();
             (other = std::find_if(figures.begin(), figure, isInTheWay)) != figure;)
            place.moveBottom(other->second.top() - FigureGap);
        figure->first->position->setCoords(place.center().x(), place.bottom());
    }
}

std::pair<QCPItemText*, QRectF> ChartView::MakeFigure(const Chart::Row& row, double category,
                                                      double turnsBefore, double turns) {
    auto* const figure = new Figure(this, palette().color(QPalette::Base));
    figure->SetFont(FigureFont());
    figure->setText(ToQt(row.Figure));
    figure->setColor(ColourOfSide());
    const QFontMetrics metrics(FigureFont());
    const double exact = row.HasExactMark() ? *row.Exact : 0.0;
    const double columnTop = yAxis->coordToPixel(row.Values[0].Value()) - FigureGap;
    const double markTop = yAxis->coordToPixel(exact) - exact_->scatterStyle().size() / 2.0 - FigureGap;
    QRectF place(0.0, 0.0, metrics.horizontalAdvance(figure->text()), metrics.capHeight());
    place.moveBottom(exact > 0.0 ? std::min(columnTop, markTop) : columnTop);
    place.moveCenter({xAxis->coordToPixel(category + ColumnOffset), place.center().y()});
    // Between the thin columns at its sides that are so high, where that is wide enough for it.
    const auto isBeside = [&](double value) {
        return value > 0.0 && yAxis2->coordToPixel(value) < place.bottom();
    };
    const double right = xAxis->coordToPixel(category + ThinColumnOffset - ThinColumnWidth / 2.0) - 1.0;
    const double left = xAxis->coordToPixel(category - 1.0 + ThinColumnOffset + ThinColumnWidth / 2.0) + 1.0;
    if (place.width() <= right - left) {
        if (isBeside(turnsBefore))
            place.moveLeft(std::max(place.left(), left));
        if (isBeside(turns))
            place.moveRight(std::min(place.right(), right));
    }
    place.moveRight(std::min(place.right(), axisRect()->right() - FigureGap));
    return {figure, place};
}

void ChartView::ShowMean() {
    const ChartRemarks& remarks = chart_->Remarks;
    if (!remarks.Mean)
        return;
    QCPItemText* const label = MakeText(ToQt(remarks.MeanText), Shaded(Shade::Quiet));
    label->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
    label->position->setCoords(*remarks.Mean, 0.0);
    // Near an end of the axis the label is beside the line instead of on the axis.
    const double last = static_cast<double>(chart_->Rows().size()) - 1.0;
    const Qt::Alignment side = *remarks.Mean < 1.0          ? Qt::AlignLeft
                               : *remarks.Mean > last - 1.0 ? Qt::AlignRight
                                                            : Qt::AlignHCenter;
    label->setPositionAlignment(side | Qt::AlignBottom);
    auto* const line = new QCPItemLine(this);
    line->setLayer(BehindColumns);
    line->setPen(QPen(Shaded(Shade::Quiet), 1.0, Qt::DashLine));
    line->start->setCoords(*remarks.Mean, 0.0);
    line->end->setTypeY(QCPItemPosition::ptAxisRectRatio);
    line->end->setCoords(*remarks.Mean, 0.0);
}

void ChartView::ShowLabels() {
    const auto& rows = chart_->Rows();
    const auto step = static_cast<std::size_t>(WidthOfLabels() / std::max(1, axisRect()->width()) + 1);
    const QSharedPointer<QCPAxisTickerText> labels(new QCPAxisTickerText);
    for (std::size_t row = 0; row < rows.size(); row += step) {
        const QString label = ToQt(rows[row].Label);
        const auto category = static_cast<double>(row);
        if (row < chart_->Remarks.Get().Reachable.Index()) {
            labels->addTick(category, label);
            continue;
        }
        QCPItemText* const text = MakeText(label, Shaded(Shade::Unreachable));
        text->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
        text->position->setCoords(category, 1.0);
        text->setPositionAlignment(Qt::AlignHCenter | Qt::AlignTop);
        text->setPadding(QMargins(0, xAxis->tickLabelPadding() - 1, 0, 0));
    }
    xAxis->setTicker(labels);
}

void ChartView::ShowUnreachable() {
    const ChartRemarks& remarks = chart_->Remarks;
    if (remarks.Reachable >= SizeOf(chart_->Rows()))
        return;
    const double first = remarks.Reachable.Value() - 0.5;
    const double end = xAxis->range().upper;
    auto* const area = new QCPItemRect(this);
    area->setLayer(BehindColumns);
    area->setPen(Qt::NoPen);
    area->setBrush(Shaded(Shade::Area));
    for (QCPItemPosition* corner : {area->topLeft, area->bottomRight})
        corner->setTypeY(QCPItemPosition::ptAxisRectRatio);
    area->topLeft->setCoords(first, 0.0);
    area->bottomRight->setCoords(end, 1.0);

    QCPItemText* const reason = MakeText(ToQt(remarks.WhyUnreachable), Shaded(Shade::Quiet));
    reason->position->setTypeY(QCPItemPosition::ptAxisRectRatio);
    reason->position->setCoords((first + end) / 2.0, 0.5);
    const double length = fontMetrics().horizontalAdvance(reason->text());
    if (length <= xAxis->coordToPixel(end) - xAxis->coordToPixel(first))
        return;
    // Upright where it fits so; otherwise only the details of the categories say it.
    reason->setRotation(-90.0);
    reason->setVisible(length <= axisRect()->height());
}

void ChartView::ShowBorders() {
    const double length = 0.3 * fontMetrics().height();
    for (std::size_t row = 0; row <= chart_->Rows().size(); ++row) {
        auto* const tick = new QCPItemLine(this);
        tick->setClipToAxisRect(false);
        tick->setPen(xAxis->basePen());
        tick->start->setCoords(static_cast<double>(row) - 0.5, 0.0);
        tick->end->setParentAnchor(tick->start);
        tick->end->setType(QCPItemPosition::ptAbsolute);
        tick->end->setCoords(0.0, length);
    }
}

QCPItemText* ChartView::MakeText(const QString& text, const QColor& colour) {
    auto* const item = new QCPItemText(this);
    item->setClipToAxisRect(false);
    item->setText(text);
    item->setFont(font());
    item->setColor(colour);
    return item;
}

int ChartView::WidthOfLabels() const {
    return static_cast<int>(chart_->Rows().size()) * fontMetrics().horizontalAdvance(QStringLiteral("000"));
}

QFont ChartView::FigureFont() const {
    QFont bold = font();
    bold.setBold(true);
    return bold;
}

QColor ChartView::Shaded(double share) const {
    return vorhaven::Shaded(palette().color(QPalette::Text), palette().color(QPalette::Base), share);
}

QColor ChartView::ColourOfSide() const {
    return SideColour(static_cast<Side>(std::max(0, chart_->Index)), palette());
}

} // namespace vorhaven
