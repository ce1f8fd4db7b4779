// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QtCore/QBuffer>
#include <QtCore/QLoggingCategory>
#include <QtCore/QTemporaryDir>
#include <QtCore/QUrl>
#include <QtGui/QImageWriter>

#include <sys/stat.h>

#include "platform/StringLiterals.h"
#include "platform/linux/media/Artwork.h"
#include "tests/support/Files.h"

namespace lumbrix::test
{
namespace
{

QByteArray encoded(QSize size, const char* format)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, format);
    return bytes;
}

/// The header of a picture of that size, and nothing after it.
QByteArray promise(quint32 width, quint32 height)
{
    QByteArray bytes = encoded({4, 4}, "BMP");
    const auto put = [&bytes](int at, quint32 value) {
        for (int i = 0; i < 4; ++i)
            bytes[at + i] = static_cast<char>(value >> 8 * i & 0xFF);
    };
    put(18, width);
    put(22, height);
    return bytes;
}

/// One of eight megabytes that is refined again and again. To unpack all of it takes hours.
QByteArray endlesslyRefined()
{
    QImage image(5000, 5000, QImage::Format_RGB32);
    image.fill(Qt::red);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    QImageWriter writer(&buffer, "jpeg");
    writer.setProgressiveScanWrite(true);
    writer.write(image);
    const qsizetype scan = bytes.lastIndexOf("\xff\xda");
    const qsizetype end = bytes.size() - 2; // the mark of the end
    const QByteArray again = bytes.mid(scan, end - scan);
    return bytes.left(end) + again.repeated(8'000'000 / again.size()) + bytes.mid(end);
}

class ArtworkTest : public testing::Test
{
protected:
    QString write(const char* name, const QByteArray& bytes)
    {
        const QString path = writeFile(m_folder.filePath(QString::fromLatin1(name)), bytes);
        return QUrl::fromLocalFile(path).toString(QUrl::FullyEncoded);
    }
    QTemporaryDir m_folder;
};

QString dataUri(const char* head, const QByteArray& body)
{
    return QString::fromLatin1("data:" + QByteArray(head) + "," + body);
}

} // namespace

TEST_F(ArtworkTest, picturesOfFilesAndDataUris_areShownReduced)
{
    const QByteArray png = encoded({100, 50}, "PNG");
    EXPECT_EQ(platform::loadArtwork(write("a b#ü.png", png)).size(), QSize(100, 50));
    EXPECT_EQ(platform::loadArtwork(write("name.txt", encoded({2000, 1000}, "JPEG"))).size(),
              QSize(640, 320));
    EXPECT_EQ(platform::loadArtwork(dataUri("image/png;base64", png.toBase64())).size(),
              QSize(100, 50));
    EXPECT_EQ(platform::loadArtwork(dataUri("", png.toPercentEncoding())).size(), QSize(100, 50));
}

TEST_F(ArtworkTest, everythingElse_isNoPicture)
{
    const QByteArray png = encoded({8, 8}, "PNG");
    const QString local = write("local.png", png);
    ASSERT_FALSE(platform::loadArtwork(local).isNull());
    const QByteArray pipe = QFile::encodeName(m_folder.filePath(u"pipe.png"_s));
    ASSERT_EQ(::mkfifo(pipe.constData(), 0600), 0);
    const QStringList uris{
        {},
        u"nonsense"_s,
        u"http://127.0.0.1:9/cover.png"_s,
        QString(local).replace(u"file://"_s, u"file://server"_s),
        QUrl(local).toLocalFile(), // a path is no address
        QUrl::fromLocalFile(m_folder.path()).toString(),
        QUrl::fromLocalFile(QFile::decodeName(pipe)).toString(),
        u"file:///dev/zero"_s,
        write("text.png", "this is no picture"),
        write("cut.png", png.left(40)),
        write("drawing.svg", "<svg xmlns='http://www.w3.org/2000/svg' width='9' height='9'/>"),
        write("large.png", png + QByteArray(9 * 1024 * 1024, '\0')),
        write("huge.bmp", promise(100000, 100000)),
        dataUri("image/png;base64", "!!!"),
        u"data:image/png;base64"_s,
        dataUri("image/png;base64", (png + QByteArray(9 * 1024 * 1024, '\0')).toBase64()),
    };
    for (const QString& uri : uris)
        EXPECT_TRUE(platform::loadArtwork(uri).isNull()) << qPrintable(uri.left(80));
    QLoggingCategory::setFilterRules(u"qt.gui.imageio*=false"_s);    // that it ends too early
    platform::loadArtwork(write("endless.jpg", endlesslyRefined())); // comes back
    QLoggingCategory::setFilterRules({});
}

} // namespace lumbrix::test
