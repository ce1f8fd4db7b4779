// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/SamplePreview.h"

#include "engine/LXHandler.h"
#include "platform/Desktop.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{
constexpr platform::Seconds closeDelay = 0.5;
constexpr double alpha = 0.9;
} // namespace

void SamplePreview::show(bool resize)
{
    invalidateCloseTimer();
    LXHandler& handler = LXHandler::sharedHandler();
    if (!m_previewWindow)
        m_previewWindow = handler.createScreenyView();
    if (!m_previewWindow)
        return;
    // A reused preview may still show its former window.
    m_previewWindow->setTitleString(u"Lumbrix"_s);
    MAWindow& window = *m_previewWindow->window();
    if (resize) {
        const EngineSettings& settings = handler.settings();
        window.setFrame(
            {window.frame().topLeft(), QSizeF(settings.windowWidth, settings.windowHeight)});
    }
    // Before the panel is shown, or it would appear for a moment without it.
    window.setWindowOpacity(alpha);
    handler.arrangeWindow(*m_previewWindow);
    m_closeWindowTimer =
        platform::desktop().runLoop.scheduleTimer(closeDelay, false, [this] { closeWindow(); });
}

void SamplePreview::closeWindow()
{
    invalidateCloseTimer();
    if (!m_previewWindow)
        return;
    m_previewWindow->window()->orderOut();
    m_previewWindow = nullptr;
}

void SamplePreview::invalidateCloseTimer()
{
    if (m_closeWindowTimer)
        m_closeWindowTimer->invalidate();
    m_closeWindowTimer = nullptr;
}

} // namespace lumbrix
