// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures of windows: right, fresh, not copied in vain, and safe while windows come and go.

#include "X11Desk.h"
#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/ImageCopier.h"
#include "platform/pictures/PictureScaler.h"

#include <QtCore/QCoreApplication>

#include <thread>
#include <unistd.h>
#include <xcb/res.h>

namespace lumbrix::platform::x11
{
namespace
{

/// What this process holds of pixmaps in the server.
std::uint64_t ownPixmapBytes(xcb_connection_t* connection)
{
    const xcb_res_client_id_spec_t all{0, XCB_RES_CLIENT_ID_MASK_LOCAL_CLIENT_PID};
    const Reply<xcb_res_query_client_ids_reply_t> ids(xcb_res_query_client_ids_reply(
        connection, xcb_res_query_client_ids(connection, 1, &all), nullptr));
    std::uint64_t sum = 0;
    for (auto it = xcb_res_query_client_ids_ids_iterator(ids.get()); it.rem != 0;
         xcb_res_client_id_value_next(&it)) {
        if (*xcb_res_client_id_value_value(it.data) != static_cast<std::uint32_t>(getpid()))
            continue;
        const Reply<xcb_res_query_client_pixmap_bytes_reply_t> bytes(
            xcb_res_query_client_pixmap_bytes_reply(
                connection, xcb_res_query_client_pixmap_bytes(connection, it.data->spec.client),
                nullptr));
        sum += bytes ? bytes->bytes : 0;
    }
    return sum;
}

class EachCompositing : public testing::TestWithParam<bool>
{
protected:
    /// One that can be captured.
    AppWindow open(const QByteArray& title, const QColor& colour,
                   const privatedesk::WindowOptions& place = {})
    {
        AppWindow window = app.open(title, colour, place);
        EXPECT_TRUE(desk.waitForColour(window, colour));
        return window;
    }
    void minimise(const AppWindow& window)
    {
        app.minimise(window);
        desk.waitForWindow(window.id, [](const TrackedWindow& w) { return w.isIconic; });
    }

