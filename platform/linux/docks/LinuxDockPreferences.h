// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preferences of the dock that the pointer was on last.
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
    std::optional<QString> orientation() override;
    std::optional<int> magnification() override;
    std::optional<int> autohide() override;
    /// Magnified places are computed, and others taken in only once they stand; by the main thread,
    /// so that one that waits could not see them change anyway.
    bool tellsFinalPlaces() override { return true; }

private:
    DockModel& m_docks;
};

} // namespace lumbrix::platform
