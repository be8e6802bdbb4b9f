// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "ui/setup/BattleText.h"
#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

std::string frmBrawlpad::SelectedLinesAsText(Side side) const {
    const Setup setup = CurrentSetup();
    std::vector<SetupLine> selected;
    for (const Long line : lstArmies[side].SelectedLines())
        selected.push_back(setup.Sides[side][line.Index()]);
    return BattleText{*units_}.Write(selected);
}

void frmBrawlpad::Copy(Side side) {
    const Trap trap{"frmBrawlpad::Copy"};
    if (const std::string text = SelectedLinesAsText(side); !text.empty())
        toolkit_->SetClipboardText(text);
}

std::string frmBrawlpad::BattleAsText() const {
    std::string text = BattleText{*units_}.Write(CurrentSetup());
    const auto add = [&text](const Frame& frame, const std::string& figures) {
        if (!figures.empty())
            text += "\n" + frame.Caption.Get() + "\n" + figures;
    };
    add(OddsFrame.fraOdds, OddsFrame.AsText());
    // The field may hold another number by now.
    if (const Setup* const fought = lastRun_.Shown())
        add(ResultsFrame.fraQuickResults, ResultsFrame.AsText(fought->NumBattles));
    return text;
}

void frmBrawlpad::Paste(Side side, const std::string& text) {
    const Trap trap{"frmBrawlpad::Paste"};
    if (Trimmed(text, " \t\r\n").empty()) {
        Noticed.Raise("The clipboard holds no text to paste");
        return;
    }
    try {
        const auto [battle, remark] = BattleText{*units_}.Read(text, CurrentSetup(), side);
        PutInPlace(battle);
        if (!remark.empty())
            Noticed.Raise(remark);
    } catch (const BattleTextError& error) {
        toolkit_->ShowMessage(std::string(error.what()) + "\nNothing was pasted.");
    } catch (const ListFullError& error) {
        Noticed.Raise(error.what());
    }
}

} // namespace vorhaven
