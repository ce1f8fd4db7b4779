// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The background of a preview panel, and the layout of its parts.
#pragma once

#include <QtGui/QColor>
#include <QtGui/QPainterPath>
#include <QtWidgets/QWidget>

namespace lumbrix
{

class ImageButton;
class KeyLabel;
class PictureButton;
class TitleLabel;

/// A rounded body with a soft shadow; the picture above, the title and the key cap below it, the
/// close button on the top left corner. The body has margins to the panel's edges, wider on the
/// left and at the top, where the close button sticks out. A borderless background has no body
/// while there is a picture; the title is then drawn on the picture.
class PanelBackground : public QWidget
{
    Q_OBJECT
    Q_PROPERTY(QColor bubble MEMBER m_bubble)
    Q_PROPERTY(QColor fillTop MEMBER m_fillTop)
    Q_PROPERTY(QColor fillBottom MEMBER m_fillBottom)
    Q_PROPERTY(QColor outline MEMBER m_outline)
    Q_PROPERTY(QColor highlight MEMBER m_highlight)
    Q_PROPERTY(qreal cornerRadius MEMBER m_cornerRadius)
    Q_PROPERTY(bool borderless MEMBER m_borderless)

public:
    /// All are children of the background and not null.
    struct Parts {
        PictureButton* image = nullptr;
        TitleLabel* title = nullptr;
        KeyLabel* key = nullptr;
        ImageButton* close = nullptr;
    };

    explicit PanelBackground(QWidget* parent = nullptr);

    void setParts(const Parts& parts);
    /// Places the parts for the current size and content. Called on every resize as well.
    void arrange();

    /// Shows the key cap while there is room for it.
    void setKeyWanted(bool wanted);
    /// What is seen of the panel, with the margins: all of it, or a picture without a body.
    QRect shownArea() const;
    /// Whether that has room for more than a picture and a title.
    bool isRoomy() const;
    /// Of the shape behind a row of such panels.
    const QColor& bubbleColor() const { return m_bubble; }

    void setHovered(bool hovered);
    /// A ring along the edge, visible on every colour of body.
    void setMarked(bool marked);
    bool isMarked() const { return m_marked; }
    /// If translucency is not blended, everything is drawn opaque, and outlinePath() is the shape
    /// to clip the window to.
    void setShaped(bool shaped);
    QPainterPath outlinePath() const;

Q_SIGNALS:
    void outlinePathChanged();
    /// A click outside the parts.
    void clicked();
    /// A click of the middle button, on any part.
    void middleClicked();
    /// The wheel, over any part: by so many notches, downward or to the right if positive.
    void wheelTurned(int notches);

protected:
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

private:
    QRect body() const;
    bool hasBody() const;
    qreal bodyRadius() const;
    QRect pictureRect() const;
    void paintShadow(QPainter& painter, const QRectF& around, qreal radius) const;
    void paintBody(QPainter& painter) const;
    void paintPictureEdge(QPainter& painter) const;
    void paintMark(QPainter& painter, const QRectF& around, qreal radius) const;

    Parts m_parts;
    QColor m_bubble;
    QColor m_fillTop;
    QColor m_fillBottom;
    QColor m_outline;
    QColor m_highlight;
    qreal m_cornerRadius = 0;
    bool m_borderless = false;
    bool m_isKeyWanted = false;
    bool m_hovered = false;
    bool m_marked = false;
    bool m_shaped = false;
    Qt::MouseButton m_pressed = Qt::NoButton;
    int m_wheel = 0; ///< what makes no whole notch yet, in the toolkit's parts of one
};

} // namespace lumbrix
