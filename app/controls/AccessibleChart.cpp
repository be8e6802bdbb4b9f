// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/AccessibleChart.h"

#include "app/controls/ChartView.h"

#include <QAccessibleWidget>
#include <QPointer>

namespace vorhaven {
namespace {

/// A category: its name is its details. The chart owns it, through the toolkit's registry.
class Category final : public QAccessibleInterface {
public:
    Category(ChartView& chart, int row) : chart_(&chart), row_(row) {}

    [[nodiscard]] bool isValid() const override { return !chart_.isNull(); }
    [[nodiscard]] QObject* object() const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }
    [[nodiscard]] QAccessibleInterface* parent() const override {
        return QAccessible::queryAccessibleInterface(chart_);
    }
    [[nodiscard]] QAccessibleInterface* child(int /*index*/) const override { return nullptr; }
    [[nodiscard]] int childCount() const override { return 0; }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* /*child*/) const override { return -1; }
    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? chart_->DetailsOf(row_).replace('\n', QStringLiteral(", "))
                                         : QString();
    }
    void setText(QAccessible::Text /*kind*/, const QString& /*text*/) override {}
    [[nodiscard]] QRect rect() const override {
        const QRect place = chart_->PlaceOf(row_);
        return {chart_->mapToGlobal(place.topLeft()), place.size()};
    }
    [[nodiscard]] QAccessible::Role role() const override { return QAccessible::ListItem; }
    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.focusable = true;
        state.readOnly = true;
        state.focused = chart_->hasFocus() && chart_->CurrentRow() == row_;
        state.invisible = !chart_->isVisible();
        return state;
    }

private:
    QPointer<ChartView> chart_;
    int row_;
};

class AccessibleChart final : public QAccessibleWidget {
public:
    explicit AccessibleChart(ChartView& chart)
        : QAccessibleWidget(&chart, QAccessible::Chart), chart_(&chart) {
        for (int row = 0; row < chart.RowCount(); ++row)
            categories_ += QAccessible::registerAccessibleInterface(new Category(chart, row));
    }
    ~AccessibleChart() override {
        for (const QAccessible::Id category : categories_)
            QAccessible::deleteAccessibleInterface(category);
    }
    AccessibleChart(const AccessibleChart&) = delete;
    AccessibleChart& operator=(const AccessibleChart&) = delete;
    AccessibleChart(AccessibleChart&&) = delete;
    AccessibleChart& operator=(AccessibleChart&&) = delete;

    [[nodiscard]] int childCount() const override { return static_cast<int>(categories_.size()); }
    [[nodiscard]] QAccessibleInterface* child(int index) const override {
        return index >= 0 && index < childCount() ? QAccessible::accessibleInterface(categories_[index])
                                                  : nullptr;
    }
    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override {
        return static_cast<int>(
            categories_.indexOf(QAccessible::uniqueId(const_cast<QAccessibleInterface*>(child))));
    }
    [[nodiscard]] QAccessibleInterface* childAt(int x, int y) const override {
        return child(chart_->RowAt(chart_->mapFromGlobal(QPoint(x, y))));
    }
    [[nodiscard]] QAccessibleInterface* focusChild() const override {
        return chart_->hasFocus() ? child(chart_->CurrentRow()) : nullptr;
    }

private:
    ChartView* chart_;
    QList<QAccessible::Id> categories_;
};

QAccessibleInterface* MakeAccessible(const QString& /*className*/, QObject* object) {
    auto* const chart = dynamic_cast<ChartView*>(object);
    return chart != nullptr ? new AccessibleChart(*chart) : nullptr;
}

} // namespace

void InstallAccessibleChart() {
    // Installing it again changes nothing.
    QAccessible::installFactory(MakeAccessible);
}

void AnnounceCategory(ChartView& chart, int row) {
    QAccessibleEvent event(&chart, QAccessible::Focus);
    event.setChild(row);
    QAccessible::updateAccessibility(&event);
}

} // namespace vorhaven
