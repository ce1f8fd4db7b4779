// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/MouseChecker.h"

#include "engine/LXHandler.h"
#include "platform/Desktop.h"
#include "platform/InputState.h"

namespace lumbrix
{
namespace
{
constexpr platform::Seconds restInterval = 0.02f;
/// An item that was confirmed before is asked about less often.
constexpr platform::Seconds confirmedPause = 0.5;
} // namespace

void mouseChecker(LXHandler& handler, const SWElementPtr& element, const platform::Thread& self)
{
    const platform::Desktop& desktop = platform::desktop();
    while (true) {
        if (self.isCancelled())
            return;
        if (element && element->isMouseConfirmed())
            desktop.runLoop.sleep(confirmedPause);
        const QPointF before = desktop.inputState.mouseLocation();
        desktop.runLoop.sleep(restInterval);
        if (desktop.inputState.mouseLocation() == before)
            break;
    }
    if (self.isCancelled())
        return;
    if (element && element->isMouseConfirmed() && !handler.checkIfDockElementIsHovered(element))
        return;
    if (element)
        element->setIsMouseConfirmed(true);
    desktop.runLoop.performOnMainThread([&handler, element] { handler.iconHovered(element); },
                                        true);
}

} // namespace lumbrix
