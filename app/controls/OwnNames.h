// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

class QWidget;

namespace vorhaven {

/// From now on screen readers are given a label's text, or the name that a plain widget or a line has been
/// given, as its name. The toolkit calls those that have neither by the title of their group box.
void InstallOwnNames();

/// Hides a widget and all that is in it from screen readers, for which something else says the same. Before
/// it is shown.
void HideFromScreenReaders(QWidget& widget);

} // namespace vorhaven
