// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>

namespace vorhaven {

/// What a message says about an error that ends the program.
struct ErrorReport {
    std::string Headline;
    std::string Details;
};

/// Reports an error that has reached the outermost handler, in a window and on standard error, and ends the
/// program with a failure status. Nothing of the program runs on.
[[noreturn]] void ReportAndEnd(const ErrorReport& report);

/// What is done with such an error: ReportAndEnd, unless a test puts something in its place.
extern std::function<void(const ErrorReport&)> OnFatalError;

/// Runs a handler for an event of the toolkit, as its outermost handler: no error leaves it.
void RunOutermost(const std::function<void()>& handler);

/// The unit catalogue that reports name from now on.
void NameCatalogueInReports(const std::string& origin);

/// Shows why the program cannot start, in a window and on standard error.
void ReportStartUpFailure(const std::string& message);

} // namespace vorhaven
