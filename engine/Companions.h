// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The subsystems that the engine calls but does not own. Each is a stand-in that does nothing until
// the real subsystem is installed.
#pragma once

#include <memory>

#include "badges/WindowCountBadger.h"
#include "model/SWElement.h"
#include "preview/HelpBubble.h"
#include "preview/HotKeyCenter.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{

/// The list of today's events that is shown instead of a calendar's windows. Main thread.
class CalendarPreview
{
public:
    virtual ~CalendarPreview() = default;
    virtual bool shouldShowCal() const = 0;
    virtual void setShouldShowCal(bool on) = 0;
    virtual void calIconHovered(const SWElementPtr& dockItem) = 0;
};

/// Never null.
struct Companions {
    Companions();

    std::shared_ptr<HotKeyCenter> hotKeyCenter;
    std::shared_ptr<CalendarPreview> calendarPreview;
    std::shared_ptr<HelpBubble> helpBubble;
    std::shared_ptr<WindowCountBadger> windowCountBadger;
    std::shared_ptr<PlayerControls> playerControls;
};

} // namespace lumbrix
