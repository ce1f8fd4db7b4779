// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A private display with a window manager, and the adapter's core on it.
#pragma once

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <mutex>
#include <vector>

#include "Application.h"
#include "Session.h"
#include "platform/linux/x11/WindowPictures.h"
#include "platform/linux/x11/WindowTracker.h"
#include "platform/linux/x11/X11Core.h"
#include "platform/linux/x11/X11InputState.h"
#include "platform/linux/x11/X11WindowServer.h"
#include "platform/qt/QtRunLoop.h"

namespace lumbrix::platform::x11
{

using privatedesk::Application;
using privatedesk::AppWindow;
using privatedesk::Display;
using privatedesk::patience;
using privatedesk::Process;
using privatedesk::Session;
using privatedesk::SessionOptions;
using privatedesk::WindowManager;

class Recorder final : public WindowListener
{
public:
    void windowAdded(const TrackedWindowPtr& window) override { note(added, nullptr, window); }
    void windowChanged(const TrackedWindowPtr& before, const TrackedWindowPtr& after) override
    {
        note(changed, before, after);
    }
    void windowRemoved(const TrackedWindowPtr& last) override { note(removed, last, nullptr); }
    void popupMapped(const PopupMapped& popup) override
    {
        hear([&] { m_heard.popup = popup; });
    }
    void pointerMoved(QPoint position, xcb_window_t childOfRoot) override
    {
        hear([&] { m_heard.position = {position, childOfRoot}; });
        ++moved;
    }
    void buttonPressed(int button, QPoint) override
    {
        hear([&] { m_heard.buttons.push_back(button); });
    }
    void keyPressed(xcb_keysym_t key, bool) override
    {
        hear([&] { m_heard.keys.push_back(key); });
    }
    void keyRepeated(xcb_keysym_t key) override
    {
        hear([&] { m_heard.keys.push_back(-std::int64_t{key}); });
    }
    void managerChanged(const Manager&) override { keysBeforeManager = heard().keys.size(); }
    void screensChanged() override { ++screenChanges; }

    std::atomic<int> added = 0, changed = 0, removed = 0, moved = 0, screenChanges = 0;
    std::atomic<bool> isConsistent = true; ///< every `before` was the `after` last told
    struct Heard {
        std::optional<PopupMapped> popup{};         ///< the last one
        std::pair<QPoint, xcb_window_t> position{}; ///< the last one, and what is there
        std::vector<int> buttons{};
        std::vector<std::int64_t> keys{}; ///< pressed ones, and negated those that were held down
    };
    Heard heard() const
    {
        const std::lock_guard lock(m_mutex);
        return m_heard;
    }
    /// How many of those came before the window manager changed last.
    std::atomic<std::size_t> keysBeforeManager = 0;
    /// The next key is told only when the lock is let go.
    std::unique_lock<std::mutex> keepBusy() { return std::unique_lock(m_mutex); }

private:
    template <class Note> void hear(Note note)
    {
        const std::lock_guard lock(m_mutex);
        note();
    }
    void note(std::atomic<int>& count, const TrackedWindowPtr& before,
              const TrackedWindowPtr& after);

    mutable std::mutex m_mutex;
    std::map<xcb_window_t, TrackedWindowPtr> m_known;
    Heard m_heard;
};

/// The session, shared by all tests with the same options.
Session& sharedSession(const SessionOptions& options);

/// Sessions outlive a test; the core and its windows do not.
class X11Desk
{
public:
    explicit X11Desk(const SessionOptions& options) : X11Desk(sharedSession(options)) {}
    explicit X11Desk(Session& session);
    ~X11Desk();

    Session& session() { return m_session; }
    Display& display() { return m_session.display(); }
    X11Core& core() { return *m_core; }
    WindowTracker& tracker() { return m_core->tracker(); }
    WindowPictures& pictures() { return m_core->pictures(); }
    Recorder& recorder() { return m_recorder; }
    bool isConnectionLost() const { return m_isConnectionLost; }

    bool waitFor(const std::function<bool()>& condition);
    /// Waits until the tracker has the window and the condition holds of it; the last known state.
    TrackedWindowPtr waitForWindow(xcb_window_t id,
                                   const std::function<bool(const TrackedWindow&)>& condition);
    /// The entry of the port's window list; null when it is not listed.
    std::optional<WindowInfo> info(xcb_window_t id);
    /// Waits until a capture has this colour at this place of the window's client area.
    bool waitForColour(const AppWindow& window, const QColor& colour);
    /// The colour in the middle of the upper half of the client area; invalid without a picture.
    QColor capturedColour(const AppWindow& window);

private:
    Session& m_session;
    Recorder m_recorder;
    std::atomic<bool> m_isConnectionLost = false;
    QtRunLoop m_runLoop;
    std::unique_ptr<X11Core> m_core;
};

/// A window made by hand, for what no well-behaved application does. Closes with its connection.
class RawWindow
{
public:
    RawWindow(Session& session, const QRect& rect, bool isOverrideRedirect = false);
    ~RawWindow() { xcb_disconnect(m_connection); }
    RawWindow(const RawWindow&) = delete;
    RawWindow& operator=(const RawWindow&) = delete;

    xcb_window_t id() const { return m_id; }
    void setBytes(const char* property, const char* type, const QByteArray& bytes);
    /// Without waiting for the server, so that many come at once.
    void queueNumbers(const char* property, const char* type,
                      const std::vector<std::uint32_t>& numbers);
    void setNumbers(const char* property, const char* type,
                    const std::vector<std::uint32_t>& numbers)
    {
        queueNumbers(property, type, numbers);
        sync();
    }
    void setType(const char* type)
    {
        setNumbers("_NET_WM_WINDOW_TYPE", "ATOM", {m_display.atom(type)});
    }
    void own(const char* selection);
    void fill(const QRect& rect, const QColor& colour);
    void map()
    {
        xcb_map_window(m_connection, m_id);
        sync();
    }
    void sync();

private:
    Display& m_display;
    xcb_connection_t* const m_connection;
    xcb_window_t m_id = XCB_NONE;
};

} // namespace lumbrix::platform::x11
