// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "engine/Procedures.h"
#include "tests/support/TestHost.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorhaven::test {

/// Chance as a test foresees it. "7" is a roll of the 20-faced combat die, "7/30" of another die, "35%" a
/// percentage draw, "0.5" the bare value; "A", "D" and "N" are rounds of strength 10 that the attacker, the
/// defender or nobody wins. Any other word and a draw too many throw, a draw too few fails.
class Script final : public MBattleCalc::UniformSource {
public:
    explicit Script(const std::string& text) {
        std::istringstream words(text);
        for (std::string word; words >> word;)
            if (word == "A" || word == "N" || word == "D")
                draws_.insert(draws_.end(),
                              {DrawOf(word == "A" ? "1" : "19"), DrawOf(word == "D" ? "1" : "19")});
            else
                draws_.push_back(DrawOf(word));
        MBattleCalc::DrawFrom(*this);
    }
    ~Script() override {
        MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator());
        EXPECT_EQ(next_, draws_.size()) << "draws made, draws foreseen";
    }
    [[nodiscard]] std::uint32_t Draw() override { return draws_.at(next_++); }

private:
    static std::uint32_t DrawOf(const std::string& word) {
        std::size_t length = 0;
        const double value = std::stod(word, &length);
        const std::string rest = word.substr(length);
        double draw = (value - 0.5) / 20.0;
        if (word.find('.') != std::string::npos && rest.empty())
            draw = value;
        else if (rest == "%")
            draw = (value + 0.5) / 99.0;
        else if (rest.starts_with('/'))
            draw = (value - 0.5) / ToLong(rest.substr(1)).Value();
        else if (!rest.empty())
            throw std::invalid_argument("\"" + word + "\" is no draw");
        if (draw < 0.0 || draw >= 1.0)
            throw std::invalid_argument("\"" + word + "\" is beyond the die");
        return static_cast<std::uint32_t>(std::ldexp(draw, MBattleCalc::UniformBits));
    }

    std::vector<std::uint32_t> draws_;
    std::size_t next_ = 0;
};

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
