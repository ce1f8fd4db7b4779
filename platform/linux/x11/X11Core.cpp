// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/X11Core.h"

#include "platform/linux/x11/Atoms.h"
#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/DecorationWatch.h"
#include "platform/linux/x11/EventThread.h"
#include "platform/linux/x11/KeyGrabs.h"
#include "platform/linux/x11/Listeners.h"
#include "platform/linux/x11/ManagerWatch.h"
#include "platform/linux/x11/PointSpace.h"
#include "platform/linux/x11/PointerTrail.h"
#include "platform/linux/x11/PointerWatch.h"
#include "platform/linux/x11/PopupWatch.h"
#include "platform/linux/x11/ScreenWatch.h"
#include "platform/linux/x11/ThemeWatch.h"
#include "platform/linux/x11/TrayWatch.h"
#include "platform/linux/x11/WaylandSession.h"
#include "platform/linux/x11/WindowCommands.h"
#include "platform/linux/x11/WindowPictures.h"
#include "platform/linux/x11/X11EventTaps.h"
#include "platform/linux/x11/X11InputState.h"
#include "platform/linux/x11/X11KeyboardLayout.h"
#include "platform/linux/x11/X11WindowServer.h"
#include "platform/linux/x11/X11WindowTracker.h"

namespace lumbrix::platform::x11
{

/// In the order of dependence. Three connections: the event thread's alone, one for questions that
/// must not wait behind pictures, and one for pictures.
struct X11Core::Parts {
    Parts(RunLoop& runLoop, double pixelsPerPoint, std::unique_ptr<Connection> eventConnection,
          std::unique_ptr<Connection> requestConnection,
          std::unique_ptr<Connection> captureConnection, std::function<void()> onConnectionLost)
        : events(std::move(eventConnection)), requests(std::move(requestConnection)),
          captures(std::move(captureConnection)), atoms(*events), points(pixelsPerPoint),
          commands(*events, atoms, wake), tracker(runLoop, *events, atoms, commands, listeners),
          screens(*events, atoms, commands, listeners, points), decorations(tracker, screens),
          pictures(runLoop, *events, *captures, tracker, points, screens.isCompositorRunning()),
          popups(*events, atoms, tracker, listeners), manager(*events, atoms, tracker, listeners),
          theme(*events, atoms), trays(*events, atoms),
          input(runLoop, *requests, *events, points, trail), keys(*events, *requests, wake),
          eventTaps(runLoop, keys), layout(*requests),
          server(tracker, pictures, points, screens, isOfWaylandSession(*requests))
    {
        tracker.fetchInitial();
        pointer =
            std::make_unique<PointerWatch>(runLoop, *events, tracker, listeners, points, trail);
        listeners.add(&pictures); // first, so that a picture is there when others hear of a window
        listeners.add(&decorations);
        listeners.add(pointer.get());
        // The pointer watch, which gets keys, comes before the manager watch: if a key and its
        // effect arrive together, the key is reported first.
        thread = std::make_unique<EventThread>(
            runLoop, *events, wake,
            std::vector<EventHandler*>{&commands, &screens, &pictures, &tracker, &popups,
                                       pointer.get(), &manager, &input, &keys, &layout, &theme,
                                       &trays},
            std::move(onConnectionLost));
    }

    std::unique_ptr<Connection> events, requests, captures;
    Atoms atoms;
    WakeFd wake;
    Listeners listeners;
    PointSpace points;
    PointerTrail trail;
    WindowCommands commands;
    X11WindowTracker tracker;
    ScreenWatch screens;
    DecorationWatch decorations;
    WindowPictures pictures;
    PopupWatch popups;
    ManagerWatch manager;
    ThemeWatch theme;
    TrayWatch trays;
    X11InputState input;
    KeyGrabs keys;
    X11EventTaps eventTaps;
    X11KeyboardLayout layout;
    X11WindowServer server;
    std::unique_ptr<PointerWatch> pointer;
    std::unique_ptr<EventThread> thread;
};

std::unique_ptr<X11Core> X11Core::create(RunLoop& runLoop, const X11CoreOptions& options,
                                         std::function<void()> onConnectionLost, QString& error)
{
    auto events = Connection::open(options.displayName, error);
    auto requests = events ? Connection::open(options.displayName, error) : nullptr;
    auto captures = requests ? Connection::open(options.displayName, error) : nullptr;
    if (!captures)
        return nullptr;
    return std::unique_ptr<X11Core>(new X11Core(std::make_unique<Parts>(
        runLoop, options.pixelsPerPoint, std::move(events), std::move(requests),
        std::move(captures), std::move(onConnectionLost))));
}

X11Core::X11Core(std::unique_ptr<Parts> parts) : m_parts(std::move(parts)) {}

X11Core::~X11Core() { stop(); }

void X11Core::start()
{
    m_parts->pictures.start();
    m_parts->thread->start();
}

void X11Core::stop()
{
    m_parts->thread->stop();
    m_parts->pictures.stop();
}

void X11Core::setPixelsPerPoint(double pixelsPerPoint)
{
    m_parts->points.setPixelsPerPoint(pixelsPerPoint);
    m_parts->commands.post([this](xcb_timestamp_t) {
        m_parts->listeners.notify([](WindowListener& listener) { listener.screensChanged(); });
    });
}

void X11Core::hearKeys(KeyHearing which)
{
    m_parts->commands.post([this, which](xcb_timestamp_t) { m_parts->pointer->hearKeys(which); });
}

bool X11Core::isWindowManagerRunning() const { return m_parts->manager.isManagerRunning(); }

WindowTracker& X11Core::tracker() { return m_parts->tracker; }
X11WindowServer& X11Core::windowServer() { return m_parts->server; }
X11InputState& X11Core::inputState() { return m_parts->input; }
EventTaps& X11Core::eventTaps() { return m_parts->eventTaps; }
KeyboardLayout& X11Core::keyboardLayout() { return m_parts->layout; }
WindowPictures& X11Core::pictures() { return m_parts->pictures; }
PointSpace& X11Core::pointSpace() { return m_parts->points; }
ScreenWatch& X11Core::screens() { return m_parts->screens; }
ThemeWatch& X11Core::theme() { return m_parts->theme; }
TrayWatch& X11Core::trays() { return m_parts->trays; }
const Atoms& X11Core::atoms() const { return m_parts->atoms; }
const Connection& X11Core::connection() const { return *m_parts->requests; }

} // namespace lumbrix::platform::x11
