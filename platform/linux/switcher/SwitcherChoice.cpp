// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/SwitcherChoice.h"
#include "platform/StringLiterals.h"

#include <algorithm>

namespace lumbrix::platform
{

namespace
{

constexpr int maximumBorder = 16; ///< pixels, on each side

bool hasBorder(int margin) { return margin >= 0 && margin <= maximumBorder; }

bool isInsideBorder(const QRect& outline, const QRect& frame)
{
    return hasBorder(outline.left() - frame.left()) && hasBorder(outline.top() - frame.top()) &&
           hasBorder(frame.left() + frame.width() - outline.left() - outline.width()) &&
           hasBorder(frame.top() + frame.height() - outline.top() - outline.height());
}

template <class Test>
std::vector<xcb_window_t> idsOf(const std::vector<x11::TrackedWindowPtr>& windows, Test test)
{
    std::vector<xcb_window_t> result;
    for (const x11::TrackedWindowPtr& window : windows)
        if (test(*window))
            result.push_back(window->id);
    return result;
}

} // namespace

std::vector<xcb_window_t> windowsOutlinedBy(const QRect& outline,
                                            const std::vector<x11::TrackedWindowPtr>& windows)
{
    std::vector<xcb_window_t> exact = idsOf(windows, [&](const x11::TrackedWindow& window) {
        return window.bounds == outline || window.frameBounds == outline;
    });
    return !exact.empty() ? exact : idsOf(windows, [&](const x11::TrackedWindow& window) {
        return isInsideBorder(outline, window.frameBounds);
    });
}

bool isTitleOf(const QString& written, const QString& title)
{
    return !title.isEmpty() && (written == title || written == u'[' + title + u']' ||
                                written == u"[ %1 ]"_s.arg(title));
}

xcb_window_t nextInRing(const std::vector<xcb_window_t>& ring, xcb_window_t from, int steps,
                        const std::vector<xcb_window_t>& candidates)
{
    const auto count = static_cast<std::ptrdiff_t>(ring.size());
    const std::ptrdiff_t direction = steps < 0 ? -1 : 1;
    const auto found = std::ranges::find(ring, from);
    // Nothing comes before the first one.
    std::ptrdiff_t place = found != ring.end() ? found - ring.begin() : (steps < 0 ? 0 : -1);
    if (steps != 0)
        place += steps - direction;
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        place += direction;
        const auto index = static_cast<std::size_t>(((place % count) + count) % count);
        if (std::ranges::find(candidates, ring[index]) != candidates.end())
            return ring[index];
    }
    return candidates.empty() ? xcb_window_t{XCB_NONE} : candidates.front();
}

} // namespace lumbrix::platform
