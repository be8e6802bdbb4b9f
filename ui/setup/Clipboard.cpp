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
    const std::string odds = OddsFrame.AsText();
    return BattleText{*units_}.Write(CurrentSetup()) +
           (odds.empty() ? "" : "\n" + OddsFrame.fraOdds.Caption.Get() + "\n" + odds) + ResultsAsText();
}

std::string frmBrawlpad::ResultsAsText() const {
    const Setup* const fought = lastRun_.Shown();
    if (fought == nullptr)
        return {};
    std::string text = "\n" + fraQuickResults.Caption.Get() + "\n";
    const auto add = [&text](const Label& caption, const std::string& figure) {
        text += caption.Caption.Get() + " " + figure + "\n";
    };
    if (const std::string& remark = lblOutOfDate.Caption; !remark.empty())
        text += "(" + remark + ")\n";
    // The field may hold another number by now.
    add(lblAttWinPercentCaption, lblAttWinPercent.Caption.Get() + " (" + lblWinMargin.Caption.Get() +
                                     ") of " + fought->NumBattles + " battles");
    for (std::size_t column = FirstAverage; column <= LastAverage; ++column)
        add(lblAvgCaption[column], lblAvg[column].Caption);
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
