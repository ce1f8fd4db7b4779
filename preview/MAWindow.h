// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The panel class of all that is shown over other programs: borderless, above everything, never
// focused.
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
    /// The ports outlive it.
    explicit MAWindow(const platform::Desktop& ports, QWidget* parent = nullptr);
    ~MAWindow() override;

    /// The frame as last set, unrounded; on screen its edges are rounded to whole points, so panels
    /// that touch in the numbers touch on screen.
    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF& frame);

    /// The one widget that fills the panel from now on; a child. Null: none.
    void setContent(QWidget* content);

    /// Shows the panel above all others of its level, whichever application is active.
    void orderFrontRegardless();
    void orderOut();
    /// Whether it is ordered front: on the screen, or would be if it were not held or alone. What
    /// the toolkit calls visible may be off the screen.
    bool isFront() const { return m_presence.isFront(); }

    /// Where translucency is not blended, the panel is cut to its rounded shape, or to the path of
    /// the shape source if there is one. Which of both holds is asked each time the panel is shown.
    qreal cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(qreal radius);
    void setShapeSource(std::function<QPainterPath()> source);
    bool isShaped() const { return m_shaped; }
    /// The shape source gives something else now. Does nothing while the panel is hidden.
    void updateShape();

    /// A held panel that is ordered front comes onto the screen only when it is let go; one that is
    /// there already stays. A panel that is ordered out is held no longer.
    void setHeld(bool held);
    bool isHeld() const { return m_isHeld; }

    /// Panels of a lower level lie below those of a higher one, and above all windows of other
    /// programs. 0, that of the previews, is the highest. Set before the panel is shown.
    int level() const { return m_level; }
    void setLevel(int level);
    /// A backdrop is never on the screen alone: ordered front, it comes just before the first panel
    /// of a higher level does, and it goes with the last of them, to come back with the next.
    bool isBackdrop() const { return m_isBackdrop; }
    void setBackdrop(bool on) { m_isBackdrop = on; }
    bool accessibilityIsIgnored() const { return true; }

    /// The mouse goes through to what lies below. Set before the panel is shown.
    bool clickThrough() const;
    void setClickThrough(bool on);

    /// Mouse tracking of the whole content; off until asked for. `entered` and `exited` are called
    /// on the main thread while tracking is on and the panel is shown.
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
    void prepareToShow();
    void bringOntoScreen();
    void wentOffScreen();
    void applyShape();

    // Among the panels that are ordered front.
    void enterFrontPanels();
    bool leaveFrontPanels(); ///< whether it was one of them
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
    bool m_shaped = false;
    bool m_isHeld = false;
    bool m_isBackdrop = false;
    PanelPresence m_presence;
    CompositorReminder m_reminder;
    std::function<QPainterPath()> m_shapeSource;
    QPainterPath m_maskPath; ///< what the mask was made of
    std::function<void()> m_entered;
    std::function<void()> m_exited;
};

} // namespace lumbrix
