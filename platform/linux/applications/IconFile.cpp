// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/applications/IconFile.h"

#include <QtCore/QXmlStreamReader>
#include <QtGui/QPainter>
#include <QtSvg/QSvgRenderer>

#include <cmath>
#include <limits>
#include <map>
#include <vector>

#include "platform/StringLiterals.h"
#include "platform/linux/PlainFile.h"
#include "platform/linux/PlainPicture.h"

namespace lumbrix::platform
{

namespace
{

constexpr qint64 maximumBytes = qint64{4} * 1024 * 1024;
/// Both ways. A file of a few kilobytes may unpack into a picture of gigabytes.
constexpr int maximumPixels = 2048;
/// Of the text of a drawing, as often as it is drawn. A few kilobytes may draw each other for days.
constexpr double maximumDrawn = 8e6;
/// Of the drawing's rules of style in characters, each of which is tried on every element.
constexpr double maximumTries = 1e9;
constexpr int maximumDepth = 200;
/// How often what is drawn by reference may refer further.
constexpr int maximumReferences = 8;

QImage pixelsIn(const QByteArray& bytes)
{
    return readPlainPicture(bytes, {"png", "xpm", "jpeg", "jpg", "ico"}, [](QSize size) {
        return size.width() > maximumPixels || size.height() > maximumPixels ? QSize() : size;
    });
}

/// What a drawing would have us do, before it is drawn: that cannot be stopped any more.
class Drawing
{
public:
    explicit Drawing(const QByteArray& text) { read(text); }

    /// False for one that names other files (drawing opens whatever file a picture or a style sheet
    /// names, and waits for it if that is a pipe), that is too much work, or that is broken.
    bool isGood() const
    {
        return m_isGood && static_cast<double>(m_parts.size()) * m_styleLength <= maximumTries &&
               drawnLength() <= maximumDrawn;
    }

private:
    struct Part {
        std::size_t parent = 0; ///< of the first one it is itself
        double length = 0;      ///< of its own text
        QString reference;      ///< the name of a part that it draws; empty without one
        bool isStyle = false;
    };

    void read(const QByteArray& text)
    {
        QXmlStreamReader xml(text);
        xml.setNamespaceProcessing(false); // not all that editors write is declared
        std::vector<std::size_t> open;
        qint64 begin = 0;
        while (m_isGood && !xml.atEnd()) {
            xml.readNext();
            const auto length = static_cast<double>(xml.characterOffset() - begin);
            begin = xml.characterOffset();
            if (xml.isStartElement()) {
                m_parts.push_back({open.empty() ? 0 : open.back(), length, {}, false});
                open.push_back(m_parts.size() - 1);
                readPart(xml);
                m_isGood = m_isGood && open.size() <= maximumDepth;
            } else if (xml.isEndElement()) {
                open.pop_back();
            } else if (xml.isCharacters() && !open.empty()) {
                m_parts[open.back()].length += length;
                m_styleLength += m_parts[open.back()].isStyle ? length : 0;
            } else if (xml.isProcessingInstruction() &&
                       xml.processingInstructionTarget() == QLatin1String("xml-stylesheet")) {
                m_isGood = false;
            }
        }
        m_isGood = m_isGood && !xml.hasError() && !m_parts.empty();
    }

    void readPart(const QXmlStreamReader& xml)
    {
        m_parts.back().isStyle = xml.qualifiedName().endsWith(QLatin1String("style"));
        for (const QXmlStreamAttribute& attribute : xml.attributes()) {
            const QStringView value = attribute.value();
            if (attribute.qualifiedName().endsWith(QLatin1String("id")))
                m_named.try_emplace(value.toString(), m_parts.size() - 1);
            if (!attribute.qualifiedName().endsWith(QLatin1String("href")))
                continue;
            if (xml.qualifiedName().endsWith(QLatin1String("image")))
                readPicture(value);
            else if (value.startsWith(u'#'))
                m_parts.back().reference = value.mid(1).toString();
        }
    }

    /// Only pictures that are in the drawing itself are wanted, and together no larger than one.
    void readPicture(QStringView link)
    {
        const QStringView data = link.mid(link.lastIndexOf(QLatin1String("base64,")) + 7);
        const QImage picture = link.startsWith(QLatin1String("data:"))
                                   ? pixelsIn(QByteArray::fromBase64(data.toLatin1()))
                                   : QImage();
        m_pixels += qint64{picture.width()} * picture.height();
        m_isGood =
            m_isGood && !picture.isNull() && m_pixels <= qint64{maximumPixels} * maximumPixels;
    }

    /// Beyond all measure for one whose parts refer to each other for too long, or in a circle.
    double drawnLength() const
    {
        std::vector<double> drawn(m_parts.size());
        for (int round = 0; round <= maximumReferences; ++round) {
            std::vector<double> next(m_parts.size());
            for (std::size_t i = m_parts.size(); i-- > 0;) { // what is inside comes later
                const Part& part = m_parts[i];
                const auto meant = m_named.find(part.reference);
                next[i] += part.length + (meant == m_named.end() ? 0 : drawn[meant->second]);
                if (i != 0)
                    next[part.parent] += next[i];
            }
            if (next == drawn)
                return drawn.front();
            drawn = std::move(next);
        }
        return std::numeric_limits<double>::infinity();
    }

    std::vector<Part> m_parts; ///< each after the one it is in
    std::map<QString, std::size_t> m_named;
    double m_styleLength = 0;
    qint64 m_pixels = 0;
    bool m_isGood = true;
};

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
    return iconIn(readPlainFile(path, maximumBytes), path.endsWith(u".svg"_s), pixels);
}

QImage iconIn(const QByteArray& bytes, bool isDrawing, int pixels)
{
    if (bytes.isEmpty() || pixels <= 0)
        return {};
    QImage icon(pixels, pixels, QImage::Format_ARGB32_Premultiplied);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    if (isDrawing) {
        if (!Drawing(bytes).isGood())
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
