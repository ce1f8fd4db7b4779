// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Plank's docks from its answers on a real bus and from windows of no display.

#include "platform/linux/docks/PlankDock.h"
#include "tests/platform/linux/AdapterFixture.h"
#include "tests/platform/linux/TestPlank.h"

namespace lumbrix::test
{

using namespace platform;
namespace
{

constexpr std::int32_t strange = 4711; ///< process id of windows of no Plank of ours
const QString alpha = u"file:///a/alpha.desktop"_s;
const QString beta = u"file:///a/beta.desktop"_s;

/// Two items with these points.
TestPlank::Dock dockAt(int position, QPoint first, QPoint second)
{
    return {position, {{alpha, first}, {beta, second}}};
}

} // namespace

// Which window shows a dock. The numbers are those of the real Plank at 1280 by 1024.
TEST(PlankWindowsTest, docks_getTheWindowsThatShowThem)
{
    const QRect bottom(0, 884, 1280, 140);
    const QRect left(0, 0, 140, 1024);
    const QRect right(1140, 0, 140, 1024);
    const auto window = [](xcb_window_t id, std::int32_t pid, QRect bounds, QRect touched = {}) {
        return PlankWindow{{id, id, bounds}, pid, 1, touched};
    };
    const PlankWithoutWindow below{1, DockEdge::Bottom, {{32, 958}, {92, 958}}};
    const PlankWithoutWindow belowAtTheEnd{1, DockEdge::Bottom, {{1128, 958}, {1188, 958}}};
    const PlankWithoutWindow leftInTheCorner{1, DockEdge::Left, {{66, 930}, {66, 990}}};
    const PlankWithoutWindow rightInTheMiddle{1, DockEdge::Right, {{1214, 500}}};
    const PlankWithoutWindow silent{1, DockEdge::Bottom, {}};
    using Given = std::vector<std::optional<std::size_t>>;
    const auto given = [](const std::vector<PlankWithoutWindow>& docks,
                          const std::vector<PlankWindow>& windows) {
        return windowsOfPlanks(docks, windows);
    };
    EXPECT_EQ(given({leftInTheCorner, below}, {window(7, 1, bottom), window(8, 1, left)}),
              (Given{1, 0}));
    EXPECT_EQ(given({rightInTheMiddle, leftInTheCorner}, {window(7, 1, left), window(8, 1, right)}),
              (Given{1, 0}));
    // On one edge both windows are as long as the edge; only what can be touched is the dock's.
    const QRect atTheStart(0, 964, 184, 60);
    const QRect slidAway(1096, 1023, 184, 1);
    EXPECT_EQ(given({below, belowAtTheEnd},
                    {window(7, 1, bottom, slidAway), window(8, 1, bottom, atTheStart)}),
              (Given{1, 0}));
    EXPECT_EQ(given({below, belowAtTheEnd}, {window(8, 1, bottom), window(7, 1, bottom)}),
              (Given{1, 0}))
        << "the older one is the first dock's";
    EXPECT_EQ(given({silent, below}, {window(7, 1, bottom), window(8, 1, left)}), (Given{1, 0}));
    // Another Plank's window is no substitute, but numbers may have changed in a container.
    PlankWithoutWindow others = below;
    others.pid = 2;
    EXPECT_EQ(given({below, others}, {window(7, 2, bottom)}), (Given{std::nullopt, 0}));
    EXPECT_EQ(given({below}, {window(7, strange, bottom)}), Given{0});
}

TEST(PlankSlidesTest, docks_writeOverOneAnother_andEachIsBelieved)
{
    FakeTracker tracker;
    int time = 0;
    const auto write = [&](xcb_window_t id, QRect place) {
        FakeTracker::Window window;
        window.id = id;
        if (!tracker.window(id))
            tracker.add(window);
        tracker.change(id, [&](auto& changed) {
            changed.iconGeometry = place;
            changed.iconGeometryTime = ++time;
        });
    };
    // One at the bottom, one on the left, which are drawn twice as large as they count.
    const std::vector<PlankSlides::Dock> docks{{1, {0, 744, 1280, 280}, {396, 904, 488, 120}, 2},
                                               {2, {0, 0, 280, 1024}, {0, 268, 120, 488}, 2}};
    PlankSlides slides;
    const auto away = [&] {
        slides.note(tracker.windows(), docks);
        return std::pair(slides.isAway(1), slides.isAway(2));
    };
    EXPECT_EQ(away(), std::pair(false, false));
    write(7, {0, 166, 0, 0});
    EXPECT_EQ(away(), std::pair(false, true));
    write(8, {380, 452, 60, 60}); // a window opens, which the one at the bottom tells first
    EXPECT_EQ(away(), std::pair(false, true));
    write(8, {410, 512, 0, 0});
    EXPECT_EQ(away(), std::pair(true, true));
    write(7, {0, 136, 60, 60});
    EXPECT_EQ(away(), std::pair(true, false));
    write(7, {300, 0, 100, 30}); // a panel at the top
    EXPECT_EQ(away(), std::pair(true, false));
    write(7, {0, 370, 60, 60}); // in the corner, where both windows are
    write(8, {0, 400, 0, 0});
    EXPECT_EQ(away(), std::pair(true, true));
}

class PlankTest : public AdapterFixture
{
protected:
    static void SetUpTestSuite() { qputenv("GSETTINGS_BACKEND", "memory"); }

