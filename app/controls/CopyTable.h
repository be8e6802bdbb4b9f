// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QTableView;

namespace vorhaven {

/// Gives a table the item "Copy Table", by its key and in a menu of its own: it copies all rows as they are
/// shown, with the headers that are visible, columns separated by tabs and rows by line ends.
void OfferCopy(QTableView& table);

} // namespace vorhaven
