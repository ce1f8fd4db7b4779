// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/support/SimulatedPorts.h"

namespace lumbrix::test
{

platform::WindowList SimulatedWindowServer::copyWindowInfo(platform::WindowListOption /*option*/)
{
    const std::lock_guard lock(m_state.mutex);
    platform::WindowList list;
    for (const WindowID number : m_state.stacking) {
        const SimulatedWindow& window = *m_state.window(number);
        platform::WindowInfo info;
        info.ownerPid = window.pid;
        info.layer = window.layer;
        info.bounds = window.listedFrame.value_or(window.frame);
        info.number = number;
        info.name = window.listedName.value_or(window.title);
        info.isOnscreen = m_state.isOnscreen(window);
        info.workspace = window.isOnAllSpaces ? 0 : window.space;
        info.isOnAllWorkspaces = window.isOnAllSpaces;
        list.push_back(info);
    }
    return list;
}

std::optional<QRectF> SimulatedWindowServer::windowBounds(WindowID window)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedWindow* found = m_state.window(window);
    return found ? std::optional(found->listedFrame.value_or(found->frame)) : std::nullopt;
}

std::optional<int> SimulatedWindowServer::windowWorkspace(WindowID window)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedWindow* found = m_state.window(window);
    return found ? std::optional(found->isOnAllSpaces ? 0 : found->space) : std::nullopt;
}

bool SimulatedWindowServer::isOnAllWorkspaces(WindowID window)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedWindow* found = m_state.window(window);
    return found && found->isOnAllSpaces;
}

std::vector<WindowID> SimulatedWindowServer::workspaceWindowList(int workspace)
{
    const std::lock_guard lock(m_state.mutex);
    std::vector<WindowID> numbers;
    for (const auto& [number, window] : m_state.windows)
        if (window.space == workspace)
            numbers.push_back(number);
    return numbers;
}

namespace
{

QRgb markOf(const SimulatedWindow& window)
{
    return qRgb(0, 0, 0) + static_cast<QRgb>(window.version);
}

QSize pictureSize(const SimulatedWindow& window)
{
    return window.listedFrame.value_or(window.frame).size().toSize();
}

bool isPictureCurrent(const SimulatedWindow& window)
{
    const QImage& picture = window.picture;
    return !window.hasPicture ||
           (!picture.isNull() && picture.size() == pictureSize(window) &&
            picture.pixel(0, 0) == markOf(window) &&
            (picture.width() < 2 || picture.pixelColor(1, 0) == window.color));
}

} // namespace

void SimulatedState::tellPictureWatchers(WindowID number)
{
    SimulatedWindow* found = window(number);
    if (!found || isPictureCurrent(*found) || std::exchange(found->isToldOf, true))
        return;
    for (const auto& watch : pictureWatchers) {
        if (watch->window != number)
            continue;
        runLoop.performOnMainThread(
            [weak = std::weak_ptr(watch)] {
                if (const auto alive = weak.lock())
                    alive->changed();
            },
            false);
    }
}

QImage SimulatedWindowServer::captureWindow(WindowID window, QSize)
{
    const std::lock_guard lock(m_state.mutex);
    SimulatedWindow* found = m_state.window(window);
    if (!found)
        return {};
    ++found->captures;
    found->isToldOf = false;
    if (!found->hasPicture)
        return {};
    if (!isPictureCurrent(*found) && !pictureSize(*found).isEmpty()) {
        found->picture = QImage(pictureSize(*found), QImage::Format_RGB32);
        found->picture.fill(found->color);
        found->picture.setPixel(0, 0, markOf(*found));
    }
    return found->picture;
}

QImage SimulatedWindowServer::captureMovingWindow(WindowID window, QSize limit)
{
    QImage picture = captureWindow(window, limit);
    const std::lock_guard lock(m_state.mutex);
    SimulatedWindow* found = m_state.window(window);
    if (!found || picture.isNull())
        return picture;
    picture.setPixel(0, 0, markOf(*found) | 0x100U);
    found->picture = picture;
    return picture;
}

std::vector<bool>
SimulatedWindowServer::drawMovingWindows(const std::vector<platform::PictureDrawing>& drawings)
{
    const std::lock_guard lock(m_state.mutex);
    std::vector<bool> drawn;
    for (const platform::PictureDrawing& drawing : drawings) {
        SimulatedWindow* found = m_state.drawsPictures ? m_state.window(drawing.window) : nullptr;
        drawn.push_back(found != nullptr);
        if (!found)
            continue;
        found->drawings.push_back(drawing);
        found->isToldOf = !drawing.tellsNext;
        if (!found->picture.isNull())
            found->picture.setPixel(0, 0, found->picture.pixel(0, 0) | 0x100U); // not current
    }
    return drawn;
}

platform::KnownPicture SimulatedWindowServer::knownPicture(WindowID window, QSize)
{
    const std::lock_guard lock(m_state.mutex);
    const SimulatedWindow* found = m_state.window(window);
    if (!found || !found->hasPicture)
        return {{}, true};
    return {found->picture, isPictureCurrent(*found)};
}

std::unique_ptr<platform::PictureSubscription>
SimulatedWindowServer::subscribeToPicture(WindowID window, std::function<void()> changed)
{
    const std::lock_guard lock(m_state.mutex);
    using Registration =
        SimulatedState::Registration<platform::PictureSubscription, SimulatedPictureWatch>;
    auto watch = std::make_unique<Registration>(m_state, m_state.pictureWatchers,
                                                SimulatedPictureWatch{window, std::move(changed)});
    if (SimulatedWindow* found = m_state.window(window)) {
        found->isToldOf = false;
        m_state.tellPictureWatchers(window);
    }
    return watch;
}

} // namespace lumbrix::test
