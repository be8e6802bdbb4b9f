// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/hero/frmHero.h"

#include <algorithm>
#include <utility>

namespace vorhaven {
namespace {

template <std::size_t... Place>
std::array<HeroField, sizeof...(Place)> MakeFields(std::index_sequence<Place...> /*places*/) {
    return {HeroField{HeroNumbers[Place]}...};
}

} // namespace

HeroField::HeroField(const HeroNumber& number)
    : lbl(std::string(number.Title) + ':'),
      upd(txt, number.Lowest, number.Highest, number.Lowest, UpDown::Typing::Free), number_(&number) {
    txt.Name = std::string("txt") + number.Name;
    upd.Name = std::string("upd") + number.Name;
}

frmHero::frmHero(Desktop& desktop)
    : Form("Hero Bonuses (Both Intrinsic and from Items)"),
      Fields(MakeFields(std::make_index_sequence<HeroNumbers.size()>{})), desktop_(&desktop) {
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

HeroField& frmHero::Field(Long HeroValues::* value) {
    return *std::ranges::find_if(Fields, [value](const HeroField& field) { return field.IsFor(value); });
}

std::array<HeroField*, HeroNumbers.size()> frmHero::LoadOrder() {
    std::array<HeroField*, HeroNumbers.size()> order{};
    std::ranges::transform(Fields, order.begin(), [](HeroField& field) { return &field; });
    // The order of storing, but for Trample, the last one there: it comes before the two ahead of it.
    std::rotate(order.end() - 3, order.end() - 1, order.end());
    return order;
}

void frmHero::LoadHeroInfo() {
    const Trap trap{"frmHero::LoadHeroInfo"};
    HeroName = Hero->Name.Text();
    LoadFields(FirstValues.value_or(HeroValues::AtFirst(*Hero)));
}

void frmHero::LoadFields(const HeroValues& values) {
    for (HeroField* field : LoadOrder())
        field->Load(values);
}

void frmHero::SendHeroInfoToScreen() {
    const Trap trap{"frmHero::SendHeroInfoToScreen"};
    lblName.Caption = HeroName;
    for (HeroField* field : LoadOrder())
        field->SendToScreen();
}

void frmHero::cmdLastValues_Click() {
    const Trap trap{"frmHero::cmdLastValues_Click"};
    // The record clamps what it cannot hold.
    CArmy hero = *Hero;
    LastValues->ApplyTo(hero);
    LoadFields(HeroValues::From(hero));
    SendHeroInfoToScreen();
}

void frmHero::cmdProceed_Click() {
    const Trap trap{"frmHero::cmdProceed_Click"};
    SendScreenInfoToProps();
    SendPropsToHero();
    isConfirmed_ = true;
    Unload();
    desktop_->ProcessEvents();
}

void frmHero::SendScreenInfoToProps() {
    // The one location text without its window's name.
    const Trap trap{"SendScreenInfoToProps"};
    for (HeroField& field : Fields)
        field.TakeFromScreen();
}

void frmHero::SendPropsToHero() {
    const Trap trap{"frmHero::SendPropsToHero"};
    for (const HeroField& field : Fields)
        field.Store(*Hero);
}

} // namespace vorhaven
