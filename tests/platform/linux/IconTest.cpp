// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <QtCore/QTemporaryDir>
#include <QtGui/QImage>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/StringLiterals.h"
#include "platform/linux/applications/IconFile.h"
#include "platform/linux/applications/IconTheme.h"
#include "tests/support/Files.h"

namespace lumbrix::platform
{

class IconTest : public testing::Test
{
protected:
    QString path(const QString& name) const { return m_folder.filePath(name); }
    QString write(const QString& name, const QByteArray& bytes) const
    {
        return test::writeFile(path(name), bytes);
    }
    QString draw(const QString& name, int width, int height, const QColor& colour = Qt::red) const
    {
        QDir().mkpath(QFileInfo(path(name)).path());
        QImage image(width, height, QImage::Format_RGB32);
        image.fill(colour);
        EXPECT_TRUE(image.save(path(name), "PNG"));
        return path(name);
    }

    QTemporaryDir m_folder;
};

TEST_F(IconTest, name_isFoundInTheThemeThenWhereItComesFromThenLoose)
{
    const auto description = [](const QByteArray& parents) {
        return "[Icon Theme]\nInherits=" + parents +
               "\nDirectories=16,48,any,../up\n[16]\nSize=16\n[48]\nSize=48\n"
               "[any]\nSize=64\nMinSize=8\nMaxSize=512\nType=Scalable\n[../up]\nSize=32\n";
    };
    write(u"system/mine/index.theme"_s, description("parent, mine"));
    write(u"system/parent/index.theme"_s, description("mine"));
    write(u"system/hicolor/index.theme"_s, description(""));
    for (const QString& icon :
         {u"system/mine/16/a.png"_s, u"home/mine/48/a.png"_s, u"system/parent/any/a.svg"_s,
          u"system/parent/any/b.svg"_s, u"home/hicolor/48/c.png"_s, u"system/up/d.png"_s,
          u"pixmaps/d.xpm"_s})
        write(icon, "x");
    ASSERT_EQ(::mkfifo(QFile::encodeName(path(u"home/mine/48/b.png"_s)).constData(), 0600), 0);
    IconTheme theme({path(u"home"_s), path(u"system"_s), path(u"pixmaps"_s)}, u"mine"_s);
    const auto found = [&](const char* name, int pixels = 32) {
        return theme.find(QString::fromLatin1(name), pixels).mid(m_folder.path().size() + 1);
    };
    EXPECT_EQ(found("a"), u"home/mine/48/a.png"_s) << "better too large than too small";
    EXPECT_EQ(found("a", 16), u"system/mine/16/a.png"_s);
    EXPECT_EQ(found("b"), u"system/parent/any/b.svg"_s) << "a pipe is no icon";
    EXPECT_EQ(found("c.png"), u"home/hicolor/48/c.png"_s);
    EXPECT_EQ(found("d"), u"pixmaps/d.xpm"_s) << "nothing outside the theme's folder";
    EXPECT_EQ(found("none"), QString());
    EXPECT_EQ(found(""), QString());
    const QString file = path(u"system/up/d.png"_s);
    EXPECT_EQ(theme.find(file, 32), file);
    EXPECT_EQ(theme.find(path(u"home/mine/48/b.png"_s), 32), QString());
}

TEST_F(IconTest, file_isFittedIntoTheSquareAndTooLargeOnesAreLeft)
{
    const QImage wide = readIconFile(draw(u"wide"_s, 64, 32), 32);
    EXPECT_EQ(wide.size(), QSize(32, 32));
    EXPECT_EQ(wide.pixelColor(1, 16), QColor(Qt::red));
    EXPECT_EQ(wide.pixelColor(1, 6).alpha(), 0);
    const QImage small = readIconFile(draw(u"small.png"_s, 8, 8), 32);
    EXPECT_EQ(small.pixelColor(16, 16), QColor(Qt::red));
    EXPECT_EQ(small.pixelColor(8, 8).alpha(), 0) << "not enlarged";
    const QImage drawing =
        readIconFile(write(u"a.svg"_s, "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 9 9'>"
                                       "<rect width='9' height='9' fill='#00f'/></svg>"),
                     32);
    EXPECT_EQ(drawing.pixelColor(31, 31), QColor(Qt::blue));

    // What would wait for another file, or has it named by a picture within, is left.
    const QByteArray pipe = QFile::encodeName(path(u"pipe"_s));
    ASSERT_EQ(::mkfifo(pipe.constData(), 0600), 0);
    const auto svg = [](const QByteArray& link) {
        return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 9 9' "
               "xmlns:xlink='http://www.w3.org/1999/xlink'>"
               "<image width='9' height='9' xlink:href='" +
               link + "'/></svg>";
    };
    const auto data = [](const QByteArray& bytes) { return "data:x;base64," + bytes.toBase64(); };
    const QByteArray red = svg(data(test::readFile(draw(u"red.png"_s, 9, 9))));
    EXPECT_EQ(readIconFile(write(u"b.svg"_s, red), 32).pixelColor(16, 16), QColor(Qt::red));
    for (const QByteArray& text :
         {svg(pipe), svg(data(svg(pipe))),
          "<?xml-stylesheet type=\"text/css\" href=\"" + pipe + "\"?>" + red}) {
        EXPECT_TRUE(readIconFile(write(u"c.svg"_s, text), 32).isNull()) << text.toStdString();
        EXPECT_TRUE(readIconFile(write(u"c.png"_s, text), 32).isNull()) << text.toStdString();
    }
    // So is what would keep a processor for hours: drawings that draw each other again and again,
    // or in a circle, rules of style for as many elements, pictures that fill the memory.
    const auto drawing9 = [](const QByteArray& parts) {
        return "<svg xmlns='http://www.w3.org/2000/svg' viewBox='0 0 9 9' "
               "xmlns:xlink='http://www.w3.org/1999/xlink'>" +
               parts + "</svg>";
    };
    const auto use = [](int part) {
        return "<use xlink:href='#p" + QByteArray::number(part) + "'/>";
    };
    const auto tower = [&](int height, int width) {
        QByteArray parts = "<rect id='p0' width='9' height='9' fill='#00f'/>";
        for (int i = 0; i < height; ++i)
            parts +=
                "<g id='p" + QByteArray::number(i + 1) + "'>" + use(i).repeated(width) + "</g>";
        return drawing9(parts);
    };
    EXPECT_EQ(readIconFile(write(u"d.svg"_s, tower(3, 9)), 32).pixelColor(16, 16),
              QColor(Qt::blue));
    const QByteArray large = "<image width='9' height='9' xlink:href='" +
                             data(test::readFile(draw(u"largest.png"_s, 2048, 2048))) + "'/>";
    EXPECT_FALSE(readIconFile(write(u"e.svg"_s, drawing9(large)), 32).isNull());
    for (const QByteArray& text :
         {tower(20, 1), tower(6, 40),
          drawing9("<g id='p1'>" + use(2) + "</g><g id='p2'>" + use(1) + "</g>"),
          drawing9("<style>" + QByteArray("r{fill:red}").repeated(40'000) + "</style>" +
                   QByteArray("<r/>").repeated(40'000)),
          drawing9(large + large),
          drawing9(QByteArray("<g>").repeated(500) + QByteArray("</g>").repeated(500))})
        ASSERT_TRUE(readIconFile(write(u"f.svg"_s, text), 32).isNull())
            << text.left(300).toStdString();
    EXPECT_TRUE(readIconFile(draw(u"large.png"_s, 3000, 4), 32).isNull());
    EXPECT_TRUE(readIconFile(write(u"long.png"_s, QByteArray(5'000'000, 'x')), 32).isNull());
    EXPECT_TRUE(readIconFile(write(u"noise.png"_s, "\x89PNG\r\n\x1a\nnoise"), 32).isNull());
    EXPECT_TRUE(readIconFile(m_folder.path(), 32).isNull());
    EXPECT_TRUE(readIconFile(write(u"broken.svg"_s, "<svg"), 32).isNull());
}

} // namespace lumbrix::platform
