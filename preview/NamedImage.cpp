// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/NamedImage.h"
#include "platform/StringLiterals.h"

#include <QtCore/QFile>
#include <QtGui/QPainter>
#include <QtGui/QPixmapCache>
#include <QtSvg/QSvgRenderer>

namespace lumbrix
{
namespace
{

/// A null size means twice the natural size.
QImage render(const QString& name, QSize pixels)
{
    const QString path = u":/images/%1.svg"_s.arg(name);
    if (name.isEmpty() || !QFile::exists(path))
        return {};
    QSvgRenderer renderer(path);
    if (!renderer.isValid())
        return {};
    QImage image(pixels.isEmpty() ? renderer.defaultSize() * 2 : pixels,
                 QImage::Format_ARGB32_Premultiplied);
    image.fill(Qt::transparent);
    QPainter painter(&image);
    renderer.setAspectRatioMode(Qt::KeepAspectRatio);
    renderer.render(&painter);
    return image;
}

} // namespace

QPixmap namedPixmap(const QString& name, QSize size, qreal devicePixelRatio)
{
    const QSize pixels = (QSizeF(size) * devicePixelRatio).toSize();
    const QString key =
        u"lumbrix-image/%1/%2x%3"_s.arg(name).arg(pixels.width()).arg(pixels.height());
    QPixmap pixmap;
    if (!QPixmapCache::find(key, &pixmap)) {
        pixmap = QPixmap::fromImage(render(name, pixels));
        if (!pixmap.isNull())
            QPixmapCache::insert(key, pixmap);
    }
    pixmap.setDevicePixelRatio(devicePixelRatio);
    return pixmap;
}

QImage namedImage(const QString& name) { return render(name, {}); }

} // namespace lumbrix
