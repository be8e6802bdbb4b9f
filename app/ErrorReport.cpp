// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/ErrorReport.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdlib>
#include <iostream>
#include <new>

namespace vorhaven {
namespace {

void ShowReport(const std::string& headline, const std::string& details) {
    std::cerr << headline << '\n' << details << (details.empty() ? "" : "\n") << std::flush;
    QMessageBox box(QMessageBox::Critical, QApplication::applicationName(), QString::fromStdString(headline));
    box.setTextFormat(Qt::PlainText);
    box.setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
    box.setInformativeText(QString::fromStdString(details));
    box.exec();
}

} // namespace

std::function<void(const RunTimeError&)> OnFatalError = ReportAndEnd;

void ReportAndEnd(const RunTimeError& error) {
    while (QApplication::overrideCursor() != nullptr)
        QApplication::restoreOverrideCursor();
    ShowReport(error.Headline(), error.Details());
    // A run may be waiting further out for this event to end; it must not go on, so nothing is unwound.
    std::_Exit(EXIT_FAILURE);
}

void RunOutermost(const std::function<void()>& handler) {
    const EventScope scope;
    try {
        handler();
    } catch (const RunTimeError& error) {
        OnFatalError(error);
    } catch (const std::bad_alloc&) {
        OnFatalError(RunTimeError{ErrorNumber::OutOfMemory});
    }
}

void ReportStartUpFailure(const std::string& message) {
    ShowReport(message, {});
}

} // namespace vorhaven
