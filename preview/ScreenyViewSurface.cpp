// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures that somebody else draws on a preview.
#include "preview/ScreenyView.h"

#include <QtGui/QWindow>

#include "preview/PanelBackground.h"
#include "preview/PictureButton.h"

namespace lumbrix
{

std::optional<platform::PictureSurface> ScreenyView::pictureSurface() const
{
    const QWindow* handle = m_window->windowHandle();
    if (m_iTunes || m_iCal || !m_elementRef || m_image->isHidden() || !handle ||
        !m_window->isPaintable())
        return std::nullopt;
    const qreal ratio = m_window->devicePixelRatioF();
    const auto pixels = [ratio](const QRect& rect) {
        return QRectF(QPointF(rect.topLeft()) * ratio, QSizeF(rect.size()) * ratio);
    };
    const QRectF button = pixels({m_image->mapTo(m_window.get(), QPoint()), m_image->size()});
    const QPoint place = button.topLeft().toPoint();
    if (QPointF(place) != button.topLeft())
        return std::nullopt;
    const auto [picture, plain, outlined] = m_image->parts();
    QRegion free = (plain + outlined).translated(place);
    for (const QObject* child : m_background->children()) {
        const auto* part = qobject_cast<const QWidget*>(child);
        if (part && part != m_image && !part->isHidden())
            free -= pixels({part->mapTo(m_window.get(), QPoint()), part->size()}).toAlignedRect();
    }
    if (free.isEmpty())
        return std::nullopt;
    platform::PictureSurface surface;
    surface.toolkitWindow = m_window->internalWinId();
    surface.isTranslucent = handle->format().hasAlpha();
    surface.picture = picture.translated(place);
    surface.free = free;
    surface.shaded = outlined.translated(place);
    surface.shade = m_image->outline();
    return surface;
}

void ScreenyView::noteDrawnPicture()
{
    m_image->setOvertaken([this] {
        return m_elementRef ? m_elementRef->grabMovingWindow(pictureLimit()).image : QImage();
    });
}

} // namespace lumbrix