    std::atomic<xcb_window_t> isPrivate = XCB_NONE; ///< where a test has the pictures ask for it
    X11Desk desk{{{1280, 1024}, WindowManager::Xfwm4, GetParam()}};
    Application app{desk.session(), u"alpha"_s};
};
INSTANTIATE_TEST_SUITE_P(Pictures, EachCompositing, testing::Bool(),
                         [](const auto& tested) { return tested.param ? "composited" : "plain"; });

TEST_P(EachCompositing, pictureOfAWindow_isCopiedOnlyWhenSomethingWasDrawn)
{
    const AppWindow window = open("picture", Qt::red, {{400, 300}, {100, 100}});
    const auto tracked = desk.tracker().window(window.id);
    QImage picture = desk.pictures().capture(window.id);
    EXPECT_EQ(picture.size(), tracked->bounds.size());
    EXPECT_EQ(qAlpha(picture.pixel(200, 200)), 255);

    // What was still under way when it was captured settles within one more copy.
    EXPECT_TRUE(desk.waitFor([&] {
        const std::uint64_t before = desk.pictures().copyCount();
        picture = desk.pictures().capture(window.id);
        return desk.pictures().copyCount() == before;
    }));
    const std::uint64_t copies = desk.pictures().copyCount();
    // An obscuring window and the pointer change nothing of this one.
    open("above", Qt::blue, {{500, 400}, {60, 60}});
    const std::uint64_t ofAbove = desk.pictures().copyCount() - copies;
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(desk.pictures().capture(window.id).pixelColor(200, 100), QColor(Qt::red));
    // Its title bar is drawn anew when it loses the focus.
    EXPECT_LE(desk.pictures().copyCount() - copies - ofAbove, 3U);

    app.setColour(window, Qt::green);
    EXPECT_TRUE(desk.waitForColour(window, Qt::green));
    EXPECT_EQ(picture.pixelColor(200, 100),
              QColor(Qt::red)); // pictures handed out stay as they are

    desk.display().request(window.id, "_NET_MOVERESIZE_WINDOW",
                           {(1U << 10) | (1U << 11) | (2U << 12), 0, 0, 700, 500});
    EXPECT_TRUE(desk.waitFor([&] {
        const QImage resized = desk.pictures().capture(window.id);
        return resized.size() == desk.tracker().window(window.id)->bounds.size() &&
               resized.width() >= 700 && resized.pixelColor(650, 150) == Qt::green;
    }));
}

TEST_P(EachCompositing, windowNoLongerShown_keepsItsLastPicture)
{
    const AppWindow iconic = open("minimised", Qt::red);
    const AppWindow elsewhere = open("elsewhere", Qt::blue);
    minimise(iconic);
    app.moveToDesktop(elsewhere, 1);
    desk.waitForWindow(elsewhere.id, [](const TrackedWindow& w) { return !w.isMapped; });
    EXPECT_EQ(desk.capturedColour(iconic), QColor(Qt::red));
    EXPECT_EQ(desk.capturedColour(elsewhere), QColor(Qt::blue));

    app.setColour(iconic, Qt::green); // painted when it is shown again
    desk.tracker().activate(iconic.id);
    EXPECT_TRUE(desk.waitForColour(iconic, Qt::green));

    // Minimised before anybody looked.
    RawWindow never(desk.session(), {10, 10, 100, 100});
    never.setNumbers("WM_HINTS", "WM_HINTS", {2, 0, 3, 0, 0, 0, 0, 0, 0});
    never.map();
    desk.waitForWindow(never.id(), [](const TrackedWindow& w) { return w.isIconic; });
    EXPECT_TRUE(desk.pictures().capture(never.id()).isNull());
}

TEST_P(EachCompositing, largeWindowNoLongerShown_keepsAPictureOfBoundedSize)
{
    const AppWindow window = open("large", Qt::red, {{1100, 900}, {10, 10}});
    const QSize limit(243, 190);
    const QImage shown = desk.pictures().capture(window.id, limit);
    const QImage whole = desk.pictures().capture(window.id);
    const std::uint64_t pixmapsBefore = ownPixmapBytes(desk.display().connection());
    app.minimise(window);
    QImage kept;
    EXPECT_TRUE(desk.waitFor([&] {
        kept = desk.pictures().capture(window.id);
        return kept.sizeInBytes() <= 256 * 1024;
    }));
    EXPECT_TRUE(desk.waitFor([&] { // the server may still have to hear that it is let go of
        return ownPixmapBytes(desk.display().connection()) + 900000 <= pixmapsBefore;
    }));
    // What stands for it is as large, and tells the same, but for what is lost in between.
    EXPECT_NEAR(kept.deviceIndependentSize().width(), whole.width(), 2);
    EXPECT_EQ(desk.capturedColour(window), QColor(Qt::red));
    const KnownPicture reduced = desk.pictures().known(window.id, limit / 2);
    EXPECT_TRUE(reduced.isCurrent);
    EXPECT_EQ(desk.pictures().capture(window.id, limit).size(), shown.size());
    EXPECT_EQ(reduced.image.pixelColor(60, 20), QColor(Qt::red));

    app.setColour(window, Qt::green); // painted when it is shown again
    desk.tracker().activate(window.id);
    EXPECT_TRUE(desk.waitForColour(window, Qt::green));
    EXPECT_EQ(desk.pictures().capture(window.id).size(), whole.size());
}

TEST_P(EachCompositing, whatIsDrawn_isTold_andIsAllThatIsCopied)
{
    constexpr QSize limit(243, 190);
    RawWindow raw(desk.session(), {0, 0, 1200, 900});
    raw.map();
    const auto isSettled = [&] {
        desk.pictures().capture(raw.id(), limit);
        QCoreApplication::processEvents(); // by which is told
        return desk.pictures().known(raw.id(), limit).isCurrent;
    };
    ASSERT_TRUE(desk.waitFor([&] { // what is drawn before it is on the screen is lost
        raw.fill({0, 0, 1200, 900}, Qt::gray);
        const QImage whole = desk.pictures().capture(raw.id());
        return whole.width() >= 1100 && whole.pixelColor(700, 800) == Qt::gray;
    }));
    // After all was drawn on, as when its title bar came, the next copy is of all, too.
    constexpr std::uint64_t most = 1200 * 900 / 20;
    ASSERT_TRUE(desk.waitFor([&] {
        const std::uint64_t before = desk.pictures().copiedPixels();
        raw.fill({701, 803, 8, 17}, Qt::white);
        const std::uint64_t copied =
            desk.waitFor(isSettled) ? desk.pictures().copiedPixels() - before : 0;
        return copied > 0 && copied <= most;
    }));
    int told = 0;
    auto subscription = desk.pictures().subscribe(raw.id(), [&told] { ++told; });
    const auto expectEqual = [&](const QImage& reduced, const char* what) {
        const QImage whole = desk.pictures().capture(raw.id());
        EXPECT_EQ(scaledPicture(whole, reduced.size()), reduced) << what;
    };
    expectEqual(desk.pictures().capture(raw.id(), limit), "at first");
    for (int i = 0; i < 12; ++i) {
        SCOPED_TRACE(i);
        // A cursor, and now and then something far from it.
        const QColor colour = QColor::fromHsv(i * 29, 255, 255);
        told = 0;
        raw.fill({701 + 13 * i, 803, 8, 17}, colour);
        if (i % 3 == 0)
            raw.fill({37, 300 - i, 300, 9}, colour);
        ASSERT_TRUE(desk.waitFor([&] {
            QCoreApplication::processEvents();
            return told > 0;
        }));
        const std::uint64_t before = desk.pictures().copiedPixels();
        QImage reduced;
        ASSERT_TRUE(desk.waitFor([&] {
            reduced = desk.pictures().capture(raw.id(), limit);
            return desk.pictures().known(raw.id(), limit).isCurrent;
        }));
        EXPECT_LE(desk.pictures().copiedPixels() - before, most);
        expectEqual(reduced, "after drawing");
        bool isSeen = false; // somewhere, as the frame is of unknown width
        const QImage whole = desk.pictures().capture(raw.id());
        for (int y = 803; y < 870; ++y)
            isSeen = isSeen || whole.pixel(701 + 13 * i + 1, y) == colour.rgb() ||
                     whole.pixel(701 + 13 * i + 6, y) == colour.rgb();
        EXPECT_TRUE(isSeen);
    }
    // A subscription that is gone hears nothing of what others do.
    auto other = desk.pictures().subscribe(raw.id(), [&] { subscription.reset(); });
    const int before = told;
    raw.fill({0, 0, 1200, 900}, Qt::blue);
    ASSERT_TRUE(desk.waitFor([&] { return isSettled() && !subscription; }));
    const int after = told;
    EXPECT_LE(after - before, 1);
    bool isMarked = false;
    other = desk.pictures().subscribe(raw.id(), [&] { isMarked = true; });
    raw.fill({0, 0, 20, 20}, Qt::red);
    ASSERT_TRUE(desk.waitFor([&] {
        QCoreApplication::processEvents();
        return isMarked;
    }));
    EXPECT_EQ(told, after);
}

TEST_P(EachCompositing, prefetchedPicture_isThereWithoutACopy)
{
    app.open(3);
    std::vector<xcb_window_t> ids;
    for (const AppWindow& window : app.windows()) {
        ASSERT_TRUE(desk.waitForColour(window, window.colour));
        ids.push_back(window.id);
    }
    app.setColour(app.windows()[1], Qt::white);
    EXPECT_TRUE(desk.waitFor([&] {
        desk.pictures().prefetch(ids);
        const std::uint64_t before = desk.pictures().copyCount();
        const QColor colour = desk.capturedColour(app.windows()[1]);
        return colour == Qt::white && desk.pictures().copyCount() == before;
    }));
}

TEST_P(EachCompositing, pictureOfAPrivateWindow_isNeitherMadeNorKept)
{
    desk.pictures().setPrivacy([&](const TrackedWindow& window) { return window.id == isPrivate; });
    const AppWindow window = open("secret", Qt::red);
    const AppWindow other = open("other", Qt::blue);
    isPrivate = window.id;
    desk.pictures().privacyChanged();
    minimise(window);
    const std::uint64_t copies = desk.pictures().copyCount();
    desk.pictures().prefetch({window.id});
    EXPECT_TRUE(desk.pictures().capture(window.id).isNull());
    EXPECT_TRUE(desk.pictures().known(window.id, {}).image.isNull());
    EXPECT_EQ(desk.pictures().copyCount(), copies);
    isPrivate = XCB_NONE;
    EXPECT_TRUE(desk.pictures().capture(window.id).isNull()) << "its last picture was kept";
    EXPECT_EQ(desk.capturedColour(other), QColor(Qt::blue));
}

TEST_P(EachCompositing, userWhoIsAway_leavesNoPictures)
{
    const AppWindow iconic = open("minimised", Qt::red);
    const AppWindow window = open("shown", Qt::blue);
    minimise(iconic);
    desk.pictures().setAllowed(false);
    const std::uint64_t copies = desk.pictures().copyCount();
    desk.pictures().prefetch({window.id});
    EXPECT_TRUE(desk.pictures().capture(window.id).isNull());
    EXPECT_TRUE(desk.pictures().capture(iconic.id).isNull());
    EXPECT_EQ(desk.pictures().copyCount(), copies);

    desk.pictures().setAllowed(true);
    EXPECT_TRUE(desk.waitForColour(window, Qt::blue));
    EXPECT_TRUE(desk.pictures().capture(iconic.id).isNull());
    desk.tracker().activate(iconic.id);
    EXPECT_TRUE(desk.waitForColour(iconic, Qt::red));
}

TEST_P(EachCompositing, windowsDestroyedUnderLoad_harmNobody)
{
    const AppWindow window = open("steady", Qt::red);
    std::atomic<bool> isDone = false;
    std::atomic<int> nulls = 0;
    std::vector<std::thread> threads;
    for (int i = 0; i < 15; ++i)
        threads.emplace_back([&] {
            while (!isDone) {
                for (const TrackedWindowPtr& other : desk.tracker().windows())
                    desk.pictures().capture(other->id);
                nulls += desk.pictures().capture(window.id).isNull();
                desk.core().windowServer().copyWindowInfo(WindowListOption::All);
            }
        });
    // Each is destroyed while it is being captured, three at a time.
    for (int i = 0; i < 8; ++i) {
        std::vector<std::unique_ptr<RawWindow>> passing;
        for (int x : {100, 300, 500}) {
            passing.push_back(std::make_unique<RawWindow>(desk.session(), QRect(x, 200, 300, 200)));
            passing.back()->map();
        }
        for (const auto& raw : passing)
            EXPECT_TRUE(desk.waitFor([&] { return !desk.pictures().capture(raw->id()).isNull(); }));
    }
    isDone = true;
    for (std::thread& thread : threads)
        thread.join();
    EXPECT_EQ(nulls, 0);
    EXPECT_FALSE(desk.isConnectionLost());
    EXPECT_TRUE(desk.waitFor([&] {
        auto listed = desk.display().numbers(desk.display().root(), "_NET_CLIENT_LIST");
        std::vector<std::uint32_t> tracked;
        for (const TrackedWindowPtr& other : desk.tracker().windows())
            tracked.push_back(other->id);
        std::sort(listed.begin(), listed.end());
        std::sort(tracked.begin(), tracked.end());
        return listed == tracked;
    }));
}

TEST(Pictures, serverWithoutSharedMemory_handsThemOverTheSocket)
{
    SessionOptions options{{800, 600}, WindowManager::Openbox};
    options.withoutExtension = u"MIT-SHM"_s;
    Session session(options);
    X11Desk desk(session);
    Application app(session, u"alpha"_s);
    EXPECT_TRUE(desk.waitForColour(app.open("picture", Qt::red), Qt::red));
}

// As large as windows may be, one would take four gigabytes.
TEST(Pictures, drawingOfNoScreensSize_isNotCopied)
{
    QString error;
    const auto connection = Connection::open(
        sharedSession({{1280, 1024}, WindowManager::Xfwm4, true}).display().name().toStdString(),
        error);
    ASSERT_TRUE(connection) << qPrintable(error);
    const xcb_pixmap_t drawing = connection->newId();
    xcb_create_pixmap(connection->get(), 24, drawing, connection->root(), 32000, 2200);
    ImageCopier copier(*connection);
    for (const auto& [height, size] : {std::pair(10, QSize(32000, 10)), {2200, QSize(0, 0)}}) {
        const QRect rect(0, 0, 32000, height);
        EXPECT_EQ(copier.copy(drawing, rect, 24).size(), size);
        EXPECT_EQ(copier.copySamples(drawing, rect, 24, rect.size()).size(), size);
    }
}

TEST(Pictures, compositorComingAndGoing_keepsPicturesLive)
{
    // Its window manager is replaced: a session of its own.
    Session session({{1280, 1024}, WindowManager::Openbox, false});
    X11Desk desk(session);
    Application app(desk.session(), u"alpha"_s);
    const AppWindow window = app.open("through changes", Qt::red);
    ASSERT_TRUE(desk.waitForColour(window, Qt::red));
    std::unique_ptr<Process> manager;
    QColor colour = Qt::red;
    int begun = 0;
    for (const bool isComposited : {true, false, true}) {
        manager = desk.session().start(u"replacement"_s, u"xfwm4"_s,
                                       {u"--replace"_s,
                                        isComposited ? u"--compositor=on"_s : u"--compositor=off"_s,
                                        u"--vblank=off"_s});
        ASSERT_TRUE(desk.waitFor([&] {
            return desk.core().windowServer().blendsTranslucency() == isComposited &&
                   desk.display().hasCompositor() == isComposited;
        }));
        EXPECT_EQ(desk.core().windowServer().compositorsBegun(), begun += isComposited ? 1 : 0);
        colour = QColor((colour.red() + 90) % 256, (colour.green() + 60) % 256, 40);
        app.setColour(window, colour);
        EXPECT_TRUE(desk.waitForColour(window, colour)) << isComposited;
    }
}

} // namespace
} // namespace lumbrix::platform::x11
