// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/media/Artwork.h"

#include <QtCore/QUrl>

#include "platform/linux/PlainFile.h"
#include "platform/linux/PlainPicture.h"

namespace lumbrix::platform
{

namespace
{

constexpr qint64 mostBytes = qint64{8} * 1024 * 1024;
constexpr qint64 mostPixels = qint64{32} * 1024 * 1024;
/// Twice the size at which the largest preview shows a square picture.
constexpr int largestSide = 640;

QByteArray readDataUri(QStringView uri)
{
    const qsizetype comma = uri.indexOf(u',');
    if (comma < 0 || uri.size() - comma > mostBytes / 3 * 4 + 4)
        return {};
    const QByteArray body = uri.mid(comma + 1).toLatin1();
    const bool isBase64 = uri.left(comma).endsWith(u";base64", Qt::CaseInsensitive);
    return isBase64 ? QByteArray::fromBase64(QByteArray::fromPercentEncoding(body))
                    : QByteArray::fromPercentEncoding(body);
}

QByteArray readUri(const QString& uri)
{
    if (uri.startsWith(u"data:", Qt::CaseInsensitive))
        return readDataUri(QStringView(uri).mid(5));
    const QUrl url(uri, QUrl::StrictMode);
    if (!url.isLocalFile() || !url.host().isEmpty())
        return {};
    return readPlainFile(url.toLocalFile(), mostBytes);
}

bool isTooLarge(const QSize& size)
{
    return size.width() > largestSide || size.height() > largestSide;
}

QSize reduced(const QSize& size)
{
    return size.scaled(largestSide, largestSide, Qt::KeepAspectRatio).expandedTo({1, 1});
}

} // namespace

QImage loadArtwork(const QString& uri)
{
    const auto sizeFor = [](QSize size) {
        if (qint64(size.width()) * size.height() > mostPixels)
            return QSize();
        return isTooLarge(size) ? reduced(size) : size;
    };
    const QImage picture =
        readPlainPicture(readUri(uri), {"png", "jpeg", "jpg", "gif", "bmp", "webp"}, sizeFor);
    // Some tell the size of a part, which then lies in a larger picture.
    return isTooLarge(picture.size())
               ? picture.scaled(reduced(picture.size()), Qt::IgnoreAspectRatio,
                                Qt::SmoothTransformation)
               : picture;
}

} // namespace lumbrix::platform
