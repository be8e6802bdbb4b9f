// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <random>
#include <string>
#include <vector>

namespace vorhaven::test {

/// Up to three powers and numbers of an army, most of them common ones, as Give reads them. Takes the
/// afflictions among them, which cost a solver most, off the number of those allowed.
inline std::string RandomPowers(std::mt19937& random, int& afflictions) {
    const auto upTo = [&random](unsigned n) { return static_cast<int>(random() % (n + 1)); };
    std::string text;
    for (int powers = upTo(3); powers > 0; --powers) {
        static const std::vector<std::string> names{
            "Acid",  "Lightning", "Assass", "Missle", "Warding", "Trample", "Medals",  "Leader", "Chaos",
            "Siege", "Morale",    "Fear",   "Unit",   "Fortify", "Poison",  "Disease", "Curse"};
        const std::string& name = names[random() % names.size()];
        if ((name != "Poison" && name != "Disease" && name != "Curse") || --afflictions >= 0)
            text += ' ' + name + ' ' + std::to_string(upTo(name == "Medals" ? 4 : 7));
    }
    return text;
}

} // namespace vorhaven::test
