// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a hovered Dock item shows.

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

using ItemKind = SimulatedDockItem::Kind;

using HoverDispatchTest = EngineFixture;

TEST_F(HoverDispatchTest, row_isFilledPlacedAndShown)
{
    add(u"Notes"_s, 2);
    hover(u"Notes"_s);
    ASSERT_EQ(shown(), u"Notes 2, Notes 1"_s);
    const double middle = desk.dockItemFrame(u"Notes"_s).center().x();
    EXPECT_EQ(preview(0).window()->frame(), QRectF(middle - 206, 62, 200, 150));
    EXPECT_EQ(preview(1).window()->frame(), QRectF(middle - 6, 62, 200, 150));
    EXPECT_EQ(preview(0).image().size(), QSize(400, 300));
    EXPECT_TRUE(engine().hovered().shouldInstantShow());

    // The same item again changes nothing.
    const ScreenyView* const before = &preview(0);
    const int captures = desk.captures(desk.stacking().front());
    engine().iconHovered(engine().currentDockElement());
    EXPECT_EQ(&preview(0), before);
    EXPECT_EQ(desk.captures(desk.stacking().front()), captures);
}

// They would come where some row was before, or in a corner.
TEST_F(HoverDispatchTest, previewsWithoutAPlace_areNotShownUntilThereIsOne)
{
    const WindowID window = desk.addWindow(add(u"Notes"_s, 0), {u"Notes 1"_s});
    desk.addDockItem({.title = u"Notes 1"_s, .kind = ItemKind::MinimizedWindow});
    desk.minimizeWindow(window);
    loop.advance(3);
    const auto place = [&](QRectF frame) {
        desk.with([&](SimulatedState& state) {
            for (SimulatedDockItem& item : state.dockItems)
                item.frame = frame.isNull() ? QRectF(item.frame.topLeft(), QSizeF()) : item.frame;
        });
    };
    for (const QString& item : {u"Notes"_s, u"Notes 1"_s}) {
        desk.setDockEdge(std::nullopt);
        hover(item);
        EXPECT_EQ(panelsOnScreen(), 0) << qPrintable(item);
        EXPECT_EQ(shown(), u""_s) << qPrintable(item);
        leave();
    }
    hover(u"Notes"_s);
    loop.advance(2);
    EXPECT_EQ(shown(), u""_s);
    desk.setDockEdge(DockEdge::Bottom);
    loop.advance(2);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    // An item that is gone says of itself that it is nowhere.
    place({});
    loop.advance(1);
    EXPECT_EQ(shown(), u""_s);
    EXPECT_EQ(panelsOnScreen(), 0);
}

TEST_F(HoverDispatchTest, nextRow_showsItsOwnPicturesInThePanelsOfTheFormer)
{
    const Pid notes = addApplication(u"Notes"_s, 0);
    const Pid mail = addApplication(u"Mail"_s, 0);
    desk.addWindow(notes, {.title = u"Notes 1"_s, .color = Qt::red});
    desk.addWindow(mail, {.title = u"Mail 1"_s, .color = Qt::blue});
    loop.advance(3);
    for (int round = 0; round < 2; ++round) { // the second one finds all pictures at hand
        hover(u"Notes"_s);
        ASSERT_EQ(shown(), u"Notes 1"_s);
        EXPECT_EQ(preview(0).image().pixelColor(5, 5), QColor(Qt::red));
        const ScreenyView* const panel = &preview(0);
        hover(u"Mail"_s);
        ASSERT_EQ(shown(), u"Mail 1"_s);
        EXPECT_EQ(&preview(0), panel);
        EXPECT_EQ(preview(0).image().pixelColor(5, 5), QColor(Qt::blue));
    }
}

// Minimised, or on another Space, since before this program started: an empty panel tells nothing.
TEST_F(HoverDispatchTest, windowsNeverSeen_showTheirApplicationsIconUntilTheyAreSeen)
{
    const Pid notes = desk.addApplication({.name = u"Notes"_s, .iconColor = Qt::magenta});
    desk.addDockItem({.title = u"Notes"_s, .url = desk.application(notes).bundleURL});
    std::vector<WindowID> windows;
    for (const QString& title : {u"Notes 1"_s, u"Notes 2"_s})
        windows.push_back(desk.addWindow(notes, {.title = title, .hasPicture = false}));
    loop.advance(3);
    const auto middle = [&](std::size_t index) {
        const QImage panel = preview(index).contentView()->grab().toImage();
        return panel.pixelColor(panel.rect().center() - QPoint(0, panel.height() / 10));
    };
    hover(u"Notes"_s);
    ASSERT_EQ(shown(), u"Notes 2, Notes 1"_s);
    EXPECT_EQ(panelsOnScreen(), 2);
    EXPECT_EQ(middle(0), QColor(Qt::magenta));
    EXPECT_EQ(middle(1), QColor(Qt::magenta));
    desk.changeWindow(windows[1], [](SimulatedWindow& window) {
        window.hasPicture = true;
        window.color = Qt::green;
    });
    loop.advance(1.1);
    EXPECT_EQ(middle(0), QColor(Qt::green));
    EXPECT_EQ(middle(1), QColor(Qt::magenta));

    // The panels are used again, for an application without an icon.
    const Pid maps = add(u"Maps"_s, 0);
    desk.addWindow(maps, {.title = u"Maps 1"_s, .hasPicture = false});
    loop.advance(3);
    hover(u"Maps"_s);
    loop.advance(0.1);
    ASSERT_EQ(shown(), u"Maps 1"_s);
    EXPECT_TRUE(preview(0).hasIcon());
    EXPECT_NE(middle(0), QColor(Qt::magenta));
}

