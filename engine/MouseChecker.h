// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Waits on a thread until the mouse rests over a newly hovered Dock item.
#pragma once

#include <functional>

#include "model/SWElement.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

/// Hovers the item. Main thread.
using HoverAction = std::function<void(const SWElementPtr& item)>;

/// The thread's body: waits until the mouse rests, then runs the hover on the main thread and waits
/// for it. Returns without a hover when cancelled, or when the mouse has left an item that was
/// confirmed before. Worker thread; ports and action must outlive it.
void mouseChecker(const platform::Desktop& ports, const HoverAction& hover,
                  const SWElementPtr& item, const platform::Thread& self);

} // namespace lumbrix
