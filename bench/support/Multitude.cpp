// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/Multitude.h"

#include <QtGui/QColor>

#include <algorithm>
#include <array>
#include <unistd.h>

#include "platform/StringLiterals.h"

namespace lumbrix::bench
{

using namespace Qt::StringLiterals;
using privatedesk::patience;

namespace
{
constexpr int panelHeight = 40;
constexpr int panelsMostOnAnEdge = 20;
} // namespace

Multitude::Multitude(privatedesk::Session& session, int applications) : m_session(session)
{
    for (int i = 0; i < applications; ++i) {
        const QString name = u"app%1"_s.arg(i + 1, 3, 10, QChar(u'0'));
        m_names << name;
        m_entries << session.installApplication(name, u"Application %1"_s.arg(i + 1),
                                                name.at(0).toUpper() + name.mid(1), u"true"_s,
                                                QColor::fromHsv(i * 47 % 360, 200, 200));
    }
}

void Multitude::open(int windows, QSize size)
{
    for (const QString& name : m_names)
        m_processes.push_back(
            m_session.start(name, QStringLiteral(LUMBRIX_TEST_CLIENT), {name}, true));
    for (int i = 0; i < windows; ++i) {
        const QString line = u"open %1 %2 %3 %4 %5 "_s.arg(size.width())
                                 .arg(size.height())
                                 .arg(20 + 37 * i % 1200)
                                 .arg(60 + 23 * i % 700)
                                 .arg(QColor::fromHsv(i * 47 % 360, 255, 230).rgb() & 0xffffffU);
        m_processes[static_cast<std::size_t>(i) % m_processes.size()]->writeLine(
            line.toLatin1() + ("window " + QByteArray::number(i + 1)).toHex());
    }
    for (int i = 0; i < windows; ++i) {
        const auto answer =
            m_processes[static_cast<std::size_t>(i) % m_processes.size()]->readLine(patience(9000));
        const QList<QByteArray> fields = answer.value_or(QByteArray()).split(' ');
        if (fields.size() != 3)
            qFatal("window %d was not opened", i + 1);
        m_windows.push_back(fields[2].toUInt());
    }
    auto& display = m_session.display();
    const auto areListed = [&] {
        auto listed = display.numbers(display.root(), "_NET_CLIENT_LIST");
        std::ranges::sort(listed);
        return std::ranges::all_of(m_windows, [&](xcb_window_t window) {
            return std::ranges::binary_search(listed, window);
        });
    };
    if (!display.waitFor(areListed, patience(60'000)))
        qFatal("the window manager does not list all windows");
}

Panels::Panels(privatedesk::Display& display, int count)
    : m_display(display), m_perEdge(std::min(count, panelsMostOnAnEdge))
{
    xcb_connection_t* c = display.connection();
    const auto set = [&](xcb_window_t window, xcb_atom_t name, xcb_atom_t type,
                         const auto& values) {
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, name, type, 32,
                            static_cast<std::uint32_t>(values.size()), values.data());
    };
    for (int i = 0; i < count; ++i) {
        const QRect rect = panelRect(i);
        const xcb_window_t window = xcb_generate_id(c);
        xcb_create_window(c, XCB_COPY_FROM_PARENT, window, display.root(),
                          static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
                          static_cast<std::uint16_t>(rect.width()),
                          static_cast<std::uint16_t>(rect.height()), 0,
                          XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
        constexpr char name[] = "panel\0Panel";
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                            sizeof name, name);
        set(window, display.atom("_NET_WM_PID"), XCB_ATOM_CARDINAL,
            std::array{static_cast<std::uint32_t>(getpid())});
        set(window, display.atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM,
            std::array{display.atom("_NET_WM_WINDOW_TYPE_DOCK")});
        // The position is the user's own, so window managers keep it.
        std::array<std::uint32_t, 18> hints{1};
        set(window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, hints);
        xcb_map_window(c, window);
        m_panels.push_back(window);
    }
    const auto areInPlace = [&] {
        for (int i = 0; i < count; ++i)
            if (display.geometry(m_panels[static_cast<std::size_t>(i)]) != panelRect(i))
                return false;
        return true;
    };
    if (!display.waitFor(areInPlace, patience(20'000)))
        qFatal("the panels are not in their places");
}

Panels::~Panels()
{
    for (const xcb_window_t panel : m_panels)
        xcb_destroy_window(m_display.connection(), panel);
    xcb_flush(m_display.connection());
}

QRect Panels::panelRect(int panel) const
{
    const QSize screen = m_display.size();
    const int width = screen.width() / panelsMostOnAnEdge - 4;
    const int x = panel % m_perEdge * (screen.width() / panelsMostOnAnEdge) + 2;
    return {x, panel < m_perEdge ? screen.height() - panelHeight : 0, width, panelHeight};
}

QRect Panels::rectOf(int button) const
{
    const QRect panel = panelRect(button / buttonsEach);
    const int width = panel.width() / buttonsEach;
    return {panel.x() + button % buttonsEach * width, panel.y(), width, panel.height()};
}

void Panels::place(int button, const std::vector<xcb_window_t>& windows)
{
    const QRect rect = rectOf(button);
    const std::array place{
        static_cast<std::uint32_t>(rect.x()), static_cast<std::uint32_t>(rect.y()),
        static_cast<std::uint32_t>(rect.width()), static_cast<std::uint32_t>(rect.height())};
    for (const xcb_window_t window : windows)
        xcb_change_property(m_display.connection(), XCB_PROP_MODE_REPLACE, window,
                            m_display.atom("_NET_WM_ICON_GEOMETRY"), XCB_ATOM_CARDINAL, 32,
                            static_cast<std::uint32_t>(place.size()), place.data());
    xcb_flush(m_display.connection());
}

} // namespace lumbrix::bench
