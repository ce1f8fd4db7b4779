// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Protects calls that reach the main thread later, when their object may have been destroyed.
#pragma once

#include <memory>
#include <utility>

namespace lumbrix::platform
{

/// A member of the object, which is created and destroyed on the main thread. The wrapped calls run
/// there too; they may be wrapped on any thread while the object exists.
class MainThreadGuard
{
public:
    MainThreadGuard() = default;
    MainThreadGuard(const MainThreadGuard&) = delete;
    MainThreadGuard& operator=(const MainThreadGuard&) = delete;

    /// Wraps the call so that it does nothing once the object is destroyed.
    template <class Call> auto ifAlive(Call call) const
    {
        return [token = std::weak_ptr(m_token), call = std::move(call)](auto&&... arguments) {
            if (!token.expired())
                call(std::forward<decltype(arguments)>(arguments)...);
        };
    }

private:
    const std::shared_ptr<const bool> m_token = std::make_shared<const bool>(true);
};

} // namespace lumbrix::platform
