// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Everything the adapter knows of one X display, and the threads that keep it current.
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

/// Made, started and destroyed on one thread; the parts may be used from any until it is destroyed.
/// Windows that exist when it is made are in tracker().windows() at once, and listeners are not
/// told of them: a listener is added, looks at windows(), and hears of every change after start().
class X11Core
{
public:
    /// Null when there is no usable server; `error` then says why. `onConnectionLost` runs on the
    /// event thread, once, when the server goes away; all answers are the last known ones then.
    static std::unique_ptr<X11Core> create(RunLoop& runLoop, const X11CoreOptions& options,
                                           std::function<void()> onConnectionLost, QString& error);
    /// Listeners are not called any more once this has begun to return; no other thread may be
    /// using a part.
    ~X11Core();
    X11Core(const X11Core&) = delete;
    X11Core& operator=(const X11Core&) = delete;

    /// Starts the threads, after the listeners were added. Once.
    void start();
    /// Ends the threads; no listener is called after it has returned. The parts still answer. The
    /// destructor does it too, but listeners that are destroyed earlier need it earlier.
    void stop();

    /// The toolkit's scale factor is another now. Main thread; listeners hear of it as of a change
    /// of the screens.
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
    /// For requests of one's own from any thread. It has no event reader: select no events on it.
    const Connection& connection() const;

private:
    struct Parts;
    explicit X11Core(std::unique_ptr<Parts> parts);
    const std::unique_ptr<Parts> m_parts;
};

} // namespace lumbrix::platform::x11
