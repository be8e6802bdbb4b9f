// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"
#include "ui/controls/Control.h"

#include <string>
#include <vector>

namespace vorhaven {

/// A text that the user only reads.
class Label : public Control {
public:
    explicit Label(std::string caption = {}, std::string toolTip = {})
        : Control(std::move(toolTip)), Caption(*this, std::move(caption)) {}

    /// "&" marks the access key.
    Property<std::string> Caption;
};

/// A captioned box around other controls.
using Frame = Label;

/// A panel of a status bar.
class StatusPanel : public Control {
public:
    enum class Style { Text, Date, Time };

    explicit StatusPanel(std::string name, Style style = Style::Text)
        : Control(std::move(name)), PanelStyle(style), Text(*this, {}) {}

    /// A date or time panel shows the clock by itself.
    const Style PanelStyle;
    Property<std::string> Text;
};

/// A push button.
class Button : public Control {
public:
    explicit Button(std::string caption, std::string toolTip = {})
        : Control(std::move(toolTip)), Caption(*this, std::move(caption)) {}

    Property<std::string> Caption;
    Property<bool> Enabled{*this, true};
    /// A hidden button keeps its place.
    Property<bool> Visible{*this, true};
    /// What a screen reader calls the button; its caption where it is empty.
    Property<std::string> CaptionInWords{*this, {}};
    /// Whether views offer an enabled button: a press of one that is not offered is an error.
    Property<bool> Offered{*this, true};
    std::function<void()> Click;

    void Press() {
        if (Enabled && Visible)
            Raise(Click);
    }
};

/// A button that is on or off.
class CheckButton : public Control {
public:
    explicit CheckButton(std::string caption, std::string toolTip = {})
        : Control(std::move(toolTip)), Caption(*this, std::move(caption)) {}

    Property<std::string> Caption;
    Property<bool> Checked{*this, false};

    void Toggle() { Checked = !Checked; }
};

/// A bar that fills from 0 to 100.
class ProgressBar : public Control {
public:
    Property<bool> Visible{*this, true};
    Property<Long> Value{*this, 0};
};

/// An item of a pop-up menu.
class MenuItem : public Control {
public:
    explicit MenuItem(std::string caption) : Caption(std::move(caption)) {}

    /// The caption of a line between other items.
    static constexpr const char* Separator = "-";

    const std::string Caption;
    Property<bool> Enabled{*this, true};
    Property<bool> Checked{*this, false};
    std::function<void()> Click;

    void Choose() {
        if (Enabled)
            Raise(Click);
    }
};

/// A one-line text field.
class TextBox : public Control {
public:
    /// `maxLength`: how many characters the user can type at most; the program's own texts are not limited.
    explicit TextBox(int maxLength, std::string toolTip = {})
        : Control(std::move(toolTip)), MaxLength(maxLength) {}

    const int MaxLength;

    static constexpr int Backspace = 8;
    static constexpr int Escape = 27;

    /// Raised by every change of the text, the user's and the program's.
    std::function<void()> Change;
    /// Asked about every key that the user types, by its character code; a result of 0 discards the key.
    std::function<int(int)> KeyPress;

    [[nodiscard]] const std::string& Text() const { return text_; }
    void SetText(std::string text);

    /// Whether a typed key may enter the field.
    [[nodiscard]] bool Admits(int key) const { return !KeyPress || KeyPress(key) != 0; }

private:
    std::string text_;
};

/// The most characters of a number that has arrows.
inline constexpr int MaxNumberLength = 6;

/// The up and down arrows of a text field. They step the number in the field by 1 within their limits.
class UpDown : public Control {
public:
    /// Which numbers the user can type: any that is a count, or those within the arrows' limits alone.
    enum class Typing { Free, WithinLimits };

    /// `buddy` shows the value and must outlive the up-down; it is given the first value.
    UpDown(TextBox& buddy, Long lowest, Long highest, Long value, Typing typing, std::string toolTip = {});

    const Long Min;
    const Long Max;

    /// The number in the field, clamped to the limits; while the field holds no number, the last one that it
    /// held.
    [[nodiscard]] Long Value() const { return value_; }

    /// Whether some steps would change what the field shows.
    [[nodiscard]] bool CanStep(Long steps) const;

    /// What the user types: it enters the field if it is a number that can be typed there. Any other text
    /// stays away from the field, which keeps its last number meanwhile.
    void Type(const std::string& text);

    /// Moves the value by some steps, clamped to the limits, and writes it into the field.
    void Step(Long steps);

    [[nodiscard]] TextBox& Buddy() const { return *buddy_; }

private:
    [[nodiscard]] Long Clamped(Long value) const { return value < Min ? Min : value > Max ? Max : value; }
    void FollowBuddy();

    TextBox* buddy_;
    Typing typing_;
    Long value_;
    Connection buddyChanged_;
};

/// An entry of a drop-down list or a list box, with the whole number that goes with it.
struct ListEntry {
    std::string Text;
    Long Datum;
    /// Tells lines apart that hold the same entry; 0 where nobody needs to.
    std::int32_t Id = 0;

    /// The same entry, on whatever line.
    bool operator==(const ListEntry& other) const { return Text == other.Text && Datum == other.Datum; }
};

/// A drop-down list.
class ComboBox : public Control {
public:
    explicit ComboBox(std::string toolTip = {}) : Control(std::move(toolTip)) {}

    Property<bool> Enabled{*this, true};
    /// A line that views add to the tooltip, the same for their whole life; empty for none. May hold foreign
    /// text.
    std::string Note;

    /// Raised when the selection changes, by the user or from code, and by every Pick.
    std::function<void()> Click;

    /// `details`: what the view is to show quietly beside the entry, in columns.
    void AddItem(std::string text, Long datum = 0, std::vector<std::string> details = {});
    /// Removes all entries; none is selected then.
    void Clear();
    [[nodiscard]] const std::vector<ListEntry>& Items() const { return items_; }
    [[nodiscard]] const std::vector<std::string>& Details(std::size_t item) const {
        return details_.at(item);
    }

    /// The selected entry, -1 for none. Selecting what is selected already raises no event.
    [[nodiscard]] Long ListIndex() const { return listIndex_; }
    /// Raises error 5 outside -1 to the last entry.
    void SetListIndex(Long index);

    /// The selected entry's text, empty without one.
    [[nodiscard]] std::string Text() const;

    /// The user's choice of an entry, which becomes the selected one.
    void Choose(Long index) {
        if (Enabled)
            SetListIndex(index);
    }

    /// The user's pick of an entry in the open list of a picker: it counts also when the entry is selected
    /// already.
    void Pick(Long index);

private:
    std::vector<ListEntry> items_;
    std::vector<std::vector<std::string>> details_;
    Long listIndex_ = -1;
};

} // namespace vorhaven
