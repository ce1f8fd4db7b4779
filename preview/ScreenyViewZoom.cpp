// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The zoomed view of a preview: a copy of the window at its real place and size.
#include "preview/ScreenyView.h"

#include "model/EngineSettings.h"
#include "model/MouseRest.h"
#include "platform/StringLiterals.h"
#include "preview/ImageButton.h"
#include "preview/InterfaceFile.h"
#include "preview/PictureView.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{
namespace
{

constexpr platform::Seconds zoomRefreshInterval = 0.5;

} // namespace

void ScreenyView::showZoom(bool arm)
{
    if (!m_elementRef || !m_host.settings().zoomWindows || m_elementRef->isPrivate())
        return;
    if (arm)
        armZoom();
    else
        showZoomWindow();
}

void ScreenyView::armZoom()
{
    cancelZoomWatcher();
    // The thread may outlive this preview, so it only carries what finds it again. Whether it is
    // still the watcher is asked on the main thread, where nothing can replace it meanwhile.
    const auto isCurrent = std::make_shared<bool>(true);
    m_zoomWatch = isCurrent;
    m_mouseCheckerThread =
        m_ports.runLoop.detachThread("zoom", [&ports = m_ports, weak = weak_from_this(),
                                              isCurrent](const platform::Thread& self) {
            if (!waitForMouseRest(ports, self))
                return;
            ports.runLoop.performOnMainThread(
                [weak, isCurrent] {
                    if (!*isCurrent)
                        return;
                    if (const ScreenyViewPtr preview = weak.lock())
                        preview->showZoom(false);
                },
                true);
        });
}

void ScreenyView::cancelZoomWatcher()
{
    if (m_zoomWatch)
        *m_zoomWatch = false;
    m_zoomWatch.reset();
    if (m_mouseCheckerThread)
        m_mouseCheckerThread->cancel();
    m_mouseCheckerThread.reset();
}

void ScreenyView::showZoomWindow()
{
    if (!isHovered())
        return; // the mouse has left
    if (!m_zoomWindow) {
        std::unique_ptr<QWidget> loaded = loadInterface(m_ports, u"ZoomWindow"_s);
        if (!qobject_cast<MAWindow*>(loaded.get()))
            return;
        m_zoomWindow.reset(static_cast<MAWindow*>(loaded.release()));
        m_zoomImageView = m_zoomWindow->findChild<PictureView*>(u"zoomImageView"_s);
        m_zoomWindow->setContent(m_zoomImageView);
    }
    const QRectF frame = m_elementRef->getNSRect();
    // The window may be gone by now; a zoom of nothing would be a dot.
    if (!frame.isEmpty()) {
        m_zoomWindow->setFrame(frame);
        m_zoomWindow->setWindowTitle(m_window->windowTitle());
        if (m_elementRef->wholeScreenshot().isNull()) {
            const KnownWindowPicture known = m_elementRef->knownPicture({});
            if (!known.picture.image.isNull() || known.isCurrent)
                m_elementRef->setScreenshot(known.picture);
            if (!known.isCurrent)
                grabWhole();
        }
        updateZoom();
    }
    setTimer();
}

void ScreenyView::grabWhole()
{
    platform::RunLoop& runLoop = m_ports.runLoop;
    runLoop.detachThread("capture", [&runLoop, element = m_elementRef,
                                     weak = weak_from_this()](const platform::Thread&) {
        runLoop.performOnMainThread(
            [weak, element, picture = element->grabWindow()] {
                const ScreenyViewPtr preview = weak.lock();
                if (!preview || preview->m_elementRef != element)
                    return;
                element->setScreenshot(picture);
                preview->updateZoom();
            },
            false);
    });
}

void ScreenyView::setTimer()
{
    if (!m_elementRef)
        return;
    invalidateTimer();
    if (m_host.settings().disableLivePreviews)
        return;
    m_zoomUpdateTimer =
        m_ports.runLoop.scheduleTimer(zoomRefreshInterval, true, [this] { updateZoom(); });
}

void ScreenyView::updateZoom()
{
    if (!m_zoomWindow || !m_elementRef || !m_zoomImageView)
        return;
    // Without a picture the panel would be a hole to look through, or black.
    const QImage picture = m_elementRef->wholeScreenshot();
    if (picture.isNull())
        return;
    m_zoomImageView->setImage(picture);
    if (!m_zoomWindow->frame().isEmpty() && !m_zoomWindow->isFront())
        m_zoomWindow->orderFrontRegardless();
}

void ScreenyView::invalidateTimer()
{
    if (m_zoomUpdateTimer)
        m_zoomUpdateTimer->invalidate();
    m_zoomUpdateTimer.reset();
}

void ScreenyView::hideZoom()
{
    invalidateTimer();
    if (!m_zoomWindow)
        return;
    m_zoomWindow->orderOut();
    m_zoomImageView = nullptr;
    m_zoomWindow.reset();
}

void ScreenyView::endZoom()
{
    cancelZoomWatcher();
    hideZoom();
}

} // namespace lumbrix
