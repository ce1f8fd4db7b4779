// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/MAWindow.h"

#include <QtCore/QCoreApplication>
#include <QtGui/QBitmap>
#include <QtGui/QExposeEvent>
#include <QtGui/QPainter>
#include <QtGui/QWindow>

#include <algorithm>
#include <array>
#include <utility>
#include <vector>

#include "model/UIElementUtilities.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"
#include "platform/WindowServer.h"
#include "preview/IgnoredAccessible.h"

namespace lumbrix
{
namespace
{

/// From one reminder of the compositor to the next: soon, for the eye; then for a busy machine.
constexpr std::array<platform::Seconds, 5> reminderDelays{0.05, 0.15, 0.3, 0.5, 1.0};

/// The panels that are ordered front, the lowest first; so they are sorted by level.
std::vector<MAWindow*>& frontPanels()
{
    static std::vector<MAWindow*> panels;
    return panels;
}

/// Screen coordinates to the toolkit's. The edges are rounded, not the size, so that neighbours
/// neither overlap nor leave a gap.
QRect toolkitRect(const QRectF& frame)
{
    const QRectF bounds = UIElementUtilities::flippedScreenBounds(frame);
    const QRectF flipped =
        bounds.translated(platform::desktop().windowServer.toolkitOffset(bounds));
    const int left = qRound(flipped.x());
    const int top = qRound(flipped.y());
    const int width = qRound(flipped.x() + flipped.width()) - left;
    const int height = qRound(flipped.y() + flipped.height()) - top;
    return {left, top, std::max(width, 1), std::max(height, 1)};
}

} // namespace

MAWindow::MAWindow(QWidget* parent)
    : QWidget(parent, Qt::Tool | Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                          Qt::WindowDoesNotAcceptFocus | Qt::BypassWindowManagerHint |
                          Qt::NoDropShadowWindowHint)
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
    std::erase(frontPanels(), this);
    takeBackdropsAway();
}

void MAWindow::setFrame(const QRectF& frame)
{
    m_frame = frame;
    const QRect rounded = toolkitRect(frame);
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
    const bool isFront = isVisible();
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
    if ((m_isHeld || (m_isBackdrop && !hasCompany())) && !isVisible())
        m_isDue = true;
    if (!m_isDue)
        bringOntoScreen();
}

void MAWindow::enterFrontPanels()
{
    std::vector<MAWindow*>& panels = frontPanels();
    std::erase(panels, this);
    panels.insert(std::find_if(panels.begin(), panels.end(),
                               [this](const MAWindow* panel) { return panel->level() > m_level; }),
                  this);
}

void MAWindow::bringOntoScreen()
{
    bringBackdrops();
    // Below others, even one that is on the screen already may have been covered by another
    // program. What lies on it is not worth a flicker.
    if (m_level < 0 && !(isOnScreen() && hasCompany()))
        placeBelowHigherPanels();
    // A tool window that is shown is raised before it is mapped.
    if (!QWidget::isVisible()) {
        show();
        return;
    }
    if (m_level == 0)
        raise();
    if (m_isAway) {
        cameBack();
        // The server will ask for the content, but behind all that the compositor does about new
        // windows. It takes what follows in its order, so it can have the content unasked.
        setAttribute(Qt::WA_Mapped);
        m_isExposed = true;
        m_isAhead = true;
        QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    }
    // One that is on screen already may show something else by now, and elsewhere. Painted in a
    // later pass of the loop, its former content would be seen in the new place.
    repaint();
}

bool MAWindow::hasCompany() const
{
    const std::vector<MAWindow*>& panels = frontPanels();
    return std::any_of(panels.begin(), panels.end(), [this](const MAWindow* panel) {
        return panel->level() > m_level && panel->isOnScreen();
    });
}

void MAWindow::bringBackdrops() const
{
    const std::vector<MAWindow*> panels = frontPanels();
    for (MAWindow* panel : panels) {
        if (panel->isBackdrop() && panel->level() < m_level && std::exchange(panel->m_isDue, false))
            panel->bringOntoScreen();
    }
}

void MAWindow::takeBackdropsAway()
{
    const std::vector<MAWindow*> panels = frontPanels();
    for (MAWindow* panel : panels) {
        if (!panel->isBackdrop() || !panel->isOnScreen() || panel->hasCompany())
            continue;
        panel->orderOut();
        panel->enterFrontPanels();
        panel->m_isDue = true;
    }
}

void MAWindow::setLevel(int level)
{
    m_level = level;
    // Unlike a tool window, an ordinary one keeps its place in the stack when it is shown.
    if (level < 0 && windowType() == Qt::Tool)
        setWindowFlags((windowFlags() & ~Qt::WindowType_Mask) | Qt::Window);
}

