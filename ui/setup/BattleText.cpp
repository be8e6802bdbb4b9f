// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/BattleText.h"

#include "base/Conversion.h"
#include "base/ForeignText.h"
#include "model/BattleWords.h"
#include "model/Terrain.h"

#include <algorithm>
#include <array>

namespace vorhaven {
namespace {

/// What may stand around words; a text from elsewhere has carriage returns too.
constexpr std::string_view Blanks = " \t\r";

bool IsSame(std::string_view a, std::string_view b) {
    return ToLower(a) == ToLower(b);
}

/// The text up to a separator, which both are taken from the text.
std::string_view Take(std::string_view& text, char separator) {
    const auto end = text.find(separator);
    const std::string_view piece = text.substr(0, end);
    text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
    return piece;
}

std::string LineAsText(const SetupLine& line, const Units& units) {
    std::string text = units.Name(line.Unit);
    if (const std::string conditions = InWords(line.Health); !conditions.empty())
        text += ", " + conditions;
    if (line.Hero)
        for (const HeroNumber& number : HeroNumbers)
            if (const Long value = *line.Hero.*number.Value; value != 0 || number.Lowest > 0)
                text.append(", ").append(ToLower(number.Title)).append(" ").append(ToText(value));
    return text + '\n';
}

} // namespace

ListFullError::ListFullError()
    : std::runtime_error("The list would hold more than " + ToText(MaxLines) +
                         " armies, so nothing was pasted") {}

std::string BattleText::Write(const std::vector<SetupLine>& lines) const {
    std::string text;
    for (const SetupLine& line : lines)
        text += LineAsText(line, *units_);
    return text;
}

std::string BattleText::Write(const Setup& setup) const {
    std::string text;
    for (const Side side : BothSides)
        if (const auto& lines = setup.Sides[side]; !lines.empty())
            text.append(SideHeadings[side]).append("\n").append(Write(lines)).append("\n");
    const auto add = [&text](std::string_view key, const std::string& value) {
        text.append(key).append(": ").append(value).append("\n");
    };
    add(TerrainKey, setup.Terrain);
    if (setup.CityLevel > 0)
        add(CityLevelKey, CityLevels.at(setup.CityLevel.Index() - 1));
    add(DiceKey, ToText(setup.CombatDice));
    // A number that is still being typed may be none yet, or too small a one.
    if (const auto battles = NumberIn(setup.NumBattles); battles && *battles >= NumBattlesRange.Lowest)
        add(BattlesKey, ToText(*battles));
    return text;
}

/// Reads one text, line by line.
class BattleText::Reader {
public:
    explicit Reader(const Units& units) : units_(&units), entries_(units.Entries()) {}

    void Read(std::string_view text) {
        while (!text.empty()) {
            ++number_;
            const std::string_view line = Trimmed(Take(text, '\n'), Blanks);
            if (IsSame(line, ResultsHeading))
                break;
            if (!line.empty())
                ReadLine(line);
        }
    }

    /// What becomes of a set-up by what was read.
    [[nodiscard]] Setup AppliedTo(Setup setup, Side side) const {
        const bool isWhole = !sides_.Attacker.empty() || !sides_.Defender.empty();
        if (isWhole)
            setup.Sides = sides_;
        std::vector<SetupLine>& list = setup.Sides[side];
        list.insert(list.end(), loose_.begin(), loose_.end());
        if (SizeOf(list) > MaxLines)
            throw ListFullError{};
        if (isWhole || side == Side::Defender)
            setup.AdjustTerrain();
        if (terrain_ && !setup.IsTerrainLocked)
            setup.ChooseTerrain(*terrain_);
        if (cityLevel_ && setup.Terrain == Terrains::City)
            setup.CityLevel = *cityLevel_;
        setup.CombatDice = combatDice_.value_or(setup.CombatDice);
        if (numBattles_)
            setup.NumBattles = ToText(*numBattles_);
        return setup;
    }

private:
    [[noreturn]] void Refuse(const std::string& fault) const { throw BattleTextError{number_, fault}; }