TEST_F(HoverDispatchTest, singleWindow_isIgnoredWhereAsked_unlessTheKeyIsHeld)
{
    add(u"Notes"_s, 1);
    add(u"Maps"_s, 0);
    settings().ignoreOneWindow = 1;
    settings().tempDisableFiltersKeycode = 1;
    desk.setModifiers(option);
    hover(u"Notes"_s);
    loop.advance(2);
    EXPECT_EQ(shown(), u""_s);
    settings().tempDisableFilters = 1;
    leave();
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    loop.advance(2);
    EXPECT_EQ(shown(), u"Notes 1"_s);
    hover(u"Maps"_s);
    EXPECT_EQ(shown(), u""_s);
    desk.setModifiers(0);
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), u""_s);
}

TEST_F(HoverDispatchTest, keyThatShowsOrHidesPreviews_decidesWhileTheMouseRestsOnTheItem)
{
    add(u"Notes"_s, 2);
    settings().hidePreviewsKeycode = 2;
    const struct {
        Setting<std::int32_t> EngineSettings::*setting;
        std::uint32_t none, shows;                                  ///< keys held
    } cases[] = {{&EngineSettings::onlyIfPressed, option, command}, // the index of anything unknown
                 {&EngineSettings::hidePreviews, control, 0}};
    for (const auto& [setting, none, shows] : cases) {
        settings().*setting = 1;
        desk.setModifiers(none);
        hover(u"Notes"_s);
        loop.advance(3);
        EXPECT_EQ(shown(), u""_s) << "not even built";
        for (int round = 0; round < 2; ++round) {
            desk.setModifiers(shows);
            loop.advance(1.1);
            EXPECT_EQ(shown(), u"Notes 2, Notes 1"_s);
            desk.setModifiers(none);
            loop.advance(0.5);
            EXPECT_EQ(panelsOnScreen(), 0);
        }
        settings().*setting = 0;
        leave(1);
    }
}

TEST_F(HoverDispatchTest, windowOpenedUnderTheRestingMouse_comesUp_unlessThatLeftUnnoticed)
{
    const Pid maps = add(u"Maps"_s, 0);
    for (const bool leaves : {false, true}) {
        hover(u"Maps"_s);
        const WindowID number = desk.addWindow(maps, {u"Home"_s});
        loop.advance(0.5);
        EXPECT_EQ(loop.runningThreads("mouse-checker"), 1);
        if (leaves)
            desk.with([](SimulatedState& state) { state.pointer = {5, 500}; });
        loop.advance(0.5);
        EXPECT_EQ(shown(), u""_s); // looked at less often, once confirmed
        loop.advance(0.03);
        EXPECT_EQ(shown(), leaves ? u""_s : u"Home"_s);
        desk.closeWindow(number);
        leave(1);
    }
}

TEST_F(HoverDispatchTest, ownIcon_standsForTheApplicationsWithoutOne_whereAsked)
{
    const SimulatedApplication self = desk.application(desk.ownPid());
    desk.addDockItem({u"Lumbrix"_s, ItemKind::Application, self.bundleURL});
    const Pid agent = desk.addApplication({u"Agent"_s, {}, 0, false});
    desk.addWindow(agent, {u"Status"_s});
    desk.with([](SimulatedState& state) { state.application(state.ownPid)->isRegular = true; });
    add(u"Notes"_s, 1);
    hover(u"Lumbrix"_s);
    loop.advance(1);
    EXPECT_EQ(shown(), u""_s);
    settings().showOthersInDockIcon = 1;
    loop.advance(3); // a scan, an update
    EXPECT_EQ(shown(), u"Status"_s);
    // Whether Lumbrix itself is hidden says nothing about the others.
    settings().ignoreHidden = 1;
    desk.workspace().hide(desk.ownPid());
    loop.advance(0.5);
    EXPECT_EQ(shown(), u"Status"_s);

    // One window is as good as many, and a key that hides them hides them from the start: what the
    // hover showed went again with the next update.
    settings().ignoreOneWindow = 1;
    settings().hidePreviewsKeycode = 2;
    desk.setModifiers(control);
    for (const int hides : {0, 1}) {
        settings().hidePreviews = hides;
        leave(1);
        hover(u"Lumbrix"_s);
        EXPECT_EQ(shown(), hides ? u""_s : u"Status"_s);
        loop.advance(3);
        EXPECT_EQ(shown(), hides ? u""_s : u"Status"_s);
    }
}

