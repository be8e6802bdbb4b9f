// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/ErrorReport.h"

#include "base/RunTimeError.h"

#include <QApplication>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include <cstdlib>
#include <exception>
#include <iostream>
#include <new>
#include <string_view>

namespace vorhaven {
namespace {

/// Where errors are reported to; empty where there is no such place.
constexpr const char* PlaceOfReports = VORHAVEN_REPORTS;

std::string catalogueOrigin;

/// Which program it was, and which units it had.
std::string Circumstances() {
    const std::string version = "Version " + QApplication::applicationVersion().toStdString();
    return catalogueOrigin.empty() ? version : version + ", unit catalogue: " + catalogueOrigin;
}

void Show(const ErrorReport& report, const std::string& advice) {
    const std::string text =
        advice + "\n\n" + report.Details + (report.Details.empty() ? "" : "\n\n") + Circumstances();
    QMessageBox box(QMessageBox::Critical, QApplication::applicationName(),
                    QString::fromStdString(report.Headline), QMessageBox::Ok);
    box.setInformativeText(QString::fromStdString(text));
    // The box itself would let the keyboard select its first text alone, and reach neither.
    for (QLabel* label : box.findChildren<QLabel*>()) {
        if (label->text().isEmpty())
            continue;
        label->setTextInteractionFlags(Qt::TextSelectableByMouse | Qt::TextSelectableByKeyboard);
        label->setFocusPolicy(Qt::StrongFocus);
    }
    box.button(QMessageBox::Ok)->setFocus();
    box.exec();
    // Only now: where nobody reads standard error any more, this ends the program.
    std::cerr << report.Headline << '\n' << text << '\n';
}

} // namespace

std::function<void(const ErrorReport&)> OnFatalError = ReportAndEnd;

void ReportAndEnd(const ErrorReport& report) {
    while (QApplication::overrideCursor() != nullptr)
        QApplication::restoreOverrideCursor();
    std::string advice = "The program has to end. Start it again and enter the battle anew";
    const std::string_view place = PlaceOfReports;
    if (place.empty())
        advice += ". The details below say what happened.";
    else
        advice += "; if this happens again, please report the details below at " + std::string(place);
    Show(report, advice);
    // A run may be waiting further out for this event to end; it must not go on, so nothing is unwound.
    std::_Exit(EXIT_FAILURE);
}

void RunOutermost(const std::function<void()>& handler) {
    const EventScope scope;
    try {
        handler();
    } catch (const RunTimeError& error) {
        OnFatalError({error.Headline(), error.Details()});
    } catch (const std::bad_alloc&) {
        const RunTimeError error{ErrorNumber::OutOfMemory};
        OnFatalError({error.Headline(), error.Details()});
    } catch (const std::exception& error) {
        OnFatalError({"Unexpected error", error.what()});
    }
}

void NameCatalogueInReports(const std::string& origin) {
    catalogueOrigin = origin;
}

void ReportStartUpFailure(const std::string& message) {
    Show({message, {}},
         "The program cannot start. Correct this, or remove the catalogue's folder, and start it "
         "again.");
}

} // namespace vorhaven
