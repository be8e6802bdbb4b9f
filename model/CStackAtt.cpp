// SPDX-License-Identifier: GPL-3.0-or-later

#include "model/CStackAtt.h"

#include <algorithm>
#include <type_traits>

namespace vorhaven {
namespace {

// Every battle copies its armies: a copy must cost no more than the bytes of a record.
static_assert(std::is_trivially_copyable_v<CArmy>);

void RaiseTo(Long& stackValue, Long armyValue) {
    if (armyValue > stackValue)
        stackValue = armyValue;
}

} // namespace

CArmy& CStackAtt::Add(const CArmy& army, std::string_view sKey) {
    const Trap trap{"CStackAtt::Add"};
    CArmy& copy = armies_.Add(army, sKey);
    // From the copy: `army` may be one of this stack's own, whose place is gone when the storage has grown.
    copy.Hits = Long{copy.Hits};
    copy.StartStrength = Long{copy.StartStrength};
    copy.TotalStrength = Long{copy.TotalStrength};
    copy.Blacksmith = false;
    copy.Weaponsmaster = false;
    copy.UsedSpecial = false;
    copy.StartHits = decltype(copy.StartHits){};
    copy.MissleShotsLeft = 0;
    return copy;
}

void CStackAtt::Remove(Long position) {
    const Trap trap{"CStackAtt::Remove"};
    armies_.Remove(position);
}

void CStackAtt::Remove(std::string_view key) {
    const Trap trap{"CStackAtt::Remove"};
    armies_.Remove(key);
}

void CStackAtt::Clear() {
    armies_.Clear();
    bands_.clear();
    BlankPowers();
    StackPoison = 0;
    StackDisease = 0;
    StackCurse = 0;
    TotalStackBonus = 0;
}

void CStackAtt::CopyFrom(const CStackAtt& master) {
    Clear();
    // A stack's armies are without anything that Add leaves out already.
    armies_.CopyItems(master.armies_);
}

void CStackAtt::CountSelfPowers(Side side, Long fortification) {
    const Trap trap{"CStackAtt::CountSelfPowers"};
    BlankPowers();
    if (side == Side::Defender)
        StackFortify = fortification;

    bands_.clear();
    for (const CArmy& army : armies_) {
        AddRegularPowers(army);
        if (army.Banding != 0)
            AddToBand(army);
    }
    for (CArmy& army : armies_)
        if (army.Banding != 0)
            army.TotalStrength = army.TotalStrength + BandingBonus(army);
}

Long CStackAtt::BandingBonus(const CArmy& army) const {
    if (army.Banding == 0)
        return 0;
    const auto band = std::ranges::find(bands_, army.Name, &Band::Name);
    if (band == bands_.end())
        return 0;
    return band->Value + 1 >= band->Count ? band->Value : band->Count - 1;
}

void CStackAtt::EvalSelfPowers() {
    const Trap trap{"CStackAtt::EvalSelfPowers"};
    for (Long* value :
         {&StackChaos, &StackFear, &StackSiege, &StackLeadership, &StackMorale, &StackFortify}) {
        const Long own = *value;
        *value = own;
    }
}

void CStackAtt::BlankPowers() {
    const Trap trap{"CStackAtt::BlankPowers"};
    StackChaos = 0;
    StackFear = 0;
    StackSiege = 0;
    StackLeadership = 0;
    StackMorale = 0;
    StackFortify = 0;
}

void CStackAtt::AddRegularPowers(const CArmy& army) {
    const Trap trap{"CStackAtt::AddRegularPowers"};
    RaiseTo(StackChaos, army.Chaos);
    RaiseTo(StackFear, army.Fear);
    RaiseTo(StackSiege, army.Siege);
    RaiseTo(StackLeadership, army.Leadership);
    RaiseTo(StackMorale, army.Morale);
    RaiseTo(StackFortify, army.Fortify);
    StackDisease += army.Disease;
    StackPoison += army.Poison;
    StackCurse += army.Curse;
}

void CStackAtt::AddToBand(const CArmy& army) {
    const auto found = std::ranges::find(bands_, army.Name, &Band::Name);
    if (found == bands_.end())
        bands_.push_back({army.Name, army.PowerValue, 1});
    else
        ++found->Count;
}

} // namespace vorhaven
