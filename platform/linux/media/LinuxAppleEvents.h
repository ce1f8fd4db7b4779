// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The event codes of four applications, spoken to the players and mail programs of this desktop.
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

/// "iTunes", "VLC", "QuickTime Player" and "Mail" stand for the programs of those roles, and with a
/// process id for whichever player that application has. Questions are answered at once with what
/// the players have announced; the one that is asked is looked at anew, so that one that has
/// stopped answering is found out before the next question. Commands wait for their reply.
class LinuxAppleEvents final : public AppleEvents
{
public:
    /// Called on any thread; whether it went out.
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
    /// The player that is meant; none when none runs or it does not answer.
    std::optional<MediaPlayer> playerFor(const AppleEventTarget& target);
    std::int64_t pidOf(xcb_window_t window) const;
    AppleEventReply checkForNewMail(const AppleEventTarget& target);

    QDBusConnection m_bus;
    x11::WindowTracker& m_tracker;
    ApplicationRegistry& m_registry;
    const SendShortcut m_sendShortcut;
    MprisPlayers m_players;
};

} // namespace lumbrix::platform
