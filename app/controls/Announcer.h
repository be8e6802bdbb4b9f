// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QMetaObject>
#include <QObject>
#include <QPersistentModelIndex>
#include <QPointer>
#include <QString>
#include <QVariant>
#include <QWidget>

class QAbstractItemView;

namespace vorhaven {

/// Gives screen readers a text to say at once. They say a change of the description of what has the focus,
/// and of nothing else, so the text is that description until the focus goes on.
class Announcer final : public QObject {
public:
    /// `window`: of whose widgets one has the focus.
    explicit Announcer(QWidget& window);

    void Say(QString text);

private:
    /// In a list the current line has the focus.
    void DescribeLine(QAbstractItemView& list, const QString& text);
    /// Gives what was described its own description back.
    void Restore();

    QWidget* window_;
    QPointer<QWidget> described_;
    QString ownDescription_;
    QPersistentModelIndex line_;
    QVariant ownLineDescription_;
    QMetaObject::Connection lineMoves_;
};

} // namespace vorhaven
