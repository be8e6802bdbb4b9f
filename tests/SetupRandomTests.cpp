// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FakeToolkit.h"

#include <gtest/gtest.h>

#include <random>

namespace vorhaven::test {
namespace {

/// A user who does anything at all, also while a run is under way.
class User : Game {
public:
    User() {
        Pad.txtNumSimulations.SetText("20");
        Toolkit.OnEvents = [this] {
            ExpectRules();
            if (const int event = Any(50); event < 2)
                Act();
            else if (event == 2)
                Pad.sscAbort.Press();
        };
    }

    void Act() {
        const std::size_t side = random_() % 2;
        ListBox& list = Pad.lstArmies[side];
        const int action = Any(1000);
        if (action < 200) {
            // No colossi, since their bonus in the marsh is an error; no "None", for a stack may need an
            // army.
            Pad.cboArmies[side].Pick(
                std::array{Midges, Giants, Stalkers, Ghouls, Captain, Witch}.at(random_() % 6));
        } else if (action < 400) {
            ListBox::Selection selection{Any(list.ListCount().Value() + 1) - 1, {}};
            for (Long line = 0; line < list.ListCount(); ++line)
                if (Any(4) == 0)
                    selection.Lines.push_back(line);
            list.Select(selection);
        } else if (action < 460) {
            list.DoubleClick();
        } else if (action < 600) {
            Pad.MoveFocus(&list);
            Pad.lstArmies_MouseUp(Side{side}, frmBrawlpad::MouseButton::Right);
            if (const int item = Any(13); list.ListIndex() < 0)
                return;
            else if (item == 0)
                Pad.mnuPopupDelete.Choose();
            else if (item >= 8)
                Pad.mnuPopupItemMedals[static_cast<std::size_t>(item) - 8].Choose();
            else
                Pad.mnuPopupItem[static_cast<std::size_t>(item)].Choose();
        } else if (action < 700) {
            Pad.sscListArrow[random_() % 4].Press();
        } else if (action < 750) {
            Pad.txtDup[side].SetText(std::array{"0", "-3", "1", "2", "6", "40"}.at(random_() % 6));
            Pad.sscDup[side].Press();
        } else if (action < 755) {
            Pad.sscClearList[side].Press();
        } else if (action < 760) {
            Pad.sscSwapSides.Press();
        } else if (action < 800) {
            Pad.cboTerrain.Choose(Any(6));
        } else if (action < 850) {
            Pad.cboCityLevel.Choose(Any(3));
        } else if (action < 900) {
            Any(2) == 0 ? Pad.Undo() : Pad.mnuRedo.Choose();
        } else if (action == 999 && Pad.cmdAttack.Enabled) {
            Pad.cmdAttack.Press();
        }
    }

    void ExpectRules() {
        for (const std::size_t side : {0U, 1U}) {
            const ListBox& list = Pad.lstArmies[side];
            EXPECT_TRUE(list.ListCount() <= MaxLines && list.ListIndex() < list.ListCount());
            for (Long row = 1; row <= HealthArray::RowCount; ++row)
                if (Pad.Health(Side{side})(row) != HealthRow{})
                    EXPECT_TRUE(row <= list.ListCount() && list.Entry(row - 1).Text.ends_with(" *"))
                        << "a condition belongs to a line, which has a mark";
        }
        const bool isCity = Pad.Terrain() == "city";
        EXPECT_TRUE(Pad.lstArmies[1].ListCount() <= 8 || (isCity && !Pad.cboTerrain.Enabled));
        EXPECT_EQ(Pad.cboCityLevel.Enabled, isCity);
        EXPECT_EQ(Pad.cboCityLevel.ListIndex() >= 0, isCity);
    }

private:
    int Any(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    std::mt19937 random_{20240607};
};

TEST(SetupRandom, WindowKeepsTheRulesWhateverTheUserDoes) {
    User user;
    for (int action = 0; action < 100'000 && !testing::Test::HasFailure(); ++action) {
        SCOPED_TRACE(action);
        user.Act();
        user.ExpectRules();
    }
    MBattleCalc::AbortRequested = false;
}

} // namespace
} // namespace vorhaven::test
