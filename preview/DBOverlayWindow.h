// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>

#include "preview/MAWindow.h"

namespace lumbrix
{

/// The panel of the bubble: nothing but a rounded rectangle in one translucent colour. The mouse
/// goes through it, and it is only ever seen behind previews.
class DBOverlayWindow : public MAWindow
{
    Q_OBJECT
    Q_PROPERTY(QColor overlayColor READ overlayColor WRITE setOverlayColor)

public:
    explicit DBOverlayWindow(const platform::Desktop& ports, QWidget* parent = nullptr);

    const QColor& overlayColor() const { return m_overlayColor; }
    void setOverlayColor(const QColor& color);
    /// Moves at once, whatever the name says: the previews that it has to go around do so too.
    void setFrameWithAnimate(const QRectF& frame) { setFrame(frame); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_overlayColor;
};

} // namespace lumbrix
