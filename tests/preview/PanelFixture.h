// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include "platform/StringLiterals.h"
#include "preview/ScreenyView.h"
#include "tests/preview/PanelHost.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{

/// Previews of windows of an application, on screen or about to be.
class PanelFixture : public DesktopFixture
{
protected:
    ScreenyViewPtr preview(const QRectF& frame, int space = 1,
                           const QString& style = u"ScreenyView"_s)
    {
        ScreenyViewPtr preview = ScreenyView::load(ports(), style, host);
        SimulatedWindow description{u"A window"_s, QRectF(200, 100, 600, 400)};
        description.space = space;
        const WindowID window = desk.addWindow(pid, description);
        auto element = std::make_shared<SWElement>(ports(), desk.windowElement(window));
        element->setPid(pid);
        element->setWid(window);
        preview->setElementRef(element);
        preview->window()->setFrame(frame);
        host.previews.push_back(preview);
        return preview;
    }
    /// Whether the toolkit has it on the screen; to the panel it is in front while it is held.
    static bool isOnScreen(const QWidget& panel) { return panel.isVisible(); }

    PanelHost host;
    const Pid pid = desk.addApplication({u"Editor"_s});
};

} // namespace lumbrix::test
