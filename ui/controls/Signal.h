// SPDX-License-Identifier: GPL-3.0-or-later

#pragma once

#include <functional>
#include <memory>
#include <vector>

namespace vorhaven {

/// Keeps a call-back connected to a Signal: when the connection goes, so does the call-back.
using Connection = std::shared_ptr<const void>;

/// An event to which any number of call-backs can be connected.
template <class... Args>
class Signal {
public:
    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    /// Calls `callBack` whenever the event is raised, for as long as the connection is kept.
    [[nodiscard]] Connection Connect(std::function<void(Args...)> callBack) {
        std::erase_if(callBacks_, [](const auto& each) { return each.expired(); });
        auto connected = std::make_shared<const std::function<void(Args...)>>(std::move(callBack));
        callBacks_.push_back(connected);
        return connected;
    }

    void Raise(const Args&... args) const {
        // A call-back may connect others, or let its own connection go.
        const auto callBacks = callBacks_;
        for (const auto& each : callBacks)
            if (const auto callBack = each.lock())
                (*callBack)(args...);
    }

private:
    std::vector<std::weak_ptr<const std::function<void(Args...)>>> callBacks_;
};

} // namespace vorhaven
