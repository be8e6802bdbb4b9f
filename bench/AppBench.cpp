// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/QtToolkit.h"
#include "app/setup/MainView.h"
#include "bench/CpuTime.h"
#include "engine/MBattleCalc.h"
#include "tests/support/QuietHost.h"
#include "ui/setup/frmBrawlpad.h"

#include <QApplication>
#include <QProcess>
#include <QPushButton>
#include <QThread>

#include <cstdio>
#include <cstdlib>
#include <string>
#include <sys/resource.h>

// What the player waits for: from a press of Attack to its results, and from the start of the process to its
// first paint. Each is measured by turns with its yardstick, and the shortest time of each counts.
namespace {

using namespace vorhaven;
using bench::Least;
using bench::SecondsOf;

constexpr int ArmiesPerSide = 8;

void ProcessAllEvents() {
    // Twice, since an event may lead to another one.
    QCoreApplication::processEvents();
    QCoreApplication::processEvents();
}

/// The window with the armies picked, and the engine with the same armies and no window.
class Press {
public:
    Press() {
        toolkit_.Show(view_, pad_);
        for (const Side side : BothSides)
            for (int army = 0; army < ArmiesPerSide; ++army)
                pad_.cboArmies[side].Pick(0);
        ProcessAllEvents();
        for (Long line = 0; line < ArmiesPerSide; ++line) {
            engine_.BringAttacker(line, "Strength 5 Hits 2");
            engine_.BringDefender("Strength 5 Hits 2");
        }
        for (QPushButton* button : view_.findChildren<QPushButton*>())
            if (button->text().toStdString() == pad_.cmdAttack.Caption.Get())
                attack_ = button;
    }

    void Measure(std::int32_t battles, int rounds) {
        pad_.txtNumSimulations.SetText(std::to_string(battles));
        ProcessAllEvents();
        Least engine, results, painted;
        for (int round = 0; round < rounds; ++round) {
            // A player presses long after events were last processed, so a run begins with processing them.
            QThread::msleep(20);
            engine.Take(SecondsOf([&] { MBattleCalc::Add(engine_, battles, 20, false, 0); }));
            const double untilResults = SecondsOf([&] { attack_->click(); });
            results.Take(untilResults);
            painted.Take(untilResults + SecondsOf(ProcessAllEvents));
        }
        std::printf("press of Attack, %7d battles  engine %9.3f ms  results %9.3f ms  ratio %.3f  painted "
                    "%9.3f ms  ratio %.3f\n",
                    battles, engine.Value() * 1e3, results.Value() * 1e3, results.Value() / engine.Value(),
                    painted.Value() * 1e3, painted.Value() / engine.Value());
    }

private:
    test::TableCatalogue catalogue_{
        test::TableOf({ArmyColumn::Name, ArmyColumn::Strength, ArmyColumn::Hits, ArmyColumn::Turns},
                      {{"Plain", 5, 2, 1}}),
        Table{}};
    QtToolkit toolkit_;
    frmBrawlpad pad_{catalogue_, toolkit_};
    MainView view_{pad_};
    QPushButton* attack_ = nullptr;
    test::QuietHost engine_;
};

/// The processor time of a process, from its start to its end, in seconds.
double SecondsOfProcess(const char* name) {
    const auto spent = [] {
        rusage usage{};
        getrusage(RUSAGE_CHILDREN, &usage);
        return static_cast<double>(usage.ru_utime.tv_sec + usage.ru_stime.tv_sec) +
               static_cast<double>(usage.ru_utime.tv_usec + usage.ru_stime.tv_usec) * 1e-6;
    };
    const double before = spent();
    const QString program = QCoreApplication::applicationDirPath() + '/' + QLatin1String(name);
    if (QProcess::execute(program, {}) != EXIT_SUCCESS) {
        std::fprintf(stderr, "%s has failed\n", name);
        std::exit(EXIT_FAILURE);
    }
    return spent() - before;
}

void MeasureStart(int rounds) {
    Least app, label;
    for (int round = 0; round < rounds; ++round) {
        app.Take(SecondsOfProcess("first_paint_app"));
        label.Take(SecondsOfProcess("first_paint_label"));
    }
    std::printf("start to first paint  one label %9.3f ms  program %9.3f ms  ratio %.3f\n",
                label.Value() * 1e3, app.Value() * 1e3, app.Value() / label.Value());
}

} // namespace

int main(int argc, char** argv) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_LOGGING_RULES", "*=false");
    const QApplication application(argc, argv);
    Press press;
    press.Measure(1'000, 300);
    press.Measure(1'000'000, 5);
    MeasureStart(40);
}
