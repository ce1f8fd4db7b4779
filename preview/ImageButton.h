// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include "preview/Cells.h"

namespace lumbrix
{

/// A button that shows a drawing, scaled to the button's size, with other drawings for the hovered,
/// pressed and disabled states. An empty name means the normal drawing. Never takes the focus.
class ImageButton : public LXButtonCell
{
    Q_OBJECT
    Q_PROPERTY(QString imageName READ imageName WRITE setImageName)
    Q_PROPERTY(QString hoverImageName READ hoverImageName WRITE setHoverImageName)
    Q_PROPERTY(QString pressedImageName READ pressedImageName WRITE setPressedImageName)
    Q_PROPERTY(QString disabledImageName READ disabledImageName WRITE setDisabledImageName)
    Q_PROPERTY(qreal alpha READ alpha WRITE setAlpha)

public:
    explicit ImageButton(QWidget* parent = nullptr);

    const QString& imageName() const { return m_image; }
    void setImageName(const QString& name) { assign(m_image, name); }
    const QString& hoverImageName() const { return m_hover; }
    void setHoverImageName(const QString& name) { assign(m_hover, name); }
    const QString& pressedImageName() const { return m_pressed; }
    void setPressedImageName(const QString& name) { assign(m_pressed, name); }
    const QString& disabledImageName() const { return m_disabled; }
    void setDisabledImageName(const QString& name) { assign(m_disabled, name); }
    /// 0 = invisible, but it still receives mouse events.
    qreal alpha() const { return m_alpha; }
    void setAlpha(qreal alpha);

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void assign(QString& member, const QString& name);
    const QString& currentImageName() const;

    QString m_image;
    QString m_hover;
    QString m_pressed;
    QString m_disabled;
    qreal m_alpha = 1.0;
};

} // namespace lumbrix
