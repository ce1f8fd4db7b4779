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
        info.workspace = window.space;
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
    return found ? std::optional(found->space) : std::nullopt;
}

std::vector<WindowID> SimulatedWindowServer::workspaceWindowList(int workspace)
{
    const std::lock_guard lock(m_state.mutex);
    std::vector<WindowID> numbers;
    for (const auto& [number, window] : m_state.windows) {
        if (window.space == workspace)
            numbers.push_back(number);
    }
    return numbers;
}

QImage SimulatedWindowServer::captureWindow(WindowID window)
{
    const std::lock_guard lock(m_state.mutex);
    SimulatedWindow* found = m_state.window(window);
    if (!found)
        return {};
    ++found->captures;
    if (!found->hasPicture)
        return {};
    const QSize size = found->listedFrame.value_or(found->frame).size().toSize();
    const QRgb mark = qRgb(0, 0, 0) + static_cast<QRgb>(found->version);
    QImage& picture = found->picture;
    const bool isCurrent = picture.size() == size && picture.pixel(0, 0) == mark &&
                           (size.width() < 2 || picture.pixelColor(1, 0) == found->color);
    if (!isCurrent && !size.isEmpty()) {
        picture = QImage(size, QImage::Format_RGB32);
        picture.fill(found->color);
        picture.setPixel(0, 0, mark);
    }
    return picture;
}

std::vector<QRectF> SimulatedWindowServer::screens()
{
    const std::lock_guard lock(m_state.mutex);
    return m_state.screens;
}

bool SimulatedWindowServer::blendsTranslucency()
{
    const std::lock_guard lock(m_state.mutex);
    return m_state.blendsTranslucency;
}

QPointF SimulatedInputState::mouseLocation()
{
    const std::lock_guard lock(m_state.mutex);
    return m_state.pointer;
}

std::uint32_t SimulatedInputState::pressedMouseButtons()
{
    const std::lock_guard lock(m_state.mutex);
    return m_state.buttons;
}

std::uint32_t SimulatedInputState::modifierFlags()
{
    const std::lock_guard lock(m_state.mutex);
    return m_state.modifiers;
}

} // namespace lumbrix::test