    PlankTest() : m_plank(m_loop, m_tracker, m_registry, m_bus.connect(u"lumbrix"_s), nullptr)
    {
        m_tracker.addListener(&m_plank);
        m_plank.start();
    }
    ~PlankTest() override
    {
        QDBusConnection::disconnectFromBus(m_bus.connect(u"lumbrix"_s).name());
    }

    void addWindow(xcb_window_t id, QRect bounds, std::int32_t pid = strange, int scale = 0)
    {
        FakeTracker::Window dock = window(id, u"plank"_s, u"Plank"_s, pid);
        dock.type = x11::WindowType::Dock;
        dock.bounds = dock.frameBounds = bounds;
        dock.resizeStep = scale;
        m_tracker.add(dock);
    }
    /// The number of items of each dock, and the first one's window and place.
    QString seen()
    {
        QStringList docks;
        for (const DockStatePtr& state : m_plank.states()) {
            const QRect rect = state->items.empty() ? QRect() : state->items.front().rect;
            docks += u"%1:%2 %3,%4 %5x%6"_s.arg(state->windows.front().id)
                         .arg(state->items.size())
                         .arg(rect.x())
                         .arg(rect.y())
                         .arg(rect.width())
                         .arg(rect.height());
        }
        return docks.join(u"; "_s);
    }
    testing::AssertionResult sees(const QString& expected)
    {
        const bool isSeen = waitUntil([&] {
            m_loop.advance(0.05);
            return seen() == expected;
        });
        return isSeen ? testing::AssertionSuccess()
                      : testing::AssertionFailure() << seen().toStdString();
    }