// As task bars have them that do not group windows.
TEST_F(HoverDispatchTest, buttonsOfOneApplication_takeTheRowAlong_andMarkTheirOwnWindow)
{
    const Pid notes = add(u"Notes"_s, 3);
    const auto windows = desk.stacking();
    desk.with([&](SimulatedState& state) {
        state.knowsWindowNumbers = true;
        state.dockItems.front().window = windows[0];
    });
    desk.addDockItem(
        {u"Button"_s, ItemKind::Application, desk.application(notes).bundleURL, windows[1]});
    const auto marks = [] {
        QString result;
        for (const ScreenyViewPtr& each : engine().screenyViews())
            result += each->isMarked() ? u'x' : u'-';
        return result;
    };
    const auto middle = [this] {
        const auto& last = preview(engine().screenyViews().size() - 1);
        return (preview(0).window()->frame() | last.window()->frame()).center().x();
    };
    hover(u"Notes"_s);
    EXPECT_EQ(marks(), u"x--"_s);
    const double first = middle();
    const auto panels = engine().screenyViews();
    const int captures = desk.captures(windows[1]);
    hover(u"Button"_s);
    loop.advance(0.05);
    EXPECT_EQ(marks(), u"-x-"_s);
    EXPECT_EQ(middle() - first, 50);
    EXPECT_EQ(engine().screenyViews(), panels);
    EXPECT_EQ(shown(), u"Notes 3, Notes 2, Notes 1"_s);
    EXPECT_EQ(desk.captures(windows[1]), captures);
    desk.addWindow(notes, {u"New"_s});
    loop.advance(0.5);
    EXPECT_EQ(marks(), u"-x--"_s);
    EXPECT_EQ(middle() - first, 50) << "beside the button that is hovered now";
    desk.setDockEdge(std::nullopt);
    hover(u"Notes"_s);
    loop.advance(0.05);
    EXPECT_EQ(shown(), QString()) << "a row has nowhere to go with it";
    desk.setDockEdge(DockEdge::Bottom);
    hover(u"Button"_s);

    // The button of a minimised window shows that one alone, also where it was the row's first;
    // the next button shows all again.
    for (const auto& [window, title] :
         {std::pair(windows[2], u"Notes 1"_s), {windows[0], u"Notes 3"_s}}) {
        desk.minimizeWindow(window);
        hover(title);
        EXPECT_EQ(shown(), title);
        EXPECT_EQ(marks(), u"-"_s) << "it is the only one";
        hover(u"Button"_s);
        EXPECT_EQ(shown(), u"Notes 3, Notes 2, Notes 1, New"_s);
        EXPECT_EQ(marks(), u"-x--"_s);
    }
}

TEST_F(HoverDispatchTest, minimisedIcon_showsItsOneWindow)
{
    add(u"Notes"_s, 2);
    hover(u"Notes"_s);
    desk.addDockItem({u"Unknown"_s, ItemKind::MinimizedWindow});
    hover(u"Unknown"_s);
    EXPECT_EQ(shown(), u"Notes 2, Notes 1"_s); // left alone
    leave(1);

    const WindowID number = desk.stacking().front();
    desk.minimizeWindow(number);
    settings().showInDock = 0;
    for (const QString& item : {u"Notes"_s, u"Notes 2"_s}) {
        hover(item);
        EXPECT_EQ(shown(), u""_s);
    }
    leave();
    settings().showInDock = 1;
    delays.delay = 0.4F;
    hover(u"Notes 2"_s);
    loop.advance(0.39);
    EXPECT_EQ(shown(), u""_s);
    loop.advance(0.01);
    EXPECT_EQ(shown(), u"Notes 2"_s);
    delays.delay = 0;
    preview(0).setTitleString(u"Left alone"_s);
    leave();
    hover(u"Notes 2"_s);
    EXPECT_EQ(shown(), u"Left alone"_s);
    const int captures = desk.captures(number);
    desk.changeWindow(number, [](auto& window) { window.title = u"Renamed"_s; });
    loop.advance(0.5);
    EXPECT_EQ(shown(), u"Renamed"_s);
    EXPECT_EQ(desk.captures(number), captures); // its picture cannot change
    desk.changeWindow(number, [](auto& window) { window.isMinimized = false; });
    loop.advance(0.5);
    EXPECT_EQ(shown(), u""_s);

    desk.changeWindow(number, [](auto& window) { window.title = u"Notes 2"_s; });
    desk.minimizeWindow(number);
    settings().hidePreviews = 1;
    desk.setModifiers(command);
    leave();
    hover(u"Notes 2"_s);
    EXPECT_EQ(shown(), u"(Notes 2)"_s); // made, but not shown
}

TEST_F(HoverDispatchTest, minimisedIcon_afterItsApplications_hasAPreviewOfItsOwn)
{
    add(u"Notes"_s, 1);
    desk.minimizeWindow(desk.stacking().front());
    hover(u"Notes"_s);
    preview(0).setTitleString(u"the application's"_s);
    hover(u"Notes 1"_s);
    EXPECT_EQ(shown(), u"Notes 1"_s);
}

} // namespace
} // namespace lumbrix::test
