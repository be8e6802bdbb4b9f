// SPDX-License-Identifier: GPL-3.0-or-later

#include "tests/support/FakeToolkit.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

namespace vorhaven::test {
namespace {

struct Line {
    ListEntry Entry;
    bool Selected = false;
    HealthRow Health{};
    bool operator==(const Line&) const = default;
};

struct Lines : std::vector<Line> {
    int Current = -1;
    bool operator==(const Lines&) const = default;
    int Count() const { return static_cast<int>(size()); }
    Line& At(int line) { return at(static_cast<std::size_t>(line)); }
    std::vector<int> Selected() {
        std::vector<int> selected;
        for (int line = 0; line < Count(); ++line)
            if (At(line).Selected)
                selected.push_back(line);
        return selected;
    }
};

/// What the window shows.
struct Look {
    PerSide<Lines> Lists;
    int Terrain = 4, Level = -1;
    bool IsTerrainLocked = false, IsLevelLocked = true;
    std::array<bool, 8> Checked{}, Disabled{};
    bool operator==(const Look&) const = default;
};

/// By menu item; the medals are none of them.
constexpr std::array<bool HealthRow::*, 8> Conditions{
    nullptr, &HealthRow::Blessed,    &HealthRow::Diseased,      &HealthRow::Poisoned,
    nullptr, &HealthRow::Blacksmith, &HealthRow::Weaponsmaster, &HealthRow::Flying};

/// The rules of the window, told without it: conditions are part of their line, and where no line is there
/// are none.
struct Rules : Look {
    void SetTerrain(int terrain) {
        IsLevelLocked = terrain != 0;
        if (std::exchange(Terrain, terrain) != terrain)
            Level = IsLevelLocked ? -1 : 0;
    }
    void CountLines(Side side) {
        if (side == Defender) {
            IsTerrainLocked = Lists.Defender.Count() > 8;
            SetTerrain(IsTerrainLocked ? 0 : Terrain);
        }
    }
    void Append(Side side, const Line& line) {
        if (Lists[side].Count() == 32)
            return;
        Lists[side].push_back(line);
        CountLines(side);
    }
    void Remove(Side side, int line) {
        Lines& list = Lists[side];
        const bool passesSelectionOn = line == list.Current && list.Selected() == std::vector{line};
        list.erase(list.begin() + line);
        if (line < list.Current || list.Current == list.Count())
            --list.Current;
        if (passesSelectionOn && list.Current >= 0)
            list.At(list.Current).Selected = true;
        CountLines(side);
    }
    void Swap() {
        std::swap(Lists.Attacker, Lists.Defender);
        for (const Side side : BothSides) {
            Lists[side].Current = -1;
            for (Line& line : Lists[side])
                line.Selected = false;
        }
        CountLines(Defender);
    }
    static void Move(Lines& list, int to) {
        if (list.Current < 0 || to < 0 || to == list.Count())
            return;
        if (list.Selected().size() > 1)
            for (Line& line : list)
                line.Selected = false;
        const int from = std::exchange(list.Current, to);
        std::swap(list.At(from), list.At(to));
        list.At(to).Selected = true;
        list.At(from).Selected = false;
    }
    void OpenMenu(Lines& list) {
        bool blessed = false, ailing = false;
        for (const int line : list.Selected().size() > 1 ? list.Selected() : std::vector{list.Current}) {
            blessed = blessed || list.At(line).Health.Blessed;
            ailing = ailing || list.At(line).Health.Diseased || list.At(line).Health.Poisoned;
        }
        for (const std::size_t item : {1U, 2U, 3U, 5U, 6U, 7U})
            Checked[item] = list.At(list.Current).Health.*Conditions[item];
        Disabled = {false, ailing, blessed, blessed};
    }
    static void Mark(Lines& list, std::size_t item, std::int16_t value) {
        for (const int place : list.Selected()) {
            auto& [entry, selected, health] = list.At(place);
            (item == 4 ? health.Medals = value : health.*Conditions[item] = value != 0);
            if (value != 0 && !entry.Text.ends_with('*'))
                entry.Text += " *";
            else if (health == HealthRow{} && entry.Text.ends_with(" *"))
                entry.Text.resize(entry.Text.size() - 2);
        }
    }
};

/// A user who does anything at all, with the rules beside the window.
class User {
public:
    User() {
        pad_.Form_Load();
        pad_.txtNumSimulations.SetText("20");
        toolkit_.OnEvents = [this] {
            fault_ = fault_ || Seen() != rules_;
            if (const int event = Any(50); event < 2)
                Act();
            else if (event == 2)
                pad_.sscAbort.Press();
        };
    }

