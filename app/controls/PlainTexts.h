// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace vorhaven {

/// From now on every label shows its text letter by letter, those of message boxes and tooltips included. The
/// toolkit would take a text that looks like markup for a page, and load the pictures that it asks for.
void InstallPlainTexts();

} // namespace vorhaven
