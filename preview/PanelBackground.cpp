// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/PanelBackground.h"

#include <QtCore/QChildEvent>
#include <QtGui/QMouseEvent>
#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>
#include <QtGui/QWheelEvent>

#include <algorithm>
#include <array>
#include <cstdlib>
#include <utility>

#include "platform/StringLiterals.h"
#include "preview/ImageButton.h"
#include "preview/KeyLabel.h"
#include "preview/OnGrey.h"
#include "preview/PictureButton.h"
#include "preview/TitleLabel.h"

namespace lumbrix
{
namespace
{

constexpr QMargins bodyMargins{14, 13, 3, 7};
/// Fits beside a picture without a body, and between a body and its picture.
constexpr int markBreadth = 3;
constexpr QColor markColor(255, 170, 20);
/// In a narrower panel a key cap takes the title's room, and a number hides the picture.
constexpr int roomyWidth = 120;

QColor opaque(QColor color)
{
    color.setAlpha(255);
    return color;
}

} // namespace

PanelBackground::PanelBackground(QWidget* parent) : QWidget(parent) {}

void PanelBackground::setParts(const Parts& parts)
{
    m_parts = parts;
    connect(parts.image, &PictureButton::pictureRectChanged, this, [this] {
        if (!m_borderless)
            return;
        arrange();
        update();
        Q_EMIT outlinePathChanged();
    });
    arrange();
}

QRect PanelBackground::body() const { return rect().marginsRemoved(bodyMargins); }

bool PanelBackground::hasBody() const
{
    return !m_borderless || !m_parts.image || m_parts.image->isHidden() ||
           m_parts.image->image().isNull();
}

qreal PanelBackground::bodyRadius() const
{
    return std::min(m_cornerRadius, std::min(body().width(), body().height()) / 4.0);
}

QRect PanelBackground::shownArea() const
{
    return hasBody() ? rect() : pictureRect().marginsAdded(bodyMargins);
}

bool PanelBackground::isRoomy() const { return shownArea().width() >= roomyWidth; }

void PanelBackground::setKeyWanted(bool wanted)
{
    m_isKeyWanted = wanted;
    arrange();
}

void PanelBackground::arrange()
{
    if (!m_parts.image)
        return;
    const QRect body = this->body();
    const int font = std::clamp(height() / 16, 10, 13);
    // So low that a title would leave nothing of the picture.
    const bool hasTitle = body.height() >= 3 * font;
    const int line = hasTitle ? font + 9 : 0;
    const int padding = m_borderless ? 0 : std::clamp(body.height() / 28, hasTitle ? 4 : 2, 8);
    m_parts.title->setPixelSize(font);
    m_parts.key->setPixelSize(font - 2);

    QRect picture =
        body.adjusted(padding, padding, -padding, m_borderless ? 0 : -std::max(line + 1, padding));
    m_parts.image->setGeometry(picture);
    if (m_borderless && !m_parts.image->image().isNull())
        picture = pictureRect();

    // A narrow picture's title is wider than it is, and a key cap beside that would belong to
    // nothing: it lies on the picture then, across from the close button.
    const QSize keySize = m_parts.key->sizeHint();
    const bool isKeyOnPicture = !isRoomy() && width() >= roomyWidth &&
                                QRect(QPoint(), picture.size())
                                    .contains(QRect(QPoint(16, 4), keySize + QSize(4, line + 8)));
    m_parts.key->setVisible(m_isKeyWanted && (isRoomy() || isKeyOnPicture));

    // The row below the picture, or over its lower edge: the title in the middle, the key cap at
    // the end.
    QRect row(body.left(), body.top() + body.height() - line - 1, body.width(), line);
    if (m_borderless) {
        const int readable =
            m_parts.key->isHidden() || isKeyOnPicture ? std::min(body.width(), 120) : 0;
        const int width = std::max(picture.width(), readable) - 12;
        row = QRect(picture.left() + (picture.width() - width) / 2,
                    picture.top() + picture.height() - line - 5, width, line);
    } else {
        row.adjust(padding + 1, 0, -padding - 1, 0);
    }
    int titleWidth = row.width();
    if (isKeyOnPicture) {
        m_parts.key->setGeometry(
            {{picture.left() + picture.width() - 4 - keySize.width(), picture.top() + 4}, keySize});
    } else if (!m_parts.key->isHidden()) {
        titleWidth -= keySize.width() + 4;
        m_parts.key->setGeometry(row.left() + row.width() - keySize.width(),
                                 row.top() + (row.height() - keySize.height()) / 2, keySize.width(),
                                 keySize.height());
    }
    // Centred in the whole row if it fits, otherwise in the space beside the key cap.
    const int natural = std::min(m_parts.title->naturalWidth(), titleWidth);
    const int centred = row.left() + (row.width() - natural) / 2;
    m_parts.title->setGeometry(std::min(centred, row.left() + titleWidth - natural), row.top(),
                               natural, row.height());

    const int button = std::min(height() < 110 ? 20 : 24, body.height());
    const QPoint corner = (m_borderless ? picture.topLeft() : body.topLeft()) + QPoint(3, 3);
    m_parts.close->setGeometry(
        QRect(corner - QPoint(button / 2, button / 2), QSize(button, button)));
}

void PanelBackground::setHovered(bool hovered)
{
    if (m_hovered == hovered)
        return;
    m_hovered = hovered;
    update();
}

void PanelBackground::setMarked(bool marked)
{
    if (m_marked == marked)
        return;
    m_marked = marked;
    update();
    if (m_borderless)
        Q_EMIT outlinePathChanged();
}

void PanelBackground::setShaped(bool shaped)
{
    if (m_shaped == shaped)
        return;
    m_shaped = shaped;
    update();
}

QPainterPath PanelBackground::outlinePath() const
{
    QPainterPath path;
    path.setFillRule(Qt::WindingFill);
    if (hasBody()) {
        path.addRoundedRect(QRectF(body()).adjusted(-1, -1, 1, 1), bodyRadius() + 1,
                            bodyRadius() + 1);
    } else {
        const QRect picture = pictureRect();
        const int edge = m_marked ? markBreadth : 1;
        const qreal radius = m_parts.image->cornerRadius() + edge;
        path.addRoundedRect(QRectF(picture).adjusted(-edge, -edge, edge, edge), radius, radius);
        // Parts that stick out beside a narrow picture; all have round ends.
        for (const QObject* child : children()) {
            const auto* part = qobject_cast<const QWidget*>(child);
            if (part && part != m_parts.image && part != m_parts.close && !part->isHidden() &&
                !picture.contains(part->geometry())) {
                const qreal half = std::min(part->width(), part->height()) / 2.0;
                path.addRoundedRect(QRectF(part->geometry()), half, half);
            }
        }
    }
    if (m_parts.close && !m_parts.close->isHidden() && m_parts.close->alpha() > 0)
        path.addEllipse(QRectF(m_parts.close->geometry()).adjusted(1.5, 1.5, -1.5, -1.5));
    return path.simplified();
}

void PanelBackground::childEvent(QChildEvent* event)
{
    if (event->added())
        event->child()->installEventFilter(this);
    QWidget::childEvent(event);
}

bool PanelBackground::eventFilter(QObject* watched, QEvent* event)
{
    switch (event->type()) {
    case QEvent::ShowToParent:
    case QEvent::HideToParent:
        arrange();
        if (m_borderless)
            update();
        Q_EMIT outlinePathChanged();
        break;
    default:
        break;
    }
    return QWidget::eventFilter(watched, event);
}

void PanelBackground::mousePressEvent(QMouseEvent* event)
{
    m_pressed = event->button();
    event->accept();
}

void PanelBackground::mouseReleaseEvent(QMouseEvent* event)
{
    event->accept();
    if (std::exchange(m_pressed, Qt::NoButton) != event->button() ||
        !rect().contains(event->position().toPoint()))
        return;
    if (event->button() == Qt::LeftButton)
        Q_EMIT clicked();
    else if (event->button() == Qt::MiddleButton)
        Q_EMIT middleClicked();
}

void PanelBackground::wheelEvent(QWheelEvent* event)
{
    event->accept();
    const QPoint delta = event->angleDelta();
    m_wheel -= std::abs(delta.y()) >= std::abs(delta.x()) ? delta.y() : delta.x();
    const int notches = m_wheel / QWheelEvent::DefaultDeltasPerStep;
    m_wheel %= QWheelEvent::DefaultDeltasPerStep;
    if (notches != 0)
        Q_EMIT wheelTurned(notches);
}

void PanelBackground::resizeEvent(QResizeEvent* event)
{
    QWidget::resizeEvent(event);
    arrange();
    Q_EMIT outlinePathChanged();
}

QRect PanelBackground::pictureRect() const
{
    return m_parts.image->pictureRect().translated(m_parts.image->geometry().topLeft());
}

void PanelBackground::paintShadow(QPainter& painter, const QRectF& around, qreal radius) const
{
    // The shadow falls downward and ends at the panel's edge; the numbers are distance and opacity.
    constexpr std::array<std::pair<int, int>, 4> layers{{{4, 7}, {3, 12}, {2, 18}, {1, 26}}};
    const int room = bodyMargins.right();
    painter.setPen(Qt::NoPen);
    for (const auto& [distance, alpha] : layers) {
        painter.setBrush(QColor(0, 0, 0, alpha));
        const int side = std::min(distance, room);
        painter.drawRoundedRect(around.adjusted(-side, 1.5 - distance, side, 1.5 + distance),
                                radius + distance, radius + distance);
    }
}

void PanelBackground::paintBody(QPainter& painter) const
{
    const QRectF body = this->body();
    const qreal radius = bodyRadius();
    if (m_shaped) {
        painter.fillRect(rect(), onGrey(m_outline));
    } else {
        paintShadow(painter, body, radius);
        painter.setCompositionMode(QPainter::CompositionMode_Source);
    }

    QLinearGradient gradient(body.topLeft(), body.bottomLeft());
    gradient.setColorAt(0, m_shaped ? opaque(m_fillTop) : m_fillTop);
    gradient.setColorAt(1, m_shaped ? opaque(m_fillBottom) : m_fillBottom);
    painter.setPen(Qt::NoPen);
    painter.setBrush(gradient);
    painter.drawRoundedRect(body, radius, radius);

    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setBrush(Qt::NoBrush);
    if (!m_shaped) {
        painter.setPen(QPen(m_outline, 1));
        painter.drawRoundedRect(body.adjusted(-0.5, -0.5, 0.5, 0.5), radius + 0.5, radius + 0.5);
    }
    QColor highlight = m_highlight;
    if (m_hovered)
        highlight.setAlpha(std::min(255, highlight.alpha() * 2));
    painter.setPen(QPen(highlight, 1));
    painter.drawRoundedRect(body.adjusted(0.5, 0.5, -0.5, -0.5), radius - 0.5, radius - 0.5);
    if (m_marked)
        paintMark(painter, body, radius);
}

void PanelBackground::paintPictureEdge(QPainter& painter) const
{
    const QRectF picture = pictureRect();
    if (m_shaped) {
        const int edge = m_marked ? markBreadth : 1;
        painter.fillRect(picture.adjusted(-edge, -edge, edge, edge),
                         m_marked ? markColor : onGrey(m_outline));
        return;
    }
    paintShadow(painter, picture, m_parts.image->cornerRadius());
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(m_outline, 1));
    painter.drawRoundedRect(picture.adjusted(-0.5, -0.5, 0.5, 0.5), m_cornerRadius + 0.5,
                            m_cornerRadius + 0.5);
    if (m_marked)
        paintMark(painter, picture.adjusted(-markBreadth, -markBreadth, markBreadth, markBreadth),
                  m_parts.image->cornerRadius() + markBreadth);
}

