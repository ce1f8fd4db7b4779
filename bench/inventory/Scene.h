// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Desktops with so many windows, simulated and real, as the model sees them.
#pragma once

#include <cstdint>
#include <memory>

#include "model/WindowInventory.h"
#include "platform/Desktop.h"

namespace lumbrix::bench
{

/// Main thread. Every `windowsEach` windows are one application's.
class Scene : public InventoryObserver
{
public:
    virtual const platform::Desktop& ports() const = 0;
    std::int32_t lastApplication() const { return m_last; }

    EngineSettings settings;

protected:
    std::int32_t m_last = 0;

private:
    void windowsChanged() override {}
    bool isShowingPreviews() const override { return false; }
};

/// In memory, in virtual time.
std::unique_ptr<Scene> simulatedScene(std::int64_t windows, std::int64_t windowsEach);
/// Windows on an X server of its own, as a window manager would list them, and the adapter for X11
/// desktops. The application object of the toolkit outlives it.
std::unique_ptr<Scene> realScene(std::int64_t windows, std::int64_t windowsEach);

} // namespace lumbrix::bench
