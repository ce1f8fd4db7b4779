// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preferences of each dock, as last read.
#pragma once

#include "platform/DockPreferences.h"
#include "platform/linux/docks/DockModel.h"

namespace lumbrix::platform
{

class LinuxDockPreferences final : public DockPreferences
{
public:
    explicit LinuxDockPreferences(DockModel& docks) : m_docks(docks) {}

    void synchronize() override { m_docks.synchronize(); }
    std::optional<DockEdge> orientation(const ElementRef& item) override;
    std::optional<int> magnification(const ElementRef& item) override;
    std::optional<int> autohide(const ElementRef& item) override;
    /// True: magnified positions are computed, and other positions are only recorded once they are
    /// stable. That happens on the main thread, so code that waits there would not see them change
    /// anyway.
    bool tellsFinalPlaces() override { return true; }
    std::vector<DockDisplay> ownDisplays(const ElementRef& item) override;
    bool countsWindows(const ElementRef& item) override;

private:
    DockStatePtr dockOf(const ElementRef& item) const;

    DockModel& m_docks;
};

} // namespace lumbrix::platform
