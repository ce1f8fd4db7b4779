// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/session/LinuxPrivacy.h"

#include "platform/linux/applications/ApplicationRoles.h"

namespace lumbrix::platform
{
namespace
{
constexpr int mostKnown = 256; ///< names come from other programs
} // namespace

LinuxPrivacy::LinuxPrivacy(DesktopEntries& entries, ApplicationRegistry& registry,
                           x11::WindowPictures& pictures, const QDBusConnection& session)
    : m_entries(entries), m_pictures(pictures),
      m_lock(session, [this](bool isAway) { awayChanged(isAway); })
{
    m_pictures.setPrivacy([this, &registry](const x11::TrackedWindow& window) {
        const auto owner = registry.ownerOf(window);
        return owner && chosen(owner->bundleIdentifier)
                            .value_or(owner->role == ApplicationRole::PasswordManager);
    });
    m_lock.findLogin();
}

std::optional<bool> LinuxPrivacy::chosen(const QString& bundleIdentifier) const
{
    const std::lock_guard lock(m_mutex);
    const auto found = m_choices.constFind(bundleIdentifier);
    return found == m_choices.constEnd() ? std::nullopt : std::optional(*found);
}

bool LinuxPrivacy::isPrivate(const QString& bundleIdentifier)
{
    const auto choice = chosen(bundleIdentifier);
    return choice ? *choice : isPrivateAtFirst(bundleIdentifier);
}

bool LinuxPrivacy::isPrivateAtFirst(const QString& bundleIdentifier)
{
    {
        const std::lock_guard lock(m_mutex);
        const auto known = m_atFirst.constFind(bundleIdentifier);
        if (known != m_atFirst.constEnd())
            return *known;
    }
    const DesktopEntryPtr entry = m_entries.byId(bundleIdentifier);
    const ApplicationRole role =
        entry ? roleOfEntry(*entry) : roleOfApplicationId(bundleIdentifier);
    const bool isPrivate = role == ApplicationRole::PasswordManager;
    const std::lock_guard lock(m_mutex);
    if (m_atFirst.size() > mostKnown)
        m_atFirst.clear();
    m_atFirst.insert(bundleIdentifier, isPrivate);
    return isPrivate;
}

void LinuxPrivacy::setChoices(const Choices& choices)
{
    {
        const std::lock_guard lock(m_mutex);
        if (m_choices == choices)
            return;
        m_choices = choices;
    }
    m_pictures.privacyChanged();
}

void LinuxPrivacy::awayChanged(bool isAway)
{
    m_isAway = isAway;
    m_pictures.setAllowed(!isAway);
    if (m_changed)
        m_changed();
}

} // namespace lumbrix::platform
