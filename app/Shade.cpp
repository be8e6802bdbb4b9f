// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/Shade.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace vorhaven {
namespace {

/// Keeps the shade of its parent widget in step with the application's colours.
class Shader final : public QObject {
public:
    explicit Shader(QWidget& widget) : QObject(&widget), widget_(&widget) { widget.installEventFilter(this); }

    void Show(double share) {
        share_ = share;
        Apply();
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() == QEvent::ApplicationPaletteChange)
            Apply();
        return QObject::eventFilter(watched, event);
    }

private:
    void Apply() {
        QPalette palette = QApplication::palette(widget_);
        for (const auto group : {QPalette::Active, QPalette::Inactive}) {
            const QColor shade = Mixed(palette.color(group, QPalette::WindowText),
                                       palette.color(group, QPalette::Window), share_);
            palette.setColor(group, QPalette::WindowText, shade);
        }
        widget_->setPalette(palette);
    }

    QWidget* widget_;
    double share_ = Shade::Full;
};

} // namespace

QColor Mixed(const QColor& first, const QColor& second, double share) {
    const auto mix = [share](float a, float b) {
        return static_cast<float>(share) * a + static_cast<float>(1.0 - share) * b;
    };
    return QColor::fromRgbF(mix(first.redF(), second.redF()), mix(first.greenF(), second.greenF()),
                            mix(first.blueF(), second.blueF()));
}

void SetShade(QWidget& widget, double share) {
    auto* shader = dynamic_cast<Shader*>(widget.findChild<QObject*>("shader", Qt::FindDirectChildrenOnly));
    if (shader == nullptr) {
        shader = new Shader(widget);
        shader->setObjectName("shader");
    }
    shader->Show(share);
}

} // namespace vorhaven
