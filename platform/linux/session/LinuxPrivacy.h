// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which applications are private, by the table of roles and the user's choice, and when the user is
// away; the keeper of the pictures obeys at once.
#pragma once

#include <QtDBus/QDBusConnection>

#include <atomic>
#include <mutex>

#include "platform/Privacy.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/session/ScreenLock.h"
#include "platform/linux/x11/WindowPictures.h"

namespace lumbrix::platform
{

/// All that it is given outlives it, and the pictures' threads have ended before it goes.
class LinuxPrivacy final : public Privacy
{
public:
    /// Before the pictures are started.
    LinuxPrivacy(DesktopEntries& entries, ApplicationRegistry& registry,
                 x11::WindowPictures& pictures, const QDBusConnection& session);

    bool isPrivate(const QString& bundleIdentifier) override;
    bool isPrivateAtFirst(const QString& bundleIdentifier) override;
    void setChoices(const Choices& choices) override;
    bool isAway() override { return m_isAway; }
    void setObserver(std::function<void()> changed) override { m_changed = std::move(changed); }

private:
    std::optional<bool> chosen(const QString& bundleIdentifier) const;
    void awayChanged(bool isAway);

    DesktopEntries& m_entries;
    x11::WindowPictures& m_pictures;
    std::function<void()> m_changed;
    std::atomic<bool> m_isAway{false};
    mutable std::mutex m_mutex;
    Choices m_choices; // guarded by m_mutex
    /// Guarded by m_mutex. What was found out already: rows ask often, and entries are files.
    Choices m_atFirst;
    ScreenLock m_lock;
};

} // namespace lumbrix::platform
