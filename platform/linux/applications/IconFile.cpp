// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/IconFile.h"

#include <QtCore/QBuffer>
#include <QtCore/QXmlStreamReader>
#include <QtGui/QImageReader>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <cmath>

#include "platform/StringLiterals.h"
#include "platform/linux/PlainFile.h"
#include "platform/linux/PlainPicture.h"

namespace lumbrix::platform
{

namespace
{

constexpr qint64 maximalBytes = qint64{4} * 1024 * 1024;
/// Both ways. A file of a few kilobytes may unpack into a picture of gigabytes.
constexpr int maximalPixels = 2048;

QImage pixelsIn(QByteArray bytes)
{
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::ReadOnly);
    QImageReader reader(&buffer);
    reader.setAutoTransform(false);
    const QSize size = plainPictureSize(reader, {"png", "xpm", "jpeg", "jpg", "ico"});
    if (size.isEmpty() || size.width() > maximalPixels || size.height() > maximalPixels)
        return {};
    return reader.read();
}

/// Drawing opens whatever file a picture in the drawing or its style sheet names, and waits for it
/// if that is a pipe. Only pictures that are in the drawing themselves are wanted.
bool namesOtherFiles(const QByteArray& drawing)
{
    QXmlStreamReader xml(drawing);
    xml.setNamespaceProcessing(false); // not all that editors write is declared
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isProcessingInstruction() &&
            xml.processingInstructionTarget() == QLatin1String("xml-stylesheet"))
            return true;
        if (!xml.isStartElement() || !xml.qualifiedName().endsWith(QLatin1String("image")))
            continue;
        for (const QXmlStreamAttribute& attribute : xml.attributes()) {
            if (!attribute.qualifiedName().endsWith(QLatin1String("href")))
                continue;
            const QStringView link = attribute.value();
            const QStringView data = link.mid(link.lastIndexOf(QLatin1String("base64,")) + 7);
            if (!link.startsWith(QLatin1String("data:")) ||
                pixelsIn(QByteArray::fromBase64(data.toLatin1())).isNull())
                return true;
        }
    }
    return xml.hasError();
}

QImage picture(const QByteArray& bytes, int pixels)
{
    const QImage image = pixelsIn(bytes);
    const bool isLarger = image.width() > pixels || image.height() > pixels;
    return isLarger && !image.isNull()
               ? image.scaled(pixels, pixels, Qt::KeepAspectRatio, Qt::SmoothTransformation)
               : image;
}

} // namespace

QImage readIconFile(const QString& path, int pixels)
{
    return iconIn(readPlainFile(path, maximalBytes), path.endsWith(u".svg"_s), pixels);
}

QImage iconIn(const QByteArray& bytes, bool isDrawing, int pixels)
{
    if (bytes.isEmpty() || pixels <= 0)
        return {};
    QImage icon(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    if (isDrawing) {
        if (namesOtherFiles(bytes))
            return {};
        QSvgRenderer drawing(bytes);
        if (!drawing.isValid())
            return {};
        drawing.setAspectRatioMode(Qt::KeepAspectRatio);
        drawing.render(&painter, QRectF(icon.rect()));
        return icon;
    }
    const QImage image = picture(bytes, pixels);
    if (image.isNull())
        return {};
    painter.drawImage((pixels - image.width()) / 2, (pixels - image.height()) / 2, image);
    return icon;
}

} // namespace lumbrix::platform
