// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <set>
#include <string>

#include "app/Defaults.h"
#include "app/SettingsTable.h"
#include "badges/BadgeLook.h"
#include "badges/WinNumberBadger.h"
#include "tests/app/AppFixture.h"

namespace lumbrix::test
{
namespace
{

using ControllerTest = AppFixture;

TEST_F(ControllerTest, newUser_start_seedsBothStagesAndShowsPreviews)
{
    addApplication(u"Editor"_s, 2);
    start();
    const std::pair<const char*, int> seeds[] = {
        {"startAtLogin", 1},  {"showInDock", 1},       {"showInTab", 1},
        {"windowWidth", 243}, {"windowHeight", 190},   {"spaceSize", 0},
        {"showFastKeys", 1},  {"zoomWindows", 1},      {"showSpaces", 0},
        {"badgeDock", 1},     {"badgePosition", 3},    {"distanceFromDock", 33},
        {"previewStyle", 1},  {"shouldBubbleWrap", 1}, {"shouldShowCal", 1},
    };
    for (const auto& [key, value] : seeds) {
        EXPECT_TRUE(defaults.contains(QLatin1String(key))) << key;
        EXPECT_EQ(defaults.integerForKey(QLatin1String(key)), value) << key;
    }
    EXPECT_TRUE(defaults.boolForKey(u"firstRun"_s));
    EXPECT_TRUE(defaults.boolForKey(u"badgeDockIconsFirstRun"_s));
    EXPECT_FALSE(defaults.contains(u"displayDelay"_s));
    EXPECT_FALSE(defaults.hasUnsavedChanges());

    hover(u"Editor"_s);
    ASSERT_EQ(previews(), 2U);
    EXPECT_EQ(engine().screenyViews().front()->window()->frame().size(), QSizeF(243, 190));
    controller->toggleDisabled();
    EXPECT_EQ(previews(), 0U);
    EXPECT_EQ(defaults.integerForKey(u"disabled"_s), 1);
    desk.leaveDock();
    hover(u"Editor"_s);
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

TEST_F(ControllerTest, firstValues_followTheDesktopThatIsFound)
{
    const Pid pid = addApplication(u"Editor"_s, 1);
    for (const int space : {1, 2}) {
        desk.addWindow(pid, {.title = u"Another"_s, .space = space});
        SimulatedUserDefaults fresh;
        EXPECT_TRUE(seedFirstRun(fresh));
        EXPECT_EQ(fresh.integerForKey(u"showSpaces"_s), space == 1 ? 0 : 1);
    }
    // Badges look wrong on icons that move.
    for (const int flags : {0, 1, 2, 3}) {
        desk.setDockFlags(flags & 1, flags >> 1);
        SimulatedUserDefaults fresh;
        EXPECT_TRUE(seedBadgeRun(fresh));
        EXPECT_EQ(fresh.contains(u"badgeDock"_s), flags == 0);
        EXPECT_FALSE(seedBadgeRun(fresh));
    }
}

TEST_F(ControllerTest, storedSetting_changesItsFieldOfTheEngineAndNoOther)
{
    const auto value = [](const SettingField& field, const EngineSettings& settings) {
        return std::visit(
            [&settings](auto member) {
                if constexpr (std::is_same_v<decltype(member), std::monostate>)
                    return 0.0F;
                else
                    return static_cast<float>(settings.*member);
            },
            field);
    };
    std::set<std::string> keys;
    std::set<std::string> mirrored;
    for (const SettingRow& row : settingsTable()) {
        EXPECT_TRUE(keys.insert(row.key).second) << row.key << " has two rows";
        const bool isFloat = std::holds_alternative<Setting<float> EngineSettings::*>(row.field);
        SimulatedUserDefaults stored;
        if (isFloat)
            stored.setFloat(700.5F, QLatin1String(row.key));
        else
            stored.setInteger(7, QLatin1String(row.key));
        EngineSettings settings;
        mirrorEngineSettings(stored, settings);
        for (const SettingRow& other : settingsTable()) {
            const bool isItself = &other == &row && row.field.index() != 0;
            // A preview of no size, or of 20 points, cannot be drawn.
            const float least =
                other.kind == SettingKind::Size ? static_cast<float>(other.minimum) : 0.0F;
            EXPECT_EQ(value(other.field, settings), isItself ? (isFloat ? 700.5F : 7.0F) : least)
                << row.key << " in " << other.key;
        }
        if (row.field.index() != 0)
            mirrored.insert(row.key);
    }
    EXPECT_EQ(mirrored.size() * sizeof(Setting<float>), sizeof(EngineSettings));
}

TEST_F(ControllerTest, badges_areWhereAndAsTheSettingsSay)
{
    addApplication(u"Editor"_s, 2);
    defaults.setBool(true, u"badgeDockIconsFirstRun"_s);
    defaults.setInteger(1, u"badgeDock"_s);
    defaults.setInteger(4, u"badgePosition"_s);
    defaults.setData("#ff0000ff", u"winBadgeColor"_s);
    start();
    const auto badge = [] {
        const auto& badger =
            static_cast<const WinNumberBadger&>(*engine().companions().windowCountBadger);
        return badger.badgesArray().empty() ? nullptr : badger.badgesArray().front().get();
    };
    const auto isAt = [&](int position, float extra) {
        const QPointF wanted = badgeFrame(badge()->prevRect(), position, extra).center();
        return (badge()->window().frame().center() - wanted).manhattanLength() < 2;
    };
    const auto color = [&] { // left of the number
        const QImage picture = badge()->window().grab().toImage();
        return picture.pixelColor(picture.width() / 6, picture.height() / 2);
    };
    ASSERT_TRUE(badge());
    EXPECT_TRUE(isAt(4, 0));
    EXPECT_GT(color().red(), 2 * color().blue());
    controller->updateColorOfWindowBadges(Qt::blue);
    EXPECT_GT(color().blue(), 2 * color().red());
    defaults.setInteger(1, u"badgePosition"_s);
    controller->updateState();
    EXPECT_TRUE(isAt(1, 0));
    defaults.setFloat(20, u"badgeSizeExtra"_s);
    controller->updateDockBadgeSize();
    EXPECT_TRUE(isAt(1, 20));
    desk.closeWindow(desk.stacking().back());
    loop.runUntilIdle();
    EXPECT_TRUE(badge());
    defaults.setInteger(1, u"badgeOnlyIfMore"_s);
    controller->updateState();
    EXPECT_FALSE(badge());
}

TEST_F(ControllerTest, style_ofPreviewsOrTheirNumbersChanged_dropsThoseOfTheOldOne)
{
    addApplication(u"Editor"_s, 2);
    start();
    for (const QString& style : {u"previewStyle"_s, u"spaceStyle"_s}) {
        desk.leaveDock();
        hover(u"Editor"_s);
        const auto before = engine().row().cache().cacheArray();
        controller->updateState();
        EXPECT_EQ(previews(), 2U);
        EXPECT_EQ(engine().row().cache().cacheArray(), before);

        defaults.setInteger(3, style);
        controller->updateState();
        EXPECT_EQ(previews(), 0U) << qPrintable(style);
        EXPECT_EQ(engine().row().cache().cacheArray().size(), 6U);
        for (const ScreenyViewPtr& fresh : engine().row().cache().cacheArray())
            EXPECT_EQ(std::count(before.begin(), before.end(), fresh), 0) << qPrintable(style);
    }
}

TEST_F(ControllerTest, dock_restarted_isObservedAgainAtLatestAfterThreeSeconds)
{
    addApplication(u"Editor"_s, 1);
    start();
    const auto& badges =
        static_cast<const WinNumberBadger&>(*engine().companions().windowCountBadger).badgesArray();
    ASSERT_EQ(badges.size(), 1U);
    desk.killDock();
    loop.advance(7);
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 0U);
    const Pid pid = desk.startDock();
    loop.advance(3.0);
    ASSERT_EQ(badges.size(), 1U);
    EXPECT_TRUE(badges.front()->window().isFront()) << "also where the Dock does not tell";
    ASSERT_TRUE(controller->dockObserver());
    EXPECT_TRUE(controller->dockObserver()->isEqualTo(pid));
    desk.leaveDock();
    hover(u"Editor"_s);
    EXPECT_EQ(previews(), 1U);
}

TEST_F(ControllerTest, movedSlider_showsASampleUntilHalfASecondAfterTheLastMove)
{
    start();
    const auto sample = [this] { return controller->samplePreview().previewWindow(); };
    defaults.setFloat(300, u"windowWidth"_s);
    controller->updateWindowSize();
    ASSERT_TRUE(sample());
    const MAWindow& window = *sample()->window();
    EXPECT_TRUE(window.isFront());
    EXPECT_EQ(window.frame().size(), QSizeF(300, 190));
    const double bottom = window.frame().y();
    loop.advance(0.4);
    defaults.setFloat(83, u"distanceFromDock"_s);
    controller->updateDistanceFromDock();
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
