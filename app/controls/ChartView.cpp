// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/ChartView.h"

#include "app/controls/Binding.h"
#include "app/program/Shade.h"

#include <QAccessibleWidget>
#include <QClipboard>
#include <QGuiApplication>
#include <QMenu>
#include <QPainter>
#include <QToolTip>

#include <algorithm>
#include <utility>

namespace vorhaven {
namespace {

QString ToQt(const std::string& text) {
    return QString::fromStdString(text);
}

/// Tells screen readers that a chart is one.
QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    auto* const chart = dynamic_cast<ChartView*>(object);
    return chart != nullptr ? new QAccessibleWidget(chart, QAccessible::Chart) : nullptr;
}

} // namespace

ChartView::ChartView(Chart& chart, QWidget* parent)
    : QCustomPlot(parent), chart_(&chart), title_(new QCPTextElement(this)),
      sentence_(new QCPTextElement(this)) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    // Installing it again changes nothing.
    QAccessible::installFactory(MakeAccessible);
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

QString ChartView::DetailsAt(const QPoint& place) const {
    if (!axisRect()->rect().contains(place))
        return {};
    const int row = qRound(xAxis->pixelToCoord(place.x()));
    if (row < 0 || row >= static_cast<int>(chart_->Rows().size()))
        return {};
    return ToQt(chart_->Rows()[static_cast<std::size_t>(row)].Details);
}

QSize ChartView::sizeHint() const {
    // Room for the label of every category, and for the axes beside them.
    return {std::max(minimumWidth(), WidthOfLabels() * 6 / 5), fontMetrics().height() * 19};
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
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::FontChange)
        ShowAll();
}

void ChartView::resizeEvent(QResizeEvent* event) {
    QCustomPlot::resizeEvent(event);
    ShowAll();
}

void ChartView::contextMenuEvent(QContextMenuEvent* event) {
    OpenMenu(event->globalPos());
}

void ChartView::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_F10 && event->modifiers() == Qt::ShiftModifier)
        OpenMenu(mapToGlobal(axisRect()->topLeft()));
    else if (event->key() == Qt::Key_Left)
        ShowDetails(current_ - 1);
    else if (event->key() == Qt::Key_Right)
        ShowDetails(current_ + 1);
    else if (event->matches(QKeySequence::Copy))
        CopyNumbers();
    else
        QCustomPlot::keyPressEvent(event);
}

void ChartView::ShowDetails(int row) {
    current_ = std::clamp(row, 0, static_cast<int>(chart_->Rows().size()) - 1);
    const QPoint place(qRound(xAxis->coordToPixel(current_)), axisRect()->bottom());
    QToolTip::showText(mapToGlobal(place), ToQt(chart_->Rows()[static_cast<std::size_t>(current_)].Details),
                       this);
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
        painter.setPen(QPen(palette().color(QPalette::Highlight), 2.0));
        painter.drawRect(rect().adjusted(1, 1, -1, -1));
    } else {
        painter.setPen(Shaded(Shade::TableLine));
        painter.drawRect(rect().adjusted(0, 0, -1, -1));
    }
}

void ChartView::CopyNumbers() const {
    QGuiApplication::clipboard()->setText(ToQt(chart_->Numbers()));
}

void ChartView::OpenMenu(const QPoint& position) {
    // Not executed but popped up: a run that pumps this event goes on behind the menu.
    auto* const menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    menu->addAction(ToQt(chart_->CopyPicture), this,
                    [this] { QGuiApplication::clipboard()->setPixmap(toPixmap(0, 0, devicePixelRatioF())); });
    menu->addAction(ToQt(chart_->CopyNumbers), this, &ChartView::CopyNumbers);
    menu->popup(position);
}

} // namespace vorhaven
