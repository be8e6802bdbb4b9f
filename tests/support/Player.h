// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "tests/support/FakeToolkit.h"

namespace vorhaven::test {

/// The main window whose user's every action is taken in, as the view does it.
struct Player final : Game {
    void Do(const std::function<void()>& action) {
        action();
        Pad.Settle();
    }
    void Mark(Side side, Long line, std::size_t item) {
        Do([&] { Game::Mark(side, {line}, {item}); });
    }
    void Pick(Side side, const std::vector<Long>& entries) {
        Do([&] { Add(side, entries); });
    }
    void Paste(Side side, const std::string& text) {
        Do([&] { Pad.Paste(side, text); });
    }
    void Fight() {
        Pad.txtNumSimulations.SetText("10");
        Do([&] { Pad.cmdAttack.Press(); });
    }
    std::string Chances() const {
        return Text(Pad.OddsFrame.lblChance.Attacker) + " " + Text(Pad.OddsFrame.lblChance.Defender);
    }
    std::string OutOfDate() const { return Text(Pad.ResultsFrame.lblOutOfDate); }
    std::string OddsState() const { return Text(Pad.OddsFrame.lblState); }
    std::string Change() const {
        return Text(Pad.OddsFrame.lblChange) + ": " + Pad.OddsFrame.ChangeInWords.Get();
    }
    static std::string Text(const Label& label) { return label.Caption; }

    std::string Notice;

private:
    Connection noticing_ = Pad.Noticed.Connect([this](const std::string& text) { Notice = text; });
};

inline std::string MidgesAsText(int count) {
    std::string lines;
    while (count-- > 0)
        lines += "Midges\n";
    return lines;
}

} // namespace vorhaven::test
