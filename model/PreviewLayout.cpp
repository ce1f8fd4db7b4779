// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/PreviewLayout.h"

#include <algorithm>

namespace lumbrix::PreviewLayout
{
namespace
{

/// A strip looks centred on the icon when it starts this much before the exactly centred position.
constexpr double stripShift = 6;
/// The margin at the top of the screen, and beside a row before it is shrunk.
constexpr float menuBarHeight = 22;
constexpr float rowMargin = 50;
/// With less room beside the icon, shrinking would leave nothing to look at.
constexpr float leastRoom = 50;
/// Between a row and the edge of the screen, for the shape behind it.
constexpr double edgeMargin = 12;

/// Along one axis: begins at `start` unless that lies before `first` or ends beyond `limit`.
/// Single precision throughout, as the sizes are, so that a strip as long as the screen begins
/// exactly at its edge.
float clampedStart(double start, float length, float first, float limit)
{
    float s = static_cast<float>(start);
    if (s < first)
        s = first;
    else if (s + length > limit)
        s = s - (s + length - limit);
    return s;
}

/// The corner that a placement starts from, mirrored into screen coordinates.
QPointF toScreen(double x, double y, const Input& input) { return {x, input.mainScreenHeight - y}; }

double besideX(DockEdge edge, const Input& input, float width)
{
    return edge == DockEdge::Left ? input.icon.x() + input.icon.width() + input.distanceFromDock
                                  : input.icon.x() - input.distanceFromDock - width;
}

/// The lower edge of a row.
double besideY(DockEdge edge, const Input& input, float height)
{
    return edge == DockEdge::Top
               ? input.icon.y() + input.icon.height() + input.distanceFromDock + height
               : input.icon.y() - input.distanceFromDock;
}

float leftOf(const QRectF& screen) { return static_cast<float>(screen.x()); }
float rightOf(const QRectF& screen) { return static_cast<float>(screen.x() + screen.width()); }
/// Where a column may start.
float topOf(const QRectF& screen) { return static_cast<float>(screen.y()) + menuBarHeight; }
float bottomOf(const QRectF& screen) { return static_cast<float>(screen.y() + screen.height()); }

/// From the distance beside the icon to the far edge of the screen.
float roomBeside(DockEdge edge, const Input& input)
{
    const QRectF& icon = input.icon;
    const QRectF& screen = input.screen;
    const auto room = [&] {
        switch (edge) {
        case DockEdge::Top:
            return screen.y() + screen.height() - icon.y() - icon.height();
        case DockEdge::Left:
            return screen.x() + screen.width() - icon.x() - icon.width();
        case DockEdge::Right:
            return icon.x() - screen.x();
        case DockEdge::Bottom:
            break;
        }
        return icon.y() - screen.y();
    };
    return static_cast<float>(room()) - input.distanceFromDock;
}

std::vector<QRectF> row(DockEdge edge, const Input& input, int count, float width, float height,
                        std::optional<float> room)
{
    const float screenWidth = static_cast<float>(input.screen.width());
    float length = static_cast<float>(count) * width;
    if (length > screenWidth - rowMargin) {
        // The whole width of the screen without the margin, because the row is long.
        width = screenWidth / static_cast<float>(count);
        height = (input.windowHeight / input.windowWidth) * width;
    }
    // A large preview on a low screen would stick out of it.
    if (room >= leastRoom && height > room) {
        width *= *room / height;
        height = *room;
    }
    length = static_cast<float>(count) * width;
    const QRectF& icon = input.icon;
    const float start = clampedStart(icon.x() + icon.width() * 0.5 - 0.5 * length - stripShift,
                                     length, leftOf(input.screen), rightOf(input.screen));
    const QPointF corner = toScreen(start, besideY(edge, input, height), input);
    std::vector<QRectF> frames;
    frames.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        frames.emplace_back(corner.x() + static_cast<double>(i) * width, corner.y(), width, height);
    return frames;
}

std::vector<QRectF> column(DockEdge edge, const Input& input, int count, float width, float height,
                           std::optional<float> room)
{
    const float screenHeight = static_cast<float>(input.screen.height());
    float length = static_cast<float>(count) * height;
    if (length > screenHeight - menuBarHeight) {
        height = (screenHeight - menuBarHeight) / static_cast<float>(count);
        width = (input.windowWidth / input.windowHeight) * height;
    }
    if (room >= leastRoom && width > room) {
        height *= *room / width;
        width = *room;
    }
    length = static_cast<float>(count) * height;
    const QRectF& icon = input.icon;
    const float start = clampedStart(icon.y() + icon.height() * 0.5 - 0.5 * length - stripShift,
                                     length, topOf(input.screen), bottomOf(input.screen));
    const QPointF corner = toScreen(besideX(edge, input, width), start, input);
    std::vector<QRectF> frames;
    frames.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        frames.emplace_back(corner.x(), corner.y() - static_cast<double>(i) * height - height,
                            width, height);
    return frames;
}

double squaredDistance(const QRectF& screen, QPointF point)
{
    const double x = std::clamp(point.x(), screen.x(), screen.x() + screen.width());
    const double y = std::clamp(point.y(), screen.y(), screen.y() + screen.height());
    return (point.x() - x) * (point.x() - x) + (point.y() - y) * (point.y() - y);
}

} // namespace

std::vector<QRectF> strip(DockEdge edge, const Input& input, int count, std::optional<QSizeF> size)
{
    if (count <= 0)
        return {};
    const float width = size ? static_cast<float>(size->width()) : input.windowWidth;
    const float height = size ? static_cast<float>(size->height()) : input.windowHeight;
    // What has a size of its own needs that for its text.
    const auto room = size ? std::nullopt : std::optional(roomBeside(edge, input));
    return isHorizontal(edge) ? row(edge, input, count, width, height, room)
                              : column(edge, input, count, width, height, room);
}

std::vector<QRectF> rowBesideSwitcher(const Input& input, int count)
{
    if (count <= 0)
        return {};
    std::vector<QRectF> frames =
        row(DockEdge::Bottom, input, count, input.windowWidth, input.windowHeight, std::nullopt);
    const QRectF& list = input.icon;
    const QRectF& screen = input.screen;
    const double height = frames.front().height();
    const double above = list.y() - screen.y();
    const double below = screen.y() + screen.height() - list.y() - list.height();
    const double needed = height + input.distanceFromDock + edgeMargin;
    if (above >= needed)
        return frames;
    double lowerEdge = list.y() + list.height() + input.distanceFromDock + height;
    if (below < needed)
        lowerEdge = above >= below ? screen.y() + edgeMargin + height
                                   : screen.y() + screen.height() - edgeMargin;
    for (QRectF& frame : frames)
        frame.moveTop(input.mainScreenHeight - lowerEdge);
    return frames;
}

QRectF screenOfIcon(const QRectF& icon, const std::vector<QRectF>& screens)
{
    const auto shared = [&icon](const QRectF& screen) {
        const QRectF common = screen.intersected(icon);
        return common.width() * common.height();
    };
    // If no screen contains any of it (it may be just a line at the edge), the nearest screen.
    const auto isBetter = [&](const QRectF& a, const QRectF& b) {
        return shared(a) != shared(b)
                   ? shared(a) > shared(b)
                   : squaredDistance(a, icon.center()) < squaredDistance(b, icon.center());
    };
    const auto best = std::ranges::min_element(screens, isBetter);
    return best == screens.end() ? QRectF() : *best;
}

QRectF sample(DockEdge edge, const Input& input)
{
    const QRectF& icon = input.icon;
    const float width = input.windowWidth;
    const float height = input.windowHeight;
    if (isHorizontal(edge)) {
        // Unlike a strip, a single sample in a row is not shifted.
        const float start = clampedStart(icon.x() + icon.width() * 0.5 - 0.5 * width, width,
                                         leftOf(input.screen), rightOf(input.screen));
        return {toScreen(start, besideY(edge, input, height), input), QSizeF(width, height)};
    }
    const float start = clampedStart(icon.y() + icon.height() * 0.5 - 0.5 * height - stripShift,
                                     height, topOf(input.screen), bottomOf(input.screen));
    const QPointF corner = toScreen(besideX(edge, input, width), start, input);
    return {corner.x(), corner.y() - height, width, height};
}

} // namespace lumbrix::PreviewLayout
