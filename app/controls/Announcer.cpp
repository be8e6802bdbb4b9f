// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/Announcer.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QApplication>

namespace vorhaven {

Announcer::Announcer(QWidget& window) : QObject(&window), window_(&window) {
    connect(qApp, &QApplication::focusChanged, this, [this](QWidget* /*before*/, const QWidget* now) {
        // The description is still there when the user comes back from another program.
        if (now != nullptr && now != described_)
            Restore();
    });
}

void Announcer::Say(QString text) {
    QWidget* const focus = window_->focusWidget() != nullptr ? window_->focusWidget() : window_;
    if (focus != described_) {
        Restore();
        described_ = focus;
        ownDescription_ = focus->accessibleDescription();
    }
    // What is said twice has to change to be heard again.
    if (focus->accessibleDescription() == text)
        text += ' ';
    focus->setAccessibleDescription(text);
    if (auto* const list = qobject_cast<QAbstractItemView*>(focus); list != nullptr)
        DescribeLine(*list, text);
}

void Announcer::DescribeLine(QAbstractItemView& list, const QString& text) {
    if (!list.currentIndex().isValid())
        return;
    if (list.currentIndex() != line_) {
        line_ = list.currentIndex();
        ownLineDescription_ = line_.data(Qt::AccessibleDescriptionRole);
        lineMoves_ =
            connect(list.selectionModel(), &QItemSelectionModel::currentChanged, this, &Announcer::Restore);
    }
    list.model()->setData(line_, text, Qt::AccessibleDescriptionRole);
    QAccessibleEvent change(&list, QAccessible::DescriptionChanged);
    change.setChild(line_.row());
    QAccessible::updateAccessibility(&change);
}

void Announcer::Restore() {
    disconnect(lineMoves_);
    auto* const list = qobject_cast<QAbstractItemView*>(described_.data());
    if (list != nullptr && line_.isValid())
        list->model()->setData(line_, ownLineDescription_, Qt::AccessibleDescriptionRole);
    line_ = QPersistentModelIndex();
    if (described_ != nullptr)
        described_->setAccessibleDescription(ownDescription_);
    described_ = nullptr;
}

} // namespace vorhaven
