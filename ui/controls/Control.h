// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "ui/controls/Signal.h"

#include <functional>
#include <string>
#include <utility>

namespace vorhaven {

class Control;

/// A value of a control that views show: every change of it raises the control's Changed.
template <class Value>
class Property {
public:
    Property(Control& owner, Value value) : owner_(&owner), value_(std::move(value)) {}
    Property(const Property&) = delete;

    Property& operator=(const Property&) = delete;
    Property& operator=(Value value);

    // NOLINTNEXTLINE(google-explicit-constructor): a property reads as its value.
    operator const Value&() const { return value_; }
    [[nodiscard]] const Value& Get() const { return value_; }

private:
    Control* owner_;
    Value value_;
};

/// What all controls of a window have. A control is plain data with events: its handlers belong to the
/// window's model, and its views connect to Changed. Members named like an action of the user (Press, Choose,
/// Toggle, Pick) are what a view calls for the user; where a kind can be disabled, they do nothing while it
/// is.
class Control {
public:
    explicit Control(std::string toolTip = {}) : ToolTip(std::move(toolTip)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    /// What the program calls the control: its widget has the same name. Empty where it needs none.
    std::string Name;
    const std::string ToolTip;
    /// Place in a control array, -1 outside of one. In a paired array 0 is the attacking side, 1 the
    /// defending.
    int Index = -1;

    /// Raised when the focus leaves the control for another one of its window, and when it comes.
    std::function<void()> LostFocus;
    std::function<void()> GotFocus;

    /// Raised whenever something has changed that a view shows.
    Signal<> Changed;

protected:
    static void Raise(const std::function<void()>& event) {
        if (event)
            event();
    }
};

template <class Value>
Property<Value>& Property<Value>::operator=(Value value) {
    if (value_ != value) {
        value_ = std::move(value);
        owner_->Changed.Raise();
    }
    return *this;
}

} // namespace vorhaven
