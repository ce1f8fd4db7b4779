// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The tooltip in which a dock names the icon under the pointer, right where previews come up.
#include "DesktopTest.h"

namespace lumbrix::privatedesk
{

class TooltipTest : public DesktopTest
{
protected:
    /// Where it is, while it is up.
    std::optional<QRect> tooltip()
    {
        const auto popups = display().windowsOf("plank", "Plank");
        if (popups.size() != 1)
            return std::nullopt;
        m_window = popups.front().id;
        return popups.front().geometry;
    }
    /// Where the last one is now.
    std::optional<QRect> place() { return display().geometry(m_window); }

private:
    xcb_window_t m_window = XCB_NONE;
};

INSTANTIATE_TEST_SUITE_P(, TooltipTest, testing::Values(plank(), plank(Edge::Left)), deskName);

TEST_P(TooltipTest, tooltip_ofTheDock_isOutOfTheWayOfPreviews_andInItsPlaceWithoutThem)
{
    desk().startLumbrix({{u"ignoreMinimized"_s, u"1"_s}});
    Application& alpha = launch(u"alpha"_s, 1);
    const AppWindow window = alpha.windows().front();
    alpha.minimise(window);
    const QRect screen(QPoint(), display().size());
    // Icons of applications that have ended may still be on their way out, and push the others.
    QRect home;
    for (QRect before(-1, -1, 0, 0); home != before && !HasFailure();) {
        before = home;
        hover(alpha);
        EXPECT_TRUE(waitUntil([&] { return tooltip() && screen.contains(*tooltip()); }));
        home = tooltip().value_or(QRect());
        desk().park();
        EXPECT_TRUE(waitUntil([&] { return !tooltip(); }));
    }
    for (int round = 0; round < 2; ++round) {
        desk().park();
        EXPECT_TRUE(waitUntil([&] { return !tooltip(); }));
        alpha.activate(window);
        ASSERT_TRUE(hoverShows(alpha));
        EXPECT_TRUE(waitUntil([&] { return tooltip() && !screen.intersects(*tooltip()); }));
        desk().park();
        EXPECT_TRUE(waitUntil([&] { return !tooltip() && place() == home; }))
            << "the dock does not find it where it left it";
        alpha.minimise(window);
        hover(alpha);
        EXPECT_TRUE(waitUntil([&] { return tooltip() == home; })) << "without previews";
    }
}

} // namespace lumbrix::privatedesk
