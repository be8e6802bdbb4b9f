// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <optional>
#include <utility>
#include <vector>

namespace vorhaven {

/// The states that a value went through, for undo and redo.
template <class State, class Field>
class History {
public:
    /// The value has changed from `before`. Changes in a row of one and the same field are undone as one: so
    /// are the keys and steps of a number. `field` is null for every other change.
    void Note(State before, Field field) {
        if (field == Field{} || field != lastField_)
            past_.push_back(std::move(before));
        undone_.clear();
        lastField_ = field;
    }

    [[nodiscard]] bool CanUndo() const { return !past_.empty(); }
    [[nodiscard]] bool CanRedo() const { return !undone_.empty(); }

    /// The state before the last change, given the current one; nothing when there is none.
    [[nodiscard]] std::optional<State> Undo(State current) {
        return Move(past_, undone_, std::move(current));
    }
    /// The state that the last Undo left.
    [[nodiscard]] std::optional<State> Redo(State current) {
        return Move(undone_, past_, std::move(current));
    }

private:
    [[nodiscard]] std::optional<State> Move(std::vector<State>& from, std::vector<State>& to, State current) {
        if (from.empty())
            return std::nullopt;
        lastField_ = {};
        to.push_back(std::move(current));
        State state = std::move(from.back());
        from.pop_back();
        return state;
    }

    std::vector<State> past_;
    std::vector<State> undone_;
    Field lastField_{};
};

} // namespace vorhaven
