// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/MAWindow.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QExposeEvent>
#include <QtGui/QWindow>

#include <algorithm>
#include <utility>

#include "model/UIElementUtilities.h"
#include "platform/WindowServer.h"
#include "preview/IgnoredAccessible.h"

namespace lumbrix
{
namespace
{

/// Converts screen coordinates to the toolkit's. Rounds the edges, not the size, so that adjacent
/// panels neither overlap nor leave a gap.
QRect toolkitRect(const QRectF& frame, const platform::Desktop& ports)
{
    const QRectF bounds = UIElementUtilities(ports).flippedScreenBounds(frame);
    const QRectF flipped = bounds.translated(ports.windowServer.toolkitOffset(bounds));
    const int left = qRound(flipped.x());
    const int top = qRound(flipped.y());
    const int width = qRound(flipped.x() + flipped.width()) - left;
    const int height = qRound(flipped.y() + flipped.height()) - top;
    return {left, top, std::max(width, 1), std::max(height, 1)};
}

} // namespace

MAWindow::MAWindow(const platform::Desktop& ports, QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint |
                          Qt::NoDropShadowWindowHint),
      m_ports(ports), m_reminder(ports)
{
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_TranslucentBackground);
    setAttribute(Qt::WA_QuitOnClose, false);
    setFocusPolicy(Qt::NoFocus);
    ignorePanelsInAccessibility();
    // Panels may be smaller than their parts' size hints.
    setMinimumSize(1, 1);
}

MAWindow::~MAWindow()
{
    leaveFrontPanels();
    takeBackdropsAway();
}

void MAWindow::setFrame(const QRectF& frame)
{
    m_frame = frame;
    const QRect rounded = toolkitRect(frame, m_ports);
    const qreal pixelsPerPoint = devicePixelRatioF();
    const bool isScaled = std::exchange(m_pixelsPerPoint, pixelsPerPoint) != pixelsPerPoint;
    if (rounded == geometry() && !isScaled)
        return;
    if (isScaled && windowHandle())
        makeWindowAnew();
    setGeometry(rounded);
    if (m_content)
        m_content->setGeometry(rect());
}

// When the toolkit's scale factor grows, an existing window keeps its size in pixels, its mask and
// its backing store, and the toolkit does not notice that these now cover fewer points. So the
// window is created again.
void MAWindow::makeWindowAnew()
{
    const bool isFront = m_presence.isFront();
    const bool isHeld = m_isHeld;
    hide();
    destroy();
    m_maskPath = {};
    m_isHeld = isHeld;
    if (isFront)
        orderFrontRegardless();
}

// A compositor may lose the first damage of what is on the screen when it starts, waits for it for
// ever, and never draws that window again, however often it is hidden and shown. It draws a new
// one.
void MAWindow::makeWindowForCompositor()
{
    if (windowHandle() && !isOnScreen() && m_compositor != m_ports.windowServer.compositorsBegun())
        makeWindowAnew();
}

void MAWindow::setContent(QWidget* content)
{
    m_content = content;
    if (m_content)
        m_content->setGeometry(rect());
}

void MAWindow::orderFrontRegardless()
{
    makeWindowForCompositor();
    prepareToShow();
    enterFrontPanels();
    if ((m_isHeld || (m_isBackdrop && !hasCompany())) && !isFront())
        m_presence.wait();
    if (!m_presence.isDue())
        bringOntoScreen();
}

void MAWindow::bringOntoScreen()
{
    bringBackdrops();
    // A panel of a lower level may have been covered by another program, even if it is already on
    // the screen. But if higher panels are on it, restacking would flicker, so then it is left.
    if (m_level < 0 && !(isOnScreen() && hasCompany()))
        placeBelowHigherPanels();
    // Not yet shown by the toolkit, which raises a tool window before it maps it.
    if (!isVisible()) {
        show();
        return;
    }
    if (m_level == 0)
        raise();
    if (!isOnScreen()) {
        m_ports.windowServer.setOnScreen(internalWinId(), true);
        m_reminder.start(internalWinId());
        m_presence.comeBack();
        // The server will request the content, but only after everything that the compositor does
        // about new windows. It handles requests in order, so painting can be sent right behind the
        // map request.
        setAttribute(Qt::WA_Mapped);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    }
    // A panel that is already on screen may have new content and a new position. If it were painted
    // in a later pass of the loop, the old content would be seen at the new position.
    repaint();
}

void MAWindow::orderOut()
{
    if (isOnScreen() && !m_ports.windowServer.setOnScreen(internalWinId(), false))
        hide();
    else
        wentOffScreen();
}

void MAWindow::wentOffScreen()
{
    m_presence.leave();
    m_isHeld = false;
    m_reminder.stop();
    if (leaveFrontPanels())
        takeBackdropsAway();
}

void MAWindow::setHeld(bool held)
{
    m_isHeld = held;
    if (!held && m_presence.isDue())
        bringOntoScreen();
}

void MAWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_presence.appear();
    m_compositor = m_ports.windowServer.compositorsBegun();
    windowHandle()->installEventFilter(this);
}

void MAWindow::hideEvent(QHideEvent* event)
{
    wentOffScreen();
    QWidget::hideEvent(event);
}

bool MAWindow::event(QEvent* event)
{
    // The toolkit paints a new window twice: once because its parts have changed, and again when
    // the server sends the expose event. The first painting would be wasted.
    if (event->type() == QEvent::UpdateRequest && !m_presence.isPaintable())
        return true;
    return QWidget::event(event);
}

bool MAWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != windowHandle() || event->type() != QEvent::Expose ||
        !windowHandle()->isExposed())
        return QWidget::eventFilter(watched, event);
    // A compositor keeps the painted content, so it need not be painted again.
    if (m_presence.expose(testAttribute(Qt::WA_Mapped), !m_shaped))
        return true;
    // Handle the update events now that the parts have posted when they were shown; otherwise they
    // would cause another painting.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    return false;
}

bool MAWindow::clickThrough() const { return windowFlags() & Qt::WindowTransparentForInput; }

void MAWindow::setClickThrough(bool on) { setWindowFlag(Qt::WindowTransparentForInput, on); }

void MAWindow::setTracking(std::function<void()> entered, std::function<void()> exited)
{
    m_entered = std::move(entered);
    m_exited = std::move(exited);
}

void MAWindow::clearTracking()
{
    m_entered = nullptr;
    m_exited = nullptr;
}

void MAWindow::enterEvent(QEnterEvent* event)
{
    QWidget::enterEvent(event);
    // Copied, because the callback may end the tracking.
    if (const std::function<void()> entered = m_entered; entered && isFront())
        entered();
}

void MAWindow::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    // Removing a panel from the screen does not count as the mouse leaving it.
    if (const std::function<void()> exited = m_exited; exited && isFront())
        exited();
}

void MAWindow::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    if (m_content)
        m_content->setGeometry(rect());
    updateShape();
}

} // namespace lumbrix
