// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <memory>

#include "platform/Desktop.h"
#include "platform/RunLoop.h"
#include "preview/DBOverlayWindow.h"

namespace lumbrix
{

/// Shows and hides the bubble. Main thread.
class OverlayWindow
{
public:
    /// Null if the interface file "OverlayWindow" cannot be loaded. The ports must outlive it.
    static std::unique_ptr<OverlayWindow> load(const platform::Desktop& ports);
    ~OverlayWindow();

    DBOverlayWindow& window() { return *m_window; }
    bool isShown() const { return m_isShown; }
    void orderFront();
    /// Takes effect in the next pass of the run loop, unless the bubble is ordered front before: a
    /// row that replaces another keeps it.
    void dismiss();

private:
    OverlayWindow(platform::RunLoop& runLoop, std::unique_ptr<DBOverlayWindow> window);
    void orderOut();

    platform::RunLoop& m_runLoop;
    const std::unique_ptr<DBOverlayWindow> m_window;
    bool m_isShown = false;
    platform::TimerPtr m_orderOutTimer;
};

} // namespace lumbrix
