// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/Arrival.h"

#include <algorithm>
#include <cstdio>
#include <map>
#include <xcb/xtest.h>

namespace lumbrix::bench
{

using namespace std::chrono_literals;
using privatedesk::Panel;

namespace
{
constexpr auto quiet = 100ms;
}

void Arrival::send(std::uint8_t type, std::uint8_t detail, QPoint at)
{
    xcb_test_fake_input(m_display.connection(), type, detail, XCB_CURRENT_TIME, m_display.root(),
                        static_cast<std::int16_t>(at.x()), static_cast<std::int16_t>(at.y()), 0);
    xcb_flush(m_display.connection());
}

void Arrival::settle(const std::function<bool()>& isSeen)
{
    m_display.waitFor([&] { return Clock::now() - m_watch.lastEvent() > quiet && isSeen(); }, 2s);
}

void Arrival::begin()
{
    m_watch.clear();
    m_begun = Clock::now();
}

void Arrival::awaitPreviews(std::size_t count)
{
    settle([&] {
        const auto shown = m_display.previews();
        const auto painted = m_watch.paintedWindows();
        return shown.size() == count && std::ranges::all_of(shown, [&](const Panel& panel) {
                   return painted.contains(panel.id);
               });
    });
}

std::optional<ArrivalTimes> Arrival::times(const std::function<bool(xcb_window_t)>& counts,
                                           bool isVerbose) const
{
    ArrivalTimes result;
    std::map<xcb_window_t, double> firsts;
    if (isVerbose)
        std::printf("   ");
    for (const PaintWatch::Event& event : m_watch.events()) {
        if (!counts(event.window))
            continue;
        const double time = std::chrono::duration<double, std::milli>(event.at - m_begun).count();
        if (isVerbose)
            std::printf(" %c%x@%.2f", "mup"[static_cast<int>(event.kind)], event.window & 0xffffU,
                        time);
        if (event.kind == PaintWatch::Event::Kind::Mapped) {
            result.mapped = time;
        } else if (event.kind == PaintWatch::Event::Kind::Painted) {
            result.painted = time;
            firsts.try_emplace(event.window, time);
        }
    }
    if (isVerbose)
        std::printf("\n");
    if (result.mapped == 0 || result.painted == 0)
        return std::nullopt;
    for (const auto& [window, time] : firsts)
        result.first = std::max(result.first, time);
    return result;
}

std::optional<ArrivalTimes> Arrival::timesOfPreviews(bool isVerbose) const
{
    const auto shown = m_display.previews();
    return times(
        [&shown](xcb_window_t window) {
            return std::ranges::find(shown, window, &Panel::id) != shown.end();
        },
        isVerbose);
}

} // namespace lumbrix::bench
