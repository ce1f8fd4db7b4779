// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures of windows that move: made of a part of the pixels, with each kind of server.

#include <QtCore/QCoreApplication>

#include "X11Desk.h"
#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/ImageCopier.h"
#include "platform/pictures/PictureScaler.h"

namespace lumbrix::platform::x11
{
namespace
{

/// The extension that the server lacks, if any.
class MovingPictures : public testing::TestWithParam<const char*>
{
protected:
    static SessionOptions options()
    {
        SessionOptions result{{1280, 1024}, WindowManager::Openbox};
        result.withoutExtension = QString::fromLatin1(GetParam());
        return result;
    }

    const bool m_isSampled = QByteArray(GetParam()) != "RENDER";
    Session m_session{options()};
};

constexpr QSize limit(243, 190);

/// On the screen, and known to the adapter.
struct LargeWindow {
    explicit LargeWindow(Session& session) : raw(session, {0, 0, 1200, 900}), desk(session)
    {
        raw.map();
        desk.waitForWindow(raw.id(), [](const TrackedWindow& window) { return window.isMapped; });
    }
    /// All over, the last quarter in this colour.
    void paint(const QColor& colour)
    {
        raw.fill({0, 0, 1200, 900}, Qt::gray);
        raw.fill({600, 450, 600, 450}, colour);
    }

