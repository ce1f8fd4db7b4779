// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A panel beside another dock that tells all windows that their icons are on it: what there is to
// hover, with real messages on a private bus and virtual time.
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <cstring>
#include <limits>

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCall>

#include "tests/platform/docks/TestPanel.h"
#include "tests/platform/linux/AdapterFixture.h"

namespace lumbrix::test
{

using namespace platform;
namespace
{

const QRect plankBounds(0, 0, 140, 770);
constexpr int nowhere = std::numeric_limits<int>::min();

struct Bus {
    PrivateBus bus;
    TestPanel panel{bus};
    QDBusConnection session = bus.connect(u"session"_s);
};

QRect buttonAt(int x) { return {x, 771, 100, 29}; }

} // namespace

class AccessibleButtonsTest : protected Bus, public AdapterFixture
{
protected:
    AccessibleButtonsTest() : AdapterFixture(&session)
    {
        m_tracker.add(window(1, u"term"_s, u"Term"_s, 101, u"shell"_s));
        m_tracker.add(window(3, u"term"_s, u"Term"_s, 101, u"logs"_s));
        m_tracker.add(window(5, u"editor"_s, u"Editor"_s, 302, u"notes"_s));
        addDock(panelWindow, u"panel"_s, ::getpid(), panelBounds);
        // As a panel of the Xfce desktop does.
        panel.add(u"root"_s, u"frame"_s, 23, panelBounds);
        panel.add(u"root"_s, u"preferences"_s, 23, QRect(300, 300, 400, 400));
        panel.add(u"preferences"_s, u"page"_s, TestPanel::toggle, buttonAt(900), u"notes"_s);
        panel.add(u"frame"_s, u"menu"_s, TestPanel::toggle, buttonAt(0), u"Editor"_s);
        panel.add(u"frame"_s, u"box"_s, TestPanel::boxSize);
        panel.add(u"box"_s, u"list"_s, TestPanel::boxSize);
        panel.add(u"box"_s, u"launcher"_s, TestPanel::push, buttonAt(800), u"notes"_s);
        panel.add(u"list"_s, u"group"_s, TestPanel::toggle, buttonAt(100), u"Term"_s);
        panel.add(u"list"_s, u"b1"_s, TestPanel::toggle, QRect(nowhere, nowhere, 90, 29),
                  u"shell"_s);
        panel.add(u"list"_s, u"b3"_s, TestPanel::toggle, QRect(-1, -1, 1, 1), u"logs"_s);
        panel.add(u"list"_s, u"b5"_s, TestPanel::toggle, buttonAt(200), u"notes"_s);
    }

    void addPlank()
    {
        addDock(0x6000, u"plank"_s, 600, plankBounds);
        for (const xcb_window_t id : {1, 3, 5})
            m_tracker.placeIcon(id, QRect(0, 300, 60, 60));
    }

    /// That is for 1.5 seconds at most, and for nothing else is waited 1.1 to 1.5 seconds.
    bool isWaitingForAnswers() const
    {
        const auto next = m_loop.timeUntilNextEvent();
        return next && *next > 1.1 && *next <= 1.5;
    }
    /// Lets all happen that waits for time, and all answers come; time stands still for these.
    void settle()
    {
        EXPECT_TRUE(waitUntil([&] {
            const auto next = m_loop.timeUntilNextEvent();
            if (next && !isWaitingForAnswers())
                m_loop.advance(*next);
            return !next;
        }));
    }
    /// Lets time pass, and questions come to whom they are put, whether they are answered or not.
    void pass(double seconds)
    {
        for (; seconds > 0; seconds -= 0.5) {
            m_loop.advance(0.5);
            roundTrip();
        }
    }
    /// Whatever was sent before has come: the bus takes turns among those who send.
    void roundTrip()
    {
        for (int i = 0; i < 2; ++i) {
            const QDBusPendingCall pending =
                bus.connect(u"marker"_s)
                    .asyncCall(QDBusMessage::createMethodCall(
                        session.baseService(), u"/"_s, u"org.freedesktop.DBus.Peer"_s, u"Ping"_s));
            EXPECT_TRUE(waitUntil([&] { return pending.isFinished(); }));
        }
    }

