// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ChartView.h"

#include "app/Binding.h"

#include <QAccessibleWidget>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QTimer>
#include <QToolTip>

#include <algorithm>
#include <cmath>
#include <utility>

namespace vorhaven {
namespace {

constexpr double BarWidth = 0.4;

// Blue and orange, told apart by every kind of sight, and light against dark in grey too.
struct SeriesColours {
    QColor First;
    QColor Second;
};
constexpr SeriesColours OnLight{QColor(0, 90, 150), QColor(240, 170, 40)};
constexpr SeriesColours OnDark{QColor(120, 195, 240), QColor(205, 95, 10)};

/// The upper end of an axis for values up to `highest`.
double AxisEnd(int highest) {
    return std::max(10.0, std::ceil(highest * 1.05));
}

/// Ticks for an axis of whole numbers.
QSharedPointer<QCPAxisTicker> WholeNumbers() {
    const QSharedPointer<QCPAxisTickerFixed> ticks(new QCPAxisTickerFixed);
    ticks->setTickStep(1.0);
    ticks->setScaleStrategy(QCPAxisTickerFixed::ssMultiples);
    return ticks;
}

/// Tells screen readers that a chart is one.
QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    auto* const chart = dynamic_cast<ChartView*>(object);
    return chart != nullptr ? new QAccessibleWidget(chart, QAccessible::Chart) : nullptr;
}

} // namespace

ChartView::ChartView(Chart& chart, QWidget* parent)
    : QCustomPlot(parent), chart_(&chart), title_(new QCPTextElement(this)) {
    setMinimumSize(fontMetrics().averageCharWidth() * 50, fontMetrics().height() * 14);
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // Installing it again changes nothing.
    QAccessible::installFactory(MakeAccessible);
    setAccessibleName(QString::fromStdString(chart.Title));

    plotLayout()->insertRow(0);
    plotLayout()->addElement(0, 0, title_);
    title_->setText(QString::fromStdString(chart.Title));
    xAxis->setLabel(QString::fromStdString(chart.CategoryTitle));
    yAxis->setLabel(QString::fromStdString(chart.ValueTitles[0]));
    yAxis2->setLabel(QString::fromStdString(chart.ValueTitles[1]));
    yAxis2->setVisible(true);
    yAxis->setSubTicks(false);
    yAxis2->setSubTicks(false);
    xAxis->grid()->setVisible(false);
    xAxis->setSubTicks(false);
    xAxis->setRange(-0.7, static_cast<double>(chart.Rows().size()) - 0.3);

    const std::array<QCPAxis*, 2> valueAxes{yAxis, yAxis2};
    for (std::size_t i = 0; i < series_.size(); ++i) {
        series_[i] = new QCPBars(xAxis, valueAxes[i]);
        series_[i]->setName(QString::fromStdString(chart.ValueTitles[i]));
        series_[i]->setWidth(BarWidth);
        valueAxes[i]->setTicker(WholeNumbers());
    }
    legend->setVisible(true);
    // Below the title: no column is ever hidden behind it.
    auto* const legendRow = new QCPLayoutGrid;
    plotLayout()->insertRow(1);
    plotLayout()->addElement(1, 0, legendRow);
    legendRow->addElement(0, 0, legend);
    legendRow->addElement(0, 1, new QCPLayoutElement(this));
    legendRow->setColumnStretchFactor(0, 0.001);
    legend->setFillOrder(QCPLegend::foColumnsFirst);
    plotLayout()->setRowStretchFactor(1, 0.001);

    ShowColours();
    ShowData();
    // A chart is filled value by value; it is shown once when that is done.
    KeepWith(*this, chart.Changed.Connect([this] {
        if (!std::exchange(isStale_, true))
            QTimer::singleShot(0, this, [this] { ShowData(); });
    }));
}

void ChartView::ShowData() {
    isStale_ = false;
    std::array<QVector<double>, 2> keys;
    std::array<QVector<double>, 2> values;
    std::array<int, 2> highest{};
    double place = 0.0;
    for (const Chart::Row& row : chart_->Rows()) {
        for (std::size_t i = 0; i < series_.size(); ++i) {
            keys[i].append(place + (i == 0 ? -BarWidth / 2 : BarWidth / 2));
            values[i].append(row.Values[i].Value());
            highest[i] = std::max(highest[i], row.Values[i].Value());
        }
        place += 1.0;
    }
    ShowLabels();
    for (std::size_t i = 0; i < series_.size(); ++i) {
        series_[i]->setData(keys[i], values[i], true);
        series_[i]->valueAxis()->setRange(0.0, AxisEnd(highest[i]));
    }
    setAccessibleDescription(QString::fromStdString(chart_->Description()));
    replot(rpQueuedReplot);
}

