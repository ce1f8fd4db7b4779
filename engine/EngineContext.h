// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include "engine/Companions.h"
#include "engine/HoveredItem.h"
#include "engine/PreviewRow.h"
#include "engine/RowTimers.h"
#include "model/EngineSettings.h"
#include "model/WindowInventory.h"
#include "platform/Desktop.h"

namespace lumbrix
{

/// The state that the parts of the engine share. All of it outlives them.
struct EngineContext {
    const platform::Desktop& ports;
    const EngineSettings& settings;
    const Companions& companions;
    WindowInventory& inventory;
    HoveredItem& hovered;
    RowTimers& timers;
    PreviewRow& row;
};

} // namespace lumbrix
