// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Dice.h"
#include "engine/MBattleCalc.h"
#include "tests/support/Tables.h"
#include "tests/support/Text.h"
#include "ui/hero/frmHero.h"
#include "ui/results/frmStats.h"
#include "ui/setup/frmBrawlpad.h"

#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace vorhaven::test {

using enum Side;

/// A toolkit without a screen: it loads the windows that it shows and hands them to the test as their user.
struct FakeToolkit final : Toolkit {
    Size ScreenSize() const override { return {1000, 800}; }
    void ShowBusy(bool busy) override { Busy = busy; }
    void ProcessEvents() override { OnEvents(); }
    void ProcessOverdueEvents() override {}
    void ShowMessage(const std::string& prompt) override { Message = prompt; }
    std::string ClipboardText() const override { return Clipboard; }
    void SetClipboardText(const std::string& text) override { Clipboard = text; }
    void ShowModal(frmHero& window) override { window.Form_Load(), OnHero(window); }
    void ShowModal(frmStats& window) override { window.Form_Load(), OnStats(window); }
    void Show(frmMoreResults& window) override { window.Form_Load(), OnMoreResults(window); }
    void Show(frmAdvice& window) override { window.Form_Load(), window.SetSeen(true); }
    void WhenIdle(std::function<bool()> work) override { Work = std::move(work); }
    /// Has nothing else to do, until all work is done.
    void BeIdle() const {
        while (Work && Work()) {
        }
    }

    std::function<bool()> Work;
    bool Busy = false;
    std::string Clipboard;
    std::string Message;
    std::function<void()> OnEvents = [] {};
    std::function<void(frmHero&)> OnHero = [](frmHero&) {};
    std::function<void(frmStats&)> OnStats = [](frmStats&) {};
    std::function<void(frmMoreResults&)> OnMoreResults = [](frmMoreResults&) {};
};

/// The pickers' entries: a weak and a strong army, an assassin, undead of the field, an army whose bonus in
/// the marsh is more than a number can hold, two heroes, and no army.
enum Entry : std::int32_t { Midges, Giants, Stalkers, Ghouls, Colossi, Captain, Witch, Nobody };

struct SmallCatalogue final : TableCatalogue {
    SmallCatalogue()
        : TableCatalogue{// Row, name, strength, hits; an army's turns, trait; terrain, bonus; an army's power
                         // code and size.
                         TableOf({0, 1, 5, 7, 8, 12, 17, 18, 22, 23},
                                 {{0, "Midges", 1, 1, 3, "undead ones", "", 0, 0, 0},
                                  {1, "Giants", 14, 4, 7, "", "", 0, 3, 1},
                                  {2, "Stalkers", 12, 2, 4, "", "", 0, 28, 5},
                                  {3, "Ghouls", 5, 2, 2, " Undead ", "field", 2, 6, 2},
                                  {4, "Colossi", 10, 4, 9, "", "marsh", 2'147'483'647, 0, 0}}),
                         TableOf({0, 1, 8, 10, 16, 17},
                                 {{0, "Captain", 6, 3, "field", 1}, {1, "Witch", 4, 2, "woods", 2}})} {}
};

/// The main window, loaded.
struct Game {
    Game() {
        MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator());
        Pad.Form_Load();
    }
    void Add(Side side, const std::vector<Long>& entries) {
        for (const Long entry : entries)
            Pad.cboArmies[side].Pick(entry);
    }
    /// Selects lines, the first of them the current one, and chooses items of their menu.
    void Mark(Side side, const std::vector<Long>& lines, const std::vector<std::size_t>& items) {
        Pad.lstArmies[side].Select({lines[0], lines});
        Pad.MoveFocus(&Pad.lstArmies[side]);
        Pad.lstArmies_MouseUp(side, frmBrawlpad::MouseButton::Right);
        for (const std::size_t item : items)
            Pad.mnuPopupItem[item].Choose();
    }

    SmallCatalogue Catalogue;
    FakeToolkit Toolkit;
    frmBrawlpad Pad{Catalogue, Toolkit};
};

} // namespace vorhaven::test
