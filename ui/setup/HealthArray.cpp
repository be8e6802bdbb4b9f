// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/HealthArray.h"

#include "model/CArmy.h"

#include <string_view>

namespace vorhaven {
namespace {

struct MarkWord {
    std::string_view Word;
    bool HealthRow::* Mark;
};
constexpr std::array<MarkWord, 3> BeforeMedals{{{"blessed", &HealthRow::Blessed},
                                                {"diseased", &HealthRow::Diseased},
                                                {"poisoned", &HealthRow::Poisoned}}};
constexpr std::array<MarkWord, 3> AfterMedals{{{"blacksmith", &HealthRow::Blacksmith},
                                               {"weaponsmaster", &HealthRow::Weaponsmaster},
                                               {"flying", &HealthRow::Flying}}};
constexpr std::array<std::string_view, MostMedals + 1> MedalWords{"", "1 medal", "2 medals", "3 medals",
                                                                  "4 medals"};

} // namespace

std::string InWords(const HealthRow& row) {
    std::string words;
    const auto add = [&words](std::string_view word) {
        words.append(words.empty() ? "" : ", ").append(word);
    };
    for (const auto& [word, mark] : BeforeMedals)
        if (row.*mark)
            add(word);
    if (row.Medals > 0)
        add(MedalWords.at(static_cast<std::size_t>(row.Medals)));
    for (const auto& [word, mark] : AfterMedals)
        if (row.*mark)
            add(word);
    return words;
}

bool AddCondition(HealthRow& row, std::string_view word) {
    for (const auto& marks : {BeforeMedals, AfterMedals})
        for (const auto& [name, mark] : marks)
            if (word == name) {
                row.*mark = true;
                return true;
            }
    const auto withoutS = [](std::string_view medals) {
        return medals.substr(0, medals.size() - (medals.ends_with('s') ? 1 : 0));
    };
    for (std::size_t medals = 1; medals < MedalWords.size(); ++medals)
        if (withoutS(word) == withoutS(MedalWords[medals])) {
            row.Medals = static_cast<std::int16_t>(medals);
            return true;
        }
    return false;
}

bool AsteriskEligible(std::string_view text) {
    return !text.empty() && !text.ends_with('*');
}

bool RemoveAsteriskEligible(std::string_view text, const HealthRow& row) {
    return row == HealthRow{} && !text.empty();
}

} // namespace vorhaven
