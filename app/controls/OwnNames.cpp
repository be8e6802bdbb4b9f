// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/OwnNames.h"

#include <QAccessibleWidget>
#include <QFrame>
#include <QLabel>

namespace vorhaven {
namespace {

constexpr const char* HiddenProperty = "isHiddenFromScreenReaders";

using Relations = QList<std::pair<QAccessibleInterface*, QAccessible::Relation>>;

/// What only fills a place, or a line between others. No frame is its label.
class Filler final : public QAccessibleWidget {
public:
    explicit Filler(QWidget& widget, QAccessible::Role role) : QAccessibleWidget(&widget, role) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        return kind == QAccessible::Name ? widget()->accessibleName() : QAccessibleWidget::text(kind);
    }
    [[nodiscard]] Relations relations(QAccessible::Relation /*match*/) const override { return {}; }
};

class PlainLabel final : public QAccessibleWidget {
public:
    explicit PlainLabel(QLabel& label) : QAccessibleWidget(&label, QAccessible::StaticText), label_(&label) {}

    [[nodiscard]] QString text(QAccessible::Text kind) const override {
        if (kind != QAccessible::Name)
            return QAccessibleWidget::text(kind);
        return label_->accessibleName().isEmpty() ? label_->text() : label_->accessibleName();
    }
    [[nodiscard]] Relations relations(QAccessible::Relation match) const override {
        Relations relations = QAccessibleWidget::relations(match);
        if (match.testFlag(QAccessible::Labelled) && label_->buddy() != nullptr)
            relations.emplaceBack(QAccessible::queryAccessibleInterface(label_->buddy()),
                                  QAccessible::Labelled);
        return relations;
    }

private:
    QLabel* label_;
};

/// What screen readers pass over.
class Hidden final : public QAccessibleWidget {
public:
    explicit Hidden(QWidget& widget) : QAccessibleWidget(&widget, QAccessible::NoRole) {}

    [[nodiscard]] QAccessible::State state() const override {
        QAccessible::State state;
        state.invisible = true;
        return state;
    }
    [[nodiscard]] int childCount() const override { return 0; }
};

bool IsLine(const QFrame& frame) {
    return frame.frameShape() == QFrame::HLine || frame.frameShape() == QFrame::VLine;
}

QAccessibleInterface* MakeAccessible(const QString& className, QObject* object) {
    if (className != QLatin1String(object->metaObject()->className()))
        return nullptr;
    if (object->property(HiddenProperty).toBool())
        return new Hidden(static_cast<QWidget&>(*object));
    if (auto* const label = qobject_cast<QLabel*>(object))
        return new PlainLabel(*label);
    if (className == QLatin1String("QFrame")) {
        auto* const frame = static_cast<QFrame*>(object);
        return IsLine(*frame) ? new Filler(*frame, QAccessible::Separator) : nullptr;
    }
    if (className == QLatin1String("QWidget"))
        return new Filler(static_cast<QWidget&>(*object), QAccessible::Client);
    return nullptr;
}

} // namespace

void InstallOwnNames() {
    QAccessible::installFactory(MakeAccessible);
}

void HideFromScreenReaders(QWidget& widget) {
    widget.setProperty(HiddenProperty, true);
}

} // namespace vorhaven
