// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/BattleText.h"

#include "base/Conversion.h"
#include "model/Terrain.h"

#include <algorithm>

namespace vorhaven {
namespace {

using Line = BattleDescription::Line;

constexpr std::array<std::string_view, 2> SideHeadings{"Attacking Armies", "Defending Armies"};
constexpr std::string_view ResultsHeading = "Quick Results";
constexpr std::string_view TerrainKey = "Terrain";
constexpr std::string_view CityLevelKey = "City Level";
constexpr std::string_view DiceKey = "Combat Dice";
constexpr std::string_view BattlesKey = "Number of Battles";

struct HeroWord {
    std::string_view Word;
    Long HeroValues::*Value;
    /// Written also when it is 0.
    bool IsAlwaysWritten = false;
};
constexpr std::array<HeroWord, 14> HeroWords{{
    {"strength", &HeroValues::Strength, true},
    {"hits", &HeroValues::Hits, true},
    {"leadership", &HeroValues::Leadership, true},
    {"morale", &HeroValues::Morale},
    {"fortification", &HeroValues::Fortification},
    {"chaos", &HeroValues::Chaos},
    {"fear", &HeroValues::Fear},
    {"siege", &HeroValues::Siege},
    {"assassination", &HeroValues::Assass},
    {"missle", &HeroValues::Missle},
    {"curse", &HeroValues::Curse},
    {"acid", &HeroValues::Acid},
    {"lightning", &HeroValues::Lightning},
    {"trample", &HeroValues::Trample},
}};

/// What may stand around words; a text from elsewhere has carriage returns too.
constexpr std::string_view Blanks = " \t\r";

bool IsSame(std::string_view a, std::string_view b) {
    return ToLower(a) == ToLower(b);
}

std::string Quoted(std::string_view text) {
    return '"' + std::string(text) + '"';
}

/// The text up to a separator, which both are taken from the text.
std::string_view Take(std::string_view& text, char separator) {
    const auto end = text.find(separator);
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return piece;
}

} // namespace

std::string BattleText::WriteLine(const Line& line) const {
    const auto unit = std::ranges::find(vocabulary_.Units, line.Datum, &ListEntry::Datum);
    std::string text = unit->Text;
    if (const std::string conditions = InWords(line.Health); !conditions.empty())
        text += ", " + conditions;
    if (line.Hero)
        for (const auto& [word, value, isAlwaysWritten] : HeroWords)
            if (isAlwaysWritten || *line.Hero.*value != 0)
                text.append(", ").append(word).append(" ").append(ToText(*line.Hero.*value));
    return text + '\n';
}

std::string BattleText::Write(const BattleDescription& battle) const {
    std::string text;
    for (const Line& line : battle.Loose)
        text += WriteLine(line);
    for (std::size_t side = 0; side < battle.Sides.size(); ++side) {
        if (battle.Sides[side].empty())
            continue;
        text.append(text.empty() ? "" : "\n").append(SideHeadings[side]).append("\n");
        for (const Line& line : battle.Sides[side])
            text += WriteLine(line);
    }
    std::string settings;
    const auto add = [&settings](std::string_view key, const std::string& value) {
        settings.append(key).append(": ").append(value).append("\n");
    };
    if (battle.Terrain)
        add(TerrainKey, Terrains::All.at(static_cast<std::size_t>(*battle.Terrain)));
    if (battle.CityLevel)
        add(CityLevelKey, vocabulary_.CityLevels.at(static_cast<std::size_t>(*battle.CityLevel)).Text);
    if (battle.CombatDice)
        add(DiceKey, ToText(*battle.CombatDice));
    if (battle.NumBattles)
        add(BattlesKey, ToText(*battle.NumBattles));
    return text + (text.empty() || settings.empty() ? "" : "\n") + settings;
}

/// Reads one text, line by line.
class BattleText::Reader {
public:
    explicit Reader(const Vocabulary& vocabulary) : vocabulary_(&vocabulary) {}

    BattleDescription Read(std::string_view text) {
        while (!text.empty()) {
            ++number_;
            const std::string_view line = Trimmed(Take(text, '\n'), Blanks);
            if (IsSame(line, ResultsHeading))
                break;
            if (!line.empty())
                ReadLine(line);
        }
        return battle_;
    }

private:
    [[noreturn]] void Refuse(const std::string& fault) const { throw BattleTextError{number_, fault}; }

    void ReadLine(std::string_view line) {
        for (std::size_t side = 0; side < SideHeadings.size(); ++side)
            if (IsSame(line, SideHeadings[side])) {
                list_ = &battle_.Sides[side];
                return;
            }
        if (!ReadSetting(line))
            ReadArmy(line);
    }

