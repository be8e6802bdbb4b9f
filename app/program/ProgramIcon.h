// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <QIcon>

namespace vorhaven {

/// The program's icon. Its pictures are decoded when a platform asks for them: not all do, and the first
/// picture makes the toolkit load all its readers of pictures.
[[nodiscard]] QIcon ProgramIcon();

} // namespace vorhaven
