// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/MouseChecker.h"

#include "engine/HitTest.h"
#include "model/MouseRest.h"

namespace lumbrix
{
namespace
{
/// An item that was confirmed before is checked less often.
constexpr platform::Seconds confirmedPause = 0.5;
} // namespace

void mouseChecker(const platform::Desktop& ports, const HoverAction& hover,
                  const SWElementPtr& item, const platform::Thread& self)
{
    const auto pause = [&item] { return item && item->isMouseConfirmed() ? confirmedPause : 0; };
    if (!waitForMouseRest(ports, self, pause))
        return;
    if (item && item->isMouseConfirmed() && !isHovered(ports.inputState, item))
        return;
    ports.runLoop.performOnMainThread(
        [&hover, item, &self] {
            // While this waited for the main thread, that may have learned that the mouse has left.
            if (self.isCancelled())
                return;
            if (item)
                item->setIsMouseConfirmed(true);
            hover(item);
        },
        true);
}

} // namespace lumbrix
