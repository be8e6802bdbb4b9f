// SPDX-License-Identifier: GPL-3.0-or-later

#include "ui/controls/Controls.h"

#include "base/Conversion.h"

namespace vorhaven {

void TextBox::SetText(std::string text) {
    if (text == text_)
        return;
    text_ = std::move(text);
    Changed.Raise();
    Raise(Change);
}

UpDown::UpDown(TextBox& buddy, Long lowest, Long highest, Long value, Typing typing, std::string toolTip)
    : Control(std::move(toolTip)), Min(lowest), Max(highest), buddy_(&buddy), typing_(typing), value_(value),
      buddyChanged_(buddy.Changed.Connect([this] { FollowBuddy(); })) {
    buddy.SetText(ToText(value));
}

void UpDown::FollowBuddy() {
    // While the field holds no number, its last one counts.
    if (const auto number = NumberIn(buddy_->Text()))
        value_ = Clamped(*number);
}

void UpDown::Type(const std::string& text) {
    const auto number = NumberIn(text);
    if (number && (typing_ == Typing::Free || Clamped(*number) == *number))
        buddy_->SetText(text);
}

bool UpDown::CanStep(Long steps) const {
    return ToText(Clamped(value_ + steps)) != buddy_->Text();
}

void UpDown::Step(Long steps) {
    buddy_->SetText(ToText(Clamped(value_ + steps)));
}

void ComboBox::AddItem(std::string text, Long datum, std::vector<std::string> details) {
    items_.push_back({std::move(text), datum});
    details_.push_back(std::move(details));
    Changed.Raise();
}

void ComboBox::Clear() {
    items_.clear();
    details_.clear();
    listIndex_ = -1;
    Changed.Raise();
}

void ComboBox::SetListIndex(Long index) {
    if (index < -1 || index >= SizeOf(items_))
        throw RunTimeError{ErrorNumber::InvalidCall};
    if (index == listIndex_)
        return;
    listIndex_ = index;
    Changed.Raise();
    Raise(Click);
}

std::string ComboBox::Text() const {
    return listIndex_ < 0 ? std::string{} : items_[static_cast<std::size_t>(listIndex_.Value())].Text;
}

void ComboBox::Pick(Long index) {
    if (!Enabled)
        return;
    if (index == listIndex_)
        Raise(Click);
    else
        SetListIndex(index);
}

} // namespace vorhaven
