// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Of which windows pictures may be made.
#pragma once

#include <atomic>
#include <functional>
#include <mutex>
#include <utility>

#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::platform::x11
{

/// Any thread.
class CapturePolicy
{
public:
    /// Which windows no picture is ever made of. Called on any thread.
    void setPrivacy(std::function<bool(const TrackedWindow&)> isPrivate)
    {
        const std::lock_guard lock(m_mutex);
        m_isPrivate = std::move(isPrivate);
    }
    /// Off refuses all windows.
    void setAllowed(bool allowed) { m_isAllowed = allowed; }

    bool refuses(const TrackedWindow& window) const
    {
        std::unique_lock lock(m_mutex);
        const auto isPrivate = m_isPrivate;
        lock.unlock();
        return !m_isAllowed || (isPrivate && isPrivate(window));
    }

private:
    std::atomic<bool> m_isAllowed = true;
    mutable std::mutex m_mutex;
    std::function<bool(const TrackedWindow&)> m_isPrivate; ///< guarded by m_mutex; empty: none is
};

} // namespace lumbrix::platform::x11
