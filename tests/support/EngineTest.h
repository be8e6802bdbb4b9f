// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Procedures.h"
#include "tests/support/Dice.h"
#include "tests/support/TestHost.h"

#include <string>

namespace vorhaven::test {

/// Begins with one trivial battle, which leaves the engine with a 20-faced die.
class Engine : public testing::Test {
protected:
    Engine() { Fight("", "", "A"); }

    /// Fights with the given draws, and shows the stacks of the first battle.
    void Fight(const std::string& attackers, const std::string& defenders, const std::string& draws,
               Long battles = 1, Long city = 0) {
        host_.Clear();
        host_.Bring(attackers, defenders);
        host_.Shown.clear();
        const Script script{draws};
        MBattleCalc::Add(host_, battles, 20, true, city);
        host_.OnStats = [](CStackAtt&, CStackAtt&) {};
    }

    TestHost host_;
};

} // namespace vorhaven::test
