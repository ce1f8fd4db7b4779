// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The order of our own panels among each other, and those that come and go with the others.
#include "preview/MAWindow.h"

#include <algorithm>
#include <vector>

namespace lumbrix
{
namespace
{

/// The panels that are ordered front, the lowest first; so they are sorted by level.
std::vector<MAWindow*>& frontPanels()
{
    static std::vector<MAWindow*> panels;
    return panels;
}

} // namespace

void MAWindow::setLevel(int level)
{
    m_level = level;
    // Unlike a tool window, an ordinary one keeps its place in the stack when it is shown.
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
    // A window that was just made, but not yet shown, is on top of the stack: what it would cover
    // has to be put above it before it is seen. Nothing else is touched, for without a compositor
    // any change of the order flickers.
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
