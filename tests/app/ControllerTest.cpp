// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/LumbrixController.h"
#include "engine/LXHandler.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{
namespace
{

using namespace Qt::StringLiterals;

class ControllerTest : public DesktopFixture
{
protected:
    ~ControllerTest() override
    {
        if (m_isStarted)
            controller.applicationWillTerminate();
        loop.shutdown();
        LXHandler::releaseSharedHandler();
    }

    void start()
    {
        m_isStarted = controller.awakeFromNib();
        ASSERT_TRUE(m_isStarted);
        controller.applicationDidFinishLaunching();
        loop.runUntilIdle();
    }
    void hover(const QString& item)
    {
        desk.hoverDockItem(item);
        loop.runUntilIdle();
    }
    static LXHandler& engine() { return LXHandler::sharedHandler(); }
    static std::size_t previews() { return engine().screenyViews().size(); }

    SimulatedUserDefaults& defaults = desk.userDefaults();
    LumbrixController controller;

private:
    bool m_isStarted = false;
};

TEST_F(ControllerTest, newUser_start_seedsBothStagesAndShowsPreviews)
{
    addApplication(u"Editor"_s, 2);
    start();
    EXPECT_EQ(defaults.integerForKey(u"windowWidth"_s), 243);
    EXPECT_EQ(defaults.integerForKey(u"windowHeight"_s), 190);
    EXPECT_EQ(defaults.integerForKey(u"distanceFromDock"_s), 33);
    EXPECT_EQ(defaults.integerForKey(u"badgeDock"_s), 1);
    EXPECT_EQ(defaults.integerForKey(u"showSpaces"_s), 0);
    EXPECT_TRUE(defaults.boolForKey(u"firstRun"_s));
    EXPECT_TRUE(defaults.boolForKey(u"badgeDockIconsFirstRun"_s));
    EXPECT_FALSE(defaults.contains(u"displayDelay"_s));
    EXPECT_FALSE(defaults.hasUnsavedChanges());

    hover(u"Editor"_s);
    ASSERT_EQ(previews(), 2U);
    EXPECT_EQ(engine().screenyViews().front()->window()->frame().size(), QSizeF(243, 190));
    controller.toggleDisabled();
    EXPECT_EQ(previews(), 0U);
    EXPECT_EQ(defaults.integerForKey(u"disabled"_s), 1);
    desk.leaveDock();
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 0U);
}

// The check box in the preferences stores the setting and has the state updated, no more.
TEST_F(ControllerTest, previewsTurnedOffByASetting_goAlsoWhereTheyNeverClose)
{
    addApplication(u"Editor"_s, 2);
    start();
    defaults.setInteger(1, u"neverClose"_s);
    controller.updateState();
    hover(u"Editor"_s);
    desk.leaveDock();
    loop.advance(1);
    ASSERT_EQ(previews(), 2U);
    defaults.setInteger(1, u"disabled"_s);
    controller.updateState();
    EXPECT_EQ(previews(), 0U);
}

TEST_F(ControllerTest, earlierUser_start_keepsOwnValuesAndGetsTheLaterOnes)
{
    defaults.setBool(true, u"firstRun"_s);
    defaults.setInteger(300, u"windowWidth"_s);
    defaults.setInteger(1LL << 40, u"spaceSize"_s);
    desk.setDockFlags(1, std::nullopt);
    start();
    EXPECT_EQ(defaults.integerForKey(u"windowWidth"_s), 300);
    EXPECT_FALSE(defaults.contains(u"showInDock"_s));
    EXPECT_FALSE(defaults.contains(u"badgeDock"_s)) << "badges look wrong on icons that move";
    EXPECT_EQ(defaults.integerForKey(u"previewStyle"_s), 1);
    EXPECT_EQ(engine().settings().spaceSize, std::numeric_limits<std::int32_t>::max());
}

TEST_F(ControllerTest, style_ofPreviewsOrTheirNumbersChanged_dropsThoseOfTheOldOne)
{
    addApplication(u"Editor"_s, 2);
    start();
    for (const QString& style : {u"previewStyle"_s, u"spaceStyle"_s}) {
        desk.leaveDock();
        hover(u"Editor"_s);
        const auto before = engine().cache().cacheArray();
        controller.updateState();
        EXPECT_EQ(previews(), 2U);
        EXPECT_EQ(engine().cache().cacheArray(), before);

        defaults.setInteger(3, style);
        controller.updateState();
        EXPECT_EQ(previews(), 0U) << qPrintable(style);
        EXPECT_EQ(engine().cache().cacheArray().size(), 6U);
        for (const ScreenyViewPtr& fresh : engine().cache().cacheArray())
            EXPECT_EQ(std::count(before.begin(), before.end(), fresh), 0) << qPrintable(style);
    }
}

TEST_F(ControllerTest, dock_restarted_isObservedAgainAtLatestAfterThreeSeconds)
{
    addApplication(u"Editor"_s, 1);
    start();
    desk.killDock();
    loop.advance(7);
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 0U);
    const Pid pid = desk.startDock();
    loop.advance(3.0);
    ASSERT_TRUE(controller.dockObserver());
    EXPECT_TRUE(controller.dockObserver()->isEqualTo(pid));
    desk.leaveDock();
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 1U);
}

TEST_F(ControllerTest, magnifyingDock_hover_waitsForTheIconToSettle)
{
    addApplication(u"Editor"_s, 1);
    start();
    const double calm = loop.now();
    hover(u"Editor"_s);
    EXPECT_EQ(loop.now(), calm);
    desk.leaveDock();
    loop.advance(1);

    desk.setDockFlags(1, std::nullopt);
    const double before = loop.now();
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 1U);
    EXPECT_NEAR(loop.now() - before, 0.03, 1e-6) << "two equal readings end the wait";
    desk.leaveDock();
    loop.advance(1);

    desk.dockPreferences().setTellsFinalPlaces(true);
    const double last = loop.now();
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 1U);
    EXPECT_EQ(loop.now(), last) << "there was nothing to wait for";
}

TEST_F(ControllerTest, movedSlider_showsASampleUntilHalfASecondAfterTheLastMove)
{
    start();
    const auto sample = [this] { return controller.samplePreview().previewWindow(); };
    defaults.setFloat(300, u"windowWidth"_s);
    controller.updateWindowSize();
    ASSERT_TRUE(sample());
    const MAWindow& window = *sample()->window();
    EXPECT_TRUE(window.isVisible());
    EXPECT_EQ(window.frame().size(), QSizeF(300, 190));
    const double bottom = window.frame().y();
    loop.advance(0.4);
    defaults.setFloat(83, u"distanceFromDock"_s);
    controller.updateDistanceFromDock();
    EXPECT_EQ(window.frame().y(), bottom + 50);
    EXPECT_EQ(window.frame().size(), QSizeF(300, 190));
    loop.advance(0.4);
    EXPECT_TRUE(sample());
    loop.advance(0.11);
    EXPECT_FALSE(sample());
    EXPECT_EQ(previews(), 0U);
}

} // namespace
} // namespace lumbrix::test
