// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "storm/Weather.h"

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <thread>
#include <xcb/xcbext.h>

namespace lumbrix::bench
{

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;
using namespace privatedesk;

namespace
{

constexpr QRect first(0, 0, 1600, 900);
const Monitor main{u"DUMMY0"_s, first};
const Monitor beside{u"DUMMY1"_s, QRect(1600, 0, 1280, 1024)};
const Monitor above{u"DUMMY1"_s, QRect(100, -800, 1280, 800)};

SessionOptions options()
{
    SessionOptions result{first.size(), WindowManager::Xfwm4, true, true};
    if (hasMonitorServer())
        result.monitors = {main};
    return result;
}

} // namespace

Weather::Weather(std::mt19937& random) : m_session(options()), m_crowd(m_session, random)
{
    m_fonts.setDotsPerInch(96);
    changeDock();
    addDockFaults();
    addSessionFaults();
    addWindowFaults();
    std::ranges::move(m_companions.faults(), std::back_inserter(m_faults));
    if (!m_session.options().monitors.empty())
        addScreenFaults();
}

void Weather::park()
{
    const QRect area = m_session.monitors().front().area;
    m_session.display().moveTo(area.topLeft() + QPoint(area.width() / 2, area.height() / 3));
}

bool Weather::moveTo(const Application& application)
{
    std::optional<QPoint> icon;
    m_session.display().waitFor(
        [&] {
            for (const AppWindow& window : application.windows())
                if (!icon)
                    icon = m_dock->iconOf(application.entry(), window.id);
            // A dock that has just come has not told its own places yet; others are left over.
            const auto area = m_session.display().dockArea();
            if (icon && !(area && area->contains(*icon)))
                icon.reset();
            return icon.has_value();
        },
        patience(3000));
    if (icon)
        m_session.display().moveTo(*icon);
    return icon.has_value();
}

QPoint Weather::anywhere()
{
    const QSize size = m_session.display().size();
    return {m_crowd.pick(static_cast<std::size_t>(size.width())),
            m_crowd.pick(static_cast<std::size_t>(size.height()))};
}

void Weather::changeDock()
{
    constexpr DockKind kinds[] = {DockKind::Plank, DockKind::Tint2, DockKind::XfcePanel};
    constexpr Edge edges[] = {Edge::Bottom, Edge::Left, Edge::Top};
    const auto kind = kinds[m_crowd.pick(std::size(kinds))];
    const auto edge = edges[m_crowd.pick(std::size(edges))];
    m_dock.reset();
    m_dock = Dock::start(m_session, kind, edge, m_crowd.entries() + m_companions.entries());
}

void Weather::stopClient(const std::function<void(int)>& signal)
{
    do {
        signal(SIGCONT);
        signal(SIGSTOP);
    } while (!doesServerAnswer());
}

bool Weather::doesServerAnswer()
{
    xcb_connection_t* c = m_session.display().connection();
    // What the client has sent before it was stopped comes first.
    std::this_thread::sleep_for(20ms);
    const auto cookie = xcb_get_input_focus(c);
    xcb_flush(c);
    void* reply = nullptr;
    xcb_generic_error_t* error = nullptr;
    const auto deadline = std::chrono::steady_clock::now() + patience(300);
    while (xcb_poll_for_reply(c, cookie.sequence, &reply, &error) == 0) {
        if (std::chrono::steady_clock::now() > deadline) {
            xcb_discard_reply(c, cookie.sequence);
            return false;
        }
        std::this_thread::sleep_for(5ms);
    }
    std::free(reply);
    std::free(error);
    return true;
}

void Weather::replaceBus()
{
    m_session.bus().signal(SIGKILL);
    m_dock.reset();
    m_session.restartBus();
    m_session.restartWindowManager();
    m_dock = Dock::start(m_session, DockKind::Tint2, Edge::Bottom);
}

void Weather::addDockFaults()
{
    m_faults.push_back({"dock replaced", [this] { m_dock->kill(); }, [this] { changeDock(); }});
    m_faults.push_back({"dock crashed", [this] { m_dock->kill(); }, [this] { m_dock->restart(); }});
    m_faults.push_back({.name = "dock stopped",
                        .begin = [this] { stopClient([this](int s) { m_dock->signal(s); }); },
                        .end = [this] { m_dock->signal(SIGCONT); }});
}

void Weather::addSessionFaults()
{
    m_faults.push_back(
        {"window manager stopped",
         [this] { stopClient([this](int s) { m_session.windowManager().signal(s); }); },
         [this] { m_session.windowManager().signal(SIGCONT); }, true});
    m_faults.push_back({"window manager crashed",
                        [this] { m_session.windowManager().signal(SIGKILL); },
                        [this] { m_session.restartWindowManager(); }, true});
    const auto composite = [this](bool on) {
        m_session
            .start(u"xfconf-query"_s, u"xfconf-query"_s,
                   {u"-c"_s, u"xfwm4"_s, u"-p"_s, u"/general/use_compositing"_s, u"-n"_s, u"-t"_s,
                    u"bool"_s, u"-s"_s, on ? u"true"_s : u"false"_s})
            ->waitForExit(5s);
        m_session.display().waitFor([&] { return m_session.display().hasCompositor() == on; });
    };
    m_faults.push_back(
        {"no compositor", [composite] { composite(false); }, [composite] { composite(true); }});
    m_faults.push_back({"session bus stopped", [this] { m_session.bus().signal(SIGSTOP); },
                        [this] { m_session.bus().signal(SIGCONT); }});
    // Its windows neither paint nor answer.
    auto stopped = std::make_shared<Application*>(nullptr);
    m_faults.push_back({"application stopped",
                        [this, stopped] {
                            *stopped = &m_crowd.any();
                            stopClient([&](int s) { (*stopped)->process().signal(s); });
                        },
                        [stopped] { (*stopped)->process().signal(SIGCONT); }, true});
    m_faults.push_back({"application crashed", [] {}, [this] { m_crowd.replaceAny(); }});
}

void Weather::addWindowFaults()
{
    struct Adopted {
        const Application* owner = nullptr;
        xcb_window_t window = XCB_NONE;
    };
    const auto belongTo = [this](xcb_window_t window, const Application& owner) {
        const QByteArray name = owner.identifier().toLatin1();
        const QByteArray both = name + '\0' + name.left(1).toUpper() + name.mid(1) + '\0';
        xcb_connection_t* c = m_session.display().connection();
        xcb_change_property(c, XCB_PROP_MODE_REPLACE, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8,
                            static_cast<std::uint32_t>(both.size()), both.constData());
        xcb_flush(c);
    };
    const auto adopted = std::make_shared<Adopted>();
    m_faults.push_back(
        {.name = "window changes its owner",
         .begin =
             [this, adopted, belongTo] {
                 const Application& owner = m_crowd.any();
                 const auto& windows = owner.windows();
                 adopted->owner = &owner;
                 adopted->window = windows[m_crowd.pick(windows.size())].id;
                 belongTo(adopted->window, m_crowd.any());
             },
         .end = [adopted, belongTo] { belongTo(adopted->window, *adopted->owner); }});
    m_faults.push_back({.name = "scale doubled",
                        .begin = [this] { m_fonts.setDotsPerInch(192); },
                        .end = [this] { m_fonts.setDotsPerInch(96); }});
}

void Weather::addScreenFaults()
{
    const auto add = [this](const char* name, const std::vector<Monitor>& meanwhile) {
        m_faults.push_back({.name = name,
                            .begin = [this, meanwhile] { m_session.setMonitors(meanwhile); },
                            // Plank takes note of monitors only when it starts.
                            .end =
                                [this] {
                                    m_session.setMonitors({main});
                                    m_dock->kill();
                                    m_dock->restart();
                                },
                            .isBlind = true});
    };
    add("monitor beside", {main, beside});
    add("monitor above", {main, above});
    add("another monitor", {beside});
}

} // namespace lumbrix::bench
