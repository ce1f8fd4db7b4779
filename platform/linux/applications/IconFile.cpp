// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/IconFile.h"

#include <QtCore/QBuffer>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <cmath>

#include "platform/linux/PlainFile.h"

namespace lumbrix::platform
{

namespace
{

constexpr qint64 MaximalBytes = qint64{4} * 1024 * 1024;
/// Both ways. A file of a few kilobytes may unpack into a picture of gigabytes.
constexpr int MaximalPixels = 2048;

QImage picture(QByteArray bytes, int pixels)
{
    QBuffer buffer(&bytes);
    QImageReader reader(&buffer);
    reader.setAutoTransform(false);
    const QSize size = reader.size();
    if (size.isEmpty() || size.width() > MaximalPixels || size.height() > MaximalPixels) {
        return {};
    }
    const QImage image = reader.read();
    const bool isLarger = image.width() > pixels || image.height() > pixels;
    return isLarger && !image.isNull()
               ? image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation)
               : image;
}

} // namespace

QImage readIconFile(const QString& path, int pixels)
{
    const QByteArray bytes = readPlainFile(path, MaximalBytes);
    if (bytes.isEmpty() || pixels <= 0) {
        return {};
    }
    QImage icon(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    if (path.endsWith(QStringLiteral(".svg")) || path.endsWith(QStringLiteral(".svgz"))) {
        QSvgRenderer drawing(bytes);
        if (!drawing.isValid()) {
            return {};
        }
        drawing.setAspectRatioMode(Qt::KeepAspectRatio);
        drawing.render(&painter, QRectF(icon.rect()));
        return icon;
    }
    const QImage image = picture(bytes, pixels);
    if (image.isNull()) {
        return {};
    }
    painter.drawImage((pixels - image.width()) / 2, (pixels - image.height()) / 2, image);
    return icon;
}

} // namespace lumbrix::platform
