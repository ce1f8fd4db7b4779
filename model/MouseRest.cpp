// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/MouseRest.h"

#include "platform/Desktop.h"
#include "platform/InputState.h"

namespace lumbrix
{
namespace
{
// Widened on purpose: the pause is the single-precision value.
constexpr platform::Seconds restInterval = 0.02f;
} // namespace

bool waitForMouseRest(const platform::Thread& self, const std::function<platform::Seconds()>& pause)
{
    const platform::Desktop& desktop = platform::desktop();
    while (!self.isCancelled()) {
        if (const platform::Seconds before = pause ? pause() : 0; before > 0)
            desktop.runLoop.sleep(before);
        const QPointF former = desktop.inputState.mouseLocation();
        desktop.runLoop.sleep(restInterval);
        if (desktop.inputState.mouseLocation() == former)
            return !self.isCancelled();
    }
    return false;
}

} // namespace lumbrix
