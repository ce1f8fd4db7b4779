// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtGui/QColor>
#include <QtGui/QImage>
#include <QtGui/QRegion>

#include <functional>

#include "preview/Cells.h"

namespace lumbrix
{

/// A button that shows a picture as large as its area allows, with the picture's aspect ratio,
/// never enlarged, with a thin outline. Never takes the focus.
class PictureButton : public LXTransparentButtonCell
{
    Q_OBJECT
    Q_PROPERTY(QColor outline MEMBER m_outline)
    Q_PROPERTY(QColor hoverOutline MEMBER m_hoverOutline)
    Q_PROPERTY(QColor placeholder MEMBER m_placeholder)
    Q_PROPERTY(qreal cornerRadius MEMBER m_cornerRadius)

public:
    explicit PictureButton(QWidget* parent = nullptr);

    const QImage& image() const { return m_image; }
    /// Paints only where it differs from the picture that is shown. A null image clears the button.
    void setImage(const QImage& image);
    /// Where the picture lies, where of that it is nothing but the picture, without its rounded
    /// corners and the ring about it, and where only its outline lies over it. In pixels of the
    /// button.
    struct Parts {
        QRect picture;
        QRegion plain;
        QRegion outlined;
    };
    /// Empty while it is not shown in its own size, or lets something through.
    Parts parts() const;
    const QColor& outline() const { return m_outline; }
    /// These parts show a newer picture than image(), which somebody else has drawn there.
    /// Where the button has to be painted now it asks `newest` for one, which may give a null
    /// image.
    void setOvertaken(std::function<QImage()> newest);
    /// The icon in the middle of an empty button; drawn as large as an icon of iconSide() pixels.
    /// Null: no icon.
    void setIcon(const QImage& icon);
    const QImage& icon() const { return m_icon; }
    int iconSide() const; ///< pixels
    /// A ring around the picture: what it stands for is hovered, or was chosen.
    void setHighlighted(bool on);
    /// Where the picture lies in the button; the whole button without a picture.
    QRect pictureRect() const;
    qreal cornerRadius() const { return m_cornerRadius; }
    /// The maximum size of a picture, in pixels.
    QSize pixels() const { return (QSizeF(size()) * devicePixelRatioF()).toSize(); }

Q_SIGNALS:
    /// The aspect ratio changed, or a picture was set or removed.
    void pictureRectChanged();

protected:
    void paintEvent(QPaintEvent* event) override;

private:
    void paintIcon(QPainter& painter) const;
    void catchUp(const QRegion& painted);
    const QImage& painted(QSize points);
    const QImage& ring(QSize points);

    QImage m_image;
    QImage m_icon;
    QImage m_painted;   ///< m_image with rounded corners and outline, in the size last painted
    QSize m_paintedFor; ///< in device pixels
    QRect m_unpainted;  ///< pixels of m_image that are not yet in m_painted
    QImage m_ring;      ///< drawn once, as the picture under it may be a film
    QColor m_outline;
    QColor m_hoverOutline;
    QColor m_placeholder;
    qreal m_cornerRadius = 0;
    bool m_isHighlighted = false;
    std::function<QImage()> m_newest; ///< null: image() is what is seen
};

} // namespace lumbrix
