// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/IconGeometry.h"
#include "platform/linux/docks/OwnDisplays.h"
#include "platform/linux/docks/PlankGeometry.h"
#include "platform/linux/docks/PlankUnnamed.h"
#include "tests/platform/linux/AdapterFixture.h"

namespace lumbrix::test
{

using namespace platform;

namespace
{
const QRect firstButton(100, 772, 150, 26);
const QRect secondButton(252, 772, 150, 26);
} // namespace

// Plank at 48 pixels tells points 66 pixels off the edge of the screen, 60 apart; with icons that
// grow by half, 90 off. The places must be the same, on every side and every monitor.
TEST(PlankGeometryTest, places_stand_on_the_dock_edge_whatever_the_zoom)
{
    struct Case {
        DockEdge edge;
        QRect dock;
        QPoint off;
        QRect rect;
        QRect magnified;
    };
    for (const int depth : {66, 90}) {
        const bool zoom = depth == 90;
        const PlankLook look{.iconSize = 48, .magnifies = zoom, .zoomPercent = 150};
        const int grown = zoom ? 84 : 60;
        for (const Case& at : {
                 Case{DockEdge::Bottom,
                      {1280, 1040, 1920, 140},
                      {2000, 1180 - depth},
                      {1970, 1120, 60, 60},
                      {1970, 1180 - grown, 60, grown}},
                 Case{DockEdge::Top,
                      {1280, 100, 1920, 140},
                      {2000, 100 + depth},
                      {1970, 100, 60, 60},
                      {1970, 100, 60, grown}},
                 Case{DockEdge::Left,
                      {1280, 100, 140, 1080},
                      {1280 + depth, 600},
                      {1280, 570, 60, 60},
                      {1280, 570, grown, 60}},
                 Case{DockEdge::Right,
                      {3060, 100, 140, 1080},
                      {3200 - depth, 600},
                      {3140, 570, 60, 60},
                      {3200 - grown, 570, grown, 60}},
             }) {
            const QPoint next = isHorizontal(at.edge) ? QPoint(120, 0) : QPoint(0, 60);
            const auto places = plankPlaces({at.off, at.off + next}, at.edge, at.dock, look);
            EXPECT_EQ(places[0].rect, at.rect) << depth;
            EXPECT_EQ(places[0].magnified, at.magnified) << depth;
            // One that was just added is on its way still.
            QPoint low = at.off;
            (isHorizontal(at.edge) ? low.ry() : low.rx()) =
                isHorizontal(at.edge) ? at.rect.center().y() : at.rect.center().x();
            const auto rising = plankPlaces({low, at.off + next}, at.edge, at.dock, look);
            EXPECT_EQ(rising[0].rect, at.rect) << depth;
        }
    }
}

TEST(PlankGeometryTest, unnamed_items_fill_the_gaps_behind_the_first)
{
    EXPECT_EQ(plankFreeCentres(600, 3, 60, {540, 661, 900}), (std::vector{600, 720, 780}));
    EXPECT_EQ(plankFreeCentres(600, 0, 60, {}), std::vector<int>());
    EXPECT_EQ(plankPitch({600, 600, 785, 665}, 48), 65); // measured
    EXPECT_EQ(plankPitch({600}, 48), 60);                // guessed
}

TEST(PlankUnnamedTest, told_places_decide_only_as_a_whole)
{
    const auto path = [](const char* name) { return QString::fromLatin1(name); };
    PlankUnnamed unnamed;
    const std::vector<int> free{600, 660};
    using Order = std::vector<QString>;
    EXPECT_EQ(unnamed.assign({{path("a"), 661}, {path("b"), 599}}, free, 60),
              (Order{path("b"), path("a")}));
    // Everything has moved by the same distance since it was told.
    EXPECT_EQ(unnamed.assign({{path("a"), 605}, {path("b"), 540}}, free, 60),
              (Order{path("b"), path("a")}));
    // Both tell a place of before; what was known stays.
    EXPECT_EQ(unnamed.assign({{path("a"), 600}, {path("b"), 600}}, free, 60),
              (Order{path("b"), path("a")}));
    // One came, whose place does not fit.
    EXPECT_EQ(
        unnamed.assign({{path("a"), 630}, {path("b"), 570}, {path("c"), {}}}, {570, 630, 690}, 60),
        (Order{path("b"), path("a"), path("c")}));
    EXPECT_EQ(unnamed.assign({{path("a"), {}}, {path("c"), {}}}, {600}, 60), Order{path("a")});
    EXPECT_EQ(unnamed.assign({}, {}, 60), Order());
}

TEST(IconGeometryTest, edges_follow_the_strut_before_the_shape)
{
    const QRect screen(0, 0, 1280, 800);
    EXPECT_EQ(edgeOfDock({0, 770, 1280, 30}, screen, {}), DockEdge::Bottom);
    EXPECT_EQ(edgeOfDock({0, 0, 1280, 30}, screen, {}), DockEdge::Top);
    EXPECT_EQ(edgeOfDock({0, 0, 60, 800}, screen, {}), DockEdge::Left);
    EXPECT_EQ(edgeOfDock({1220, 300, 60, 200}, screen, {}), DockEdge::Right);
    EXPECT_EQ(edgeOfDock({1220, 770, 60, 30}, screen, {0, 0, 60, 0}), DockEdge::Right);
    // Hidden, in a corner, and floating: at the nearest edge, its shape telling where two are.
    EXPECT_EQ(edgeOfDock({300, 798, 400, 40}, screen, {}), DockEdge::Bottom);
    EXPECT_EQ(edgeOfDock({300, -38, 400, 40}, screen, {}), DockEdge::Top);
    EXPECT_EQ(edgeOfDock({0, 400, 40, 400}, screen, {}), DockEdge::Left);
    EXPECT_EQ(edgeOfDock({0, 760, 400, 40}, screen, {}), DockEdge::Bottom);
    EXPECT_EQ(edgeOfDock({400, 100, 400, 40}, screen, {}), DockEdge::Top);
    EXPECT_EQ(edgeOfDock({1100, 300, 120, 40}, screen, {}), DockEdge::Right);
}

TEST(IconGeometryTest, rows_of_buttons_keep_to_their_rows)
{
    const QRect dock(0, 740, 1280, 60);
    const auto items = deriveItems({{1, {10, 0, 100, 30}, false},
                                    {2, {10, 30, 100, 30}, false},
                                    {3, {120, 5, 100, 50}, false}},
                                   dock, DockEdge::Bottom, {});
    ASSERT_EQ(items.size(), 3U);
    EXPECT_EQ(items[0].rect, QRect(10, 740, 100, 30));
    EXPECT_EQ(items[1].rect, QRect(10, 770, 100, 30));
    EXPECT_EQ(items[2].rect, QRect(120, 740, 100, 60));
}

TEST(OwnDisplaysTest, panelsThatGroup_countTheWindowsOfAButton)
{
    DockItem item;
    item.windows = {1};
    EXPECT_FALSE(standsForGroup(item));
    item.windows = {1, 2};
    EXPECT_TRUE(standsForGroup(item));
    item.desktopFile = u"/a.desktop"_s;
    EXPECT_FALSE(standsForGroup(item)) << "an icon of Plank";
    for (const auto& [program, counts] : {std::pair(u"xfce4-panel"_s, true),
                                          {u"mate-panel"_s, true},
                                          {u"lxqt-panel"_s, true},
                                          {u"plank"_s, false},
                                          {u"tint2"_s, false}})
        EXPECT_EQ(countsWindowsItself(program), counts) << qPrintable(program);
}

TEST(OwnDisplaysTest, docks_sayWhatIsOnOrMayBe_andWhatTurnsItOff)
{
    const QString path = u"/a/dock2/"_s;
    std::optional<bool> isOn;
    QStringList asked;
    const auto shown = [&](const char* program, std::optional<bool> flag) {
        isOn = flag;
        QStringList result;
        for (const DockDisplay& each : ownDisplaysOf(QString::fromLatin1(program), path,
                                                     [&](const auto&, const QString&at, auto) {
                                                         asked << at;
                                                         return isOn;
                                                     })) {
            const bool isTooltip = each.kind == DockDisplay::Kind::Tooltip;
            result << (isTooltip ? u"tooltip"_s : u"preview"_s) + (each.isKnownOn ? u'!' : u'?') +
                          each.setting;
        }
        return result.join(u'|');
    };
    const QString flag = u"gsettings set net.launchpad.plank.dock.settings:/a/dock2/ "
                         u"tooltips-enabled false"_s;
    const QString preview = u"preview?plank --preferences"_s;
    EXPECT_EQ(shown("plank", true), u"tooltip!%1|%2"_s.arg(flag, preview));
    EXPECT_EQ(shown("plank", {}), u"tooltip?%1|%2"_s.arg(flag, preview));
    EXPECT_EQ(shown("plank", false), preview);
    asked.clear();
    EXPECT_EQ(shown("mate-panel", true),
              u"preview!gsettings set org.mate.panel.applet.window-list-previews "
              u"show-window-thumbnails false|"
              u"tooltip!gsettings set org.mate.panel tooltips-enabled false"_s);
    EXPECT_EQ(asked, QStringList({QString(), QString()})) << "there is but one place for it";
    EXPECT_EQ(shown("tint2", {}), u"tooltip?task_tooltip = 0 (tint2rc)|"
                                  u"preview?task_thumbnail = 0 (tint2rc)"_s);
    EXPECT_EQ(shown("lxqt-panel", {}), u"tooltip!"_s);
    EXPECT_EQ(shown("term", true), QString());
}

class DocksTest : public AdapterFixture
{
protected:
    DocksTest()
    {
        m_tracker.add(window(1, u"term"_s, u"Term"_s, 101));
        m_tracker.add(window(3, u"term"_s, u"Term"_s, 102));
        m_tracker.add(window(5, u"editor"_s, u"Editor"_s, 302, u"notes.txt"_s));
    }
    void place()
    {
        m_tracker.placeIcon(1, secondButton);
        m_tracker.placeIcon(3, secondButton);
        m_tracker.placeIcon(5, firstButton);
        m_loop.advance(0.1);
    }
    QString titles()
    {
        QStringList result;
        for (const ElementRef& item : dockItems())
            result.append(text(item, "AXTitle"));
        return result.join(u' ');
    }
};

TEST_F(DocksTest, windows_with_one_place_are_one_item)
{
    addPanel();
    place();
    EXPECT_EQ(titles(), u"Editor Term"_s); // from left to right
    const auto items = dockItems();
    EXPECT_EQ(text(items[0], "AXSubrole"), u"AXApplicationDockItem"_s);
    EXPECT_EQ(*read(items[0], "AXPosition").as<QPointF>(), QPointF(100, 770));
    EXPECT_EQ(*read(items[0], "AXSize").as<QSizeF>(), QSizeF(150, 30));
    EXPECT_EQ(*read(items[1], "AXURL").as<QUrl>(), ownerOf(1)->running.bundleURL);
    EXPECT_TRUE(*read(items[1], "AXIsApplicationRunning").as<bool>());
    EXPECT_EQ(m_accessibility.pidOf(*read(items[1], "AXOwner").as<ElementRef>()),
              ownerOf(1)->running.pid);
    EXPECT_EQ(m_accessibility.windowIDOf(items[0]), 5U);
    EXPECT_EQ(m_accessibility.windowIDOf(items[1]), std::nullopt); // it has two

    // A lone iconic window is a minimised window's button; it says nothing of an application.
    m_tracker.iconify(5);
    m_loop.advance(0.1);
    ASSERT_TRUE(elementsEqual(dockItems()[0], items[0]));
    EXPECT_EQ(text(items[0], "AXSubrole"), u"AXMinimizedWindowDockItem"_s);
    EXPECT_EQ(text(items[0], "AXTitle"), u"notes.txt"_s);
    EXPECT_EQ(m_accessibility.windowIDOf(items[0]), 5U);
    EXPECT_EQ(read(items[0], "AXIsApplicationRunning").error, AXError::AttributeUnsupported);

    // An item goes on while one of its windows stays, and is invalid after the last.
    int changes = 0;
    m_docks.setItemsChanged([&] { ++changes; });
    m_tracker.remove(1);
    m_loop.advance(0.1);
    EXPECT_EQ(changes, 1) << "it stands for one window now";
    EXPECT_TRUE(elementsEqual(dockItems()[1], items[1]));
    EXPECT_EQ(m_accessibility.windowIDOf(items[1]), 3U);
    m_tracker.remove(3);
    m_loop.advance(0.1);
    EXPECT_EQ(m_accessibility.windowIDOf(items[1]), std::nullopt);
    EXPECT_EQ(read(items[1], "AXTitle").error, AXError::InvalidUIElement);
    EXPECT_EQ(titles(), u"notes.txt"_s);
}

TEST_F(DocksTest, places_count_once_they_stand_and_only_on_this_desktop)
{
    addPanel();
    place();
    const auto xOfTerm = [&] { return read(dockItems().back(), "AXPosition").as<QPointF>()->x(); };
    for (int x = 260; x <= 340; x += 20) { // a button that slides, with a hiccup
        m_tracker.placeIcon(1, QRect(-1, -1, 1, 1));
        m_tracker.placeIcon(1, QRect(x, 772, 150, 26));
        m_tracker.placeIcon(3, QRect(x, 772, 150, 26));
        m_loop.advance(0.017);
        EXPECT_EQ(xOfTerm(), 252);
    }
    m_loop.advance(0.1);
    EXPECT_EQ(xOfTerm(), 340);
    m_tracker.change(5, [](auto& window) { window.desktop = 1; });
    m_loop.advance(0.1);
    EXPECT_EQ(titles(), u"Term"_s);
    m_tracker.setCurrentDesktop(1);
    m_loop.advance(0.1);
    EXPECT_EQ(titles(), u"Editor"_s);
}

TEST_F(DocksTest, places_move_with_a_panel_that_hides)
{
    addPanel();
    const QRect hidden = panelBounds.translated(0, 28);
    m_tracker.change(panelWindow, [&](auto& window) {
        window.bounds = hidden;
        window.strut = QMargins();
    });
    m_tracker.placeIcon(5, firstButton.translated(0, 28)); // as the hidden panel has it
    m_loop.advance(0.1);
    EXPECT_TRUE(*read(dockItems().at(0), "AXHidden").as<bool>());
    int changes = 0;
    m_docks.setItemsChanged([&] { ++changes; });
    m_tracker.change(panelWindow, [](auto& window) { window.bounds = panelBounds; });
    m_loop.advance(0.1);
    EXPECT_FALSE(*read(dockItems().at(0), "AXHidden").as<bool>());
    EXPECT_EQ(changes, 1);
    m_docks.synchronize();
    m_loop.advance(0.1);
    EXPECT_EQ(changes, 1) << "nothing is told that has not changed";
    EXPECT_EQ(*read(dockItems().at(0), "AXPosition").as<QPointF>(), QPointF(100, 770));
    EXPECT_EQ(m_dockPreferences.autohide(nullptr), 1);
    for (const int reserved : {30, 0}) {
        m_tracker.change(panelWindow,
                         [&](auto& window) { window.strut = QMargins(0, 0, 0, reserved); });
        m_loop.advance(0.1);
        EXPECT_EQ(m_dockPreferences.autohide(nullptr), reserved == 0 ? 1 : 0);
    }

    // One window of a button was placed before the panel hid, the other one after.
    m_tracker.placeIcon(1, secondButton);
    m_loop.advance(0.1);
    m_tracker.remove(panelWindow);
    // What the pointer touches to bring the panel back.
    addDock(0x6000, u"panel"_s, panelPid, QRect(0, 797, 1280, 3));
    addDock(panelWindow, u"panel"_s, panelPid, panelBounds.translated(0, 78));
    m_tracker.placeIcon(3, secondButton.translated(0, 78));
    m_loop.advance(0.1);
    m_tracker.change(panelWindow, [](auto& window) { window.bounds = panelBounds; });
    m_loop.advance(0.1);
    EXPECT_EQ(titles(), u"Editor Term"_s);
    EXPECT_EQ(*read(dockItems().at(1), "AXPosition").as<QPointF>(), QPointF(252, 770));
    EXPECT_EQ(m_dockPreferences.orientation(nullptr), DockEdge::Bottom);
}

TEST_F(DocksTest, hover_and_menu_are_told_once_to_the_observer_of_the_dock)
{
    QStringList log;
    addPanel();
    place();
    const auto observe = [&] {
        auto observer = m_accessibility.createObserver(
            m_docks.pid(),
            [&](AXObserver&, const ElementRef& element, const QString& name, NotificationContext*) {
                const auto selected = list(element, "AXSelectedChildren");
                log << (name == u"AXMenuOpened" ? u"menu"_s
                        : selected.empty()      ? u"none"_s
                                                : text(selected.front(), "AXTitle"));
            });
        const ElementRef dock = m_accessibility.createApplication(m_docks.pid());
        observer->addNotification(dock, u"AXSelectedChildrenChanged"_s, nullptr);
        observer->addNotification(dock, u"AXMenuOpened"_s, nullptr);
        observer->addToRunLoop();
        return observer;
    };
    auto observer = observe();
    const auto taken = [&] {
        m_loop.runUntilIdle();
        return std::exchange(log, {}).join(u' ');
    };
    m_tracker.movePointer({110, 780});
    m_tracker.movePointer({120, 799}); // the very edge of the screen
    EXPECT_EQ(taken(), u"Editor"_s);
    m_tracker.movePointer({300, 780});
    EXPECT_EQ(taken(), u"Term"_s);
    m_tracker.press(3);
    m_tracker.mapPopup({0x99, x11::PopupMapped::Kind::Tooltip, panelPid});
    m_tracker.mapPopup({0x99, x11::PopupMapped::Kind::Menu, 101});
    EXPECT_EQ(taken(), u"menu"_s);
    m_tracker.movePointer({300, 400}); // the grab of the menu, for a moment
    m_loop.advance(0.03);
    log.clear();
    m_tracker.movePointer({300, 780});
    EXPECT_EQ(taken(), QString());
    m_tracker.press(1);

    // What is only crossed is not told, and the item before stays until there is another one.
    m_tracker.movePointer({110, 780}, {});
    m_tracker.movePointer({250, 780}, QPoint(300, 780)); // between them
    EXPECT_EQ(taken(), u"none"_s);
    m_tracker.movePointer({300, 780}, QPoint(500, 780));
    EXPECT_EQ(taken(), QString());
    m_tracker.movePointer({290, 780}, QPoint(330, 780));
    EXPECT_EQ(taken(), u"Term"_s);
    m_tracker.movePointer({110, 780}, {});
    m_tracker.press(3);
    m_tracker.movePointer({111, 780});
    EXPECT_EQ(taken(), u"menu"_s) << "and no row over it";
    m_tracker.press(1);

    // A window over the panel keeps the pointer from it, also where a button lies below.
    FakeTracker::Window above = window(7, u"x"_s, u"X"_s, 400);
    above.bounds = QRect(0, 600, 1280, 200);
    m_tracker.add(above);
    m_tracker.movePointer({110, 780});
    EXPECT_EQ(taken(), u"none"_s);
    m_tracker.remove(7);

    // Buttons that move under a pointer at rest.
    m_tracker.movePointer({110, 780});
    EXPECT_EQ(taken(), u"Editor"_s);
    m_tracker.remove(5);
    m_tracker.placeIcon(1, firstButton);
    m_tracker.placeIcon(3, firstButton);
    m_loop.advance(0.1);
    EXPECT_TRUE(taken().endsWith(u"Term"_s));

    // Another window manager, under which the windows that were shown have come anew.
    m_tracker.showManager({.name = u"one"_s, .pid = 50, .windows = {}});
    m_tracker.movePointer({111, 780});
    EXPECT_EQ(taken(), QString());
    m_tracker.showManager({.name = u"one"_s, .pid = 51, .windows = {}});
    EXPECT_EQ(taken(), QString()) << "nobody has moved";
    m_tracker.movePointer({112, 780});
    m_tracker.movePointer({113, 780});
    EXPECT_EQ(taken(), u"Term"_s);

    // A dock that ends under a pointer at rest: those it had reported an item to must hear of its
    // end.
    const ElementRef item = dockItems().at(0);
    m_tracker.remove(panelWindow);
    m_loop.advance(0.1);
    EXPECT_EQ(taken(), u"none"_s);
    EXPECT_EQ(m_docks.pid(), 0);
    EXPECT_EQ(m_docks.selectedItem(), 0U);
    EXPECT_EQ(read(item, "AXPosition").error, AXError::InvalidUIElement);
    EXPECT_FALSE(m_accessibility.createApplication(panelPid));
    addPanel();
    EXPECT_EQ(m_docks.pid(), panelPid);
    m_tracker.movePointer({110, 780});
    EXPECT_EQ(taken(), u"Term"_s);

    m_tracker.movePointer({110, 400});
    observer.reset(); // with the notification under way
    EXPECT_EQ(taken(), QString());
}

// Each of them looked through all windows.
TEST_F(DocksTest, questions_about_each_of_many_windows_hand_out_those_alone)
{
    constexpr int windows = 100;
    addPanel();
    for (xcb_window_t id = 1; id < 2 * windows; id += 2) {
        const QString name = u"app%1"_s.arg(id / 10);
        m_tracker.add(window(id, name, name, 1000 + static_cast<int>(id) / 10));
    }
    m_loop.advance(0.1);
    m_tracker.windowsTold();
    for (int i = 0; i < windows; ++i)
        m_tracker.placeIcon(static_cast<xcb_window_t>(2 * i + 1), {10 + 12 * i, 772, 10, 26});
    EXPECT_LE(m_tracker.windowsTold(), 5 * windows);
    m_loop.advance(0.1);
    EXPECT_EQ(dockItems().size(), windows);
    const auto applications = m_workspace.runningApplications();
    m_tracker.windowsTold();
    for (const RunningApplication& application : applications)
        list(X11Element::application(application.pid), "AXWindows");
    EXPECT_LE(m_tracker.windowsTold(), 2 * windows);
    for (const ElementRef& item : dockItems()) {
        for (const char* attribute : {"AXHidden", "AXPosition", "AXSize"})
            EXPECT_TRUE(read(item, attribute).ok());
    }
    EXPECT_EQ(m_tracker.windowsTold(), 0);
}

TEST_F(DocksTest, approach_prefetches_the_nearest_first)
{
    std::vector<std::pair<bool, std::vector<xcb_window_t>>> asked;
    m_docks.setPrefetch(
        [&](const auto& windows, bool isRowDue) { asked.emplace_back(isRowDue, windows); });
    addPanel();
    place();
    m_tracker.movePointer({330, 500});
    EXPECT_TRUE(asked.empty());
    EXPECT_FALSE(m_docks.isAttended());
    m_tracker.movePointer({330, 700});
    m_tracker.movePointer({330, 705});
    EXPECT_EQ(asked, (decltype(asked){{false, {1, 3, 5}}}));
    EXPECT_TRUE(m_docks.isAttended());
    m_tracker.movePointer({300, 780});
    EXPECT_TRUE(asked.back().first) << "its row comes now";
}

} // namespace lumbrix::test
