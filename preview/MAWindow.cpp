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

/// Screen coordinates to the toolkit's. The edges are rounded, not the size, so that neighbours
/// neither overlap nor leave a gap.
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
    // Panels may be smaller than what their parts would like.
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

// When the user has the toolkit draw larger, a window keeps its pixels, its mask and what it paints
// on, and the toolkit does not notice that all this is fewer points now.
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

void MAWindow::setContent(QWidget* content)
{
    m_content = content;
    if (m_content)
        m_content->setGeometry(rect());
}

void MAWindow::orderFrontRegardless()
{
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
    // Below others, even one that is on the screen already may have been covered by another
    // program. What lies on it is not worth a flicker.
    if (m_level < 0 && !(isOnScreen() && hasCompany()))
        placeBelowHigherPanels();
    // Not yet shown by the toolkit. A tool window that it shows is raised before it is mapped.
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
        // The server will ask for the content, but behind all that the compositor does about new
        // windows. It takes what follows in its order, so it can have the content unasked.
        setAttribute(Qt::WA_Mapped);
        QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    }
    // One that is on screen already may show something else by now, and elsewhere. Painted in a
    // later pass of the loop, its former content would be seen in the new place.
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
    windowHandle()->installEventFilter(this);
}

void MAWindow::hideEvent(QHideEvent* event)
{
    wentOffScreen();
    QWidget::hideEvent(event);
}

bool MAWindow::event(QEvent* event)
{
    // The toolkit paints a window that was just shown twice: once because its parts have changed,
    // again as soon as the server says that it can be seen. The first of these is for nothing.
    if (event->type() == QEvent::UpdateRequest && !m_presence.isPaintable())
        return true;
    return QWidget::event(event);
}

bool MAWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != windowHandle() || event->type() != QEvent::Expose ||
        !windowHandle()->isExposed())
        return QWidget::eventFilter(watched, event);
    // A compositor keeps what has been painted, so it never has to be again.
    if (m_presence.expose(testAttribute(Qt::WA_Mapped), !m_shaped))
        return true;
    // What the parts have asked for by being shown is on its way as events of their own, which
    // would have it all painted once more.
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
    // Copied, because what it does may end the tracking.
    if (const std::function<void()> entered = m_entered; entered && isFront())
        entered();
}

void MAWindow::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    // A panel that is taken off the screen was not left by the mouse.
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
