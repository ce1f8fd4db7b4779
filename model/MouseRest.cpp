// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "model/MouseRest.h"

#include "platform/InputState.h"

namespace lumbrix
{
namespace
{
// Deliberately the single-precision value, converted to double.
constexpr platform::Seconds restInterval = 0.02f;
} // namespace

bool waitForMouseRest(const platform::Desktop& ports, const platform::Thread& self,
                      const std::function<platform::Seconds()>& pause)
{
    while (!self.isCancelled()) {
        if (const platform::Seconds before = pause ? pause() : 0; before > 0)
            ports.runLoop.sleep(before);
        const QPointF former = ports.inputState.mouseLocation();
        ports.runLoop.sleep(restInterval);
        if (ports.inputState.mouseLocation() == former)
            return !self.isCancelled();
    }
    return false;
}

} // namespace lumbrix
