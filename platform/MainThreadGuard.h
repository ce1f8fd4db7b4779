// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// For an object that has calls come to the main thread later, when it may be gone.
#pragma once

#include <memory>
#include <utility>

namespace lumbrix::platform
{

/// A member of such an object, which lives and dies on the main thread. The calls come there, too;
/// they are made on any thread while the object lives.
class MainThreadGuard
{
public:
    MainThreadGuard() = default;
    MainThreadGuard(const MainThreadGuard&) = delete;
    MainThreadGuard& operator=(const MainThreadGuard&) = delete;

    /// The same call, which does nothing once the object is gone.
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
