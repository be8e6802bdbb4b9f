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

/// One number of a hero: its label, text box and up-down, and the property between screen and record. The
/// property holds a number when loaded from the record, the text of the box when taken from the screen.
class HeroField {
public:
    using Reader = Long (*)(const CArmy&);
    using Writer = void (*)(CArmy&, Long);

    HeroField(const char* caption, Long lowest, Long highest, Reader read, Writer write)
        : lbl(caption), upd(txt, lowest, highest, lowest, UpDown::Typing::Free), read_(read), write_(write) {}

    Label lbl;
    TextBox txt{MaxNumberLength};
    UpDown upd;

    void Load(const CArmy& hero) { value_ = read_(hero); }
    void SendToScreen() { txt.SetText(CellText(value_)); }
    void TakeFromScreen() { value_ = txt.Text(); }
    /// Raises error 13 when the text is no number, error 6 when the number is too large.
    void Store(CArmy& hero) const { write_(hero, CellNumber(value_)); }

private:
    Reader read_;
    Writer write_;
    Cell value_;
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
    /// What was entered for this hero in the last run, if anything was; set before the window is loaded.
    std::optional<HeroValues> LastValues;

    void Form_Load() override;

    Frame fraUnitInfo{"Hero Unit Statistics"};
    Label lblNameCaption{"Name:"};
    Label lblName;
    Label lblWhereabouts;
    HeroField Strength{"Strength:", 1, 255, Read<&CArmy::StartStrength>, Write<&CArmy::StartStrength>};
    HeroField Hits{"Hits:", 1, 4, Read<&CArmy::Hits>, Write<&CArmy::Hits>};
    HeroField Missle{"Missle:", 0, 10, Read<&CArmy::Missle>, Write<&CArmy::Missle>};
    HeroField Assass{"Assassination:", 0, 10, Read<&CArmy::Assass>, Write<&CArmy::Assass>};
    HeroField Curse{"Curse:", 0, 10, Read<&CArmy::Curse>, Write<&CArmy::Curse>};
    HeroField Acid{"Acid:", 0, 10, Read<&CArmy::Acid>, Write<&CArmy::Acid>};
    HeroField Lightning{"Lightning:", 0, 10, Read<&CArmy::Lightning>, Write<&CArmy::Lightning>};
    HeroField Trample{"Trample:", 0, 3, Read<&CArmy::Trample>, Write<&CArmy::Trample>};

    Frame fraStackBonus{"Stack Bonuses"};
    HeroField Leadership{"Leadership:", 1, 5, Read<&CArmy::Leadership>, Write<&CArmy::Leadership>};
    HeroField Morale{"Morale:", 0, 5, Read<&CArmy::Morale>, Write<&CArmy::Morale>};
    HeroField Fortification{"Fortification:", 0, 5, Read<&CArmy::Fortify>, Write<&CArmy::Fortify>};
    HeroField Chaos{"Chaos:", 0, 5, Read<&CArmy::Chaos>, Write<&CArmy::Chaos>};
    HeroField Fear{"Fear:", 0, 5, Read<&CArmy::Fear>, Write<&CArmy::Fear>};
    HeroField Siege{"Siege:", 0, 5, Read<&CArmy::Siege>, Write<&CArmy::Siege>};

    Button cmdLastValues{"&Last Values",
                         "Fill the fields with what was entered for this hero in the last run"};
    Button cmdProceed{"&Done"};

    /// The fields of each frame from top to bottom.
    const std::array<HeroField*, 8> UnitFields{&Strength, &Hits, &Missle,    &Assass,
                                               &Curse,    &Acid, &Lightning, &Trample};
    const std::array<HeroField*, 6> StackFields{&Leadership, &Morale, &Fortification, &Chaos, &Fear, &Siege};

private:
    template <auto Member>
    static Long Read(const CArmy& hero) {
        return hero.*Member;
    }
    template <auto Member>
    static void Write(CArmy& hero, Long value) {
        hero.*Member = value;
    }

    void LoadHeroInfo();
    void SendHeroInfoToScreen();
    void LoadFields(const CArmy& hero);
    void cmdLastValues_Click();
    void cmdProceed_Click();
    void SendScreenInfoToProps();
    void SendPropsToHero();

    Desktop* desktop_;
    std::string heroName_;
    /// The orders in which fields go from the record to the screen and back. A text that is no number ends
    /// the way back: the fields before it are in the record then.
    const std::array<HeroField*, 14> loadOrder_{&Strength, &Hits,    &Leadership, &Morale,   &Fortification,
                                                &Chaos,    &Fear,    &Siege,      &Assass,   &Missle,
                                                &Curse,    &Trample, &Acid,       &Lightning};
    const std::array<HeroField*, 14> storeOrder_{&Strength, &Hits, &Leadership, &Morale, &Fortification,
                                                 &Chaos,    &Fear, &Siege,      &Assass, &Missle,
                                                 &Curse,    &Acid, &Lightning,  &Trample};
};

} // namespace vorhaven
