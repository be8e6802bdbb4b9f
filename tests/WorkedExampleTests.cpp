// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "catalogue/CsvCatalogue.h"
#include "odds/BattleOdds.h"

#include <gtest/gtest.h>

namespace vorhaven::test {
namespace {

/// A battle on a field, with units of the built-in catalogue.
class FieldBattle final : public ArmyListHost {
public:
    [[nodiscard]] Long NumArmies() const override { return Armies().RowCount(); }
    [[nodiscard]] const std::string& Terrain() const override { return terrain_; }
    void EditHero(CArmy& /*hero*/) override {}

    void Attack(const std::string& name) { Add(attackers_, name); }
    void Defend(const std::string& name) { Add(defenders_, name); }

    [[nodiscard]] Odds::BattleOdds WithDice(Long dice) const {
        MBattleCalc::BattleStacks stacks;
        stacks.Build(attackers_, defenders_);
        const MBattleCalc::Flyers flyers{Armies(), catalogue_.GetTable(CatalogueProvider::Selector::Heroes)};
        return Odds::OddsOf(stacks, flyers, dice, 0, [] { return true; }).value();
    }

private:
    [[nodiscard]] const Table& Armies() const {
        return catalogue_.GetTable(CatalogueProvider::Selector::Armies);
    }

    void Add(CAttackArmies& list, const std::string& name) const {
        Long row = 0;
        while (CellText(Armies()(row, ArmyColumn::Name)) != name)
            ++row;
        const auto number = [&](Long column) { return CellNumber(Armies()(row, column)); };
        ArmyEntry entry;
        entry.Name = name;
        entry.UnitID = row;
        entry.StartStrength = number(ArmyColumn::Strength);
        entry.Hits = number(ArmyColumn::Hits);
        entry.Turns = number(ArmyColumn::Turns);
        entry.CBName = CellText(Armies()(row, ArmyColumn::BonusTerrain));
        entry.CBValue = number(ArmyColumn::BonusSize);
        entry.PowerType = number(ArmyColumn::PowerCode);
        entry.PowerValue = number(ArmyColumn::PowerSize);
        list.Add(entry, LineKey(list.Count()));
    }

    CsvCatalogue catalogue_ = CsvCatalogue::BuiltIn();
    std::string terrain_ = "field";
    CAttackArmies attackers_{*this}, defenders_{*this};
};

// The battle that docs/combat-rules.md works out by hand; the fractions are those told there.
TEST(WorkedExampleTest, ComesOutAsTheRulesForPlayersSay) {
    FieldBattle battle;
    battle.Attack("Dale Lancers");
    battle.Defend("Gate Wardens");
    battle.Defend("Vale Levy");
    const Odds::BattleOdds odds = battle.WithDice(20);

    EXPECT_NEAR(odds.Won, 12869.0 / 17328.0, 1e-12);
    EXPECT_NEAR(odds.Lost, 4459.0 / 17328.0, 1e-12);
    ASSERT_EQ(odds.Defenders.ChanceOfLosing.size(), 3U);
    EXPECT_NEAR(odds.Defenders.ChanceOfLosing[0], 49.0 / 576.0, 1e-12);
    EXPECT_NEAR(odds.Attackers.Overall.value().Turns, 3.0 * 4459.0 / 17328.0, 1e-12);
    EXPECT_NEAR(odds.Defenders.Overall.value().Armies, 527.0 / 576.0 + 12869.0 / 17328.0, 1e-12);
    EXPECT_NEAR(odds.Defenders.Overall.value().Turns, 527.0 / 576.0 + 2.0 * 12869.0 / 17328.0, 1e-12);
}

} // namespace
} // namespace vorhaven::test
