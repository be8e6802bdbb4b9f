// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/KeyedCollection.h"
#include "model/CArmy.h"

#include <cstdint>
#include <string>
#include <string_view>

namespace vorhaven {

/// The values from which the army list makes a record: catalogue values and the conditions that the user set.
struct ArmyEntry {
    std::string Name;
    Long UnitID;
    Long StartStrength;
    Long Hits;
    Long Turns;
    std::string CBName;
    Long CBValue;
    Long PowerType;
    Long PowerValue;
    bool IsBlessed = false;
    bool IsDiseased = false;
    bool IsPoisoned = false;
    Long HasMedal;
    bool IsBlacksmith = false;
    bool IsWeaponsmaster = false;
    bool IsFlying = false;
    bool IsUndead = false;
};

/// What an army list asks of the window that owns it.
class ArmyListHost {
public:
    ArmyListHost() = default;
    virtual ~ArmyListHost() = default;
    ArmyListHost(const ArmyListHost&) = delete;
    ArmyListHost& operator=(const ArmyListHost&) = delete;

    /// Number of army types in the catalogue; a unit from there on is a hero.
    [[nodiscard]] virtual Long NumArmies() const = 0;

    /// The defender's terrain.
    [[nodiscard]] virtual const std::string& Terrain() const = 0;

    /// Lets the user edit a hero; returns when the user has finished.
    virtual void EditHero(CArmy& hero) = 0;
};

/// An army list has at most MaxLines lines, which are read as at most MaxStacks stacks of LinesPerStack each.
inline constexpr std::int32_t LinesPerStack = 8;
inline constexpr std::int32_t MaxStacks = 4;
inline constexpr std::int32_t MaxLines = MaxStacks * LinesPerStack;

/// The key of an army by a number: of an attacker in its list by its line from 0.
[[nodiscard]] std::string LineKey(Long number);

/// The name of the entry that means no army.
inline constexpr const char* NoArmy = "None";

/// What the lists put behind the name of an army that has a condition.
inline constexpr std::string_view ConditionMark = " *";

/// The ordered list of armies that one side brings to a battle. It turns catalogue values and conditions into
/// fighting values.
class CAttackArmies {
public:
    /// `host` must outlive the list.
    explicit CAttackArmies(ArmyListHost& host) : host_(&host) {}

    /// Makes a record, lets the user edit it if it is a hero, stores it (under a key unless the key is empty)
    /// and derives its fighting values. Returns it, or nothing for the name "None", which is not stored. The
    /// pointer holds until the list changes. Raises error 457 when the key is taken and error 6 when a sum
    /// does not fit.
    CArmy* Add(const ArmyEntry& entry, std::string_view sKey);

    /// The record at a 1-based position or with a key; raises error 5 when there is none.
    [[nodiscard]] const CArmy& Item(Long position) const;
    [[nodiscard]] const CArmy& Item(std::string_view key) const;

    /// The record with a key, or nothing when there is none. The pointer holds until the list changes.
    [[nodiscard]] const CArmy* Find(std::string_view key) const { return armies_.Find(key); }

    [[nodiscard]] Long Count() const { return armies_.Count(); }

    /// Removes the record at a 1-based position or with a key; raises error 5 when there is none.
    void Remove(Long position);
    void Remove(std::string_view key);

    /// The records in order.
    [[nodiscard]] auto begin() const { return armies_.begin(); }
    [[nodiscard]] auto end() const { return armies_.end(); }

private:
    void MarkIfHero(CArmy& army) const;
    void InterpretCB(CArmy& army) const;
    static void ApplySpecialBirth(CArmy& army);
    static void InterpretPower(CArmy& army);
    static void VerifyHealth(CArmy& army);

    ArmyListHost* host_;
    KeyedCollection<CArmy> armies_;
};

} // namespace vorhaven
