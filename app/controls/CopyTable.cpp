// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/controls/CopyTable.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QHeaderView>
#include <QTableView>

namespace vorhaven {
namespace {

QString AsText(const QTableView& table) {
    const QAbstractItemModel& model = *table.model();
    QString text;
    for (int row = -1; row < model.rowCount(); ++row) {
        QStringList cells;
        if (!table.verticalHeader()->isHidden())
            cells += row < 0 ? QString() : model.headerData(row, Qt::Vertical).toString();
        for (int column = 0; column < model.columnCount(); ++column)
            cells += (row < 0 ? model.headerData(column, Qt::Horizontal) : model.index(row, column).data())
                         .toString();
        text += cells.replaceInStrings("\n", " ").join('\t') + '\n';
    }
    return text;
}

} // namespace

void OfferCopy(QTableView& table) {
    auto* const copy = new QAction(QStringLiteral("Copy Table"), &table);
    copy->setShortcut(QKeySequence::Copy);
    copy->setShortcutContext(Qt::WidgetShortcut);
    QObject::connect(copy, &QAction::triggered, &table,
                     [&table] { QGuiApplication::clipboard()->setText(AsText(table)); });
    table.addAction(copy);
    table.setContextMenuPolicy(Qt::ActionsContextMenu);
}

} // namespace vorhaven
