// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The stacking order of our own panels, and the backdrops that appear and disappear with other
// panels.
#include "preview/MAWindow.h"

#include <algorithm>
#include <vector>

namespace lumbrix
{
namespace
{

/// The panels that are ordered front, the lowest first, sorted by level.
std::vector<MAWindow*>& frontPanels()
{
    static std::vector<MAWindow*> panels;
    return panels;
}

} // namespace

void MAWindow::setLevel(int level)
{
    m_level = level;
    // Unlike a tool window, a normal window is not raised when the toolkit shows it.
    if (level < 0 && windowType() == Qt::Tool)
        setWindowFlags((windowFlags() & ~Qt::WindowType_Mask) | Qt::Window);
}

void MAWindow::enterFrontPanels()
{
    std::vector<MAWindow*>& panels = frontPanels();
    std::erase(panels, this);
    panels.insert(std::find_if(panels.begin(), panels.end(),
                               [this](const MAWindow* panel) { return panel->level() > m_level; }),
                  this);
}

bool MAWindow::leaveFrontPanels() { return std::erase(frontPanels(), this) > 0; }

bool MAWindow::hasCompany() const
{
    const std::vector<MAWindow*>& panels = frontPanels();
    return std::any_of(panels.begin(), panels.end(), [this](const MAWindow* panel) {
        return panel->level() > m_level && panel->isOnScreen();
    });
}

void MAWindow::bringBackdrops() const
{
    const std::vector<MAWindow*> panels = frontPanels();
    for (MAWindow* panel : panels)
        if (panel->isBackdrop() && panel->level() < m_level && panel->m_presence.isDue())
            panel->bringOntoScreen();
}

void MAWindow::takeBackdropsAway()
{
    const std::vector<MAWindow*> panels = frontPanels();
    for (MAWindow* panel : panels) {
        if (!panel->isBackdrop() || !panel->isOnScreen() || panel->hasCompany())
            continue;
        panel->orderOut();
        panel->enterFrontPanels();
        panel->m_presence.wait();
    }
}

void MAWindow::placeBelowHigherPanels()
{
    // A window that was created but not shown yet is on top of the stack, so the panels that it
    // would cover must be raised before it is shown. Other panels are not restacked, because
    // without a compositor every change of the order flickers.
    if (!testAttribute(Qt::WA_WState_Created))
        create();
    else
        raise();
    const std::vector<MAWindow*>& panels = frontPanels();
    const auto covered = std::find_if(panels.begin(), panels.end(), [this](const MAWindow* panel) {
        return panel->level() > m_level && panel->isOnScreen() &&
               panel->geometry().intersects(geometry());
    });
    std::for_each(covered, panels.end(), [](MAWindow* panel) { panel->raise(); });
}

} // namespace lumbrix
