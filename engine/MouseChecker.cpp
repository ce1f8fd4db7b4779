// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/MouseChecker.h"

#include "engine/LXHandler.h"
#include "model/MouseRest.h"
#include "platform/Desktop.h"

namespace lumbrix
{
namespace
{
/// An item that was confirmed before is asked about less often.
constexpr platform::Seconds confirmedPause = 0.5;
} // namespace

void mouseChecker(LXHandler& handler, const SWElementPtr& element, const platform::Thread& self)
{
    const auto pause = [&element] {
        return element && element->isMouseConfirmed() ? confirmedPause : 0;
    };
    if (!waitForMouseRest(self, pause))
        return;
    if (element && element->isMouseConfirmed() && !handler.checkIfDockElementIsHovered(element))
        return;
    platform::desktop().runLoop.performOnMainThread(
        [&handler, element, &self] {
            // The main thread may have been busy, and learned meanwhile that the mouse has left.
            if (self.isCancelled())
                return;
            if (element)
                element->setIsMouseConfirmed(true);
            handler.iconHovered(element);
        },
        true);
}

} // namespace lumbrix
