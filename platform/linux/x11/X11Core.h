// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The adapter's state of one X display, and the threads that update it.
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <string>

#include "platform/RunLoop.h"

namespace lumbrix::platform
{
class EventTaps;
class KeyboardLayout;
} // namespace lumbrix::platform

namespace lumbrix::platform::x11
{

class Atoms;
class Connection;
enum class KeyHearing;
class PointSpace;
class ScreenWatch;
class ThemeWatch;
class TrayWatch;
class WindowPictures;
class WindowTracker;
class X11InputState;
class X11WindowServer;

struct X11CoreOptions {
    double pixelsPerPoint = 1.0;
    std::string displayName; ///< empty: the one of the environment
};

/// Must be created, started and destroyed on one thread; the parts may be used on any thread until
/// it is destroyed. Windows that exist at its creation are in tracker().windows() at once and are
/// not reported to listeners: a listener is added, reads windows(), and is called for every change
/// after start().
class X11Core
{
public:
    /// Null if there is no usable server; `error` then says why. `onConnectionLost` runs once, on
    /// the event thread, when the server is lost; queries then return the last known data.
    static std::unique_ptr<X11Core> create(RunLoop& runLoop, const X11CoreOptions& options,
                                           std::function<void()> onConnectionLost, QString& error);
    /// After the destructor has returned, no listener is called any more; no other thread may use a
    /// part during it.
    ~X11Core();
    X11Core(const X11Core&) = delete;
    X11Core& operator=(const X11Core&) = delete;

    /// Starts the threads. Call it once, after the listeners were added.
    void start();
    /// Ends the threads; no listener is called after it has returned. The parts still return the
    /// last known data. The destructor calls it too, but it must be called before a listener is
    /// destroyed.
    void stop();

    /// The toolkit's scale factor has changed. Main thread; reported to listeners as a change of
    /// the screens.
    void setPixelsPerPoint(double pixelsPerPoint);

    /// Which keys listeners get, from a moment later on. Any thread.
    void hearKeys(KeyHearing which);
    /// As far as it is known a moment after start(). Any thread.
    bool isWindowManagerRunning() const;

    WindowTracker& tracker();
    X11WindowServer& windowServer();
    X11InputState& inputState();
    EventTaps& eventTaps();
    KeyboardLayout& keyboardLayout();
    WindowPictures& pictures();
    PointSpace& pointSpace();
    ScreenWatch& screens(); ///< takes the hint where the dock is
    ThemeWatch& theme();
    TrayWatch& trays();
    const Atoms& atoms() const;
    /// A connection for other requests, from any thread. Nothing reads its events, so do not select
    /// any on it.
    const Connection& connection() const;

private:
    struct Parts;
    explicit X11Core(std::unique_ptr<Parts> parts);
    const std::unique_ptr<Parts> m_parts;
};

} // namespace lumbrix::platform::x11
