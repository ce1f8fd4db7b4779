// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Lumbrix as a program of the desktop: its place in the tray, a second start, the first one of all.
#include "DesktopTest.h"
#include "Lumbrix.h"

#include <csignal>

namespace lumbrix::privatedesk
{
namespace
{

// What only one of the status item's pictures has.
const QColor sky(0xa5, 0xd8, 0xff);    ///< enabled
const QColor slash(0xd6, 0x33, 0x6c);  ///< disabled
const QColor sunset(0xff, 0xd1, 0x66); ///< while its menu is open

/// The middle of all pixels of exactly that colour; none when there are too few for a picture.
std::optional<QPoint> middleOf(const QImage& picture, const QColor& colour)
{
    constexpr int fewest = 10;
    const Pixels found = pixelsOf(picture, [&](QRgb each) { return each == colour.rgb(); });
    return found.count >= fewest ? std::optional(found.box.center()) : std::nullopt;
}

} // namespace

class LifecycleTest : public DesktopTest
{
protected:
    /// Where the status item with this colour is, within the area.
    std::optional<QPoint> statusItem(const QRect& area, const QColor& colour)
    {
        std::optional<QPoint> found;
        display().waitFor([&] {
            found = middleOf(display().picture(area), colour);
            return found.has_value();
        });
        return found ? std::optional(*found + area.topLeft()) : std::nullopt;
    }
    Result opens(const QString& role)
    {
        return waitUntil([&] { return window(role).has_value(); }, 5000);
    }
    void close(const QString& role)
    {
        const auto panel = window(role);
        ASSERT_TRUE(panel);
        display().request(panel->id, "_NET_CLOSE_WINDOW", {0, 2});
        EXPECT_TRUE(waitUntil([&] { return !window(role); }));
    }
    /// Clicks the status item of this colour, and the item of its menu at that height.
    void choose(const QRect& area, const QColor& colour, int height)
    {
        const auto item = statusItem(area, colour);
        ASSERT_TRUE(item) << "no such item in the tray";
        display().moveTo(*item);
        display().click();
        ASSERT_TRUE(opens(u"status-menu"_s));
        EXPECT_TRUE(statusItem(area, sunset));
        savePicture("menu");
        const QRect menu = window(u"status-menu"_s)->geometry;
        EXPECT_TRUE(QRect(QPoint(), display().size()).contains(menu));
        display().moveTo({menu.center().x(), menu.top() + height});
        display().click();
        EXPECT_TRUE(waitUntil([&] { return !window(u"status-menu"_s); }));
    }
    std::optional<int> startAgain(const QStringList& arguments = {})
    {
        auto second = desk().session().start(u"second"_s, lumbrixBinary(), arguments);
        return second->waitForExit(patience(10000));
    }
};

INSTANTIATE_TEST_SUITE_P(, LifecycleTest, testing::Values(plank(), xfcePanel()), deskName);

TEST_P(LifecycleTest, statusMenu_clicked_turnsPreviewsOffAndOn)
{
    // On the dock's desktop the tray comes when Lumbrix runs already, and of the older kind.
    std::unique_ptr<Process> tray;
    QRect area(0, 0, 300, 60);
    if (GetParam().dock == DockKind::Plank)
        tray = desk().session().start(u"trayer"_s, u"trayer"_s,
                                      {u"--edge"_s, u"top"_s, u"--align"_s, u"left"_s,
                                       u"--height"_s, u"28"_s, u"--tint"_s, u"0x303030"_s,
                                       u"--transparent"_s, u"true"_s, u"--alpha"_s, u"0"_s});
    else
        area = display().dockArea().value();
    ASSERT_TRUE(statusItem(area, sky)) << "no item in the tray";
    const Application& alpha = launch(u"alpha"_s, 1);
    ASSERT_TRUE(hoverShows(alpha));
    const QPoint icon = display().pointer();
    EXPECT_TRUE(parkShowsNothing());

    constexpr int firstItem = 12;
    choose(area, sky, firstItem);
    EXPECT_TRUE(statusItem(area, slash));
    display().moveTo(icon);
    EXPECT_FALSE(waitUntil([&] { return !display().previews().empty(); }, 700));
    desk().park();

    choose(area, slash, firstItem);
    EXPECT_TRUE(statusItem(area, sky));
    display().moveTo(icon);
    EXPECT_TRUE(shows(alpha));
    EXPECT_TRUE(parkShowsNothing());

    desk().lumbrix().signal(SIGKILL);
    EXPECT_TRUE(waitUntil([&] { return !middleOf(display().picture(area), sky); }));
    EXPECT_TRUE(desk().lumbrix().waitForExit(patience(2000)));
    desk().stopLumbrix();
    desk().startLumbrix();
    EXPECT_TRUE(statusItem(area, sky));
}

TEST_P(LifecycleTest, secondStart_opensThePreferencesOfTheFirst)
{
    launch(u"alpha"_s, 1); // which has the focus
    EXPECT_EQ(startAgain(), 0);
    EXPECT_TRUE(getsFocus(u"preferences"_s));
    EXPECT_EQ(startAgain(), 0);
    EXPECT_EQ(display().managedWindows().size(), 1U);
    close(u"preferences"_s);

    // One that hangs keeps nobody waiting for ever.
    desk().lumbrix().signal(SIGSTOP);
    const auto status = startAgain();
    desk().lumbrix().signal(SIGCONT);
    EXPECT_TRUE(status && *status != 0);
    const QString said = desk().session().log(u"second"_s);
    EXPECT_EQ(
        said.count(u"lumbrix: Lumbrix already runs, as process %1 ("_s.arg(desk().lumbrix().pid())),
        3);
    EXPECT_TRUE(said.contains(u"asked to open its preferences"_s)) << qPrintable(said);
    EXPECT_TRUE(opens(u"preferences"_s));
    close(u"preferences"_s);
}

TEST_P(LifecycleTest, startWithAnAction_isTheRunningProgramsToDo_elseTheNewOnes)
{
    const QStringList toggle{u"--toggle"_s};
    const QStringList preferences{u"--preferences"_s};
    const QString said = desk().session().log(u"second"_s);
    const auto stores = [this](const char* line) {
        return waitUntil([&] { return settings().contains(line); }, 5000);
    };
    for (const char* line : {"\ndisabled=1\n", "\ndisabled=0\n", "\ndisabled=1\n"}) {
        EXPECT_EQ(startAgain(toggle), 0);
        EXPECT_TRUE(stores(line)) << line;
    }
    EXPECT_FALSE(window(u"preferences"_s));
    desk().stopLumbrix();
    auto started = desk().session().start(u"lumbrix"_s, lumbrixBinary(), toggle);
    EXPECT_TRUE(stores("\ndisabled=0\n"));
    EXPECT_EQ(startAgain(preferences), 0);
    EXPECT_TRUE(opens(u"preferences"_s));
    started = nullptr; // ends it
    started = desk().session().start(u"lumbrix"_s, lumbrixBinary(), preferences);
    EXPECT_TRUE(opens(u"preferences"_s));
    started = nullptr;
    EXPECT_EQ(desk().session().log(u"second"_s), said) << "it complained";
    desk().startLumbrix();
}

} // namespace lumbrix::privatedesk
