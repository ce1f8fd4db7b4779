// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/LinuxAppleEvents.h"

#include <QtDBus/QDBusMessage>

#include <algorithm>

#include "platform/Log.h"
#include "platform/StringLiterals.h"
#include "platform/linux/applications/Launcher.h"
#include "platform/linux/media/MailWays.h"

namespace lumbrix::platform
{

namespace
{

constexpr int patienceMilliseconds = 200;

struct Name {
    const char* name;
    ApplicationRole role;
};

constexpr Name names[] = {
    {"iTunes", ApplicationRole::MusicPlayer},
    {"QuickTime Player", ApplicationRole::MoviePlayer},
    {"VLC", ApplicationRole::VLC},
    {"Mail", ApplicationRole::Mail},
};

ApplicationRole roleOfName(const QString& name)
{
    const auto* row = std::ranges::find_if(
        names, [&](const Name& each) { return name == QLatin1String(each.name); });
    return row == std::end(names) ? ApplicationRole::Other : row->role;
}

struct Command {
    ApplicationRole role;
    FourCharCode eventClass;
    FourCharCode eventID;
    const char* method; ///< of a player
};

constexpr Command commands[] = {
    {ApplicationRole::MusicPlayer, fourCharCode("hook"), fourCharCode("Play"), "Play"},
    {ApplicationRole::MusicPlayer, fourCharCode("hook"), fourCharCode("Paus"), "Pause"},
    {ApplicationRole::MusicPlayer, fourCharCode("hook"), fourCharCode("Prev"), "Previous"},
    {ApplicationRole::MusicPlayer, fourCharCode("hook"), fourCharCode("Next"), "Next"},
    {ApplicationRole::VLC, fourCharCode("VLC#"), fourCharCode("VLC1"), "PlayPause"},
    {ApplicationRole::VLC, fourCharCode("VLC#"), fourCharCode("VLC3"), "Previous"},
    {ApplicationRole::VLC, fourCharCode("VLC#"), fourCharCode("VLC4"), "Next"},
    {ApplicationRole::MoviePlayer, fourCharCode("MVWR"), fourCharCode("play"), "Play"},
    {ApplicationRole::MoviePlayer, fourCharCode("MVWR"), fourCharCode("paus"), "Pause"},
};

AppleEventReply failure(AppleEventError error) { return {error, {}}; }

AppleEventReply answer(AppleEventValue value) { return {AppleEventError::None, std::move(value)}; }

AppleEventReply stateOf(const MprisProperties& properties)
{
    switch (properties.playback) {
    case Playback::Playing:
        return answer(fourCharCode("kPSP"));
    case Playback::Paused:
        return answer(fourCharCode("kPSp"));
    case Playback::Stopped:
        return answer(fourCharCode("kPSS"));
    case Playback::Unknown:
        break;
    }
    return failure(AppleEventError::NotRunning);
}

/// `rest` is the path from the current track on.
AppleEventReply ofTrack(const MediaPlayer& player, const ObjectSpecifier& object)
{
    const auto& steps = object.steps;
    if (steps.size() < 2)
        return failure(AppleEventError::NotHandled);
    const MprisProperties& track = player.properties;
    switch (steps[1].code) {
    case fourCharCode("pArt"):
        return answer(track.artist);
    case fourCharCode("pnam"):
        return answer(track.name);
    case fourCharCode("cArt"):
        break;
    default:
        return failure(AppleEventError::NotHandled);
    }
    // A player has at most one artwork.
    if (steps[1].kind == ObjectSpecifier::Step::Kind::Elements) {
        std::vector<ObjectSpecifier> artworks;
        if (!player.artwork.isNull()) {
            artworks.push_back(object);
            artworks.back().steps[1] = {ObjectSpecifier::Step::Kind::Element, fourCharCode("cArt"),
                                        1};
        }
        return answer(std::move(artworks));
    }
    if (steps[1].index != 1 || player.artwork.isNull())
        return failure(AppleEventError::NoSuchObject);
    return steps.size() == 3 && steps[2].code == fourCharCode("pPCT")
               ? answer(player.artwork)
               : failure(AppleEventError::NotHandled);
}

/// The target's window if it belongs to the application, otherwise any window of the application.
xcb_window_t meantWindow(const Application& application, WindowID window)
{
    const auto& windows = application.windows;
    if (std::ranges::find(windows, window) != windows.end())
        return window;
    return windows.empty() ? XCB_NONE : windows.front();
}

const MailWay* wayToFetchMail(const Application& application)
{
    const MailWay* way = mailWay(application.running.bundleIdentifier);
    return way ? way : mailWay(application.running.executableURL.fileName());
}

/// A player has one document.
AppleEventReply ofDocument(const MediaPlayer& player, const ObjectSpecifier& object)
{
    const auto& steps = object.steps;
    if (steps[0].index != 1 || player.properties.playback == Playback::Unknown)
        return failure(AppleEventError::NoSuchObject);
    return steps.size() == 2 && steps[1].code == fourCharCode("play")
               ? answer(player.properties.playback == Playback::Playing)
               : failure(AppleEventError::NotHandled);
}

} // namespace

LinuxAppleEvents::LinuxAppleEvents(RunLoop& runLoop, const QDBusConnection& bus,
                                   x11::WindowTracker& tracker, ApplicationRegistry& registry,
                                   SendShortcut sendShortcut)
    : m_bus(bus), m_tracker(tracker), m_registry(registry), m_sendShortcut(std::move(sendShortcut)),
      m_players(runLoop, bus)
{
    m_players.start();
}

std::int64_t LinuxAppleEvents::pidOf(xcb_window_t window) const
{
    const x11::TrackedWindowPtr tracked = m_tracker.window(window);
    return tracked && tracked->pid ? *tracked->pid : 0;
}

MediaPlayerWanted LinuxAppleEvents::wantedBy(const Application& application, WindowID window) const
{
    MediaPlayerWanted wanted;
    wanted.bundleIdentifier = application.running.bundleIdentifier;
    wanted.name = application.running.localizedName;
    if (const std::int64_t pid = pidOf(meantWindow(application, window)); pid != 0)
        wanted.windowPid = pid;
    for (const xcb_window_t other : application.windows)
        if (const std::int64_t pid = pidOf(other); pid != 0 && pid != wanted.windowPid)
            wanted.otherPids.push_back(pid);
    return wanted;
}

std::optional<MediaPlayer> LinuxAppleEvents::playerFor(const AppleEventTarget& target)
{
    MediaPlayerWanted wanted{.any = true, .role = roleOfName(target.name)};
    if (target.pid != 0) {
        const auto application = m_registry.application(target.pid);
        if (!application)
            return std::nullopt;
        wanted = wantedBy(*application, target.window);
    }
    const std::vector<MediaPlayer> players = m_players.players();
    const MediaPlayer* player = chooseMediaPlayer(players, wanted);
    if (!player)
        return std::nullopt;
    m_players.look(player->owner);
    return player->answers ? std::optional(*player) : std::nullopt;
}

AppleEventReply LinuxAppleEvents::getItem(const AppleEventTarget& target,
                                          const ObjectSpecifier& object)
{
    if (object.steps.empty())
        return failure(AppleEventError::NotHandled);
    const auto player = playerFor(target);
    if (!player)
        return failure(AppleEventError::NotRunning);
    const ApplicationRole role = roleOfName(target.name);
    const FourCharCode first = object.steps.front().code;
    if (role == ApplicationRole::MusicPlayer && first == fourCharCode("pPlS"))
        return stateOf(player->properties);
    if (role == ApplicationRole::MusicPlayer && first == fourCharCode("pTrk"))
        return ofTrack(*player, object);
    if (role == ApplicationRole::MoviePlayer && first == fourCharCode("docu"))
        return ofDocument(*player, object);
    return failure(AppleEventError::NotHandled);
}

ApplicationRole LinuxAppleEvents::roleOf(std::int32_t pid, WindowID window)
{
    const auto application = m_registry.application(pid);
    if (!application)
        return ApplicationRole::Other;
    const ApplicationRole role = application->running.role;
    if (role == ApplicationRole::Mail)
        return wayToFetchMail(*application) ? role : ApplicationRole::Other;
    const std::vector<MediaPlayer> players = m_players.players();
    const MediaPlayer* player = chooseMediaPlayer(players, wantedBy(*application, window));
    return player ? roleFor(*player, role) : ApplicationRole::Other;
}

AppleEventReply LinuxAppleEvents::send(const AppleEventTarget& target, FourCharCode eventClass,
                                       FourCharCode eventID, const ObjectSpecifier&)
{
    const ApplicationRole role = roleOfName(target.name);
    if (role == ApplicationRole::Mail && eventClass == fourCharCode("emal") &&
        eventID == fourCharCode("chma"))
        return checkForNewMail(target);
    const auto* command = std::ranges::find_if(commands, [&](const Command& each) {
        return each.role == role && each.eventClass == eventClass && each.eventID == eventID;
    });
    if (command == std::end(commands))
        return failure(AppleEventError::NotHandled);
    const auto player = playerFor(target);
    if (!player)
        return failure(AppleEventError::NotRunning);
    const QDBusMessage call = QDBusMessage::createMethodCall(
        player->owner, u"/org/mpris/MediaPlayer2"_s, u"org.mpris.MediaPlayer2.Player"_s,
        QString::fromLatin1(command->method));
    const QDBusMessage reply = m_bus.call(call, QDBus::Block, patienceMilliseconds);
    qCDebug(log::media, "%s was sent to %s: %s", command->method, qUtf8Printable(player->shortName),
            reply.type() == QDBusMessage::ReplyMessage ? "done"
                                                       : qUtf8Printable(reply.errorName()));
    return reply.type() == QDBusMessage::ReplyMessage ? answer({})
                                                      : failure(AppleEventError::NotRunning);
}

AppleEventReply LinuxAppleEvents::checkForNewMail(const AppleEventTarget& target)
{
    std::optional<Application> application;
    for (Application& running : m_registry.applications()) {
        const bool isMeant = target.pid == 0 ? running.running.role == ApplicationRole::Mail
                                             : running.running.pid == target.pid;
        if (isMeant && !application)
            application = std::move(running);
    }
    if (!application)
        return failure(AppleEventError::NotRunning);
    const MailWay* way = wayToFetchMail(*application);
    if (!way)
        return failure(AppleEventError::NotHandled);
    const bool isTold = way->command.isEmpty()
                            ? m_sendShortcut(mainWindow(*application, *way), way->shortcut)
                            : launchCommand(way->command);
    return isTold ? answer({}) : failure(AppleEventError::NotRunning);
}

/// The shortcut fetches for all accounts, so it need not go to the window whose preview was
/// clicked: that may be one in which a message is written, where the keys mean nothing or something
/// else. Such windows and dialogs are opened from the main one, which therefore is older.
xcb_window_t LinuxAppleEvents::mainWindow(const Application& application, const MailWay& way) const
{
    const auto isNormal = [](const x11::TrackedWindow& window) {
        return window.type == x11::WindowType::Normal && window.transientFor == XCB_NONE;
    };
    xcb_window_t normal = XCB_NONE;
    for (const xcb_window_t id : application.windows) {
        const x11::TrackedWindowPtr window = m_tracker.window(id);
        if (!window || !isNormal(*window))
            continue;
        if (way.mainInstance.isEmpty() || window->classInstance == way.mainInstance)
            return id;
        if (!normal)
            normal = id;
    }
    if (normal || application.windows.empty())
        return normal;
    return application.windows.front();
}

} // namespace lumbrix::platform
