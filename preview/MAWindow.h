// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The panel class of everything that is shown over other programs: borderless, above all windows,
// never focused.
#pragma once

#include <QtCore/QRectF>
#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

#include <functional>

#include "platform/Desktop.h"
#include "preview/CompositorReminder.h"
#include "preview/PanelPresence.h"

namespace lumbrix
{

/// Main thread. Frames are in screen coordinates: origin at the bottom left of the main screen,
/// y upward, points.
class MAWindow : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(qreal cornerRadius READ cornerRadius WRITE setCornerRadius)
    Q_PROPERTY(QString windowRole READ windowRole WRITE setWindowRole)
    Q_PROPERTY(bool clickThrough READ clickThrough WRITE setClickThrough)
    Q_PROPERTY(int level READ level WRITE setLevel)
    Q_PROPERTY(bool backdrop READ isBackdrop WRITE setBackdrop)
    Q_PROPERTY(bool accessibilityIsIgnored READ accessibilityIsIgnored CONSTANT)

public:
    /// The ports must outlive it.
    explicit MAWindow(const platform::Desktop& ports, QWidget* parent = nullptr);
    ~MAWindow() override;

    /// The frame as last set, unrounded. On screen its edges are rounded to whole points, so that
    /// adjacent frames are adjacent on screen.
    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF& frame);

    /// Sets the child widget that fills the panel; null: none.
    void setContent(QWidget* content);

    /// Shows the panel above all others of its level, whichever application is active.
    void orderFrontRegardless();
    void orderOut();
    /// Whether it is ordered front: it is on the screen, or will be when it is no longer held or,
    /// for a backdrop, alone. A panel that isVisible() may be off the screen.
    bool isFront() const { return m_presence.isFront(); }
    /// Whether it is on the screen and may be painted on.
    bool isPaintable() const { return m_presence.isPaintable(); }

    /// If translucency is not blended, the panel is clipped to its rounded shape, or to the path of
    /// the shape source if there is one. Whether it is blended is checked each time the panel is
    /// shown.
    qreal cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(qreal radius);
    void setShapeSource(std::function<QPainterPath()> source);
    bool isShaped() const { return m_shaped; }
    /// The path of the shape source has changed. Does nothing while the panel is hidden.
    void updateShape();

    /// A held panel that is ordered front appears only when it is no longer held; one that is
    /// already on the screen stays. Ordering the panel out ends the hold.
    void setHeld(bool held);
    bool isHeld() const { return m_isHeld; }

    /// Panels of a lower level are below those of a higher level, and above all windows of other
    /// programs. Previews have the highest level, 0. Must be set before the panel is shown.
    int level() const { return m_level; }
    void setLevel(int level);
    /// A backdrop is never alone on the screen: once ordered front, it appears just before the
    /// first panel of a higher level and disappears with the last one, until the next appears.
    bool isBackdrop() const { return m_isBackdrop; }
    void setBackdrop(bool on) { m_isBackdrop = on; }
    bool accessibilityIsIgnored() const { return true; }

    /// Mouse events go to the window below. Must be set before the panel is shown.
    bool clickThrough() const;
    void setClickThrough(bool on);

    /// Mouse tracking for the whole content; initially off. `entered` and `exited` are called on
    /// the main thread while tracking is on and the panel is shown.
    void setTracking(std::function<void()> entered, std::function<void()> exited);
    void clearTracking();

Q_SIGNALS:
    void shapedChanged(bool shaped);

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    void showEvent(QShowEvent* event) override;
    void hideEvent(QHideEvent* event) override;
    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool isOnScreen() const { return m_presence.isOnScreen(); }
    void makeWindowAnew();
    void makeWindowForCompositor();
    void prepareToShow();
    void bringOntoScreen();
    void wentOffScreen();
    void applyShape();

    // Among the panels that are ordered front.
    void enterFrontPanels();
    bool leaveFrontPanels(); ///< whether it was among them
    bool hasCompany() const;
    void bringBackdrops() const;
    static void takeBackdropsAway();
    void placeBelowHigherPanels();

    const platform::Desktop& m_ports;
    QRectF m_frame;
    QWidget* m_content = nullptr;
    qreal m_cornerRadius = 0;
    qreal m_pixelsPerPoint = 0; ///< when the frame was set
    int m_level = 0;
    int m_compositor = 0; ///< how many had begun when the toolkit first showed the window
    bool m_shaped = false;
    bool m_isHeld = false;
    bool m_isBackdrop = false;
    PanelPresence m_presence;
    CompositorReminder m_reminder;
    std::function<QPainterPath()> m_shapeSource;
    QPainterPath m_maskPath; ///< the path that the mask was made from
    std::function<void()> m_entered;
    std::function<void()> m_exited;
};

} // namespace lumbrix