    void Act() {
        const Side side = BothSides.at(random_() % 2);
        Lines& list = rules_.Lists[side];
        const int action = Any(1000), any = Any(6);
        if (action < 200) {
            // No colossi, since their bonus in the marsh is an error.
            const std::int32_t entry =
                std::array{Midges, Giants, Stalkers, Ghouls, Captain, Witch, Nobody}.at(random_() % 7);
            pad_.cboArmies[side].Pick(entry);
            rules_.Append(side, {{pad_.cboArmies[side].Text(), entry}});
        } else if (action < 400) {
            ListBox::Selection selection{list.Current = Any(list.Count() + 1) - 1, {}};
            for (int line = 0; line < list.Count(); ++line)
                if ((list.At(line).Selected = Any(4) == 0))
                    selection.Lines.push_back(line);
            pad_.lstArmies[side].Select(selection);
        } else if (action < 460) {
            if (list.Current >= 0)
                rules_.Remove(side, list.Current);
            pad_.lstArmies[side].DoubleClick();
        } else if (action < 600) {
            UseMenu(side);
        } else if (action < 700) {
            (any < 3 ? pad_.ArmyUp(side) : pad_.ArmyDown(side)).Press();
            Rules::Move(list, list.Current + (any < 3 ? -1 : 1));
        } else if (action < 750) {
            const int copies = std::array{0, -3, 1, 2, 6, 40}.at(random_() % 6);
            pad_.txtDup[side].SetText(std::to_string(copies));
            pad_.sscDup[side].Press();
            for (int copy = 0; copy < copies && list.Current >= 0; ++copy)
                rules_.Append(side, {list.At(list.Current).Entry});
        } else if (action < 760) {
            pad_.sscClearList[side].Press();
            list = {};
            for (const Side each : BothSides)
                for (Line& line : rules_.Lists[each])
                    line.Health = {};
        } else if (action < 765) {
            pad_.sscSwapSides.Press();
            if (pad_.cmdAttack.Enabled) // no run is under way
                rules_.Swap();
        } else if (action < 800) {
            pad_.cboTerrain.Choose(any);
            rules_.SetTerrain(rules_.IsTerrainLocked ? rules_.Terrain : any);
        } else if (action < 850) {
            pad_.cboCityLevel.Choose(any % 3);
            rules_.Level = rules_.IsLevelLocked ? -1 : any % 3;
        } else if (action < 998) {
            Focus(random_() % 4);
        } else if (pad_.cmdAttack.Enabled) {
            Run();
        }
    }

    bool IsRight() { return !fault_ && Seen() == rules_; }

private:
    int Any(int count) { return static_cast<int>(random_() % static_cast<unsigned>(count)); }

