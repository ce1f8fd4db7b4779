// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The panel class of the previews and of their zoomed views: borderless, above everything, never
// focused.
#pragma once

#include <QtCore/QRectF>
#include <QtWidgets/QWidget>

#include <functional>

namespace lumbrix
{

/// Main thread. Frames are in screen coordinates: origin at the bottom left of the main screen,
/// y upward, points.
class MAWindow : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(qreal cornerRadius READ cornerRadius WRITE setCornerRadius)

public:
    explicit MAWindow(QWidget* parent = nullptr);

    /// The frame as last set, unrounded; on screen its edges are rounded to whole points, so panels
    /// that touch in the numbers touch on screen.
    QRectF frame() const { return m_frame; }
    void setFrame(const QRectF& frame);

    /// Shows the panel above all others, whichever application is active.
    void orderFrontRegardless();
    void orderOut();
    /// Shows this panel directly below another.
    void orderBelow(MAWindow& other);

    /// Where translucency is not blended, the panel is cut to its rounded shape.
    qreal cornerRadius() const { return m_cornerRadius; }
    void setCornerRadius(qreal radius);

    /// Mouse tracking of the whole content; off until asked for. `entered` and `exited` are called
    /// on the main thread while tracking is on.
    void setTracking(std::function<void()> entered, std::function<void()> exited);
    void clearTracking();

protected:
    void enterEvent(QEnterEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    void updateShape();

    QRectF m_frame;
    qreal m_cornerRadius = 0;
    std::function<void()> m_entered;
    std::function<void()> m_exited;
};

} // namespace lumbrix
