// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The managed windows of no display: a test says what happens to them, and the fake window manager
// obeys requests at once, telling the listeners in the order of the real one.
#pragma once

#include <functional>
#include <utility>

#include "platform/linux/x11/WindowTracker.h"

namespace lumbrix::test
{

class FakeTracker final : public platform::x11::WindowTracker
{
public:
    using Window = platform::x11::TrackedWindow;
    using WindowPtr = platform::x11::TrackedWindowPtr;
    using Listener = platform::x11::WindowListener;

    // For the test.
    void add(Window window); ///< on top
    void change(xcb_window_t id, const std::function<void(Window&)>& how);
    void placeIcon(xcb_window_t id, const QRect& place)
    {
        change(id, [&](Window& window) {
            window.iconGeometry = place;
            ++window.iconGeometrySerial;
        });
    }
    void remove(xcb_window_t id);
    void setActive(xcb_window_t id)
    {
        m_active = id;
        notify(&Listener::activeWindowChanged, id);
    }
    void setCurrentDesktop(int desktop)
    {
        m_desktop = desktop;
        notify(&Listener::currentDesktopChanged, desktop);
    }
    /// Over the topmost shown window there, where it rests.
    void movePointer(QPoint point) { movePointer(point, point); }
    /// The same, to stop elsewhere or to move on.
    void movePointer(QPoint point, std::optional<QPoint> stop);
    void press(int button) { notify(&Listener::buttonPressed, button, m_pointer); }
    void mapPopup(const platform::x11::PopupMapped& popup)
    {
        notify(&Listener::popupMapped, popup);
    }
    void showManager(const platform::x11::Manager& manager)
    {
        notify(&Listener::managerChanged, manager);
    }
    void pressKey(xcb_keysym_t key, bool withShift = false)
    {
        notify(&Listener::keyPressed, key, withShift);
    }
    void repeatKey(xcb_keysym_t key) { notify(&Listener::keyRepeated, key); }
    int activations() const { return m_activations; }
    /// How many windows were told of to those who asked, since the last call.
    int windowsTold() { return std::exchange(m_told, 0); }
    /// A window manager that ignores requests to iconify.
    void refuseIconify() { m_iconifies = false; }

    void addListener(Listener* listener) override { m_listeners.push_back(listener); }
    WindowPtr window(xcb_window_t id) const override;
    std::vector<WindowPtr> windows() const override
    {
        m_told += static_cast<int>(m_windows.size());
        return m_windows;
    }
    std::vector<WindowPtr> windows(std::span<const xcb_window_t> ids) const override;
    xcb_window_t activeWindow() const override { return m_active; }
    int currentDesktop() const override { return m_desktop; }
    int desktopCount() const override { return 4; }
    void activate(xcb_window_t id) override;
    void close(xcb_window_t id) override { remove(id); }
    void iconify(xcb_window_t id) override;
    void deiconify(xcb_window_t id) override
    {
        change(id, [](Window& window) { window.isIconic = false; });
    }
    void ping(xcb_window_t) override {}

private:
    template <class Tell, class... Arguments> void notify(Tell tell, const Arguments&... arguments)
    {
        for (Listener* listener : m_listeners)
            (listener->*tell)(arguments...);
    }

    std::vector<Listener*> m_listeners;
    std::vector<WindowPtr> m_windows; ///< topmost first
    xcb_window_t m_active = XCB_NONE;
    int m_desktop = 0;
    int m_activations = 0;
    mutable int m_told = 0;
    bool m_iconifies = true;
    QPoint m_pointer;
};

} // namespace lumbrix::test
