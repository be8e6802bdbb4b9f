// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include "base/Long.h"

#include <algorithm>
#include <string>
#include <string_view>
#include <vector>

namespace vorhaven {

/// An ordered collection whose items may carry a key, reached by 1-based position or by key.
/// References to items hold until the next Add, Remove or Clear.
template <class Element>
class KeyedCollection {
public:
    /// Appends an item, under a key unless the key is empty. Raises error 457 when the key is taken.
    Element& Add(const Element& item, std::string_view key) {
        if (!key.empty() && std::ranges::find(keys_, key) != keys_.end())
            Raise(ErrorNumber::DuplicateKey);
        if (!key.empty()) {
            keys_.resize(items_.size());
            keys_.emplace_back(key);
        }
        return items_.emplace_back(item);
    }

    [[nodiscard]] Long Count() const { return SizeOf(items_); }

    /// The item at a position; raises error 5 when there is none.
    [[nodiscard]] Element& Item(Long position) { return items_[IndexOf(position)]; }
    [[nodiscard]] const Element& Item(Long position) const { return items_[IndexOf(position)]; }

    /// The item with a key; raises error 5 when there is none.
    [[nodiscard]] Element& Item(std::string_view key) { return items_[IndexOf(key)]; }
    [[nodiscard]] const Element& Item(std::string_view key) const { return items_[IndexOf(key)]; }

    /// The item with a key, or nothing when there is none.
    [[nodiscard]] const Element* Find(std::string_view key) const {
        const std::size_t place = PlaceOf(key);
        return place < keys_.size() ? &items_[place] : nullptr;
    }

    /// Removes the item at a position or with a key; raises error 5 when there is none.
    void Remove(Long position) { RemoveAt(IndexOf(position)); }
    void Remove(std::string_view key) { RemoveAt(IndexOf(key)); }

    /// Replaces the items by copies of another collection's, without keys; the storage is kept.
    void CopyItems(const KeyedCollection& other) {
        items_ = other.items_;
        keys_.clear();
    }

    /// Removes every item; the storage is kept for the next ones.
    void Clear() {
        items_.clear();
        keys_.clear();
    }

    /// The items in order, position 1 first.
    [[nodiscard]] auto begin() { return items_.begin(); }
    [[nodiscard]] auto end() { return items_.end(); }
    [[nodiscard]] auto begin() const { return items_.begin(); }
    [[nodiscard]] auto end() const { return items_.end(); }

private:
    [[nodiscard]] std::size_t IndexOf(Long position) const {
        // A position below 1 becomes a place that is too high.
        const std::size_t place = static_cast<std::size_t>(position.Value()) - 1;
        if (place >= items_.size())
            Raise(ErrorNumber::InvalidCall);
        return place;
    }

    [[nodiscard]] std::size_t IndexOf(std::string_view key) const {
        const std::size_t place = PlaceOf(key);
        if (place >= keys_.size())
            Raise(ErrorNumber::InvalidCall);
        return place;
    }

    /// The place of the item with a key; the number of keys when there is none.
    [[nodiscard]] std::size_t PlaceOf(std::string_view key) const {
        const auto found = key.empty() ? keys_.end() : std::ranges::find(keys_, key);
        return static_cast<std::size_t>(found - keys_.begin());
    }

    void RemoveAt(std::size_t place) {
        items_.erase(items_.begin() + static_cast<std::ptrdiff_t>(place));
        if (place < keys_.size())
            keys_.erase(keys_.begin() + static_cast<std::ptrdiff_t>(place));
    }

    std::vector<Element> items_;
    /// The items' keys by place, as far as the last item that has one.
    std::vector<std::string> keys_;
};

} // namespace vorhaven
