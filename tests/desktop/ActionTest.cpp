// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What clicks on previews and on the dock do.
#include "DesktopTest.h"

namespace lumbrix::privatedesk
{

class ActionTest : public DesktopTest
{
};

INSTANTIATE_TEST_SUITE_P(, ActionTest, testing::Values(plank(), tint2(), xfcePanel()), deskName);

TEST_P(ActionTest, preview_clicked_bringsItsWindowForward)
{
    Application& alpha = launch(u"alpha"_qs, 3);
    const AppWindow minimised = alpha.windows()[1];
    const AppWindow elsewhere = alpha.windows()[2];
    // Pictures of windows that cannot be seen are those from when they could be.
    hover(alpha);
    ASSERT_TRUE(shows(alpha));
    alpha.minimise(minimised);
    alpha.moveToDesktop(elsewhere, 1);
    launch(u"beta"_qs, 1);
    desk().park();
    ASSERT_TRUE(showsNothing());

    for (const AppWindow& window : alpha.windows()) {
        hover(alpha);
        ASSERT_TRUE(shows(alpha)) << "before the click on " << window.title.constData();
        moveToPreview(window.title);
        display().click();
        EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == window.id; }))
            << window.title.constData();
        EXPECT_FALSE(alpha.isMinimised(window));
        EXPECT_EQ(display().currentDesktop(), window.id == elsewhere.id ? 1 : 0);
        desk().park();
        EXPECT_TRUE(showsNothing());
    }
    display().request(display().root(), "_NET_CURRENT_DESKTOP", {0, 0});
    EXPECT_TRUE(waitUntil([&] { return display().currentDesktop() == 0; }));
}

TEST_P(ActionTest, closeButton_clicked_closesThatWindowOnly)
{
    Application& alpha = launch(u"alpha"_qs, 3);
    const AppWindow victim = alpha.windows()[1];
    hover(alpha);
    ASSERT_TRUE(shows(alpha));
    moveToPreview(victim.title);
    const auto panel = preview(victim.title);
    ASSERT_TRUE(panel);
    display().moveTo(panel->geometry.topLeft() + closeButton);
    savePicture("close");
    display().click();
    EXPECT_TRUE(waitUntil([&] { return !alpha.closeRequests().empty(); }));
    alpha.destroy(victim); // already gone; only our list of the windows changes
    EXPECT_TRUE(shows(alpha));
    EXPECT_EQ(alpha.closeRequests(), std::vector<int>{victim.index});
}

TEST_P(ActionTest, dockMenu_opened_removesThePreviews)
{
    if (GetParam().dock == DockKind::Tint2)
        GTEST_SKIP() << "tint2 has no menus";
    const Application& alpha = launch(u"alpha"_qs, 2);
    hover(alpha);
    ASSERT_TRUE(shows(alpha));
    display().click(3);
    ASSERT_TRUE(waitUntil([&] { return display().hasMenu(); })) << "the dock shows no menu";
    EXPECT_TRUE(showsNothing(1000));
    EXPECT_TRUE(display().hasMenu()) << "the menu was closed too";
    // A click beside it closes the menu.
    desk().park();
    display().click();
    EXPECT_TRUE(waitUntil([&] { return !display().hasMenu(); }));
}

} // namespace lumbrix::privatedesk
