// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>

#include "preview/MAWindow.h"

namespace lumbrix
{

/// The panel of the bubble: a rounded rectangle in one translucent colour. Mouse events pass
/// through it, and it is only shown behind previews.
class DBOverlayWindow : public MAWindow
{
    Q_OBJECT
    Q_PROPERTY(QColor overlayColor READ overlayColor WRITE setOverlayColor)

public:
    explicit DBOverlayWindow(const platform::Desktop& ports, QWidget* parent = nullptr);

    const QColor& overlayColor() const { return m_overlayColor; }
    void setOverlayColor(const QColor& color);
    /// Despite the name it moves at once, as the previews inside it do.
    void setFrameWithAnimate(const QRectF& frame) { setFrame(frame); }

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    QColor m_overlayColor;
};

} // namespace lumbrix
