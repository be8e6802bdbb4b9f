// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Conversion.h"
#include "engine/Dice.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <sstream>
#include <stdexcept>
#include <string>
#include <vector>

namespace vorhaven::test {

/// Makes the engine draw from a seed, under a timer that does not move, as long as this lives.
class SeededDice final {
public:
    explicit SeededDice(std::uint64_t seed) : generator_{seed, [] { return std::uint64_t{0x5DEECE66D}; }} {
        MBattleCalc::DrawFrom(generator_);
    }
    ~SeededDice() { MBattleCalc::DrawFrom(MBattleCalc::ProcessGenerator()); }
    SeededDice(const SeededDice&) = delete;
    SeededDice& operator=(const SeededDice&) = delete;

private:
    MBattleCalc::TimedGenerator generator_;
};

/// Chance as a test foresees it. "7" is a roll of the 20-faced combat die, "7/30" of another die, "35%" a
/// percentage draw, "0.5" the bare value; "A", "D" and "N" are rounds of strength 10 that the attacker, the
/// defender or nobody wins. Any other word and a draw too many throw, a draw too few fails, unless the draws
/// come in turn.
class Script final : public MBattleCalc::UniformSource {
public:
    explicit Script(const std::string& text, bool isInTurn = false) : isInTurn_(isInTurn) {
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
        EXPECT_TRUE(isInTurn_ || next_ == draws_.size())
            << next_ << " draws made, " << draws_.size() << " foreseen";
    }
    [[nodiscard]] std::uint32_t Draw() override {
        return draws_.at(isInTurn_ ? next_++ % draws_.size() : next_++);
    }

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
    bool isInTurn_;
};

} // namespace vorhaven::test