void MAWindow::placeBelowHigherPanels()
{
    // A window that was just made, but not yet shown, is on top of the stack: what it would cover
    // has to be put above it before it is seen. Nothing else is touched, for without a compositor
    // any change of the order flickers.
    if (!testAttribute(Qt::WA_WState_Created))
        create();
    else
        raise();
    const std::vector<MAWindow*>& panels = frontPanels();
    const auto covered = std::find_if(panels.begin(), panels.end(), [this](const MAWindow* panel) {
        return panel->level() > m_level && panel->isOnScreen() &&
               panel->geometry().intersects(geometry());
    });
    std::for_each(covered, panels.end(), [](MAWindow* panel) { panel->raise(); });
}

void MAWindow::cameBack()
{
    m_isAway = false;
    platform::desktop().windowServer.setOnScreen(internalWinId(), true);
    m_isBack = std::make_shared<const bool>(true);
    remindCompositorAfter(0);
}

void MAWindow::remindCompositorAfter(std::size_t reminder)
{
    if (reminder == reminderDelays.size())
        return;
    platform::desktop().runLoop.performAfterDelay(
        this, reminderDelays[reminder], [this, reminder, isBack = std::weak_ptr(m_isBack)] {
            if (isBack.expired())
                return;
            platform::desktop().windowServer.remindCompositor(internalWinId());
            remindCompositorAfter(reminder + 1);
        });
}

void MAWindow::orderOut()
{
    const bool isOnScreen = QWidget::isVisible() && !m_isAway;
    if (isOnScreen && !platform::desktop().windowServer.setOnScreen(internalWinId(), false)) {
        hide();
        return;
    }
    m_isAway = m_isAway || isOnScreen;
    wentOffScreen();
}

void MAWindow::wentOffScreen()
{
    const auto gone = std::erase(frontPanels(), this);
    m_isDue = false;
    m_isHeld = false;
    m_isExposed = false;
    m_isAhead = false;
    m_isBack = nullptr;
    if (gone > 0)
        takeBackdropsAway();
}

void MAWindow::setHeld(bool held)
{
    m_isHeld = held;
    if (!held && std::exchange(m_isDue, false))
        bringOntoScreen();
}

void MAWindow::showEvent(QShowEvent* event)
{
    QWidget::showEvent(event);
    m_isExposed = false;
    windowHandle()->installEventFilter(this);
}

void MAWindow::hideEvent(QHideEvent* event)
{
    wentOffScreen();
    m_isAway = false;
    QWidget::hideEvent(event);
}

bool MAWindow::event(QEvent* event)
{
    // The toolkit paints a window that was just shown twice: once because its parts have changed,
    // again as soon as the server says that it can be seen. The first of these is for nothing.
    if (event->type() == QEvent::UpdateRequest && !m_isExposed)
        return true;
    return QWidget::event(event);
}

bool MAWindow::eventFilter(QObject* watched, QEvent* event)
{
    if (watched != windowHandle() || event->type() != QEvent::Expose ||
        !windowHandle()->isExposed())
        return QWidget::eventFilter(watched, event);
    m_isExposed = true;
    // What it asks for here has been painted. A compositor keeps that, so it never has to be again.
    if (m_isAhead && testAttribute(Qt::WA_Mapped)) {
        m_isAhead = !m_shaped;
        return true;
    }
    // What the parts have asked for by being shown is on its way as events of their own, which
    // would have it all painted once more.
    QCoreApplication::sendPostedEvents(nullptr, QEvent::UpdateLater);
    return false;
}

void MAWindow::setCornerRadius(qreal radius)
{
    m_cornerRadius = radius;
    updateShape();
}

void MAWindow::setShapeSource(std::function<QPainterPath()> source)
{
    m_shapeSource = std::move(source);
    updateShape();
}

void MAWindow::updateShape()
{
    if (isVisible())
        applyShape();
}

void MAWindow::prepareToShow()
{
    const bool shaped = !platform::desktop().windowServer.blendsTranslucency();
    if (m_shaped != shaped) {
        m_shaped = shaped;
        Q_EMIT shapedChanged(shaped);
    }
    applyShape();
}

void MAWindow::applyShape()
{
    if (!m_shaped || (!m_shapeSource && m_cornerRadius <= 0)) {
        if (!mask().isEmpty())
            clearMask();
        return;
    }
    QPainterPath path;
    if (m_shapeSource)
        path = m_shapeSource();
    else
        path.addRoundedRect(QRectF(rect()), m_cornerRadius, m_cornerRadius);
    if (path == m_maskPath && !mask().isEmpty())
        return;
    m_maskPath = path;
    // Painted rather than made of the path's polygons, whose corners would be rounded inward.
    QBitmap bitmap(size());
    bitmap.clear();
    QPainter painter(&bitmap);
    painter.fillPath(path, Qt::color1);
    painter.end();
    setMask(QRegion(bitmap));
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
    if (const std::function<void()> entered = m_entered; entered && isVisible())
        entered();
}

void MAWindow::leaveEvent(QEvent* event)
{
    QWidget::leaveEvent(event);
    // A panel that is taken off the screen was not left by the mouse.
    if (const std::function<void()> exited = m_exited; exited && isVisible())
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
