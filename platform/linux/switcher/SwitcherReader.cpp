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

constexpr int MinimalList = 60; ///< pixels; what tells a size while resizing is a line high
constexpr std::uint32_t LabelRole = 29;

template <class Test> QRect rectOf(const Windows& windows, Test test)
{
    const auto it = std::ranges::find_if(windows, test);
    return it == windows.end() ? QRect() : it->rect;
}

// The outline alone is that of a window that is moved.
std::optional<SwitcherSight> lookAtXfwm4(const Windows& windows)
{
    const QRect list = rectOf(windows, [](const ManagerWindow& window) {
        return window.classInstance == u"xfwm4" && window.isPlain &&
               window.rect.height() >= MinimalList;
    });
    if (list.isEmpty()) {
        return std::nullopt;
    }
    return SwitcherSight{.list = list, .outline = rectOf(windows, [](const ManagerWindow& window) {
                                           return window.classInstance == u"xfwm4-wireframe";
                                       })};
}

constexpr std::array readers{
    SwitcherReader{.manager = "Xfwm4", .look = lookAtXfwm4, .titleRole = LabelRole},
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
