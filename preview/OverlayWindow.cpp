// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/OverlayWindow.h"

#include "platform/Desktop.h"
#include "preview/InterfaceFile.h"

namespace lumbrix
{

std::unique_ptr<OverlayWindow> OverlayWindow::load()
{
    std::unique_ptr<QWidget> loaded = loadInterface(u"OverlayWindow"_qs);
    if (!qobject_cast<DBOverlayWindow*>(loaded.get()))
        return nullptr;
    return std::unique_ptr<OverlayWindow>(new OverlayWindow(
        std::unique_ptr<DBOverlayWindow>(static_cast<DBOverlayWindow*>(loaded.release()))));
}

OverlayWindow::OverlayWindow(std::unique_ptr<DBOverlayWindow> window) : m_window(std::move(window))
{
}

OverlayWindow::~OverlayWindow() = default;

void OverlayWindow::orderFront()
{
    m_isShown = true;
    m_window->orderFrontRegardless();
}

void OverlayWindow::dismiss()
{
    m_isShown = false;
    m_orderOutTimer = platform::desktop().runLoop.scheduleTimer(0, false, [this] { orderOut(); });
}

void OverlayWindow::orderOut()
{
    if (!m_isShown)
        m_window->orderOut();
}

} // namespace lumbrix
