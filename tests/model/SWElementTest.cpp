// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a window's record says of it and does to it.

#include "tests/model/ModelFixture.h"

#include "model/UIElementUtilities.h"
#include "platform/InputState.h"

namespace lumbrix::test
{
namespace
{

using SWElementTest = ModelFixture;

TEST_F(SWElementTest, existence_dependsOnRoleSubroleAndContentByLevel)
{
    const Pid notes = addApplication(u"Notes"_s);
    const auto existsAt = [&](SimulatedWindow window) {
        const WindowID number = desk.addWindow(notes, std::move(window));
        QString answers;
        for (int level = 0; level <= 4; ++level) {
            levels[u"All applications"_s] = level;
            levels[u"org.example.Notes"_s] = level;
            answers += matched(number)->checkIfExists() ? u'y' : u'n';
        }
        levels.clear();
        return answers;
    };
    const auto kind = [](const QString& subrole, bool hasContent) {
        return SimulatedWindow{.title = u"Ideas"_s, .subrole = subrole, .hasContent = hasContent};
    };
    EXPECT_EQ(existsAt(kind(u"AXStandardWindow"_s, false)), u"yyyny"_s);
    EXPECT_EQ(existsAt(kind(u"AXDialog"_s, true)), u"yyyny"_s);
    EXPECT_EQ(existsAt(kind(u"AXDialog"_s, false)), u"ynnnn"_s);
    EXPECT_EQ(existsAt(kind(QString(), true)), u"yyyny"_s);
    for (const QString& floating :
         {u"AXFloatingWindow"_s, u"AXSystemFloatingWindow"_s, u"AXUnknown"_s})
        EXPECT_EQ(existsAt(kind(floating, true)), u"yynny"_s);
    EXPECT_EQ(existsAt({.title = u"Ideas"_s, .role = u"AXSheet"_s}), u"nnnnn"_s);
}

TEST_F(SWElementTest, busyApplication_keepsTheWindowsItWasKnownToHave)
{
    const Pid notes = addApplication(u"Notes"_s);
    const WindowID number = desk.addWindow(notes, {u"Ideas"_s});
    const SWElementPtr known = matched(number);
    const SWElementPtr unknown = matched(number);
    EXPECT_TRUE(known->checkIfExists());
    desk.changeApplication(notes, [](auto& application) { application.responds = false; });
    EXPECT_EQ(known->getTitle(), u"Not Responding"_s);
    EXPECT_TRUE(known->checkIfExists());
    EXPECT_EQ(unknown->getTitle(), std::nullopt);
    EXPECT_FALSE(unknown->checkIfExists());
    desk.changeApplication(notes, [](auto& application) { application.responds = true; });
    EXPECT_EQ(known->getTitle(), u"Ideas"_s);
    desk.changeWindow(number, [](auto& window) { window.title.clear(); });
    EXPECT_FALSE(known->checkIfExists());
    desk.closeWindow(number);
    EXPECT_FALSE(known->checkIfExists());
    EXPECT_EQ(known->getTitle(), std::nullopt);
}

TEST_F(SWElementTest, closedWindowsOfITunes_areToldByTheWorkspaces)
{
    const Pid player = desk.addApplication({u"iTunes"_s, u"com.apple.iTunes"_s});
    const SWElementPtr window = matched(desk.addWindow(player, {u"iTunes"_s}));
    const auto change = [&](const std::function<void(SimulatedWindow&)>& edit) {
        desk.changeWindow(window->wid(), edit);
    };
    EXPECT_TRUE(window->checkIfExists());
    change([](auto& each) { each.space = 16; });
    EXPECT_TRUE(window->checkIfExists());
    change([](auto& each) { each.space = 17; });
    EXPECT_FALSE(window->checkIfExists());
    desk.minimizeWindow(window->wid());
    EXPECT_TRUE(window->checkIfExists());
    desk.minimizeWindow(window->wid(), false);
    desk.workspace().hide(player);
    EXPECT_TRUE(window->checkIfExists());

    const SWElementPtr other = matched(desk.addWindow(addApplication(u"Notes"_s), {u"Ideas"_s}));
    desk.changeWindow(other->wid(), [](auto& each) { each.space = 17; });
    EXPECT_TRUE(other->checkIfExists());
}

TEST_F(SWElementTest, filterLevel_isTheApplicationsOwn_thenTheGeneralOne_thenTheStandard)
{
    const SWElementPtr notes = matched(desk.addWindow(addApplication(u"Notes"_s), {u"Ideas"_s}));
    const Pid finderPid = desk.addApplication({u"Finder"_s, u"com.apple.finder"_s});
    const SWElementPtr finder = matched(desk.addWindow(finderPid, {u"Home"_s}));
    EXPECT_EQ(notes->getFilterLevel(), 2);
    EXPECT_EQ(finder->getFilterLevel(), 4);
    levels[u"All applications"_s] = 1;
    EXPECT_EQ(notes->getFilterLevel(), 1);
    EXPECT_EQ(finder->getFilterLevel(), 4); // follows only an entry of its own
    levels[u"org.example.Notes"_s] = 3;
    levels[u"com.apple.finder"_s] = 0;
    EXPECT_EQ(notes->getFilterLevel(), 3);
    EXPECT_EQ(finder->getFilterLevel(), 0);
}

TEST_F(SWElementTest, spaceNumber_changesOnlyToARealSpace)
{
    const SWElementPtr window = matched(desk.addWindow(addApplication(u"Notes"_s), {u"Ideas"_s}));
    const auto move = [&](int space) {
        desk.changeWindow(window->wid(), [space](auto& each) { each.space = space; });
    };
    for (const int space : {3, 60, 0, -1})
        EXPECT_EQ((move(space), window->getSpaceNumber()), 3) << space;
    EXPECT_EQ((move(59), window->getSpaceNumber()), 59);
    EXPECT_EQ((move(60), window->getSpaceNumber(list())), 60);
    EXPECT_EQ((move(0), window->getSpaceNumber(list())), 60);
    EXPECT_EQ(window->getSpaceNumber({}), 60);

    // One that is on all Spaces is on none in particular, whoever says so.
    const auto putOnAll = [&](bool on) {
        desk.changeWindow(window->wid(), [on](auto& each) { each.isOnAllSpaces = on; });
    };
    EXPECT_EQ((putOnAll(true), window->getSpaceNumber()), 0);
    EXPECT_EQ((putOnAll(false), move(5), window->getSpaceNumber(list())), 5);
    EXPECT_EQ((putOnAll(true), window->getSpaceNumber(list())), 0);
    putOnAll(false);

    move(1);
    EXPECT_FALSE(SWElement::checkIfAnyWindowIsOnOtherSpace(ports()));
    move(2);
    EXPECT_TRUE(SWElement::checkIfAnyWindowIsOnOtherSpace(ports()));
}

TEST_F(SWElementTest, capture_tellsWhetherItIsWhole_andIsNullForAWindowThatVanishesMeanwhile)
{
    struct Reducing : ForwardingWindowServer {
        using ForwardingWindowServer::ForwardingWindowServer;
        QImage captureWindow(WindowID window, QSize limit) override
        {
            const QImage whole = ForwardingWindowServer::captureWindow(window, limit);
            return limit.isEmpty() ? whole : whole.scaledToWidth(std::min(limit.width(), 400));
        }
    };
    struct Vanishing : ForwardingWindowServer {
        using ForwardingWindowServer::ForwardingWindowServer;
        QImage captureWindow(WindowID window, QSize limit) override
        {
            m_state.locked()->close(window);
            return ForwardingWindowServer::captureWindow(window, limit);
        }
    };
    const WindowID number = desk.addWindow(addApplication(u"Notes"_s), {u"Ideas"_s});
    EXPECT_TRUE(element(number)->grabWindow().image.isNull()); // not matched yet
    EXPECT_EQ(desk.captures(number), 0);
    const SWElementPtr window = matched(number);
    for (const auto& [limit, width, isWhole] :
         {std::tuple(QSize(), 400, true),
          {QSize(200, 200), 200, false},
          {QSize(900, 900), 400, true},
          {QSize(399, 900), 399, true}}) { // of a window that ends between two pixels
        Reducing reducing(desk.windowServer());
        install(desk.accessibility(), reducing);
        const WindowPicture picture = window->grabWindow(limit);
        EXPECT_EQ(picture.image.width(), width);
        EXPECT_EQ(picture.isWhole, isWhole) << width;
        window->setScreenshot(picture);
        EXPECT_EQ(window->screenshot(), picture.image);
        EXPECT_EQ(window->wholeScreenshot().isNull(), !isWhole) << width;
    }

    Vanishing vanishing(desk.windowServer());
    install(desk.accessibility(), vanishing);
    for (int i = 0; i < 2; ++i) {
        const WindowPicture none = window->grabWindow();
        EXPECT_TRUE(none.image.isNull());
        EXPECT_FALSE(none.isWhole) << "or nobody would look for one";
    }
}

TEST_F(SWElementTest, raise_bringsAWindowUpFromBelowFromTheDockAndFromAnotherSpace)
{
    const Pid notes = addApplication(u"Notes"_s, 3);
    const auto windows = desk.stacking();
    const Pid maps = addApplication(u"Maps"_s, 1);
    desk.activateApplication(maps);
    desk.minimizeWindow(windows[1]);
    desk.changeWindow(windows[2], [](auto& window) { window.space = 4; });
    for (const WindowID number : windows) {
        matched(number)->raise();
        EXPECT_EQ(desk.stacking().front(), number);
        EXPECT_EQ(desk.activeApplication(), notes);
        EXPECT_FALSE(desk.window(number)->isMinimized);
        desk.activateApplication(maps);
    }
    EXPECT_EQ(desk.with([](SimulatedState& state) { return state.currentSpace; }), 4);
    const QString activation = u"activate %1 2"_s.arg(notes);
    EXPECT_EQ(desk.with([](SimulatedState& state) { return state.commands; }),
              std::vector<QString>(6, activation)); // every round is done twice
}

TEST_F(SWElementTest, closeAndUnhide_askTheWindowAndItsApplication)
{
    const Pid notes = addApplication(u"Notes"_s);
    const SWElementPtr window = matched(desk.addWindow(notes, {u"Ideas"_s}));
    desk.workspace().hide(notes);
    EXPECT_TRUE(window->unhideIfHidden());
    EXPECT_FALSE(desk.application(notes).isHidden);
    EXPECT_FALSE(window->unhideIfHidden());

    desk.changeWindow(window->wid(), [](auto& each) { each.isClosable = false; });
    EXPECT_FALSE(window->isClosable());
    window->closeWindow();
    EXPECT_TRUE(desk.window(window->wid()));
    desk.changeWindow(window->wid(), [](auto& each) { each.isClosable = true; });
    EXPECT_TRUE(window->isClosable());
    window->closeWindow();
    EXPECT_FALSE(desk.window(window->wid()));
    EXPECT_FALSE(window->isClosable());
    window->closeWindow();
}

TEST_F(SWElementTest, rectangles_areMirroredAtTheMainScreensHeight)
{
    desk.with([](SimulatedState& state) {
        state.screens = {{0, 0, 1440, 900}, {1440, -300, 1920, 1200}};
    });
    const UIElementUtilities convert(ports());
    EXPECT_EQ(convert.cocoaScreenPointFromCarbonScreenPoint({100, 0}), QPointF(100, 900));
    EXPECT_EQ(convert.carbonScreenPointFromCocoaScreenPoint({100, 900}), QPointF(100, 0));
    EXPECT_EQ(convert.cocoaScreenPointFromCarbonScreenPoint({1500, -300}), QPointF(1500, 1200));
    EXPECT_EQ(convert.flippedScreenBounds({0, 0, 50, 20}), QRectF(0, 880, 50, 20));

    const WindowID number =
        desk.addWindow(addApplication(u"Notes"_s), {u"Ideas"_s, {10, 20, 400, 300}});
    EXPECT_EQ(element(number)->getRect(), QRectF(10, 20, 400, 300));
    EXPECT_EQ(element(number)->getNSRect(), QRectF(10, 580, 400, 300));
    const SWElementPtr window = element(number);
    desk.closeWindow(number);
    EXPECT_EQ(window->getRect(), QRectF());
    EXPECT_EQ(window->getNSRect(), QRectF());
    desk.with([](SimulatedState& state) { state.screens.clear(); });
    EXPECT_EQ(convert.cocoaScreenPointFromCarbonScreenPoint({100, 50}), QPointF());
    EXPECT_EQ(convert.flippedScreenBounds({0, 5, 50, 20}), QRectF(0, -25, 50, 20));
}

TEST_F(SWElementTest, elementUnderAPoint_isTheWindowOfWhatLiesThere)
{
    const Pid notes = addApplication(u"Notes"_s);
    const WindowID back = desk.addWindow(notes, {u"Ideas"_s, {0, 0, 400, 300}});
    const WindowID front = desk.addWindow(notes, {u"Plans"_s, {200, 0, 400, 300}});
    const auto at = [this](QPointF point) {
        return SWElement::elementAtPosition(point, SWElement::systemWideElement(ports()));
    };
    EXPECT_TRUE(at({100, 100})->isEqualTo(element(back)));
    EXPECT_TRUE(at({300, 100})->isEqualTo(element(front)));
    EXPECT_EQ(at({1000, 600}), nullptr);
    EXPECT_EQ(at(desk.dockItemFrame(u"Notes"_s).center()), nullptr); // no window
    desk.changeWindow(front, [](auto& window) { window.hasContent = false; });
    desk.changeApplication(notes, [](auto& application) { application.responds = false; });
    EXPECT_TRUE(at({300, 100})->isEqualTo(element(front))); // will not tell its role
    desk.changeApplication(notes, [](auto& application) { application.responds = true; });
    desk.activateApplication(notes);
    EXPECT_TRUE(SWElement::elementOfFocusedWindow(ports())->isEqualTo(element(front)));
}

} // namespace
} // namespace lumbrix::test