    /// The panel tells that its buttons were laid out anew, and is read.
    void settleAfterMove()
    {
        m_loop.runUntilIdle();
        panel.moved(u"list"_s);
        EXPECT_TRUE(waitUntil([&] { return m_loop.timeUntilNextEvent().has_value(); }))
            << "nobody has listened";
        settle();
    }

    /// Titles and left edges.
    std::string items()
    {
        QStringList result;
        for (const ElementRef& item : dockItems())
            result << text(item, "AXTitle") + u' ' +
                          QString::number(read(item, "AXPosition").as<QPointF>()->x());
        return result.join(u", "_s).toStdString();
    }
};

TEST_F(AccessibleButtonsTest, panel_alone_is_believed_and_nobody_asked)
{
    m_tracker.placeIcon(1, buttonAt(400));
    m_tracker.placeIcon(5, buttonAt(500));
    pass(5);
    EXPECT_EQ(items(), "Term 400, Editor 500");
    EXPECT_EQ(panel.calls, 0);
}

TEST_F(AccessibleButtonsTest, panel_that_tells_windows_nothing_is_read)
{
    pass(1);
    EXPECT_EQ(panel.calls, 0) << "it has a moment's time to tell";
    pass(1.5);
    settle();
    EXPECT_EQ(items(), "Term 100, Editor 200");
}

TEST_F(AccessibleButtonsTest, places_taken_by_another_dock_are_read_and_followed)
{
    addPlank();
    settle();
    EXPECT_EQ(items(), "Term 100, Editor 200");
    const auto before = dockItems();
    EXPECT_EQ(*read(before[0], "AXSize").as<QSizeF>(), QSizeF(100, 30));
    EXPECT_TRUE(waitUntil([&] { return panel.registered.size() == 2; }));

    // An idle desktop.
    const int calls = panel.calls;
    m_docks.synchronize();
    pass(10);
    EXPECT_EQ(panel.calls, calls);

    // A window's title comes before its button's.
    m_tracker.change(5, [](auto& window) { window.title = u"other"_s; });
    settleAfterMove();
    EXPECT_EQ(items(), "Term 100, Editor 200");
    EXPECT_TRUE(elementsEqual(dockItems()[1], before[1]));

    // The group falls apart when there is room, and everything moves.
    panel.elements[u"b1"_s].extents = buttonAt(300);
    panel.elements[u"b3"_s].extents = buttonAt(400);
    panel.elements[u"group"_s].extents = QRect();
    settleAfterMove();
    EXPECT_EQ(items(), "Editor 200, Term 300, Term 400");

    // The panel is slower to show a new window than we to look.
    m_tracker.add(window(7, u"editor"_s, u"Editor"_s, 302, u"new"_s));
    m_loop.advance(0.3);
    EXPECT_TRUE(isWaitingForAnswers());
    EXPECT_TRUE(waitUntil([&] { return !isWaitingForAnswers(); }));
    panel.add(u"list"_s, u"b7"_s, TestPanel::toggle, buttonAt(500), u"new"_s);
    settle();
    EXPECT_EQ(items(), "Editor 200, Term 300, Term 400, Editor 500");
    m_tracker.remove(3);
    settle();
    EXPECT_EQ(items(), "Editor 200, Term 300, Editor 500");

    // Twice as many pixels as the program believes.
    panel.elements[u"frame"_s].extents = QRect(0, 385, 640, 15);
    settle();
    m_tracker.change(1, [](auto& window) { window.isIconic = true; });
    settle();
    EXPECT_EQ(items(), "Editor 400, shell 600, Editor 1000");

    // The other dock goes; the panel tells again by itself.
    m_tracker.remove(0x6000);
    m_tracker.placeIcon(5, buttonAt(700));
    settle();
    EXPECT_EQ(items(), "Editor 700");
    const int atLast = panel.calls;
    panel.moved(u"list"_s);
    m_tracker.change(5, [](auto& window) { window.isIconic = true; });
    pass(5);
    EXPECT_EQ(panel.calls, atLast);
}

TEST_F(AccessibleButtonsTest, storm_of_events_is_read_a_few_times_a_second)
{
    addPlank();
    settle();
    panel.walks = 0;
    for (int i = 0; i < 100; ++i) {
        panel.elements[u"b5"_s].extents.translate(1, 0);
        panel.moved(u"list"_s);
        roundTrip();
        m_loop.advance(0.02);
        roundTrip();
    }
    EXPECT_GE(panel.walks, 2);
    EXPECT_LE(panel.walks, 9);
    settle();
    EXPECT_EQ(items(), "Term 100, Editor 300");
    // One that reports nothing new gets attention ever more rarely.
    panel.walks = 0;
    for (int i = 0; i < 100; ++i) {
        panel.moved(u"list"_s);
        roundTrip();
        m_loop.advance(0.1);
        roundTrip();
    }
    EXPECT_LE(panel.walks, 8);
}

TEST_F(AccessibleButtonsTest, program_that_misbehaves_keeps_its_buttons_and_holds_nobody_up)
{
    addPlank();
    settle();
    const std::string good = items();
    for (const TestPanel::Manners manners :
         {TestPanel::Manners::Hangs, TestPanel::Manners::Nonsense, TestPanel::Manners::Refuses,
          TestPanel::Manners::Crowded}) {
        SCOPED_TRACE(static_cast<int>(manners));
        panel.manners = manners;
        panel.calls = 0;
        m_tracker.change(1, [](auto& window) { window.isIconic = !window.isIconic; });
        pass(10);
        EXPECT_TRUE(waitUntil([&] { return panel.calls > 0; }));
        EXPECT_LE(panel.calls, 8000);
        EXPECT_EQ(items(), good);
        panel.manners = TestPanel::Manners::Good;
        pass(2); // until what it was asked before is given up
        panel.elements[u"b5"_s].extents.translate(50, 0);
        m_tracker.change(1, [](auto& window) { window.isIconic = !window.isIconic; });
        settle();
        EXPECT_NE(items(), good);
        panel.elements[u"b5"_s].extents.translate(-50, 0);
        settleAfterMove();
        EXPECT_EQ(items(), good);
    }
}

// Its socket takes no more connections: whoever connects waits for ever.
TEST_F(AccessibleButtonsTest, bus_that_hangs_holds_nobody_up)
{
    const QByteArray path = m_folder.filePath(u"hung"_s).toUtf8();
    sockaddr_un place{};
    place.sun_family = AF_UNIX;
    std::memcpy(place.sun_path, path.constData(), static_cast<std::size_t>(path.size()));
    const int server = ::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0);
    ASSERT_EQ(::bind(server, reinterpret_cast<const sockaddr*>(&place), sizeof place), 0);
    ASSERT_EQ(::listen(server, 1), 0);
    panel.busAddress = u"unix:path="_s + QString::fromUtf8(path);
    addPlank();
    pass(60);
    EXPECT_EQ(panel.calls, 5) << "questions for the address";
    EXPECT_EQ(items(), "");
    panel.busAddress = bus.address();
    m_tracker.change(1, [](auto& window) { window.isIconic = true; });
    settle();
    EXPECT_EQ(items(), "Term 100, Editor 200");
    ::close(server);
}

TEST_F(AccessibleButtonsTest, panel_that_vanishes_and_returns_is_read_again)
{
    addPlank();
    settle();
    m_tracker.remove(panelWindow);
    panel.elements[u"frame"_s].children.clear(); // it starts
    settle();
    EXPECT_EQ(items(), "");
    const int calls = panel.calls;
    panel.moved(u"list"_s);
    m_tracker.change(1, [](auto& window) { window.isIconic = true; });
    pass(3);
    EXPECT_EQ(panel.calls, calls);
    addDock(panelWindow, u"panel"_s, ::getpid(), panelBounds);
    m_loop.advance(0.1);
    roundTrip();
    panel.elements[u"frame"_s].children = {u"box"_s};
    settle();
    EXPECT_EQ(items(), "Term 100, Editor 200");
}

} // namespace lumbrix::test
