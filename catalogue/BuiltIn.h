// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

/// The texts of the files in catalogue/data, compiled into the program.
namespace vorhaven::BuiltInText {

extern const char* const Armies;
extern const char* const Heroes;
extern const char* const Powers;

} // namespace vorhaven::BuiltInText
