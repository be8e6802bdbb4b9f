// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/MMain.h"

#include "app/controls/PlainTexts.h"
#include "app/program/DisplayWatch.h"
#include "app/program/ErrorReport.h"
#include "app/program/FrameStyle.h"
#include "app/program/ProgramIcon.h"
#include "app/program/QtToolkit.h"
#include "app/setup/MainView.h"
#include "catalogue/CsvCatalogue.h"
#include "ui/setup/frmBrawlpad.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QStyle>

#include <cstdlib>
#include <exception>
#include <filesystem>
#include <optional>
#include <vector>

namespace vorhaven::MMain {
namespace {

/// Where a catalogue of the player's own may be, the first place first.
std::vector<std::filesystem::path> CatalogueFolders() {
    const QDir data = QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
    const auto program = QDir(QCoreApplication::applicationDirPath()).filesystemPath();
    return {data.filesystemPath() / "vorhaven3-combat-calculator" / "catalogue", program / "catalogue",
            program / VORHAVEN_DATA_FROM_BIN / "catalogue"};
}

int Run(const CatalogueProvider& provider) {
    QtToolkit toolkit;
    frmBrawlpad pad(provider, toolkit);
    MainView view(pad);
    RunOutermost([&] { toolkit.Show(view, pad); });
    return QApplication::exec();
}

} // namespace

int Main(int argc, char** argv) {
    std::optional<DisplayWatch> watch{std::in_place};
    QApplication application(argc, argv);
    watch.reset();
    QApplication::setApplicationName(QStringLiteral("Vorhaven 3 Combat Calculator"));
    QApplication::setDesktopFileName(QStringLiteral(VORHAVEN_ID));
    QApplication::setWindowIcon(ProgramIcon());
    InstallPlainTexts();
    // Any other style, chosen by the desktop or the user, stays as it is.
    if (QApplication::style()->name() == QLatin1String("fusion"))
        QApplication::setStyle(new FrameStyle);
    try {
        const CsvCatalogue provider = CsvCatalogue::FromFirstFolder(CatalogueFolders());
        NameCatalogueInReports(provider.Origin().empty() ? "built in" : provider.Origin());
        return Run(provider);
    } catch (const std::exception& error) {
        // A catalogue that cannot be used, or no memory to start with.
        ReportStartUpFailure(error.what());
        return EXIT_FAILURE;
    }
}

} // namespace vorhaven::MMain
