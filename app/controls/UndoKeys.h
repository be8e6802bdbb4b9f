// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

namespace vorhaven {

/// Leaves the keys of undo and redo to a window's own shortcuts while one of the fields that it has by now is
/// being edited: a field's own undo would go behind the program's, which has the field's changes too.
void LeaveUndoToWindow(QWidget& window);

} // namespace vorhaven
