// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/setup/BattleText.h"

#include "base/Conversion.h"
#include "base/ForeignText.h"
#include "model/BattleWords.h"
#include "model/Terrain.h"

#include <algorithm>
#include <array>
#include <bitset>

namespace vorhaven {
namespace {

/// What may surround words; a text from elsewhere has carriage returns too.
constexpr std::string_view Blanks = " \t\r";
constexpr std::string_view Digits = "0123456789";

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
        text.append(SideHeadings[side]).append("\n").append(Write(setup.Sides[side])).append("\n");
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

/// A text without what mails and web pages put into it and nobody sees: blanks that do not break become plain
/// ones, and a byte order mark goes.
std::string WithPlainBlanks(std::string_view text) {
    constexpr std::string_view unbreakable = "\xC2\xA0";
    constexpr std::string_view byteOrderMark = "\xEF\xBB\xBF";
    if (text.starts_with(byteOrderMark))
        text.remove_prefix(byteOrderMark.size());
    std::string plain{text};
    for (std::size_t at = 0; (at = plain.find(unbreakable, at)) != std::string::npos; ++at)
        plain.replace(at, unbreakable.size(), " ");
    return plain;
}

/// Reads one text, line by line.
class BattleText::Reader {
public:
    explicit Reader(const Units& units) : units_(&units), entries_(units.Entries()) {
        for (ListEntry& entry : entries_)
            entry.Text = WithPlainBlanks(entry.Text);
    }

    void Read(std::string_view pasted) {
        const std::string plain = WithPlainBlanks(pasted);
        std::string_view text = plain;
        while (!text.empty()) {
            ++number_;
            const std::string_view line = Trimmed(Take(text, '\n'), Blanks);
            if (IsHeading(line, OddsHeading) || IsHeading(line, ResultsHeading))
                break;
            if (!line.empty())
                ReadLine(line);
        }
    }

    /// What becomes of a set-up by what was read.
    [[nodiscard]] Outcome AppliedTo(Setup setup, Side side) const {
        for (const Side each : BothSides)
            if (sides_[each])
                setup.Sides[each] = *sides_[each];
        std::vector<SetupLine>& list = setup.Sides[side];
        list.insert(list.end(), loose_.begin(), loose_.end());
        if (SizeOf(list) > MaxLines)
            throw ListFullError{};
        setup.AdjustTerrain();
        std::string remark;
        if (terrain_ && setup.IsTerrainLocked && *terrain_ != setup.Terrain)
            remark = "More than " + ToText(LinesPerStack) +
                     " defenders are always in a city, so the terrain \"" + *terrain_ + "\" was not taken";
        else if (terrain_)
            setup.ChooseTerrain(*terrain_);
        if (cityLevel_ && setup.Terrain != Terrains::City)
            throw BattleTextError{cityLevelNumber_, "only a city has a city level"};
        setup.CityLevel = cityLevel_.value_or(setup.CityLevel);
        setup.CombatDice = combatDice_.value_or(setup.CombatDice);
        setup.NumBattles = numBattles_.value_or(setup.NumBattles);
        return {setup, remark};
    }

private:
    [[noreturn]] void Refuse(const std::string& fault) const { throw BattleTextError{number_, fault}; }

