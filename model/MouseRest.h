// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Waits until the mouse rests.
#pragma once

#include <functional>

#include "platform/Desktop.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

/// Sleeps on a worker thread until the pointer has not moved for 20 ms, then returns true; returns
/// false if the thread is cancelled first. Before each check it sleeps for the time that `pause`
/// returns, if given.
bool waitForMouseRest(const platform::Desktop& ports, const platform::Thread& self,
                      const std::function<platform::Seconds()>& pause = nullptr);

} // namespace lumbrix
