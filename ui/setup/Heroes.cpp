// SPDX-License-Identifier: GPL-3.0-or-later

#include "base/Conversion.h"
#include "ui/hero/frmHero.h"
#include "ui/setup/frmBrawlpad.h"

namespace vorhaven {

std::string frmBrawlpad::WhereaboutsOf(Side side, Long position) const {
    return (side == Side::Attacker ? fraAttack : fraDefend).Caption.Get() + ", line " + ToText(position + 1);
}

void frmBrawlpad::EditHero(CArmy& hero, Side side, Long position) {
    const SetupLine& line = lastRun_.AsFought().Sides[side][position.Index()];
    // The list behind the editor shows whose turn it is.
    ListBox& list = lstArmies[side];
    const ListBox::Selection selection = list.CurrentSelection();
    list.Select({position, {position}});
    frmHero editor{*toolkit_};
    editor.Hero = &hero;
    editor.Whereabouts = WhereaboutsOf(side, position);
    editor.LastValues = line.Hero;
    toolkit_->ShowModal(editor);
    const HeroValues values = HeroValues::From(hero);
    if (editor.IsConfirmed())
        heroValues_[line.Id] = values;
    lastRun_.TakeHero(side, position, values, editor.IsConfirmed());
    list.Select(selection);
}

bool frmBrawlpad::CanEditHero(Side side) const {
    const ListBox& list = lstArmies[side];
    // A run under way waits for whatever window is opened.
    return !IsRunUnderWay() && list.ListIndex() >= 0 && units_->IsHero(list.Entry(list.ListIndex()).Datum);
}

void frmBrawlpad::mnuEditHero_Click() {
    const Trap trap{"frmBrawlpad::mnuEditHero_Click"};
    const Side side = FocusedSide();
    if (!CanEditHero(side))
        return;
    const Long position = lstArmies[side].ListIndex();
    const SetupLine line = CurrentSetup().Sides[side][position.Index()];
    CArmy hero;
    hero.Name = units_->Name(line.Unit);
    frmHero editor{*toolkit_};
    editor.Hero = &hero;
    editor.Whereabouts = WhereaboutsOf(side, position);
    editor.FirstValues = HeroOf(line, *units_);
    toolkit_->ShowModal(editor);
    if (!editor.IsConfirmed())
        return;
    heroValues_[line.Id] = HeroValues::From(hero);
    SetupTouched.Raise();
}

} // namespace vorhaven
