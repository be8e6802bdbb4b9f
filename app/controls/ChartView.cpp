// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/ChartView.h"

#include "app/controls/AccessibleChart.h"
#include "app/controls/Binding.h"
#include "app/program/Shade.h"

#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace vorhaven {
namespace {

/// How far below its place the toolkit shows a tooltip, in pixels.
constexpr int ToolTipOffset = 16;

QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

} // namespace

ChartView::ChartView(QWidget* parent)
    : QCustomPlot(parent), title_(new QCPTextElement(this)), sentence_(new QCPTextElement(this)) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    InstallAccessibleChart();
}

void ChartView::Show(Chart& chart) {
    chart_ = &chart;
    setAccessibleName(ToQt(chart.Title));
    MakeHeading();
    MakeAxes();
    MakePlottables();
    plotLayout()->addElement(2, 0, sentence_);
    plotLayout()->setRowStretchFactor(2, 0.001);
    plotLayout()->setRowSpacing(0);
    plotLayout()->setMargins({fontMetrics().height() / 2, fontMetrics().height() / 3,
                              fontMetrics().height() / 2, fontMetrics().height() / 2});
    sentence_->setTextFlags(Qt::AlignLeft | Qt::AlignVCenter);

    ShowAll();
    // A chart is filled value by value; it is shown once when that is done.
    KeepWith(*this, chart.Changed.Connect([this] {
        if (!std::exchange(isStale_, true))
            QMetaObject::invokeMethod(this, &ChartView::ShowAll, Qt::QueuedConnection);
    }));
}

QString ChartView::DetailsOf(int row) const {
    return ToQt(chart_->Rows()[static_cast<std::size_t>(row)].Details);
}

QRect ChartView::PlaceOf(int row) const {
    const QRect area = axisRect()->rect();
    const int left = qRound(xAxis->coordToPixel(row - 0.5));
    const int right = qRound(xAxis->coordToPixel(row + 0.5));
    const int labels = xAxis->tickLabelPadding() + fontMetrics().height();
    return {left, area.top(), right - left + 1, area.height() + labels};
}

int ChartView::RowAt(const QPoint& place) const {
    const int row = qRound(xAxis->pixelToCoord(place.x()));
    return axisRect()->rect().contains(place) && row >= 0 && row < RowCount() ? row : -1;
}

QSize ChartView::sizeHint() const {
    // Room for the label of every category, and for the axes beside them.
    return {std::max(minimumWidth(), WidthOfLabels() * 6 / 5), fontMetrics().height() * 19};
}

bool ChartView::event(QEvent* event) {
    if (event->type() != QEvent::ToolTip)
        return QCustomPlot::event(event);
    const auto* const help = static_cast<QHelpEvent*>(event);
    const int row = RowAt(help->pos());
    if (row < 0)
        QToolTip::hideText();
    else
        QToolTip::showText(help->globalPos(), DetailsOf(row), this);
    return true;
}

void ChartView::changeEvent(QEvent* event) {
    QCustomPlot::changeEvent(event);
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        ShowAll();
}

void ChartView::resizeEvent(QResizeEvent* event) {
    QCustomPlot::resizeEvent(event);
    ShowAll();
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
    if (event->reason() == QContextMenuEvent::Keyboard)
        OpenMenu(mapToGlobal(axisRect()->topLeft()), MenuAsked::ByKeyboard);
    else
        OpenMenu(event->globalPos(), MenuAsked::ByMouse);
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        OpenMenu(mapToGlobal(axisRect()->topLeft()), MenuAsked::ByKeyboard);
    else if (event->key() == Qt::Key_Left)
        GoTo(current_ - 1);
    else if (event->key() == Qt::Key_Right)
        GoTo(current_ + 1);
    else if (event->key() == Qt::Key_Home)
        GoTo(0);
    else if (event->key() == Qt::Key_End)
        GoTo(RowCount() - 1);
    else if (event->matches(QKeySequence::Copy))
        CopyNumbers();
    else
        QCustomPlot::keyPressEvent(event);
}

void ChartView::mousePressEvent(QMouseEvent* event) {
    QCustomPlot::mousePressEvent(event);
    const int row = RowAt(event->position().toPoint());
    if (event->button() != Qt::LeftButton || row < 0)
        return;
    current_ = row;
    update();
}

void ChartView::GoTo(int row) {
    current_ = std::clamp(row, 0, RowCount() - 1);
    update();
    AnnounceCategory(*this, current_);
    // Just below the axis's title; the toolkit itself keeps off the place that it is given.
    const int titleHeight = xAxis->labelPadding() + fontMetrics().height();
    const QPoint below(0, std::max(0, titleHeight - ToolTipOffset));
    QToolTip::showText(mapToGlobal(PlaceOf(current_).bottomLeft() + below), DetailsOf(current_), this);
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
    QPainter painter(this);
    if (hasFocus()) {
        painter.setPen(QPen(FocusColour(palette()), 2.0));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
        if (current_ >= 0)
            painter.drawRect(PlaceOf(current_));
    } else {
        painter.setPen(Shaded(Shade::TableLine));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void ChartView::CopyNumbers() const {
    QGuiApplication::clipboard()->setText(ToQt(chart_->Numbers()));
}

void ChartView::OpenMenu(const QPoint& position, MenuAsked asked) {
    auto* const menu = new QMenu(this);
    menu->addAction(ToQt(chart_->CopyPicture), this,
                    [this] { QGuiApplication::clipboard()->setPixmap(toPixmap(0, 0, devicePixelRatioF())); });
    menu->addAction(ToQt(chart_->CopyNumbers), this, &ChartView::CopyNumbers);
    PopUp(*menu, position, asked);
}

} // namespace vorhaven