    PrivateBus m_bus;
    PlankDock m_plank;
};

// Plank counts in pixels of its own, which are larger on the screen when the user wants all larger.
// Measured at 1280 by 1024.
TEST_F(PlankTest, items_ofAnEnlargedPlank_standWhereTheyAreDrawn)
{
    struct Case {
        int scale;
        int position;
        QRect window;
        QPoint points[2];
        const char* seen;
    };
    for (const Case& at : {
             Case{1, 3, {0, 884, 1280, 140}, {{580, 958}, {640, 958}}, "9:2 550,964 60x60"},
             Case{2, 3, {0, 744, 1280, 280}, {{260, 446}, {320, 446}}, "9:2 460,904 120x120"},
             Case{2, 2, {0, 0, 1280, 280}, {{488, 66}, {548, 66}}, "9:2 916,0 120x120"},
             Case{2, 0, {0, 0, 280, 1024}, {{66, 32}, {66, 92}}, "9:2 0,4 120x120"},
             Case{2, 1, {1000, 0, 280, 1024}, {{574, 196}, {574, 256}}, "9:2 1160,332 120x120"},
         }) {
        addWindow(9, at.window, strange, at.scale);
        {
            const TestPlank plank(m_bus.connect(u"plank"_s), u"net.launchpad.plank"_s,
                                  {{u"dock1"_s, dockAt(at.position, at.points[0], at.points[1])}});
            EXPECT_TRUE(sees(QString::fromLatin1(at.seen)));
        }
        m_tracker.remove(9);
        EXPECT_TRUE(sees({}));
    }
}

TEST_F(PlankTest, items_withoutNumberOrPlace_areTamed)
{
    addWindow(9, {0, 884, 1280, 140});
    TestPlank plank(m_bus.connect(u"plank"_s), u"net.launchpad.plank"_s, {{u"dock1"_s, {}}});
    /// Of the items in whose place the next ones come.
    const auto firstOfRound = [&](int round) {
        TestPlank::Dock dock;
        for (int i = 100; i < 500; ++i)
            dock.items[u"file:///a/%1/%2.desktop"_s.arg(round).arg(i)] = {INT_MAX, INT_MIN};
        plank.docks[u"dock1"_s] = dock;
        plank.tell(u"dock1"_s);
        const QString sought = u"/a/%1/100.desktop"_s.arg(round);
        DockItem first;
        if (HasFailure())
            return first;
        EXPECT_TRUE(waitUntil([&] {
            m_loop.advance(0.05);
            for (const DockStatePtr& state : m_plank.states()) {
                EXPECT_LE(state->items.size(), 120U);
                for (const DockItem& item : state->items)
                    if (item.desktopFile == sought)
                        first = item;
            }
            return first.id != 0;
        }));
        return first;
    };
    const DockItem first = firstOfRound(0);
    EXPECT_LT(std::abs(first.rect.x()), 0x10000);
    firstOfRound(1);
    EXPECT_EQ(firstOfRound(0).id, first.id) << "an item is itself when it comes back";
    for (int round = 2; round < 10; ++round)
        firstOfRound(round);
    EXPECT_NE(firstOfRound(0).id, first.id) << "nothing is forgotten";
}

// Each that is met is asked a lot, and anyone on the bus may own as many names as it likes.
TEST_F(PlankTest, crowdOfPlanks_isNotMetWhole)
{
    const auto name = [](int i) { return u"net.launchpad.plank.crowd%1"_s.arg(i); };
    QDBusConnection crowd = m_bus.connect(u"crowd"_s);
    for (int i = 0; i < 10; ++i)
        ASSERT_TRUE(crowd.registerService(name(i)));
    addWindow(9, {0, 884, 1280, 140});
    const auto join = [&](const QString& itsName, int x) {
        return TestPlank(m_bus.connect(itsName), itsName,
                         {{u"dock1"_s, dockAt(3, {x, 958}, {x + 60, 958})}});
    };
    const TestPlank tooMany = join(u"net.launchpad.plank.a"_s, 580);
    crowd.unregisterService(name(0));
    const TestPlank inItsPlace = join(u"net.launchpad.plank.b"_s, 700);
    EXPECT_TRUE(sees(u"9:2 670,964 60x60"_s));
    const TestPlank usual = join(u"net.launchpad.plank"_s, 820);
    EXPECT_TRUE(sees(u"9:2 790,964 60x60"_s)) << "the one with the plain name is always met";
}

TEST_F(PlankTest, docks_ofSeveralPlanks_comeMoveAndGoByThemselves)
{
    const QRect bottom(0, 884, 1280, 140);
    addWindow(9, bottom);
    addWindow(10, {0, 0, 140, 1024});
    auto plank = std::make_unique<TestPlank>(
        m_bus.connect(u"plank"_s), u"net.launchpad.plank"_s,
        std::map<QString, TestPlank::Dock>{{u"dock1"_s, dockAt(3, {580, 958}, {640, 958})}});
    EXPECT_TRUE(sees(u"9:2 550,964 60x60; 10:0 0,0 0x0"_s)) << "one dock is there before the other";
    plank->docks[u"dock2"_s] = dockAt(0, {66, 452}, {66, 512});
    EXPECT_TRUE(sees(u"9:2 550,964 60x60; 10:2 0,422 60x60"_s));
    // The user moves an icon there and back, which it tells nobody.
    for (const int moved : {8, 0}) {
        plank->docks[u"dock2"_s] = dockAt(0, {66, 452 + moved}, {66, 512 + moved});
        m_plank.pointerCrossed();
        EXPECT_TRUE(sees(u"9:2 550,964 60x60; 10:2 0,%1 60x60"_s.arg(422 + moved)));
    }
    const DockStatePtr left = m_plank.states()[1];
    EXPECT_EQ(left->edge, DockEdge::Left);

    addWindow(11, {0, 824, 1280, 140});
    TestPlank second(m_bus.connect(u"second"_s), u"net.launchpad.plank.second"_s,
                     {{u"second"_s, dockAt(3, {700, 898}, {760, 898})}});
    EXPECT_TRUE(sees(u"9:2 550,964 60x60; 10:2 0,422 60x60; 11:2 670,904 60x60"_s));

    // Its window goes to the other side of the screen, and its items change places there.
    m_tracker.change(
        10, [](auto& window) { window.bounds = window.frameBounds = QRect(1140, 0, 140, 1024); });
    plank->docks[u"dock2"_s] = dockAt(1, {1214, 512}, {1214, 452});
    plank->tell(u"dock2"_s);
    EXPECT_TRUE(sees(u"9:2 550,964 60x60; 10:2 1220,422 60x60; 11:2 670,904 60x60"_s));
    const DockStatePtr right = m_plank.states()[1];
    EXPECT_EQ(right->items[0].id, left->items[1].id) << "an item is itself wherever it goes";
    EXPECT_EQ(right->items[1].id, left->items[0].id);
    EXPECT_NE(right->items[1].id, m_plank.states()[0]->items[0].id) << "as on the other dock";

    // One that hangs keeps what it had, and the others go on.
    plank->manners = TestPlank::Manners::Hangs;
    plank->tell(u"dock1"_s);
    plank->tell(u"dock2"_s);
    m_plank.pointerCrossed();
    second.docks[u"second"_s] = dockAt(3, {730, 898}, {790, 898});
    second.tell(u"second"_s);
    EXPECT_TRUE(sees(u"9:2 550,964 60x60; 10:2 1220,422 60x60; 11:2 700,904 60x60"_s));

    plank->manners = TestPlank::Manners::Refuses; // as the bus does in its place after a while
    m_tracker.remove(11);
    addWindow(11, {0, 824, 1280, 140});
    second.docks[u"second"_s] = dockAt(3, {760, 898}, {820, 898});
    second.tell(u"second"_s);
    EXPECT_TRUE(sees(u"9:2 550,964 60x60; 10:2 1220,422 60x60; 11:2 730,904 60x60"_s));

    plank.reset();
    m_tracker.remove(9);
    m_tracker.remove(10);
    EXPECT_TRUE(sees(u"11:2 730,904 60x60"_s));
}

} // namespace lumbrix::test
