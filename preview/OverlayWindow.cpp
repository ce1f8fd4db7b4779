// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/OverlayWindow.h"

#include "platform/StringLiterals.h"
#include "preview/InterfaceFile.h"

namespace lumbrix
{

std::unique_ptr<OverlayWindow> OverlayWindow::load(const platform::Desktop& ports)
{
    std::unique_ptr<QWidget> loaded = loadInterface(ports, u"OverlayWindow"_s);
    if (!qobject_cast<DBOverlayWindow*>(loaded.get()))
        return nullptr;
    return std::unique_ptr<OverlayWindow>(new OverlayWindow(
        ports.runLoop,
        std::unique_ptr<DBOverlayWindow>(static_cast<DBOverlayWindow*>(loaded.release()))));
}

OverlayWindow::OverlayWindow(platform::RunLoop& runLoop, std::unique_ptr<DBOverlayWindow> window)
    : m_runLoop(runLoop), m_window(std::move(window))
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
    m_orderOutTimer = m_runLoop.scheduleTimer(0, false, [this] { orderOut(); });
}

void OverlayWindow::orderOut()
{
    if (!m_isShown)
        m_window->orderOut();
}

} // namespace lumbrix
