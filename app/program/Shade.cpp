// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/Shade.h"

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
        // A widget that is no window hears of the application's new colours through its own palette alone.
        if (event->type() == QEvent::PaletteChange)
            Apply();
        return QObject::eventFilter(watched, event);
    }

private:
    void Apply() {
        const QPalette usual = QApplication::palette(widget_);
        QPalette shaded;
        for (const auto group : {QPalette::Active, QPalette::Inactive})
            shaded.setColor(group, QPalette::WindowText,
                            Shaded(usual.color(group, QPalette::WindowText),
                                   usual.color(group, QPalette::Window), share_));
        // Nothing is raised when the palette stays as it is.
        widget_->setPalette(shaded);
    }

    QWidget* widget_;
    double share_ = Shade::Full;
};

} // namespace

QColor Shaded(const QColor& text, const QColor& background, double share) {
    const QColor mixed = Mixed(text, background, share);
    return share < Shade::Dimmed ? mixed : MovedToContrast(mixed, text, background, LeastContrast::Text);
}

QColor FocusColour(const QPalette& palette) {
    const QColor base = palette.color(QPalette::Base);
    return MovedToContrast(palette.color(QPalette::Highlight), FarthestFrom(base), base, LeastContrast::Mark);
}

QFont Small(QFont font) {
    font.setPointSizeF(font.pointSizeF() * 0.92);
    return font;
}

void Enlarge(QWidget& widget, double factor) {
    QFont font = widget.font();
    font.setBold(true);
    font.setPointSizeF(font.pointSizeF() * factor);
    widget.setFont(font);
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
