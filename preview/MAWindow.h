// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The panel class of the previews and of their zoomed views: borderless, above everything, never
// focused.
#pragma once

#include <QtCore/QRectF>
#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

#include <cstddef>
#include <functional>
#include <memory>

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

public:
    explicit MAWindow(QWidget* parent = nullptr);
    ~MAWindow() override;

    /// The frame as last set, unrounded; on screen its edges are rounded to whole points, so panels
    /// that touch in the numbers touch on screen.
    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF& frame);

    /// The one widget that fills the panel from now on; a child. Null: none.
    void setContent(QWidget* content);

    /// Shows the panel above all others, whichever application is active.
    void orderFrontRegardless();
    void orderOut();
    /// Whether it is on the screen, or would be if it were not held. The toolkit, which need not
    /// know, may say otherwise.
    bool isVisible() const { return m_isDue || (QWidget::isVisible() && !m_isAway); }
    /// Shows this panel below every panel that was ordered front, so also below `other`, but above
    /// all windows of other programs. It does not count as ordered front.
    void orderBelow(MAWindow& other);

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
    void prepareToShow();
    void bringOntoScreen();
    void wentOffScreen();
    void cameBack();
    void remindCompositorAfter(std::size_t reminder);
    void applyShape();

    QRectF m_frame;
    QWidget* m_content = nullptr;
    qreal m_cornerRadius = 0;
    bool m_shaped = false;
    bool m_isDue = false;  ///< ordered front, but held
    bool m_isAway = false; ///< taken off the screen behind the toolkit's back
    bool m_isHeld = false;
    bool m_isExposed = false;             ///< has been, since it was last shown
    bool m_isAhead = false;               ///< painted before the server asked for it
    std::shared_ptr<const bool> m_isBack; ///< since the last time it was away; null while away
    std::function<QPainterPath()> m_shapeSource;
    QPainterPath m_maskPath; ///< what the mask was made of
    std::function<void()> m_entered;
    std::function<void()> m_exited;
};

} // namespace lumbrix