    bool ReadSetting(std::string_view line) {
        if (line.find(':') == std::string_view::npos)
            return false;
        const std::string_view key = Trimmed(Take(line, ':'), Blanks);
        const std::string value{Trimmed(line, Blanks)};
        if (IsSame(key, TerrainKey)) {
            const std::int32_t terrain = Terrains::IndexOf(ToLower(value));
            if (terrain == static_cast<std::int32_t>(Terrains::All.size()))
                Refuse(Quoted(value) + " is no terrain");
            battle_.Terrain = terrain;
        } else if (IsSame(key, CityLevelKey)) {
            ReadCityLevel(value);
        } else if (IsSame(key, DiceKey)) {
            battle_.CombatDice = Number(value, vocabulary_->LowestDice, vocabulary_->HighestDice);
        } else if (IsSame(key, BattlesKey)) {
            battle_.NumBattles = Number(value, FewestBattles, MostBattles);
        } else {
            return false;
        }
        return true;
    }

    void ReadCityLevel(const std::string& value) {
        const auto& levels = vocabulary_->CityLevels;
        const auto isMeant = [&value](const ListEntry& level) {
            return IsSame(value, level.Text) || IsSame(value, level.Text.substr(0, level.Text.find(' ')));
        };
        const auto level = std::ranges::find_if(levels, isMeant);
        if (level == levels.end())
            Refuse(Quoted(value) + " is no city level");
        battle_.CityLevel = static_cast<std::int32_t>(level - levels.begin());
    }

    [[nodiscard]] Long Number(const std::string& text, Long lowest, Long highest) const {
        const auto number = NumberIn(text);
        if (!number || *number < lowest || *number > highest)
            Refuse(Quoted(text) + " is no number from " + ToText(lowest) + " to " + ToText(highest));
        return *number;
    }

    void ReadArmy(std::string_view line) {
        const ListEntry& unit = UnitOf(line);
        Line army{unit.Datum, {}, {}};
        line.remove_prefix(unit.Text.size());
        Take(line, ',');
        while (!line.empty())
            ReadTrait(army, std::string(Trimmed(Take(line, ','), Blanks)));
        if (SizeOf(*list_) == MaxLines)
            Refuse("a list holds " + ToText(MaxLines) + " armies at most");
        list_->push_back(army);
    }

    /// The unit that a line begins with. A unit's name may have commas itself, so the longest one counts; of
    /// names that differ in letter case alone, the one that is written as it stands.
    [[nodiscard]] const ListEntry& UnitOf(std::string_view line) const {
        const ListEntry* longest = nullptr;
        for (const ListEntry& unit : vocabulary_->Units) {
            if (!IsSame(line.substr(0, unit.Text.size()), unit.Text))
                continue;
            const std::string_view rest = Trimmed(line.substr(unit.Text.size()), Blanks);
            const bool isMeant = rest.empty() || rest.front() == ',';
            const bool isBetter = longest == nullptr || unit.Text.size() > longest->Text.size() ||
                                  (unit.Text.size() == longest->Text.size() && line.starts_with(unit.Text));
            if (isMeant && isBetter)
                longest = &unit;
        }
        if (longest == nullptr)
            Refuse(Quoted(Trimmed(Take(line, ','), Blanks)) + " is no unit of the catalogue");
        return *longest;
    }

    /// A condition, "blessed", or a hero's value, "strength 8".
    void ReadTrait(Line& army, const std::string& trait) const {
        if (AddCondition(army.Health, ToLower(trait)))
            return;
        const auto space = trait.rfind(' ');
        const auto word = std::ranges::find(HeroWords, ToLower(trait.substr(0, space)), &HeroWord::Word);
        const auto defaults = vocabulary_->Heroes(army.Datum);
        const auto number =
            space == std::string::npos ? std::nullopt : NumberIn(std::string_view(trait).substr(space + 1));
        if (word == HeroWords.end() || !defaults || !number)
            Refuse(Quoted(trait) +
                   (defaults ? " is neither a condition nor a hero's value" : " is no condition"));
        if (!army.Hero)
            army.Hero = defaults;
        *army.Hero.*(word->Value) = *number;
    }

    const Vocabulary* vocabulary_;
    int number_ = 0;
    BattleDescription battle_;
    std::vector<Line>* list_ = &battle_.Loose;
};

BattleDescription BattleText::Read(std::string_view text) const {
    return Reader{vocabulary_}.Read(text);
}

} // namespace vorhaven
