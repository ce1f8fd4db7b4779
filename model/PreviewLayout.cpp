// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/PreviewLayout.h"

namespace lumbrix::PreviewLayout
{
namespace
{

/// Strips look centred on an icon when they begin this much before its true centre would have it.
constexpr double stripShift = 6;
/// Kept free at the top of the screen, and along a row before it is shrunk.
constexpr float menuBarHeight = 22;
constexpr float rowMargin = 50;

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

/// The corner a placement starts from, mirrored into screen coordinates.
QPointF toScreen(double x, double y, const Input& input) { return {x, input.screen.height() - y}; }

double besideX(DockSide side, const Input& input, float width)
{
    return side == DockSide::Left ? input.icon.x() + input.icon.width() + input.distanceFromDock
                                  : input.icon.x() - input.distanceFromDock - width;
}

std::vector<QRectF> row(const Input& input, int count, float width, float height)
{
    const float screenWidth = static_cast<float>(input.screen.width());
    float length = static_cast<float>(count) * width;
    if (length > screenWidth - rowMargin) {
        // The whole screen width, not what is left beside the margin: a long row is worth it.
        width = screenWidth / static_cast<float>(count);
        height = (input.windowHeight / input.windowWidth) * width;
        length = static_cast<float>(count) * width;
    }
    const QRectF& icon = input.icon;
    const float start = clampedStart(icon.x() + icon.width() * 0.5 - 0.5 * length - stripShift,
                                     length, 0, screenWidth);
    const QPointF corner = toScreen(start, icon.y() - input.distanceFromDock, input);
    std::vector<QRectF> frames;
    frames.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        frames.emplace_back(corner.x() + static_cast<double>(i) * width, corner.y(), width, height);
    return frames;
}

std::vector<QRectF> column(DockSide side, const Input& input, int count, float width, float height)
{
    const float screenHeight = static_cast<float>(input.screen.height());
    float length = static_cast<float>(count) * height;
    if (length > screenHeight - menuBarHeight) {
        height = (screenHeight - menuBarHeight) / static_cast<float>(count);
        width = (input.windowWidth / input.windowHeight) * height;
        length = static_cast<float>(count) * height;
    }
    const QRectF& icon = input.icon;
    const float start = clampedStart(icon.y() + icon.height() * 0.5 - 0.5 * length - stripShift,
                                     length, menuBarHeight, screenHeight);
    const QPointF corner = toScreen(besideX(side, input, width), start, input);
    std::vector<QRectF> frames;
    frames.reserve(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i)
        frames.emplace_back(corner.x(), corner.y() - static_cast<double>(i) * height - height,
                            width, height);
    return frames;
}

} // namespace

std::optional<DockSide> dockSideForOrientation(const QString& orientation)
{
    if (orientation == QLatin1String("bottom"))
        return DockSide::Bottom;
    if (orientation == QLatin1String("left"))
        return DockSide::Left;
    if (orientation == QLatin1String("right"))
        return DockSide::Right;
    return std::nullopt;
}

std::vector<QRectF> strip(DockSide side, const Input& input, int count, std::optional<QSizeF> size)
{
    if (count <= 0)
        return {};
    const float width = size ? static_cast<float>(size->width()) : input.windowWidth;
    const float height = size ? static_cast<float>(size->height()) : input.windowHeight;
    return side == DockSide::Bottom ? row(input, count, width, height)
                                    : column(side, input, count, width, height);
}

QRectF sample(DockSide side, const Input& input)
{
    const QRectF& icon = input.icon;
    const float width = input.windowWidth;
    const float height = input.windowHeight;
    if (side == DockSide::Bottom) {
        // Unlike a strip, a single sample in a row is not shifted.
        const float start = clampedStart(icon.x() + icon.width() * 0.5 - 0.5 * width, width, 0,
                                         static_cast<float>(input.screen.width()));
        return {toScreen(start, icon.y() - input.distanceFromDock, input), QSizeF(width, height)};
    }
    const float start =
        clampedStart(icon.y() + icon.height() * 0.5 - 0.5 * height - stripShift, height,
                     menuBarHeight, static_cast<float>(input.screen.height()));
    const QPointF corner = toScreen(besideX(side, input, width), start, input);
    return {corner.x(), corner.y() - height, width, height};
}

} // namespace lumbrix::PreviewLayout
