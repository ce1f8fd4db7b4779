// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which windows there are and what they say, with real window managers.

#include "X11Desk.h"
#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/EventThread.h"

#include <QtCore/QStandardPaths>

#include <csignal>
#include <future>

namespace lumbrix::platform::x11
{
namespace
{

const SessionOptions plain{{1280, 1024}, WindowManager::Xfwm4, false};
const SessionOptions openboxSession{{1280, 1024}, WindowManager::Openbox, false};

class EachWindowManager : public testing::TestWithParam<SessionOptions>
{
protected:
    X11Desk desk{GetParam()};
    Application app{desk.session(), u"alpha"_s};
};
INSTANTIATE_TEST_SUITE_P(Tracker, EachWindowManager, testing::Values(plain, openboxSession),
                         [](const auto& tested) {
                             return tested.param.windowManager == WindowManager::Xfwm4 ? "xfwm4"
                                                                                       : "openbox";
                         });

TEST_P(EachWindowManager, windowsOfAnApplication_areFollowedAndCommanded)
{
    const AppWindow first = app.open("first", Qt::red, {{400, 300}, {100, 120}});

    const auto window = desk.waitForWindow(first.id, [&](const TrackedWindow& w) {
        return w.isMapped && w.frame != w.id && !w.title.isEmpty();
    });
    ASSERT_TRUE(window);
    EXPECT_EQ(window->title, u"first"_s);
    EXPECT_EQ(window->classInstance, u"alpha"_s);
    EXPECT_EQ(window->className, u"Alpha"_s);
    EXPECT_EQ(window->pid, app.process().pid());
    EXPECT_EQ(window->type, WindowType::Normal);
    EXPECT_TRUE(window->canDelete);
    const auto client = desk.display().geometry(first.id);
    const auto frame = desk.display().geometry(window->frame);
    ASSERT_TRUE(client && frame);
    EXPECT_EQ(window->bounds, *frame);
    EXPECT_TRUE(window->bounds.contains(*client) && window->bounds != *client);

    // With a single window some window managers do not say the order; with two it must be right.
    const AppWindow second = app.open("second", Qt::green, {{300, 200}, {200, 200}});
    const auto topmost = [&] {
        const auto windows = desk.tracker().windows();
        return windows.empty() ? XCB_NONE : windows.front()->id;
    };
    for (const AppWindow& top : {first, second, first}) {
        desk.tracker().activate(top.id);
        EXPECT_TRUE(desk.waitFor(
            [&] { return topmost() == top.id && desk.tracker().activeWindow() == top.id; }));
    }
    EXPECT_EQ(desk.tracker().windows().size(), 2U);

    desk.tracker().iconify(first.id);
    desk.waitForWindow(first.id, [](const TrackedWindow& w) { return w.isIconic && !w.isMapped; });
    EXPECT_FALSE(desk.info(first.id)->isOnscreen);
    desk.tracker().deiconify(first.id);
    desk.waitForWindow(first.id, [](const TrackedWindow& w) { return !w.isIconic && w.isMapped; });
    desk.tracker().iconify(first.id);
    desk.waitForWindow(first.id, [](const TrackedWindow& w) { return w.isIconic; });
    desk.tracker().activate(first.id);
    desk.waitForWindow(first.id, [](const TrackedWindow& w) { return !w.isIconic && w.isMapped; });

    app.setTitle(second, "renamed");
    desk.waitForWindow(second.id, [](const TrackedWindow& w) { return w.title == u"renamed"_s; });
    desk.tracker().close(second.id);
    EXPECT_TRUE(desk.waitFor([&] { return !desk.tracker().window(second.id); }));
    EXPECT_EQ(app.closeRequests(), std::vector<int>{second.index});
    // Told to listeners right after it can be read.
    EXPECT_TRUE(desk.waitFor([&] { return desk.recorder().removed == 1; }));
}

TEST_P(EachWindowManager, windowOfAnotherDesktop_isNotIconicAndComesWithItsDesktop)
{
    const AppWindow window = app.open("elsewhere", Qt::red);
    ASSERT_GE(desk.tracker().desktopCount(), 2);
    app.moveToDesktop(window, 1);
    desk.waitForWindow(window.id, [](const TrackedWindow& w) {
        return w.desktop == 1 && !w.isMapped && !w.isIconic;
    });
    const auto info = desk.info(window.id);
    EXPECT_FALSE(info->isOnscreen);
    EXPECT_EQ(info->workspace, 2);
    EXPECT_FALSE(info->isOnAllWorkspaces);
    EXPECT_EQ(info->layer, 0);
    EXPECT_EQ(desk.core().windowServer().workspaceWindowList(2), std::vector<WindowID>{window.id});

    desk.tracker().activate(window.id);
    desk.waitForWindow(window.id, [](const TrackedWindow& w) { return w.isMapped; });
    EXPECT_TRUE(desk.waitFor([&] { return desk.tracker().currentDesktop() == 1; }));
    EXPECT_TRUE(desk.info(window.id)->isOnscreen);
    desk.display().request(desk.display().root(), "_NET_CURRENT_DESKTOP", {0, 0});
    EXPECT_TRUE(desk.waitFor([&] { return desk.tracker().currentDesktop() == 0; }));

    app.moveToDesktop(window, -1);
    desk.waitForWindow(window.id,
                       [](const TrackedWindow& w) { return w.isMapped && w.desktop < 0; });
    EXPECT_EQ(desk.info(window.id)->workspace, 0);
    EXPECT_TRUE(desk.info(window.id)->isOnAllWorkspaces);
    EXPECT_TRUE(desk.core().windowServer().isOnAllWorkspaces(window.id));

    // A rolled-up window has the iconic state of ICCCM with some window managers.
    app.moveToDesktop(window, 0);
    desk.display().request(window.id, "_NET_WM_STATE",
                           {1, desk.display().atom("_NET_WM_STATE_SHADED"), 0, 2});
    const auto shaded = desk.waitForWindow(window.id, [](const TrackedWindow& w) {
        return w.desktop == 0 && w.isMapped && w.bounds.height() < 100;
    });
    EXPECT_FALSE(shaded->isIconic);
}

TEST(Tracker, nonsenseInProperties_isTamed)
{
    X11Desk desk(plain);
    RawWindow raw(desk.session(), {50, 60, 200, 100});
    raw.setBytes("WM_NAME", "STRING", "caf\xe9");
    raw.map();
    auto window = desk.waitForWindow(
        raw.id(), [](const TrackedWindow& w) { return w.title == QString::fromUtf8("café"); });
    // No _NET_WM_PID: the server knows whose connection it is.
    EXPECT_EQ(window->pid, static_cast<std::int32_t>(getpid()));
    EXPECT_FALSE(window->canDelete);

    raw.setBytes("_NET_WM_NAME", "UTF8_STRING", QByteArray("\xff\xfe").repeated(50000));
    window =
        desk.waitForWindow(raw.id(), [](const TrackedWindow& w) { return w.title.size() > 1000; });
    EXPECT_EQ(window->title, QString(4096, QChar::ReplacementCharacter));
    raw.setNumbers("_NET_WM_NAME", "CARDINAL", {1, 2, 3}); // not text at all
    desk.waitForWindow(raw.id(), [](const TrackedWindow& w) { return w.title.isEmpty(); });

    raw.setNumbers("_GTK_FRAME_EXTENTS", "CARDINAL", {0xffffffff, 0x7fffffff, 5, 5});
    raw.setNumbers("_NET_WM_ICON_GEOMETRY", "CARDINAL", {0xffffffff, 0x7fffffff, 1, 0xffffffff});
    window = desk.waitForWindow(raw.id(),
                                [](const TrackedWindow& w) { return w.iconGeometry.has_value(); });
    EXPECT_FALSE(window->bounds.isEmpty());
    EXPECT_EQ(window->iconGeometry->x(), -1);
}

TEST(Tracker, burstOfIconGeometries_isCountedButFetchedTogether)
{
    X11Desk desk(plain);
    RawWindow raw(desk.session(), {50, 60, 200, 100});
    raw.map();
    desk.waitForWindow(raw.id(), [](const TrackedWindow& w) { return w.isMapped; });
    constexpr std::uint32_t writes = 300;
    const int changesBefore = desk.recorder().changed;
    for (std::uint32_t i = 1; i <= writes; ++i)
        raw.queueNumbers("_NET_WM_ICON_GEOMETRY", "CARDINAL", {i, 1000, 40, 20});
    raw.sync();
    const auto window = desk.waitForWindow(
        raw.id(), [](const TrackedWindow& w) { return w.iconGeometrySerial == writes; });
    EXPECT_EQ(window->iconGeometry, QRect(writes, 1000, 40, 20));
    EXPECT_LT(desk.recorder().changed - changesBefore, static_cast<int>(writes) / 3);
}

TEST(Tracker, clientDrawnShadow_isNotPartOfTheWindow)
{
    X11Desk desk(plain);
    RawWindow raw(desk.session(), {300, 300, 220, 120});
    raw.setNumbers("_MOTIF_WM_HINTS", "_MOTIF_WM_HINTS", {2, 0, 0, 0, 0}); // no decorations
    raw.setNumbers("_GTK_FRAME_EXTENTS", "CARDINAL", {10, 12, 6, 14});
    raw.map();
    const auto window =
        desk.waitForWindow(raw.id(), [](const TrackedWindow& w) { return w.isMapped; });
    EXPECT_EQ(window->frameBounds.size(), QSize(220, 120));
    EXPECT_EQ(window->bounds, window->frameBounds.adjusted(10, 6, -12, -14));
    raw.fill({0, 0, 220, 120}, Qt::black);
    raw.fill({10, 6, 198, 100}, Qt::blue);
    EXPECT_TRUE(desk.waitFor([&] {
        const QImage picture = desk.pictures().capture(raw.id());
        return picture.size() == QSize(198, 100) && picture.pixelColor(0, 0) == Qt::blue &&
               picture.pixelColor(197, 99) == Qt::blue;
    }));
}

TEST(Tracker, decorationsThatAreOnlyComposed_leaveNoBlackStrip)
{
    if (QStandardPaths::findExecutable(u"kwin_x11"_s).isEmpty())
        GTEST_SKIP() << "kwin_x11 is not installed";
    for (const bool isComposited : {true, false}) {
        Session session({{1280, 1024}, WindowManager::KWin, isComposited});
        X11Desk desk(session);
        Application app(session, u"alpha"_s);
        const AppWindow window = app.open("framed", Qt::red);
        const auto isBare = [&] {
            const auto tracked = desk.tracker().window(window.id);
            const QImage picture = desk.pictures().capture(window.id);
            return tracked && tracked->decorations.top() > 10 &&
                   picture.size() == QSize(400, 300) && picture.pixelColor(0, 0) == Qt::red &&
                   picture.pixelColor(399, 299) == privatedesk::lowerColour(Qt::red);
        };
        const auto isFramed = [&] {
            const QImage picture = desk.pictures().capture(window.id);
            return picture.height() > 310 && picture.pixelColor(30, 60) == Qt::red &&
                   qGray(picture.pixel(30, 1)) > 0;
        };
        EXPECT_TRUE(isComposited ? desk.waitFor(isBare) : desk.waitFor(isFramed)) << isComposited;
        const auto other =
            session.start(u"replacement"_s, isComposited ? u"xfwm4"_s : u"picom"_s,
                          isComposited ? QStringList{u"--replace"_s, u"--vblank=off"_s}
                                       : QStringList{u"--config"_s, u"/dev/null"_s, u"--backend"_s,
                                                     u"xrender"_s});
        EXPECT_TRUE(isComposited ? desk.waitFor(isFramed) : desk.waitFor(isBare)) << isComposited;
    }
}

TEST(Tracker, stoppedClient_isNotRespondingUntilItGoesOn)
{
    X11Desk desk(plain);
    Application app(desk.session(), u"alpha"_s);
    const AppWindow window = app.open("patient", Qt::red);
    desk.waitForWindow(window.id, [](const TrackedWindow& w) { return w.isMapped; });
    app.process().signal(SIGSTOP);
    EXPECT_FALSE(desk.pictures().capture(window.id).isNull()); // asks whether it is alive
    desk.waitForWindow(window.id, [](const TrackedWindow& w) { return !w.isResponding; });
    app.process().signal(SIGCONT);
    desk.waitForWindow(window.id, [](const TrackedWindow& w) { return w.isResponding; });
}

TEST(Tracker, docksDesktopsAndPopups_areToldApart)
{
    X11Desk desk(plain);
    RawWindow dock(desk.session(), {0, 980, 1280, 44});
    dock.setType("_NET_WM_WINDOW_TYPE_DOCK");
    dock.map();
    RawWindow background(desk.session(), {0, 0, 1280, 1024});
    background.setType("_NET_WM_WINDOW_TYPE_DESKTOP");
    background.map();
    desk.waitForWindow(dock.id(), [](const TrackedWindow& w) { return w.isMapped; });
    desk.waitForWindow(background.id(), [](const TrackedWindow& w) { return w.isMapped; });

    // Sent by a program: to us alone, as the window manager would believe it.
    xcb_connection_t* const c = desk.display().connection();
    ASSERT_TRUE(desk.waitFor([&] {
        const std::unique_ptr<xcb_get_window_attributes_reply_t, decltype(&std::free)> dockIs(
            xcb_get_window_attributes_reply(c, xcb_get_window_attributes(c, dock.id()), nullptr),
            &std::free);
        return (dockIs->all_event_masks & XCB_EVENT_MASK_LEAVE_WINDOW) != 0;
    }));
    union {
        xcb_destroy_notify_event_t event;
        char bytes[32] = {XCB_DESTROY_NOTIFY};
    } gone;
    gone.event.event = gone.event.window = dock.id();
    xcb_send_event(c, 0, dock.id(), XCB_EVENT_MASK_LEAVE_WINDOW, gone.bytes);
    EXPECT_TRUE(desk.display().geometry(dock.id())); // the server has sent it on
    dock.setBytes("WM_NAME", "STRING", "still there");
    desk.waitForWindow(dock.id(),
                       [](const TrackedWindow& w) { return w.title == u"still there"_s; });
    // Known without a question, whichever of the two properties it uses.
    dock.setNumbers("_NET_WM_STRUT", "CARDINAL", {0, 0, 0, 44});
    desk.waitForWindow(dock.id(),
                       [](const TrackedWindow& w) { return w.strut && w.resizeStep == 0; });
    dock.setNumbers("_NET_WM_STRUT_PARTIAL", "CARDINAL", {0, 0, 0, 66, 0, 0, 0, 0, 0, 0, 0, 1279});
    dock.setNumbers("WM_NORMAL_HINTS", "WM_SIZE_HINTS",
                    {64, 0, 0, 0, 0, 0, 0, 0, 0, 2, 2, 0, 0, 0, 0, 0, 0, 0});
    desk.waitForWindow(dock.id(), [](const TrackedWindow& w) {
        return w.strut == QMargins(0, 0, 0, 66) && w.resizeStep == 2;
    });
    EXPECT_GT(desk.info(dock.id())->layer, 0);
    EXPECT_LT(desk.info(background.id())->layer, 0);
    for (const WindowInfo& entry :
         desk.core().windowServer().copyWindowInfo(WindowListOption::ExcludeDesktopElements))
        EXPECT_NE(entry.number, background.id());

    RawWindow menu(desk.session(), {10, 10, 50, 80}, true);
    menu.setType("_NET_WM_WINDOW_TYPE_POPUP_MENU");
    menu.map();
    EXPECT_TRUE(desk.waitFor([&] {
        const auto popup = desk.recorder().heard().popup;
        return popup && popup->id == menu.id() && popup->kind == PopupMapped::Kind::Menu &&
               popup->pid == static_cast<std::int32_t>(getpid());
    }));
}

TEST(Core, missingServer_isAnErrorInWords)
{
    QtRunLoop runLoop;
    QString error;
    EXPECT_FALSE(X11Core::create(runLoop, {1.0, ":4711"}, {}, error));
    EXPECT_TRUE(error.contains(u":4711"_s)) << qPrintable(error);
}

TEST(Core, threadThatIsWokenToStop_doesNotWaitForAnEvent)
{
    X11Desk desk(plain);
    QString error;
    const auto connection = Connection::open(desk.display().name().toStdString(), error);
    ASSERT_TRUE(connection) << qPrintable(error);
    QtRunLoop runLoop;
    // The wake-up comes at another moment of the thread's round each time.
    for (int delay = 0; delay < 16000; ++delay) {
        const WakeFd wake;
        EventThread thread(runLoop, *connection, wake, {}, {});
        thread.start();
        wake.wake();
        for (volatile int spin = delay % 4000 * 20; spin > 0;)
            spin = spin - 1;
    }
}

TEST(Core, lostServer_isReportedAndNothingBlocks)
{
    // A session of its own, as it does not outlive the test.
    auto session = std::make_unique<Session>(SessionOptions{{640, 480}, WindowManager::Openbox});
    QtRunLoop runLoop;
    std::promise<void> lost;
    QString error;
    const auto core = X11Core::create(
        runLoop, {1.0, session->display().name().toStdString()}, [&] { lost.set_value(); }, error);
    ASSERT_TRUE(core) << qPrintable(error);
    core->start();
    RawWindow raw(*session, {50, 60, 200, 100});
    raw.map();
    ASSERT_TRUE(session->display().waitFor(
        [&] { return !core->pictures().capture(raw.id()).isNull(); }, patience(5000)));

    session->server().signal(SIGKILL);
    ASSERT_EQ(lost.get_future().wait_for(patience(5000)), std::future_status::ready);
    EXPECT_FALSE(core->pictures().capture(raw.id()).isNull()); // the last known one
    core->tracker().activate(raw.id());
    core->pictures().prefetch({raw.id()});
    EXPECT_EQ(core->inputState().pressedMouseButtons(), 0U);
}

} // namespace
} // namespace lumbrix::platform::x11
