// SPDX-License-Identifier: GPL-3.0-or-later

#include "app/program/ErrorReport.h"
#include "base/RunTimeError.h"
#include "tests/app/WindowFixture.h"

#include <QFile>
#include <QProcess>
#include <QTemporaryDir>

#include <new>

namespace vorhaven::test {
namespace {

/// The real program, in a folder of its own, with a hand inside it (Hand.cpp).
class Process : public testing::Test {
protected:
    Process() {
        EXPECT_TRUE(QFile::copy(VORHAVEN_PROGRAM, Program()));
        QDir(folder_.path()).mkdir("catalogue");
    }

    [[nodiscard]] QString Program() const { return folder_.filePath("program"); }
    void Write(const QString& name, const QString& text) const {
        QFile file(folder_.filePath(name));
        ASSERT_TRUE(file.open(QIODevice::WriteOnly));
        file.write(text.toUtf8());
    }
    /// A catalogue of one army type and one hero type; the army's combat bonus is in the field.
    void WriteCatalogue(const QString& army, const QString& bonus, const QString& in = "catalogue") const {
        QDir(folder_.path()).mkpath(in);
        Write(in + "/armies.csv",
              "id,name,plural,faction,cost,strength,upkeep,hits,turns,moves,view,trait1,trait2,movement,"
              "building,weapon,armour,terrain,bonus,size,description,notes,power,powersize\n"
              "0," +
                  army + ",,,0,5,0,2,1,0,0,,,walk,,,,field," + bonus + ",,,,0,0\n");
        Write(in + "/heroes.csv",
              "id,name,plural,faction,cost,upkeep,moves,view,strength,weapon,hits,armour,movement,mount,"
              "description,notes,terrain,bonus\n0,Captain,,,0,0,0,0,5,,2,,walk,,,,,0\n");
        Write(in + "/powers.csv", "code,name\n0,None\n");
    }
    void RemoveCatalogues() const {
        for (const char* folder : {"catalogue", "data"})
            QDir(folder_.filePath(folder)).removeRecursively();
    }
    /// Runs the program to its end; its exit status.
    int Run(const QString& deed) {
        QProcess process;
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert("QT_QPA_PLATFORM", platform_);
        environment.remove("DISPLAY");
        environment.insert("XDG_DATA_HOME", folder_.filePath("data"));
        environment.insert("QT_PLUGIN_PATH", VORHAVEN_TEST_PLUGINS);
        environment.insert("QT_QPA_GENERIC_PLUGINS", "hand");
        environment.insert("VORHAVEN_HAND", deed);
        process.setProcessEnvironment(environment);
        process.start(Program(), QStringList());
        EXPECT_TRUE(process.waitForFinished(30'000));
        EXPECT_EQ(process.exitStatus(), QProcess::NormalExit);
        told_ = process.readAllStandardError();
        return process.exitCode();
    }

    QTemporaryDir folder_;
    QString platform_ = "offscreen";
    QString told_;
};

TEST_F(Process, TakesTheCatalogueBesideItOrSaysWhatIsWrongWithIt) {
    const char* const advice =
        "The program cannot start. Correct this, or remove the catalogue's folder, and start it again.";
    const QString beside = folder_.filePath("catalogue\n");
    const QString own = "data/vorhaven3-combat-calculator/catalogue";
    const struct {
        const char* Reason;
        std::function<void()> Prepare;
        const char* Deed;
        int ExitStatus;
        QStringList Told;
    } cases[] = {
        // clang-format off
        {"an empty folder", [] {}, "exit", 1, {"box with the usual pointer: ", "armies.csv", advice}},
        {"a broken number", [&] { WriteCatalogue("Guard", "<i>much</i>"); }, "exit", 1,
            {"box with the usual pointer: The unit catalogue", "armies.csv", "<i>much</i>", advice}},
        {"a good one, and the windows close together", [&] { WriteCatalogue("Own Guard", "1"); }, "exit", 0,
            {"first army: Own Guard\nSelect defending armies\nUnits from " + beside}},
        {"a run closed in the middle", [] {}, "close", 0, {"closed in the middle"}},
        {"a fatal error", [] {}, "fail", 1,
            {"box with the usual pointer: Run-time error '13':/Type mismatch|The program has to end.",
             "//Original error: 11, Division by zero/Raised in: MBattleCalc::ShowWinPercent/",
             "Run-time error '13':\nType mismatch\nThe program has to end.",
             "\nPassed on by: MBattleCalc::DisplayResults", "\n\nVersion ", ", unit catalogue: " + beside}},
        {"the player's own before that", [&] { WriteCatalogue("My Guard", "1", own); }, "exit", 0,
            {"first army: My Guard\n"}},
        {"none, and a style of the player's choice",
            [&] { RemoveCatalogues(); qputenv("QT_STYLE_OVERRIDE", "windows"); }, "exit", 0,
            {"first army: Vale Levy\nSelect defending armies\nicon: 128 16 24 256 32 48 64\n", "style: windows"}},
        {"no display", [&] { platform_ = "xcb"; }, "exit", 1,
            {"There is no display on which the window could be shown; start"}},
        // clang-format on
    };
    for (const auto& c : cases) {
        c.Prepare();
        EXPECT_EQ(Run(c.Deed), c.ExitStatus) << c.Reason;
        // One after the other: standard error comes last, since a program may end when nobody reads it.
        qsizetype place = 0;
        for (const QString& text : c.Told) {
            place = told_.indexOf(text, std::max<qsizetype>(place, 0));
            EXPECT_GE(place, 0) << c.Reason << " should tell \"" << text.toStdString() << "\" but told "
                                << told_.toStdString();
        }
    }
    qunsetenv("QT_STYLE_OVERRIDE");
}

TEST_F(Window, AnErrorReportIsReachedAndCopiedByKeyboard) {
    const auto copy = [](QDialog& box) {
        QString copied;
        for (int text = 0; text < 2; ++text) {
            QTest::keyClick(box.focusWidget(), Qt::Key_Tab);
            QTest::keyClick(box.focusWidget(), Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(box.focusWidget(), Qt::Key_C, Qt::ControlModifier);
            copied += QGuiApplication::clipboard()->text();
        }
        EXPECT_TRUE(copied.contains("line 3: no number") && copied.contains("Version"))
            << copied.toStdString();
        QTest::keyClick(box.focusWidget(), Qt::Key_Return);
        EXPECT_FALSE(box.isVisible());
    };
    InModalWindows({{QApplication::applicationName(), copy}});
    ReportStartUpFailure("armies.csv, line 3: no number");
}

TEST(OutermostHandler, ReportsWhateverAHandlerThrows) {
    const struct {
        std::function<void()> Handler;
        const char *Headline, *Details;
    } cases[] = {
        // clang-format off
        {[] { const Trap trap{"frmHero::Form_Load"}; throw RunTimeError{ErrorNumber::DivisionByZero}; },
            "Run-time error '13':\nType mismatch", "frmHero::Form_Load"},
        {[] { throw std::bad_alloc(); }, "Run-time error '7':\nOut of memory", ""},
        {[] { throw std::runtime_error("a library's own"); }, "Unexpected error", "a library's own"},
        // clang-format on
    };
    std::vector<ErrorReport> reports;
    OnFatalError = [&](const ErrorReport& report) { reports.push_back(report); };
    for (const auto& c : cases) {
        RunOutermost(c.Handler);
        EXPECT_EQ(reports.back().Headline, c.Headline);
        EXPECT_NE(reports.back().Details.find(c.Details), std::string::npos) << reports.back().Details;
    }
    OnFatalError = ReportAndEnd;
    EXPECT_EQ(reports.size(), std::size(cases));
}

} // namespace
} // namespace vorhaven::test