    Look Seen() {
        Look seen;
        for (const Side side : BothSides) {
            const ListBox& list = pad_.lstArmies[side];
            seen.Lists[side].Current = list.ListIndex().Value();
            for (Long row = 1; row <= HealthArray::RowCount; ++row)
                if (const HealthRow& health = pad_.Health(side)(row); row <= list.ListCount())
                    seen.Lists[side].push_back({list.Entry(row - 1), list.Selected(row - 1), health});
                else if (health != HealthRow{})
                    seen.Lists[side].push_back({{"no line", row}, false, health});
        }
        seen.Terrain = pad_.Terrain() == pad_.cboTerrain.Text() ? pad_.cboTerrain.ListIndex().Value() : -1;
        seen.Level = pad_.cboCityLevel.ListIndex().Value();
        seen.IsTerrainLocked = !pad_.cboTerrain.Enabled;
        seen.IsLevelLocked = !pad_.cboCityLevel.Enabled;
        for (std::size_t item = 1; item < 8; ++item) {
            seen.Checked[item] = pad_.mnuPopupItem[item].Checked;
            seen.Disabled[item] = !pad_.mnuPopupItem[item].Enabled;
        }
        return seen;
    }

    /// Moves the focus to a place; those on odd numbers belong to the defenders.
    void Focus(std::size_t place) {
        focus_ = place;
        pad_.MoveFocus(std::array<Control*, 4>{&pad_.txtNumSimulations, &pad_.lstArmies[Defender],
                                               &pad_.lstArmies[Attacker], &pad_.sscListArrow[1]}[place]);
    }

    void UseMenu(Side side) {
        Focus(side == Defender ? 1 : 2);
        isOpen_ = false;
        pad_.lstArmies_MouseUp(side, frmBrawlpad::MouseButton::Left);
        fault_ = fault_ || isOpen_;
        pad_.lstArmies_MouseUp(side, frmBrawlpad::MouseButton::Right);
        const int current = rules_.Lists[side].Current;
        fault_ = fault_ || isOpen_ != (current >= 0);
        if (current < 0)
            return;
        rules_.OpenMenu(rules_.Lists[side]);
        for (std::size_t medals = 0; medals < 5; ++medals)
            fault_ = fault_ || pad_.mnuPopupItemMedals[medals].Checked !=
                                   (rules_.Lists[side].At(current).Health.Medals == static_cast<int>(medals));
        if (Any(8) == 0)
            Focus(random_() % 4);
        side = BothSides.at(focus_ % 2);
        Lines& list = rules_.Lists[side];
        if (const auto item = static_cast<std::size_t>(Any(13)); item == 0) {
            pad_.mnuPopupDelete.Choose();
            for (std::vector<int> lines = list.Selected(); !lines.empty(); lines.pop_back())
                rules_.Remove(side, lines.back());
        } else if (item >= 8) {
            pad_.mnuPopupItemMedals[item - 8].Choose();
            Rules::Mark(list, 4, static_cast<std::int16_t>(item - 8));
        } else {
            pad_.mnuPopupItem[item].Choose();
            if (item != 4 && !rules_.Disabled[item])
                Rules::Mark(list, item, (rules_.Checked[item] = !rules_.Checked[item]) ? 1 : 0);
        }
    }

    void Run() {
        for (const Side side : BothSides)
            if (Lines& list = rules_.Lists[side]; !list.empty() && list.At(0).Entry.Datum == Nobody)
                return; // a stack might have no army, which is an error
        pad_.cmdAttack.Press();
    }

    SmallCatalogue catalogue_;
    FakeToolkit toolkit_;
    frmBrawlpad pad_{catalogue_, toolkit_};
    Rules rules_;
    std::mt19937 random_{20240607};
    std::size_t focus_ = 0;
    bool isOpen_ = false, fault_ = false;
    Connection opening_ = pad_.PopupMenuRequested.Connect([this](Side) { isOpen_ = true; });
};

TEST(SetupRandom, WindowKeepsTheRulesWhateverTheUserDoes) {
    MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator());
    User user;
    for (int action = 0; action < 200'000; ++action) {
        user.Act();
        ASSERT_TRUE(user.IsRight()) << "after " << action << " actions";
    }
    MBattleCalc::AbortRequested = false;
}

} // namespace
} // namespace vorhaven::test