int ChartView::WidthOfLabels() const {
    return static_cast<int>(chart_->Rows().size()) * fontMetrics().horizontalAdvance(QStringLiteral("000"));
}

void ChartView::ShowLabels() {
    const auto& rows = chart_->Rows();
    const auto step = static_cast<std::size_t>(WidthOfLabels() / std::max(1, axisRect()->width()) + 1);
    const QSharedPointer<QCPAxisTickerText> labels(new QCPAxisTickerText);
    for (std::size_t row = 0; row < rows.size(); row += step)
        labels->addTick(static_cast<double>(row), QString::fromStdString(rows[row].Label));
    xAxis->setTicker(labels);
}

void ChartView::ShowColours() {
    const QColor text = palette().color(QPalette::Text);
    const QColor base = palette().color(QPalette::Base);
    const SeriesColours& colours = base.lightness() < 128 ? OnDark : OnLight;
    QColor faint = text;
    faint.setAlphaF(0.2F);

    setBackground(base);
    for (QCPAxis* axis : {xAxis, yAxis, yAxis2}) {
        axis->setBasePen(text);
        axis->setTickPen(text);
        axis->setSubTickPen(text);
        axis->setLabelColor(text);
        axis->setTickLabelColor(text);
        axis->setLabelFont(font());
        axis->setTickLabelFont(font());
        axis->grid()->setPen(QPen(faint, 0, Qt::DotLine));
    }
    QFont titleFont = font();
    titleFont.setBold(true);
    title_->setFont(titleFont);
    title_->setTextColor(text);
    legend->setBrush(Qt::NoBrush);
    legend->setBorderPen(Qt::NoPen);
    legend->setFont(font());
    legend->setTextColor(text);
    series_[0]->setBrush(colours.First);
    series_[0]->setPen(colours.First);
    series_[1]->setBrush(colours.Second);
    series_[1]->setPen(colours.Second);
}

QString ChartView::DetailsAt(const QPoint& place) const {
    if (!axisRect()->rect().contains(place))
        return {};
    const int row = qRound(xAxis->pixelToCoord(place.x()));
    if (row < 0 || row >= static_cast<int>(chart_->Rows().size()))
        return {};
    return QString::fromStdString(chart_->Rows()[static_cast<std::size_t>(row)].Details);
}

QSize ChartView::sizeHint() const {
    // Room for the label of every category, and for the axes beside them.
    return {WidthOfLabels() * 5 / 4, minimumHeight() * 5 / 4};
}

bool ChartView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QCustomPlot::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const QString details = DetailsAt(help->pos());
    if (details.isEmpty())
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), details, this);
    return true;
}

void ChartView::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange) {
        ShowColours();
        replot(rpQueuedReplot);
    }
}

void ChartView::resizeEvent(QResizeEvent* event) {
    QCustomPlot::resizeEvent(event);
    ShowLabels();
    replot(rpQueuedReplot);
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
    OpenMenu(event->globalPos());
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        OpenMenu(mapToGlobal(axisRect()->topLeft()));
    else
        QCustomPlot::keyPressEvent(event);
}

void ChartView::focusInEvent(QFocusEvent* event) {
    QCustomPlot::focusInEvent(event);
    update();
}

void ChartView::focusOutEvent(QFocusEvent* event) {
    QCustomPlot::focusOutEvent(event);
    update();
}

void ChartView::paintEvent(QPaintEvent* event) {
    QCustomPlot::paintEvent(event);
    if (!hasFocus())
        return;
    QPainter painter(this);
    painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
    painter.drawRect(rect().adjusted(1, 1, -1, -1));
}

void ChartView::OpenMenu(const QPoint& position) {
    // Not executed but popped up: a run that pumps this event goes on behind the menu.
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(QString::fromStdString(chart_->CopyPicture), this,
                    [this] { QGuiApplication::clipboard()->setPixmap(toPixmap(0, 0, devicePixelRatioF())); });
    menu->addAction(QString::fromStdString(chart_->CopyNumbers), this, [this] {
        QGuiApplication::clipboard()->setText(QString::fromStdString(chart_->Numbers()));
    });
    menu->popup(position);
}

} // namespace vorhaven
