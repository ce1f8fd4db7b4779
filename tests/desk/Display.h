// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a person has in front of a desktop: eyes (windows, pictures) and a hand (the pointer).
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QPoint>
#include <QtCore/QRect>
#include <QtCore/QString>
#include <QtGui/QImage>

#include <chrono>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <vector>
#include <xcb/xcb.h>

#include "Process.h"

namespace lumbrix::privatedesk
{

/// A mapped top-level window, as a rule of Lumbrix.
struct Panel {
    xcb_window_t id = 0;
    QString role;     ///< "preview", "zoom", "bubble" ...
    QByteArray title; ///< the bytes of _NET_WM_NAME
    QRect geometry;   ///< on the screen, pixels
    bool overrideRedirect = false;
};

/// Main thread. A connection that fails ends the program: without its server no test makes sense.
class Display
{
public:
    explicit Display(const QByteArray& name);
    ~Display();
    Display(const Display&) = delete;
    Display& operator=(const Display&) = delete;

    const QByteArray& name() const { return m_name; } ///< as in DISPLAY
    xcb_connection_t* connection() const { return m_connection; }
    xcb_window_t root() const { return m_root; }
    QSize size(); ///< of all monitors together

    /// Waits until the condition holds and says whether it does. The condition is looked at again
    /// after everything that happens on the screen, and every few milliseconds for what the server
    /// does not announce (pixels, processes).
    bool waitFor(const std::function<bool()>& condition,
                 std::chrono::milliseconds timeout = patience(5000));

    // Windows.
    xcb_atom_t atom(const std::string& name);
    std::vector<std::uint32_t> numbers(xcb_window_t window, const std::string& property);
    QByteArray bytes(xcb_window_t window, const std::string& property);
    std::optional<QRect> geometry(xcb_window_t window); ///< on the screen; none once it is gone
    bool isMinimised(xcb_window_t window);
    xcb_window_t activeWindow();
    int currentDesktop();
    bool hasCompositor();
    /// Opens a window of our own and waits until the window manager has taken it in, which is the
    /// one sure sign that it is ready; then closes it.
    bool waitForWindowManager(std::chrono::milliseconds timeout);
    /// Asks the window manager, as a pager would.
    void request(xcb_window_t window, const std::string& message,
                 const std::vector<std::uint32_t>& data);
    /// Mapped windows of Lumbrix, in stacking order from the bottom; not those in frames.
    std::vector<Panel> panels();
    /// The same of programs with this name of the instance and of the class in WM_CLASS.
    std::vector<Panel> windowsOf(const QByteArray& instance, const QByteArray& windowClass);
    /// Windows of Lumbrix that the window manager has, minimised ones included, the oldest first.
    std::vector<Panel> managedWindows();
    /// The mapped previews in reading order.
    std::vector<Panel> previews();
    /// The mapped window counts in reading order; their titles are the numbers.
    std::vector<Panel> badges();
    /// Where a window of the dock type is, once there is one.
    std::optional<QRect> dockArea();
    /// Whether another program's popup menu is on the screen.
    bool hasMenu();

    // Pictures.
    QImage picture(const QRect& area);
    QImage picture() { return picture(QRect(QPoint(), size())); }
    /// Paints the wallpaper, for everything that looks for one.
    void setWallpaper(const QImage& image);

    /// What the programs that start from now on read as the user's X resources.
    void setResources(const QByteArray& text);

    // The pointer moves as a hand moves it: in a series of small steps.
    QPoint pointer();
    void moveTo(QPoint target);
    /// Follows a path for so long, as it is at each moment after the start, with a mouse that
    /// reports 125 times a second. Returns the longest time between two reports, which a busy
    /// machine makes longer than they should be.
    std::chrono::milliseconds
    moveAlong(const std::function<QPointF(std::chrono::duration<double>)>& path,
              std::chrono::duration<double> time);
    void press(int button = 1);
    void release(int button = 1);
    void click(int button = 1);

    /// Presses the keys in turn and lets them go in the reverse order: {control, c}. Key codes of
    /// the server's keyboard.
    void type(const std::vector<std::uint8_t>& keys);
    void holdKey(std::uint8_t key);
    void letGoOfKey(std::uint8_t key);
    /// Takes the key with these modifiers from all programs, by our connection; false when another
    /// program has it.
    bool takeKey(std::uint8_t key, std::uint16_t modifiers);
    void giveKeyBack(std::uint8_t key, std::uint16_t modifiers);
    xcb_window_t focus(); ///< what gets the keys

private:
    std::vector<Panel> panels(const QString& role);
    void fake(std::uint8_t type, int detail, QPoint at = {});

    xcb_connection_t* m_connection = nullptr;
    xcb_window_t m_root = 0;
    std::map<std::string, xcb_atom_t> m_atoms;
    QByteArray m_name;
};

} // namespace lumbrix::privatedesk
