// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Waiting until the mouse rests.
#pragma once

#include <functional>

#include "platform/Desktop.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

/// Sleeps on a worker thread until the pointer is where it was 20 ms before; true then. False when
/// the thread was cancelled first. Before each look it sleeps for what `pause` answers, if given.
bool waitForMouseRest(const platform::Desktop& ports, const platform::Thread& self,
                      const std::function<platform::Seconds()>& pause = nullptr);

} // namespace lumbrix
