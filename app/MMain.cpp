// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/MMain.h"

#include "app/ErrorReport.h"
#include "app/MainView.h"
#include "app/QtToolkit.h"
#include "catalogue/CsvCatalogue.h"
#include "ui/setup/frmBrawlpad.h"

#include <QApplication>

#include <cstdlib>
#include <exception>
#include <filesystem>

namespace vorhaven::MMain {
namespace {

/// Where a catalogue of the player's own may be, the first place first.
std::vector<std::filesystem::path> CatalogueFolders() {
    const std::filesystem::path program = QCoreApplication::applicationDirPath().toStdString();
    return {program / "catalogue", program / VORHAVEN_DATA_FROM_BIN / "catalogue"};
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
    QApplication application(argc, argv);
    QApplication::setApplicationName(QStringLiteral("Vorhaven 3 Combat Calculator"));
    QApplication::setApplicationVersion(QStringLiteral(VORHAVEN_VERSION));
    try {
        const CsvCatalogue provider = CsvCatalogue::FromFirstFolder(CatalogueFolders());
        return Run(provider);
    } catch (const std::exception& error) {
        // A catalogue that cannot be used, or no memory to start with.
        ReportStartUpFailure(error.what());
        return EXIT_FAILURE;
    }
}

} // namespace vorhaven::MMain
