// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/advice/OrdersPlot.h"

#include "app/controls/Binding.h"
#include "app/program/ErrorReport.h"
#include "app/program/Shade.h"
#include "app/program/SideColours.h"

#include <QtMath>

#include <algorithm>
#include <cmath>

namespace vorhaven {
namespace {

constexpr double PointSize = 10.0;
constexpr double CurrentPointSize = 1.5 * PointSize;

/// About as many ticks has an axis.
constexpr int UsualTicks = 5;

/// Ticks with as many decimals as they need, all the same number and at least one.
class Ticks final : public QCPAxisTicker {
public:
    explicit Ticks(const QString& unit) : unit_(unit) {}

protected:
    double getTickStep(const QCPRange& range) override {
        double magnitude = 1.0;
        const double mantissa = getMantissa(QCPAxisTicker::getTickStep(range), &magnitude);
        // Steps of 2.5 take a decimal more than those around them.
        const double step = magnitude * (mantissa > 2.0 && mantissa < 3.0 ? 2.0 : mantissa);
        decimals_ = std::max(1, qCeil(-std::log10(step) - 0.01));
        return step;
    }
    QString getTickLabel(double tick, const QLocale& locale, QChar format, int /*precision*/) override {
        return QCPAxisTicker::getTickLabel(tick, locale, format, decimals_) + unit_;
    }

private:
    QString unit_;
    int decimals_ = 1;
};

/// A range with some room around it, wide enough to have ticks that differ.
QCPRange WithRoom(double low, double high, double least) {
    const double room = std::max(0.12 * (high - low), least);
    return {low - room, high + room};
}

} // namespace

OrdersPlot::OrdersPlot(OrdersPage& page, QWidget* parent)
    : QCustomPlot(parent), page_(&page), best_(addGraph()), current_(addGraph()), asItIs_(addGraph()) {
    setFocusPolicy(Qt::NoFocus);
    xAxis->setLabel(QStringLiteral("Own turns lost"));
    yAxis->setLabel(QStringLiteral("Attacker wins"));
    xAxis->setTicker(QSharedPointer<Ticks>::create(QString()));
    yAxis->setTicker(QSharedPointer<Ticks>::create(QStringLiteral("%")));
    for (QCPAxis* axis : {xAxis, yAxis}) {
        axis->setSubTicks(false);
        axis->setNumberFormat(QStringLiteral("f"));
        axis->ticker()->setTickCount(UsualTicks);
    }
    xAxis->grid()->setVisible(false);
    current_->setLineStyle(QCPGraph::lsNone);
    asItIs_->setLineStyle(QCPGraph::lsNone);
    ShowAll();
    KeepWith(*this, page.tblOrders.Changed.Connect([this] { ShowAll(); }));
}

QSize OrdersPlot::sizeHint() const {
    return {0, fontMetrics().height() * 16};
}

void OrdersPlot::ShowAll() {
    // The title beside the vertical axis is whole.
    setMinimumHeight(fontMetrics().horizontalAdvance(yAxis->label()) + fontMetrics().height() * 4);
    clearItems();
    ShowColours();
    ShowPoints();
    replot(rpQueuedReplot);
}

void OrdersPlot::ShowColours() {
    const QPalette& colours = palette();
    const QColor text = colours.color(QPalette::Text);
    const QColor base = colours.color(QPalette::Base);
    const QColor side = SideColour(Side::Attacker, colours);
    const QColor fill = page_->tblOrders.IsStale ? Mixed(side, base, Shade::Dimmed) : side;
    setBackground(base);
    for (QCPAxis* axis : {xAxis, yAxis}) {
        axis->setLabelFont(font());
        axis->setTickLabelFont(font());
        axis->setLabelColor(text);
        axis->setTickLabelColor(Shaded(text, base, Shade::Quiet));
        axis->setBasePen(text);
        axis->setTickPen(text);
        axis->grid()->setPen(QPen(Shaded(text, base, Shade::TableLine), 1, Qt::DotLine));
    }
    best_->setPen(QPen(fill, 1));
    best_->setScatterStyle({QCPScatterStyle::ssDiamond, QPen(text), fill, PointSize});
    current_->setScatterStyle({QCPScatterStyle::ssDiamond, QPen(text), fill, CurrentPointSize});
    asItIs_->setScatterStyle({QCPScatterStyle::ssDiamond, QPen(text), base, PointSize});
}

void OrdersPlot::ShowPoints() {
    for (QCPGraph* graph : {best_, current_, asItIs_})
        graph->data()->clear();
    const auto& points = page_->Points();
    const bool isAny = !page_->tblOrders.Rows().empty() && page_->AsItIs();
    axisRect()->setVisible(isAny);
    for (QCPAxis* axis : {xAxis, yAxis})
        axis->setVisible(isAny);
    if (!isAny)
        return;
    const OrdersPage::Point& now = *page_->AsItIs();
    double left = now.OwnTurnsLost;
    double right = left;
    double low = 100.0 * now.Wins;
    double high = low;
    for (const OrdersPage::Point& point : points) {
        best_->addData(point.OwnTurnsLost, 100.0 * point.Wins);
        left = std::min(left, point.OwnTurnsLost);
        right = std::max(right, point.OwnTurnsLost);
        low = std::min(low, 100.0 * point.Wins);
        high = std::max(high, 100.0 * point.Wins);
    }
    xAxis->setRange(WithRoom(left, right, 0.1));
    yAxis->setRange(WithRoom(low, high, 0.3));
    asItIs_->addData(now.OwnTurnsLost, 100.0 * now.Wins);
    const QColor text = palette().color(QPalette::Text);
    MakeText(QString::fromUtf8(OrdersPage::AsItIsText), now.OwnTurnsLost, 100.0 * now.Wins, text, false);
    if (const auto row = page_->tblOrders.Current()) {
        const OrdersPage::Point& point = points[*row];
        current_->addData(point.OwnTurnsLost, 100.0 * point.Wins);
        MakeText(QString::fromStdString(point.Text), point.OwnTurnsLost, 100.0 * point.Wins,
                 SideColour(Side::Attacker, palette()), true);
    }
}

void OrdersPlot::MakeText(const QString& text, double turns, double percent, const QColor& colour,
                          bool isBold) {
    auto* const item = new QCPItemText(this);
    QFont itemFont = font();
    itemFont.setBold(isBold);
    item->setFont(itemFont);
    item->setColor(colour);
    item->setText(text);
    item->position->setCoords(turns, percent);
    // Towards the middle, where there is room.
    const bool isRight = turns > xAxis->range().center();
    item->setPositionAlignment((isRight ? Qt::AlignRight : Qt::AlignLeft) |
                               (isBold ? Qt::AlignTop : Qt::AlignBottom));
    item->setPadding({8, 6, 8, 6});
    item->setClipToAxisRect(false);
}

QPointF OrdersPlot::PlaceOf(const OrdersPage::Point& point) const {
    return {xAxis->coordToPixel(point.OwnTurnsLost), yAxis->coordToPixel(100.0 * point.Wins)};
}

void OrdersPlot::mousePressEvent(QMouseEvent* event) {
    const auto& points = page_->Points();
    const auto distance = [&](const OrdersPage::Point& point) {
        return (PlaceOf(point) - event->position()).manhattanLength();
    };
    const auto nearest = std::ranges::min_element(points, {}, distance);
    if (nearest != points.end() && distance(*nearest) <= 2.0 * PointSize)
        RunOutermost([&] { page_->tblOrders.Pick(static_cast<std::size_t>(nearest - points.begin())); });
}

void OrdersPlot::resizeEvent(QResizeEvent* event) {
    constexpr int linesPerTick = 3;
    yAxis->ticker()->setTickCount(
        std::clamp(height() / (linesPerTick * fontMetrics().height()), 2, UsualTicks));
    QCustomPlot::resizeEvent(event);
}

void OrdersPlot::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        ShowAll();
}

} // namespace vorhaven