void PanelBackground::paintMark(QPainter& painter, const QRectF& around, qreal radius) const
{
    constexpr qreal half = markBreadth / 2.0;
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(markColor, markBreadth));
    painter.drawRoundedRect(around.adjusted(half, half, -half, -half), radius - half,
                            radius - half);
}

void PanelBackground::paintEvent(QPaintEvent*)
{
    // All panels of a row look alike and are painted again with every new picture, so the
    // background is drawn once and shared.
    const bool isBody = hasBody();
    const QRect part = isBody ? body() : pictureRect();
    const auto fixed = [](qreal number) { return quint32(qRound(number * 64)); };
    const std::array look{m_fillTop.rgba(),
                          m_fillBottom.rgba(),
                          m_outline.rgba(),
                          m_highlight.rgba(),
                          fixed(m_cornerRadius),
                          fixed(m_parts.image ? m_parts.image->cornerRadius() : 0),
                          quint32(width()),
                          quint32(height()),
                          fixed(devicePixelRatioF()),
                          quint32{m_hovered},
                          quint32{m_marked},
                          quint32{m_shaped},
                          quint32{isBody},
                          quint32(part.width()),
                          quint32(part.height())};
    // Its bytes, as writing the numbers would take longer than the painting.
    const QString key =
        u"lumbrix-panel"_s + QString(reinterpret_cast<const QChar*>(look.data()), sizeof(look) / 2);
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap((QSizeF(size()) * devicePixelRatioF()).toSize());
        pixmap.setDevicePixelRatio(devicePixelRatioF());
        pixmap.fill(Qt::transparent);
        QPainter painter(&pixmap);
        painter.setRenderHint(QPainter::Antialiasing);
        if (isBody)
            paintBody(painter);
        else
            paintPictureEdge(painter);
        painter.end();
        QPixmapCache::insert(key, pixmap);
    }
    QPainter painter(this);
    painter.drawPixmap(0, 0, pixmap);
}

} // namespace lumbrix
