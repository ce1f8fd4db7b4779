// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/Crowd.h"

#include <algorithm>
#include <csignal>
#include <cstdio>

#include "Colours.h"
#include "platform/StringLiterals.h"

namespace lumbrix::bench
{

using namespace Qt::StringLiterals;
using privatedesk::Application;
using privatedesk::AppWindow;
using privatedesk::Panel;

namespace
{

constexpr std::size_t maxWindows = 12; ///< of one application, so that all are previewed

QStringList names()
{
    return {u"alpha"_s, u"beta"_s, u"gamma"_s, u"delta"_s, u"epsilon"_s, u"zeta"_s};
}

} // namespace

Crowd::Crowd(privatedesk::Session& session, std::mt19937& random)
    : m_session(session), m_display(session.display()), m_random(random)
{
    int hue = 0;
    for (const QString& name : names()) {
        m_session.installApplication(name, name, name.at(0).toUpper() + name.mid(1), u"true"_s,
                                     QColor::fromHsv(hue, 200, 200));
        hue += 60;
    }
}

QStringList Crowd::entries() const
{
    QStringList result;
    for (const QString& name : names())
        result << m_session.dataPath(u"applications/"_s + name + u".desktop"_s);
    return result;
}

void Crowd::start(std::size_t windows)
{
    m_windows = windows;
    for (const QString& name : names()) {
        m_applications.push_back(std::make_unique<Application>(m_session, name));
        open(*m_applications.back());
    }
    while (countWindows() < m_windows)
        open(any());
}

Application& Crowd::any()
{
    return *m_applications[static_cast<std::size_t>(pick(m_applications.size()))];
}

void Crowd::replaceAny()
{
    ++m_kinds["crash"];
    auto& application = m_applications[static_cast<std::size_t>(pick(m_applications.size()))];
    const QString name = application->identifier();
    application->process().signal(SIGKILL);
    application.reset();
    application = std::make_unique<Application>(m_session, name);
    open(*application);
}

std::size_t Crowd::countWindows() const
{
    std::size_t count = 0;
    for (const auto& application : m_applications)
        count += application->windows().size();
    return count;
}

QPoint Crowd::anyPlace()
{
    const QSize room = m_display.size() - QSize(800, 500);
    return {pick(static_cast<std::size_t>(room.width())),
            pick(static_cast<std::size_t>(room.height()))};
}

void Crowd::open(Application& application)
{
    if (application.windows().size() < maxWindows)
        application.open(anyTitle(), anyColour(), {anySize(), anyPlace()});
}

void Crowd::change(Application& application)
{
    const auto& windows = application.windows();
    const AppWindow window = windows[static_cast<std::size_t>(pick(windows.size()))];
    switch (pick(5)) {
    case 0:
        if (countWindows() >= m_windows && windows.size() > 1) {
            ++m_kinds["close"];
            application.destroy(window);
        } else {
            ++m_kinds["open"];
            open(application);
        }
        break;
    case 1: {
        ++m_kinds["move"];
        const QPoint place = anyPlace();
        const QSize size = anySize();
        // From a pager, with x, y, width and height given.
        m_display.request(
            window.id, "_NET_MOVERESIZE_WINDOW",
            {0x2f00, static_cast<std::uint32_t>(place.x()), static_cast<std::uint32_t>(place.y()),
             static_cast<std::uint32_t>(size.width()), static_cast<std::uint32_t>(size.height())});
        break;
    }
    case 2:
        ++m_kinds["colour"];
        application.setColour(window, anyColour());
        break;
    case 3:
        ++m_kinds["title"];
        application.setTitle(window, anyTitle());
        break;
    default:
        ++m_kinds["raise"];
        application.activate(window);
        break;
    }
}

bool Crowd::isShown(const AppWindow& window, const std::vector<Panel>& shown)
{
    const auto panel = std::ranges::find(shown, window.title, &Panel::title);
    if (panel == shown.end())
        return false;
    // A wide window leaves room above and below its picture.
    const QImage picture = m_display.picture(panel->geometry);
    for (int y = 0; y < picture.height(); ++y)
        if (privatedesk::isAbout(picture.pixel(picture.width() / 2, y), window.colour))
            return true;
    return false;
}

bool Crowd::isShown(const Application& application)
{
    const auto shown = m_display.previews();
    const auto& windows = application.windows();
    return shown.size() == windows.size() &&
           std::ranges::all_of(windows,
                               [&](const AppWindow& window) { return isShown(window, shown); });
}

void Crowd::describe(const Application& application)
{
    const auto shown = m_display.previews();
    std::printf("  %s has", qPrintable(application.identifier()));
    for (const AppWindow& window : application.windows())
        std::printf(" \"%s\"%s", window.title.constData(),
                    isShown(window, shown) ? "" : " (not shown)");
    std::printf("; shown are");
    for (const Panel& panel : shown)
        std::printf(" \"%s\"", panel.title.constData());
    std::printf("\n");
}

} // namespace lumbrix::bench
