// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/SwitcherChoice.h"

#include <algorithm>

namespace lumbrix::platform
{

namespace
{

constexpr int MaximalBorder = 16; ///< pixels, on each side

bool hasBorder(int margin) { return margin >= 0 && margin <= MaximalBorder; }

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
    for (const x11::TrackedWindowPtr& window : windows) {
        if (test(*window)) {
            result.push_back(window->id);
        }
    }
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
                                written == QStringLiteral("[ %1 ]").arg(title));
}

xcb_window_t nextInRing(const std::vector<xcb_window_t>& ring, xcb_window_t from, bool backwards,
                        const std::vector<xcb_window_t>& candidates)
{
    const auto count = static_cast<std::ptrdiff_t>(ring.size());
    const auto found = std::ranges::find(ring, from);
    // Nothing comes before the first one.
    std::ptrdiff_t place = found != ring.end() ? found - ring.begin() : (backwards ? 0 : -1);
    for (std::ptrdiff_t i = 0; i < count; ++i) {
        place = (place + (backwards ? count - 1 : 1)) % count;
        const xcb_window_t window = ring[static_cast<std::size_t>(place)];
        if (std::ranges::find(candidates, window) != candidates.end()) {
            return window;
        }
    }
    return XCB_NONE;
}

} // namespace lumbrix::platform
