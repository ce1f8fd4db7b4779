// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/SwitcherReader.h"

#include <algorithm>
#include <array>

namespace lumbrix::platform
{

namespace
{

using x11::ManagerWindow;
using Windows = std::vector<ManagerWindow>;

constexpr int minimumList = 60; ///< pixels; the size display while resizing is one line high
constexpr int maximumEdge = 20; ///< pixels; how thick an outline's edge may be
constexpr int listDepth = 32;   ///< translucent, unlike outlines
constexpr std::uint32_t labelRole = 29;
constexpr std::uint32_t statusBarRole = 54;

template <class Test> QRect rectOf(const Windows& windows, Test test)
{
    const auto it = std::ranges::find_if(windows, test);
    return it == windows.end() ? QRect() : it->rect;
}

// An outline without a list belongs to a window being moved.
std::optional<SwitcherSight> lookAtXfwm4(const Windows& windows)
{
    const QRect list = rectOf(windows, [](const ManagerWindow& window) {
        return window.classInstance == u"xfwm4" && window.isPlain &&
               window.rect.height() >= minimumList;
    });
    if (list.isEmpty())
        return std::nullopt;
    return SwitcherSight{.list = list, .outline = rectOf(windows, [](const ManagerWindow& window) {
                                           return window.classInstance == u"xfwm4-wireframe";
                                       })};
}

// Both can be turned off separately. An outline consists of four windows without a name, one for
// each edge.
std::optional<SwitcherSight> lookAtOpenbox(const Windows& windows)
{
    const QRect list = rectOf(windows, [](const ManagerWindow& window) {
        return window.classInstance.startsWith(u"OPENBOX_FOCUS_CYCLE_POPUP");
    });
    QRect outline;
    int edges = 0;
    for (const ManagerWindow& window : windows) {
        if (window.classInstance.isEmpty() &&
            std::min(window.rect.width(), window.rect.height()) <= maximumEdge) {
            outline |= window.rect;
            ++edges;
        }
    }
    if (edges != 4)
        outline = QRect();
    return list.isEmpty() && outline.isEmpty()
               ? std::nullopt
               : std::optional(SwitcherSight{.list = list, .outline = outline});
}

// The outline is hidden, moved and shown again, so it may be missing for a moment.
std::optional<SwitcherSight> lookAtMarco(const Windows& windows)
{
    const auto isOwn = [](const ManagerWindow& window) {
        return window.classInstance == u"marco" && window.isPlain &&
               window.rect.height() >= minimumList;
    };
    const QRect list = rectOf(windows, [&](const ManagerWindow& window) {
        return isOwn(window) && window.depth == listDepth;
    });
    if (list.isEmpty())
        return std::nullopt;
    return SwitcherSight{.list = list, .outline = rectOf(windows, [&](const ManagerWindow& window) {
                                           return isOwn(window) && window.depth != listDepth;
                                       })};
}

// If the selected window is raised at all, then only in the compositor's picture. KWin's other own
// windows look the same from outside; the pressed keys distinguish them.
std::optional<SwitcherSight> lookAtKWin(const Windows& windows)
{
    const QRect list = rectOf(windows, [](const ManagerWindow& window) {
        return window.classInstance.startsWith(u"kwin") && window.rect.height() >= minimumList;
    });
    return list.isEmpty() ? std::nullopt
                          : std::optional(SwitcherSight{.list = list, .outline = {}});
}

constexpr std::array readers{
    SwitcherReader{.manager = "Openbox", .look = lookAtOpenbox, .titleRole = 0, .isCounted = false},
    SwitcherReader{.manager = "Metacity (Marco)",
                   .look = lookAtMarco,
                   .titleRole = statusBarRole,
                   .isCounted = false},
    SwitcherReader{
        .manager = "Xfwm4", .look = lookAtXfwm4, .titleRole = labelRole, .isCounted = false},
    SwitcherReader{.manager = "KWin", .look = lookAtKWin, .titleRole = 0, .isCounted = true},
};

} // namespace

const SwitcherReader* switcherReaderFor(const QString& manager)
{
    const auto* it = std::ranges::find_if(readers, [&](const SwitcherReader& reader) {
        return manager == QLatin1String(reader.manager);
    });
    return it == readers.end() ? nullptr : it;
}

} // namespace lumbrix::platform