    void ReadLine(std::string_view line) {
        for (const Side side : BothSides)
            if (IsSame(line, SideHeadings[side])) {
                list_ = &sides_[side];
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
            terrain_ = ToLower(value);
            if (std::ranges::find(Terrains::All, *terrain_) == Terrains::All.end())
                Refuse(Quoted(value) + " is no terrain");
        } else if (IsSame(key, CityLevelKey)) {
            ReadCityLevel(value);
        } else if (IsSame(key, DiceKey)) {
            combatDice_ = Number(value, CombatDiceRange);
        } else if (IsSame(key, BattlesKey)) {
            numBattles_ = Number(value, NumBattlesRange);
        } else {
            return false;
        }
        return true;
    }

    void ReadCityLevel(const std::string& value) {
        const auto isMeant = [&value](std::string_view level) {
            return IsSame(value, level) || IsSame(value, level.substr(0, level.find(' ')));
        };
        const auto level = std::ranges::find_if(CityLevels, isMeant);
        if (level == CityLevels.end())
            Refuse(Quoted(value) + " is no city level");
        cityLevel_ = static_cast<std::int32_t>(level - CityLevels.begin()) + 1;
    }

    [[nodiscard]] Long Number(const std::string& text, const NumberRange& range) const {
        const auto number = NumberIn(text);
        if (!number || *number < range.Lowest || *number > range.Highest)
            Refuse(Quoted(text) + " is no number from " + ToText(range.Lowest) + " to " +
                   ToText(range.Highest));
        return *number;
    }

    void ReadArmy(std::string_view line) {
        const ListEntry& unit = UnitOf(line);
        SetupLine army{unit.Datum, unit.Text};
        line.remove_prefix(unit.Text.size());
        Take(line, ',');
        while (!line.empty())
            ReadTrait(army, std::string(Trimmed(Take(line, ','), Blanks)));
        if (SizeOf(*list_) == MaxLines)
            Refuse("a list holds " + ToText(MaxLines) + " armies at most");
        if (army.Health != HealthRow{} && AsteriskEligible(army.Text))
            army.Text += ConditionMark;
        list_->push_back(army);
    }

    /// The unit that a line begins with. A unit's name may have commas itself, so the longest one counts; of
    /// names that differ in letter case alone, the one that is written as it stands.
    [[nodiscard]] const ListEntry& UnitOf(std::string_view line) const {
        const ListEntry* longest = nullptr;
        for (const ListEntry& unit : entries_) {
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
    void ReadTrait(SetupLine& army, const std::string& trait) const {
        if (AddCondition(army.Health, ToLower(trait)))
            return;
        const auto space = trait.rfind(' ');
        const auto meant = std::ranges::find_if(
            HeroNumbers, [&](const HeroNumber& each) { return IsSame(each.Title, trait.substr(0, space)); });
        const auto defaults = units_->UntouchedHero(army.Unit);
        const auto number =
            space == std::string::npos ? std::nullopt : NumberIn(std::string_view(trait).substr(space + 1));
        if (meant == HeroNumbers.end() || !defaults || !number)
            Refuse(Quoted(trait) +
                   (defaults ? " is neither a condition nor a hero's value" : " is not a condition"));
        if (!meant->Holds(*number))
            Refuse(Quoted(trait) + " is more or less than a hero's editor holds");
        if (!army.Hero)
            army.Hero = defaults;
        *army.Hero.*(meant->Value) = *number;
    }

    const Units* units_;
    std::vector<ListEntry> entries_;
    int number_ = 0;
    PerSide<std::vector<SetupLine>> sides_;
    /// The lines above any heading, which belong to no side yet.
    std::vector<SetupLine> loose_;
    std::vector<SetupLine>* list_ = &loose_;
    std::optional<std::string> terrain_;
    std::optional<Long> cityLevel_;
    std::optional<Long> combatDice_;
    std::optional<Long> numBattles_;
};

Setup BattleText::Read(std::string_view text, const Setup& present, Side side) const {
    if (text.size() > MaxBytes)
        throw BattleTextError{"The text is too long to be a battle."};
    Reader reader{*units_};
    reader.Read(text);
    return reader.AppliedTo(present, side);
}

} // namespace vorhaven
