// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Translates the event codes of four applications for the players and mail programs of this
// desktop.
#pragma once

#include <QtDBus/QDBusConnection>

#include <functional>
#include <optional>

#include "platform/AppleEvents.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/media/MprisPlayers.h"
#include "platform/linux/x11/SentKey.h"

namespace lumbrix::platform
{

struct MailWay;

/// "iTunes", "VLC", "QuickTime Player" and "Mail" stand for the programs of those roles; with a
/// process id, for any player of that application. Queries are answered at once from what the
/// players have announced. Each query also refreshes the player's data, so that a player that has
/// stopped answering is noticed before the next query. Commands wait for their reply.
class LinuxAppleEvents final : public AppleEvents
{
public:
    /// Called on any thread; returns whether it was sent.
    using SendShortcut = std::function<bool(xcb_window_t, const x11::Shortcut&)>;

    /// Main thread.
    LinuxAppleEvents(RunLoop& runLoop, const QDBusConnection& bus, x11::WindowTracker& tracker,
                     ApplicationRegistry& registry, SendShortcut sendShortcut);

    AppleEventReply send(const AppleEventTarget& target, FourCharCode eventClass,
                         FourCharCode eventID, const ObjectSpecifier& direct) override;
    AppleEventReply getItem(const AppleEventTarget& target, const ObjectSpecifier& object) override;
    ApplicationRole roleOf(std::int32_t pid, WindowID window) override;

private:
    MediaPlayerWanted wantedBy(const Application& application, WindowID window) const;
    /// The target's player; none if none runs or it does not answer.
    std::optional<MediaPlayer> playerFor(const AppleEventTarget& target);
    std::int64_t pidOf(xcb_window_t window) const;
    AppleEventReply checkForNewMail(const AppleEventTarget& target);
    /// Where the shortcut goes; none if the application has no window.
    xcb_window_t mainWindow(const Application& application, const MailWay& way) const;

    QDBusConnection m_bus;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    const SendShortcut m_sendShortcut;
    MprisPlayers m_players;
};

} // namespace lumbrix::platform
