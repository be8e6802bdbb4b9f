// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "model/CArmy.h"
#include "model/Catalogue.h"
#include "ui/controls/Controls.h"
#include "ui/controls/Form.h"
#include "ui/hero/HeroValues.h"

#include <array>
#include <optional>
#include <string>

namespace vorhaven {

/// One number of a hero on the screen: its label, text box and up-down, and the property between screen and
/// record. The property holds a number when loaded from the record, the text of the box when taken from the
/// screen.
class HeroField {
public:
    explicit HeroField(const HeroNumber& number);

    Label lbl;
    TextBox txt{MaxNumberLength};
    UpDown upd;

    [[nodiscard]] bool IsFor(Long HeroValues::* value) const { return number_->Value == value; }

    void Load(const HeroValues& values) { property_ = values.*number_->Value; }
    void SendToScreen() { txt.SetText(CellText(property_)); }
    void TakeFromScreen() { property_ = txt.Text(); }
    /// Raises error 13 when the text is no number, error 6 when the number is too large.
    void Store(CArmy& hero) const { number_->Write(hero, CellNumber(property_)); }

private:
    const HeroNumber* number_;
    Cell property_;
};

/// The hero editor: strength, hits, special attacks and stack bonuses of one hero about to fight.
class frmHero final : public Form {
public:
    /// `desktop` must outlive the window.
    explicit frmHero(Desktop& desktop);

    /// The record that is edited; set before the window is loaded.
    CArmy* Hero = nullptr;
    /// Which line of which list the hero is; set before the window is loaded.
    std::string Whereabouts;
    /// What was last entered for this hero, if anything was; set before the window is loaded.
    std::optional<HeroValues> LastValues;
    /// What the fields begin with instead of the record's values; set before the window is loaded.
    std::optional<HeroValues> FirstValues;

    void Form_Load() override;

    /// Whether "Done" has stored the fields in the record; a window that is closed otherwise leaves it as it
    /// was.
    [[nodiscard]] bool IsConfirmed() const { return isConfirmed_; }

    /// The hero's name, once the window is loaded.
    std::string HeroName;
    /// The hero's name and its line.
    [[nodiscard]] std::string Description() const { return Hero->Name.Text() + ", " + Whereabouts; }

    Frame fraUnitInfo{"Hero Unit Statistics"};
    Label lblNameCaption{"Name:"};
    Label lblName;
    Label lblWhereabouts;

    Frame fraStackBonus{"Stack Bonuses"};
    Button cmdLastValues{"&Last Values", "Fill the fields with what was last entered for this hero"};
    Button cmdProceed{"&Done"};

    /// All fields in the order of HeroNumbers, in which they are stored: a text that is no number ends the
    /// way back to the record, and the fields before it are in the record then.
    std::array<HeroField, HeroNumbers.size()> Fields;
    [[nodiscard]] HeroField& Field(Long HeroValues::* value);
    /// The fields of each frame from top to bottom.
    const std::array<HeroField*, 8> UnitFields{&Field(&HeroValues::Strength),  &Field(&HeroValues::Hits),
                                               &Field(&HeroValues::Missle),    &Field(&HeroValues::Assass),
                                               &Field(&HeroValues::Curse),     &Field(&HeroValues::Acid),
                                               &Field(&HeroValues::Lightning), &Field(&HeroValues::Trample)};
    const std::array<HeroField*, 6> StackFields{
        &Field(&HeroValues::Leadership), &Field(&HeroValues::Morale), &Field(&HeroValues::Fortification),
        &Field(&HeroValues::Chaos),      &Field(&HeroValues::Fear),   &Field(&HeroValues::Siege)};

private:
    void LoadHeroInfo();
    void SendHeroInfoToScreen();
    void LoadFields(const HeroValues& values);
    void cmdLastValues_Click();
    void cmdProceed_Click();
    void SendScreenInfoToProps();
    void SendPropsToHero();

    /// The fields in the order in which they are loaded and shown.
    [[nodiscard]] std::array<HeroField*, HeroNumbers.size()> LoadOrder();

    Desktop* desktop_;
    bool isConfirmed_ = false;
};

} // namespace vorhaven
