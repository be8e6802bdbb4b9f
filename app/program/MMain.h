// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

namespace vorhaven::MMain {

/// The entry procedure: creates the catalogue provider, shows the main window and runs until it is closed.
/// Returns the process's exit status; a broken catalogue is reported and gives a failure.
int Main(int argc, char** argv);

} // namespace vorhaven::MMain