    RawWindow raw;
    X11Desk desk;
};

TEST_P(MovingPictures, ofAWindow_areMadeOfAPart_andOfAllOnceItRests)
{
    LargeWindow large(m_session);
    RawWindow& raw = large.raw;
    X11Desk& desk = large.desk;
    WindowPictures& pictures = desk.pictures();
    std::uint64_t copied = 0;
    const auto capture = [&](bool isMoving) {
        const std::uint64_t before = pictures.copiedPixels();
        const QImage picture = pictures.capture(raw.id(), limit, isMoving);
        copied = pictures.copiedPixels() - before;
        return picture;
    };
    QImage moving;
    EXPECT_TRUE(desk.waitFor([&] {
        large.paint(Qt::red);
        moving = capture(true);
        return moving.pixelColor(200, 150) == Qt::red && copied > 0;
    }));
    EXPECT_EQ(moving.pixelColor(40, 150), Qt::gray);
    EXPECT_EQ(moving.pixelColor(200, 50), Qt::gray);
    EXPECT_EQ(copied <= 1200U * 950 / 2, m_isSampled);
    EXPECT_FALSE(m_isSampled && pictures.known(raw.id(), limit).isCurrent);
    QImage exact = capture(false);
    EXPECT_TRUE(!m_isSampled || copied >= 1200U * 900);
    EXPECT_EQ(moving.size(), exact.size());
    EXPECT_TRUE(desk.waitFor([&] { // its title bar may be drawn meanwhile
        exact = capture(false);
        return pictures.known(raw.id(), limit).isCurrent &&
               exact == scaledPicture(pictures.capture(raw.id()), exact.size());
    }));
}

TEST_P(MovingPictures, drawnOntoAWindow_areInTheirPlace_andTheNextChangeIsTold)
{
    LargeWindow large(m_session);
    RawWindow& raw = large.raw;
    X11Desk& desk = large.desk;
    WindowPictures& pictures = desk.pictures();
    ASSERT_TRUE(desk.waitFor([&] {
        pictures.capture(raw.id(), limit);
        return pictures.known(raw.id(), limit).isCurrent;
    }));
    const QPoint place(20, 10);
    const QSize size = pictures.known(raw.id(), limit).image.size();
    constexpr QRect bounds(50, 60, 300, 250);
    RawWindow panel(m_session, bounds, true);
    panel.map();
    panel.fill({{}, bounds.size()}, Qt::blue);
    const QRect hole(place + QPoint(30, 40), QSize(25, 20));
    const QRect line(place + QPoint(0, size.height() * 9 / 10), QSize(size.width(), 2));
    const PictureSurface surface{panel.id(),    false,
                                 {place, size}, QRegion(QRect(place, size)) - hole,
                                 line,          QColor(0, 0, 0, 128)};
    QString error;
    const auto toolkit = Connection::open(m_session.display().name().toStdString(), error);
    ASSERT_TRUE(toolkit) << qPrintable(error);
    // What is painted afterwards is not in it.
    const auto draw = [&](xcb_window_t window, const PictureSurface& onto,
                          bool tellsNext = true) -> bool {
        const bool isDrawn = pictures.draw(toolkit->get(), {{window, onto, tellsNext}}).front();
        toolkit->reply(xcb_get_input_focus_reply, xcb_get_input_focus(toolkit->get()));
        return isDrawn;
    };
    int told = 0;
    const auto subscription = pictures.subscribe(raw.id(), [&told] { ++told; });
    const auto change = [&](const QColor& colour) {
        const int before = told;
        large.paint(colour);
        return desk.waitFor([&] {
            QCoreApplication::processEvents();
            return told > before;
        });
    };
    EXPECT_TRUE(desk.waitFor([&] { // once its title bar is there, nothing is new
        pictures.capture(raw.id(), limit);
        return !draw(raw.id(), surface);
    }));
    for (const QColor colour : {Qt::red, Qt::green}) {
        ASSERT_TRUE(change(colour));
        EXPECT_EQ(draw(raw.id(), surface), m_isSampled);
        if (!m_isSampled)
            return;
        EXPECT_FALSE(pictures.known(raw.id(), limit).isCurrent);
        EXPECT_FALSE(draw(raw.id(), surface)) << "nothing is new";
        const QImage seen = desk.display().picture(bounds);
        const auto at = [&](double x, double y) {
            return seen.pixelColor(place + QPointF(x * size.width(), y * size.height()).toPoint());
        };
        EXPECT_EQ(at(0.75, 0.75), colour);
        EXPECT_EQ(at(0.25, 0.75), Qt::gray);
        EXPECT_EQ(at(0.75, 0.3), Qt::gray);
        EXPECT_NEAR(seen.pixelColor(line.right() - 20, line.top()).value(), 127, 2);
        int misplaced = 0;
        for (int y = 0; y < seen.height(); ++y)
            for (int x = 0; x < seen.width(); ++x)
                if ((seen.pixelColor(x, y) == Qt::blue) == surface.free.contains(QPoint(x, y)))
                    ++misplaced;
        EXPECT_EQ(misplaced, 0);
    }
    ASSERT_TRUE(change(Qt::red));
    EXPECT_TRUE(draw(raw.id(), surface, false));
    EXPECT_TRUE(draw(raw.id(), surface)) << "it may have changed";
    ASSERT_TRUE(change(Qt::green));
    EXPECT_FALSE(draw(panel.id(), surface)) << "nothing is known of it";
    EXPECT_FALSE(draw(raw.id(), {panel.id(), false, {place, size - QSize(0, 40)}, {}, {}, {}}))
        << "it has another shape by now";
    pictures.setPrivacy([](const TrackedWindow&) { return true; });
    EXPECT_FALSE(draw(raw.id(), surface));
}

TEST_P(MovingPictures, areDrawnInEachSizeThatFits)
{
    if (!m_isSampled)
        return;
    LargeWindow large(m_session);
    const xcb_window_t window = large.raw.id();
    WindowPictures& pictures = large.desk.pictures();
    RawWindow panel(m_session, {50, 60, 300, 250});
    QString error;
    const auto toolkit = Connection::open(m_session.display().name().toStdString(), error);
    ASSERT_TRUE(toolkit) << qPrintable(error);
    for (int width = 200; width < 220; ++width) { // the height is rounded up, or down
        const QSize size = pictures.capture(window, {width, 900}).size();
        ASSERT_EQ(size.width(), width);
        const QRect picture({}, size);
        EXPECT_TRUE(large.desk.waitFor([&]() -> bool {
            large.paint(Qt::red);
            return pictures
                .draw(toolkit->get(), {{window, {panel.id(), false, picture, picture, {}, {}}}})
                .front();
        })) << width
            << " pixels wide";
    }
}

TEST_P(MovingPictures, samples_areTheMiddlesOfEvenParts)
{
    QString error;
    const auto connection = Connection::open(m_session.display().name().toStdString(), error);
    ASSERT_TRUE(connection) << qPrintable(error);
    xcb_connection_t* c = connection->get();
    ImageCopier copier(*connection);
    QImage drawn(40, 30, QImage::Format_ARGB32_Premultiplied);
    for (int y = 0; y < drawn.height(); ++y)
        for (int x = 0; x < drawn.width(); ++x)
            drawn.setPixel(x, y, 0x80000000U | static_cast<QRgb>(x << 8 | y));
    for (const std::uint8_t depth : {24, 32}) {
        const xcb_pixmap_t drawing = connection->newId();
        const xcb_gcontext_t context = connection->newId();
        xcb_create_pixmap(c, depth, drawing, connection->root(), 40, 30);
        xcb_create_gc(c, context, drawing, 0, nullptr);
        xcb_put_image(c, XCB_IMAGE_FORMAT_Z_PIXMAP, drawing, context, 40, 30, 0, 0, 0, depth,
                      static_cast<std::uint32_t>(drawn.sizeInBytes()), drawn.constBits());
        const QImage samples = copier.copySamples(drawing, {10, 6, 20, 15}, depth, {4, 3});
        ASSERT_EQ(samples.size(), m_isSampled ? QSize(4, 3) : QSize(0, 0));
        const QRgb meant = depth == 24 ? 0x00ffffffU : 0xffffffffU;
        for (int i = 0; i < samples.width() * samples.height(); ++i) {
            const QPoint at(i % 4, i / 4);
            const auto* line = reinterpret_cast<const QRgb*>(samples.constScanLine(at.y()));
            EXPECT_EQ(line[at.x()] & meant, drawn.pixel(12 + 5 * at.x(), 8 + 5 * at.y()) & meant);
        }
    }
    // Of what is gone there are none, and the next are had all the same.
    EXPECT_TRUE(copier.copySamples(connection->newId(), {0, 0, 20, 20}, 24, {4, 4}).isNull());
    EXPECT_EQ(copier.copySamples(connection->root(), {0, 0, 20, 20}, 24, {4, 4}).isNull(),
              !m_isSampled);
}

// Servers that draw on the graphics card have no pixmaps in shared memory; that is tried by one
// that has no shared memory at all.
INSTANTIATE_TEST_SUITE_P(, MovingPictures, testing::Values("", "MIT-SHM", "RENDER"));

} // namespace
} // namespace lumbrix::platform::x11