    void ReadLine(std::string_view line) {
        for (const Side side : BothSides)
            if (IsHeading(line, SideHeadings[side])) {
                if (!sides_[side])
                    sides_[side].emplace();
                list_ = &*sides_[side];
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
                Refuse(Quoted(value) + " is not a terrain");
        } else if (IsSame(key, CityLevelKey)) {
            ReadCityLevel(value);
        } else if (IsSame(key, DiceKey)) {
            combatDice_ = Number(value, CombatDiceRange);
        } else if (IsSame(key, BattlesKey)) {
            ReadNumBattles(value);
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
            Refuse(Quoted(value) + " is not a city level");
        cityLevel_ = static_cast<std::int32_t>(level - CityLevels.begin()) + 1;
        cityLevelNumber_ = number_;
    }

    void ReadNumBattles(const std::string& value) {
        const auto number =
            value.find_first_not_of(Digits) == std::string::npos ? NumberIn(value) : std::nullopt;
        if (!number || *number > NumBattlesRange.Highest)
            Refuse(Quoted(value) + " is not a whole number up to " + ToText(NumBattlesRange.Highest));
        numBattles_ = CompletedNumBattles(ToText(*number));
    }

    [[nodiscard]] Long Number(const std::string& text, const NumberRange& range) const {
        const auto number = NumberIn(text);
        if (!number || *number < range.Lowest || *number > range.Highest)
            Refuse(Quoted(text) + " is not a number from " + ToText(range.Lowest) + " to " +
                   ToText(range.Highest));
        return *number;
    }

    void ReadArmy(std::string_view line) {
        const Troop troop = TroopOf(line);
        SetupLine army{troop.Unit->Datum, units_->Name(troop.Unit->Datum)};
        GivenValues given;
        std::string_view traits = troop.Traits;
        Take(traits, ',');
        while (!traits.empty())
            ReadTrait(army, given, std::string(Trimmed(Take(traits, ','), Blanks)));
        if (army.Health != HealthRow{} && AsteriskEligible(army.Text))
            army.Text += ConditionMark;
        if (SizeOf(*list_) + troop.Count > MaxLines)
            Refuse("a list holds " + ToText(MaxLines) + " armies at most");
        list_->insert(list_->end(), troop.Count.Index(), army);
    }

    /// What a line says before its first condition.
    struct Troop {
        const ListEntry* Unit;
        Long Count = 1;
        /// What follows, from the comma on.
        std::string_view Traits;
    };

    /// A name may begin like a count or a dash itself, so it is tried first.
    [[nodiscard]] Troop TroopOf(std::string_view line) const {
        if (const auto troop = NamedAt(line))
            return *troop;
        if (line.starts_with('-'))
            line = Trimmed(line.substr(1), Blanks);
        if (const auto troop = NamedAt(line))
            return *troop;
        const std::string count{line.substr(0, std::min(line.find_first_not_of(Digits), line.size()))};
        const std::string_view counted = line.substr(count.size());
        const bool isCounted = !count.empty() && Trimmed(counted, Blanks).size() < counted.size();
        auto troop = isCounted ? NamedAt(Trimmed(counted, Blanks)) : std::nullopt;
        if (!troop)
            Refuse(Quoted(Trimmed(Take(line, ','), Blanks)) + " is not a unit of the catalogue");
        troop->Count = Number(count, {1, MaxLines, 1});
        return *troop;
    }

    /// The unit that a text begins with. A unit's name may have commas itself, so the longest one counts; of
    /// names that differ in letter case alone, the one that is spelt exactly like the text.
    [[nodiscard]] std::optional<Troop> NamedAt(std::string_view text) const {
        std::optional<Troop> longest;
        for (const ListEntry& unit : entries_) {
            if (!IsSame(text.substr(0, unit.Text.size()), unit.Text))
                continue;
            std::string_view rest = Trimmed(text.substr(unit.Text.size()), Blanks);
            // The mark that the lists show gives no condition by itself.
            if (rest.starts_with(ConditionMark.back()))
                rest = Trimmed(rest.substr(1), Blanks);
            const bool isMeant = rest.empty() || rest.front() == ',';
            const bool isBetter =
                !longest || unit.Text.size() > longest->Unit->Text.size() ||
                (unit.Text.size() == longest->Unit->Text.size() && text.starts_with(unit.Text));
            if (isMeant && isBetter)
                longest = {&unit, 1, rest};
        }
        return longest;
    }

    /// Which of a hero's numbers a line has given, in the order of HeroNumbers.
    using GivenValues = std::bitset<HeroNumbers.size()>;

    /// A condition, "blessed", or a hero's value, "strength 8".
    void ReadTrait(SetupLine& army, GivenValues& given, const std::string& trait) const {
        HealthRow health = army.Health;
        if (!AddCondition(health, ToLower(trait))) {
            ReadHeroValue(army, given, trait);
            return;
        }
        const bool isSecond =
            health == army.Health || (army.Health.Medals > 0 && health.Medals != army.Health.Medals);
        if (isSecond)
            Refuse(Quoted(trait) + ": a line gives each condition at most once");
        if (!IsPossible(health))
            Refuse(Quoted(trait) + ": a blessed army is neither diseased nor poisoned");
        army.Health = health;
    }

    void ReadHeroValue(SetupLine& army, GivenValues& given, const std::string& trait) const {
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
            Refuse(Quoted(trait) + " is outside what a hero's editor can hold");
        const auto place = static_cast<std::size_t>(meant - HeroNumbers.begin());
        if (given[place])
            Refuse(Quoted(trait) + ": a line gives each value at most once");
        given.set(place);
        if (!army.Hero)
            army.Hero = defaults;
        *army.Hero.*(meant->Value) = *number;
    }

    const Units* units_;
    std::vector<ListEntry> entries_;
    int number_ = 0;
    /// The lines below the headings that the text has.
    PerSide<std::optional<std::vector<SetupLine>>> sides_;
    /// The lines above any heading, which belong to no side yet.
    std::vector<SetupLine> loose_;
    std::vector<SetupLine>* list_ = &loose_;
    std::optional<std::string> terrain_;
    std::optional<Long> cityLevel_;
    /// The number of the line that gives it.
    int cityLevelNumber_ = 0;
    std::optional<Long> combatDice_;
    std::optional<std::string> numBattles_;
};

BattleText::Outcome BattleText::Read(std::string_view text, const Setup& present, Side side) const {
    if (text.size() > MaxBytes)
        throw BattleTextError{"The text is too long to be a battle."};
    Reader reader{*units_};
    reader.Read(text);
    return reader.AppliedTo(present, side);
}

} // namespace vorhaven
