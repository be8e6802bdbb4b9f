// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/hero/frmHero.h"

namespace vorhaven {

frmHero::frmHero(Desktop& desktop)
    : Form("Hero Bonuses (Both Intrinsic and from Items)"), desktop_(&desktop) {
    cmdLastValues.Click = [this] { cmdLastValues_Click(); };
    cmdProceed.Click = [this] { cmdProceed_Click(); };
}

void frmHero::Form_Load() {
    const Trap trap{"frmHero::Form_Load"};
    CentreOn(desktop_->ScreenSize());
    LoadHeroInfo();
    SendHeroInfoToScreen();
    lblWhereabouts.Caption = Whereabouts;
    cmdLastValues.Enabled = LastValues.has_value();
}

void frmHero::LoadHeroInfo() {
    const Trap trap{"frmHero::LoadHeroInfo"};
    heroName_ = Hero->Name.Text();
    CArmy hero = *Hero;
    // Every hero begins with 1, whatever the catalogue gave it.
    hero.Leadership = 1;
    LoadFields(hero);
}

void frmHero::LoadFields(const CArmy& hero) {
    for (HeroField* field : loadOrder_)
        field->Load(hero);
}

void frmHero::SendHeroInfoToScreen() {
    const Trap trap{"frmHero::SendHeroInfoToScreen"};
    lblName.Caption = heroName_;
    for (HeroField* field : loadOrder_)
        field->SendToScreen();
}

void frmHero::cmdLastValues_Click() {
    const Trap trap{"frmHero::cmdLastValues_Click"};
    CArmy hero = *Hero;
    LastValues->ApplyTo(hero);
    LoadFields(hero);
    SendHeroInfoToScreen();
}

void frmHero::cmdProceed_Click() {
    const Trap trap{"frmHero::cmdProceed_Click"};
    SendScreenInfoToProps();
    SendPropsToHero();
    Unload();
    desktop_->ProcessEvents();
}

void frmHero::SendScreenInfoToProps() {
    // The one location text without its window's name.
    const Trap trap{"SendScreenInfoToProps"};
    for (HeroField* field : storeOrder_)
        field->TakeFromScreen();
}

void frmHero::SendPropsToHero() {
    const Trap trap{"frmHero::SendPropsToHero"};
    for (const HeroField* field : storeOrder_)
        field->Store(*Hero);
}

} // namespace vorhaven
