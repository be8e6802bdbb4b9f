// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <string>
#include <utility>

namespace vorhaven {

class Control;

/// A value of a control that the view shows: every change tells the view.
template <class Value>
class Property {
public:
    Property(const Control& owner, Value value) : owner_(&owner), value_(std::move(value)) {}
    Property(const Property&) = delete;

    Property& operator=(const Property&) = delete;
    Property& operator=(Value value);

    // NOLINTNEXTLINE(google-explicit-constructor): a property reads as its value.
    operator const Value&() const { return value_; }
    [[nodiscard]] const Value& Get() const { return value_; }

private:
    const Control* owner_;
    Value value_;
};

/// What all controls of a window have. A control is plain data with events: a model's handlers are called by
/// it, and a view, where there is one, shows it. Members named like a user's action (Press, Choose, Type) are
/// what a view calls for the user; they do nothing on a disabled control.
class Control {
public:
    explicit Control(std::string toolTip = {}) : ToolTip(std::move(toolTip)) {}
    virtual ~Control() = default;
    Control(const Control&) = delete;
    Control& operator=(const Control&) = delete;

    const std::string ToolTip;
    /// Place in a control array, -1 outside of one. In a paired array 0 is the attacking side, 1 the
    /// defending.
    int Index = -1;
    Property<bool> Enabled{*this, true};
    Property<bool> Visible{*this, true};

    /// Raised when the focus leaves the control for another one of its window.
    std::function<void()> LostFocus;

    /// Set by the view: brings what it shows up to date.
    std::function<void()> Refreshed;

    void Refresh() const {
        if (Refreshed)
            Refreshed();
    }

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
        owner_->Refresh();
    }
    return *this;
}

} // namespace vorhaven
