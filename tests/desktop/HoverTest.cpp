// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// From the icon under the mouse to the previews beside it, and away again.
#include "DesktopTest.h"

namespace lumbrix::privatedesk
{

class HoverTest : public DesktopTest
{
};

INSTANTIATE_TEST_SUITE_P(, HoverTest,
                         testing::Values(plank(), plank(Edge::Left), plank(Edge::Right),
                                         plank(Edge::Top), enlarged(Edge::Bottom), tint2(),
                                         tint2(Edge::Top), xfcePanel(), xfcePanel(Edge::Top)),
                         deskName);

TEST_P(HoverTest, icon_hovered_showsEachWindowBesideTheDock)
{
    const Application& alpha = launch(u"alpha"_qs, 3);
    launch(u"beta"_qs, 2);
    const xcb_window_t active = display().activeWindow();
    hover(alpha);
    ASSERT_TRUE(shows(alpha));
    savePicture("hover");
    EXPECT_EQ(display().activeWindow(), active) << "the focus has moved";

    const QRect screen(QPoint(), display().size());
    const QPoint pointer = display().pointer();
    QRect row;
    for (const Panel& panel : display().previews()) {
        const QRect area = panel.geometry;
        EXPECT_TRUE(screen.contains(area));
        EXPECT_FALSE(area.contains(pointer));
        EXPECT_TRUE(panel.overrideRedirect);
        EXPECT_FALSE(row.intersects(area)) << "previews overlap";
        row |= area;
        switch (desk().dock().edge()) {
        case Edge::Bottom:
            EXPECT_LT(area.bottom(), pointer.y());
            EXPECT_EQ(area.top(), row.top()) << "not in a row";
            break;
        case Edge::Top:
            EXPECT_GT(area.top(), pointer.y());
            EXPECT_EQ(area.top(), row.top()) << "not in a row";
            break;
        case Edge::Left:
            EXPECT_GT(area.left(), pointer.x());
            EXPECT_EQ(area.left(), row.left()) << "not in a column";
            break;
        case Edge::Right:
            EXPECT_LT(area.right(), pointer.x());
            EXPECT_EQ(area.left(), row.left()) << "not in a column";
            break;
        }
    }
    EXPECT_TRUE(isHorizontal(desk().dock().edge())
                    ? row.left() <= pointer.x() && pointer.x() <= row.right()
                    : row.top() <= pointer.y() && pointer.y() <= row.bottom())
        << "the previews are not beside the icon";
}

TEST_P(HoverTest, pointer_movedToTheNextIconAndAway_switchesAndRemoves)
{
    Application& alpha = launch(u"alpha"_qs, 1);
    // Clear of a row at any edge.
    const AppWindow window = alpha.open("alpha apart", Qt::red, {{400, 300}, {420, 380}});
    const Application& beta = launch(u"beta"_qs, 3);
    hover(alpha);
    ASSERT_TRUE(shows(alpha));
    hover(beta);
    ASSERT_TRUE(shows(beta));
    hover(alpha);
    ASSERT_TRUE(shows(alpha));
    // Onto a preview, over the gap between: they stay, and the window is shown in full size, on
    // top, where it is.
    moveToPreview(window.title);
    const QRect place = display().geometry(window.id).value_or(QRect());
    EXPECT_TRUE(waitUntil([&] {
        return std::ranges::any_of(display().panels(),
                                   [](const Panel& shown) { return shown.role == u"zoom"_qs; }) &&
               portionOf(display().picture(place), window.colour) > 0.2;
    })) << "no zoomed view of the window";
    savePicture("zoom");
    EXPECT_TRUE(shows(alpha));
    desk().park();
    EXPECT_TRUE(showsNothing());
}

} // namespace lumbrix::privatedesk
