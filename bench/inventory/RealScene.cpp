// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <array>

#include "Session.h"
#include "inventory/Scene.h"
#include "platform/StringLiterals.h"
#include "platform/linux/LinuxDesktop.h"
#include "platform/qt/QtRunLoop.h"

namespace lumbrix::bench
{
namespace
{

using privatedesk::Display;
using privatedesk::Session;
using privatedesk::WindowManager;

constexpr std::uint32_t firstPid = 0x30000000; ///< of no process

/// The adapter's programs and files are those of the session from now on.
void enter(const Session& session)
{
    for (const QString& variable : session.environment())
        qputenv(qPrintable(variable.section(u'=', 0, 0)), variable.section(u'=', 1).toUtf8());
}

/// Stands in for a window manager: maps the windows itself and lists them.
class Windows
{
public:
    explicit Windows(Display& display) : m_display(display) {}

    void add(std::uint32_t application, std::uint32_t number)
    {
        xcb_connection_t* c = m_display.connection();
        const xcb_window_t window = xcb_generate_id(c);
        const auto at = static_cast<std::int16_t>(number);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, m_display.root(), at, at, 400, 300, 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        const QByteArray name = "application" + QByteArray::number(application);
        setText(window, XCB_ATOM_WM_CLASS, name + '\0' + name + '\0');
        setText(window, XCB_ATOM_WM_NAME, "Window " + QByteArray::number(number));
        set(window, "_NET_WM_PID", XCB_ATOM_CARDINAL, std::array{firstPid + application});
        set(window, "_NET_WM_DESKTOP", XCB_ATOM_CARDINAL, std::array{0U});
        xcb_map_window(c, window);
        m_windows.push_back(window);
    }
    void list()
    {
        const xcb_window_t root = m_display.root();
        set(root, "_NET_SUPPORTED", XCB_ATOM_ATOM,
            std::array{m_display.atom("_NET_WM_STATE_HIDDEN")});
        set(root, "_NET_NUMBER_OF_DESKTOPS", XCB_ATOM_CARDINAL, std::array{1U});
        set(root, "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, std::array{0U});
        set(root, "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, m_windows);
        set(root, "_NET_CLIENT_LIST_STACKING", XCB_ATOM_WINDOW, m_windows);
        m_display.geometry(root); // all is done once that is answered
    }

private:
    void setText(xcb_window_t window, xcb_atom_t name, const QByteArray& text)
    {
        xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, window, name,
                            XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()),
                            text.constData());
    }
    template <class List>
    void set(xcb_window_t window, const char* name, xcb_atom_t type, const List& values)
    {
        xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, window,
                            m_display.atom(name), type, 32,
                            static_cast<std::uint32_t>(values.size()), values.data());
    }

    Display& m_display;
    std::vector<xcb_window_t> m_windows;
};

class Real final : public Scene
{
public:
    Real(std::int64_t windows, std::int64_t windowsEach)
        : m_session(
              {.size = {1600, 1200}, .windowManager = WindowManager::Absent, .compositor = false})
    {
        enter(m_session);
        Windows all(m_session.display());
        for (std::int64_t i = 0; i < windows; ++i)
            all.add(static_cast<std::uint32_t>(i / windowsEach), static_cast<std::uint32_t>(i));
        all.list();
        m_last = static_cast<std::int32_t>(firstPid + (windows - 1) / windowsEach);
        QString error;
        m_desktop = platform::LinuxDesktop::create(m_loop, {}, error);
        if (!m_desktop)
            qFatal("%s", qPrintable(error));
    }
    ~Real() override
    {
        m_desktop->stop();
        m_loop.shutdown();
    }
    const platform::Desktop& ports() const override { return m_desktop->ports(); }

private:
    platform::QtRunLoop m_loop;
    Session m_session;
    std::unique_ptr<platform::LinuxDesktop> m_desktop;
};

} // namespace

std::unique_ptr<Scene> realScene(std::int64_t windows, std::int64_t windowsEach)
{
    return std::make_unique<Real>(windows, windowsEach);
}

} // namespace lumbrix::bench
