// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The row of previews while its windows come, go and change.
#include "DesktopTest.h"
#include "Keys.h"
#include "platform/StringLiterals.h"

#include <set>

namespace lumbrix::privatedesk
{

class RowTest : public DesktopTest
{
};

/// Where each window has a button of its own.
class ButtonRowTest : public DesktopTest
{
protected:
    void hoverButtonOf(const AppWindow& window)
    {
        std::optional<QPoint> button;
        ASSERT_TRUE(waitUntil([&] {
            button = desk().dock().iconOf({}, window.id);
            return button.has_value();
        }));
        display().moveTo(*button);
    }
    /// Waits until this window's preview has the mark, and no other; a place on its left edge
    /// tells.
    Result marks(const AppWindow& window)
    {
        return waitUntil([&] {
            return std::ranges::all_of(display().previews(), [&](const Panel& panel) {
                const QPoint edge(panel.geometry.left() + 15, panel.geometry.center().y());
                const QColor seen = display().picture(QRect(edge, QSize(1, 1))).pixelColor(0, 0);
                return (seen.red() > 240 && seen.blue() < 40) == (panel.title == window.title);
            });
        });
    }
};

class WayTest : public DesktopTest
{
};

INSTANTIATE_TEST_SUITE_P(, WayTest, testing::Values(plank()), deskName);
INSTANTIATE_TEST_SUITE_P(, RowTest, testing::Values(plank(), tint2(), xfcePanel()), deskName);
INSTANTIATE_TEST_SUITE_P(, ButtonRowTest, testing::Values(tint2()), deskName);

TEST_P(ButtonRowTest, nextButtonOfTheApplication_takesTheRowAlong_andItsWindowIsMarked)
{
    launch(u"beta"_s, 4); // so that alpha's row is clear of the edge of the screen
    const Application& alpha = launch(u"alpha"_s, 2);
    std::set<int> places;
    for (const AppWindow& window : alpha.windows()) {
        hoverButtonOf(window);
        ASSERT_TRUE(shows(alpha));
        EXPECT_TRUE(marks(window)) << window.title.constData();
        places.insert(row().center().x());
    }
    EXPECT_EQ(places.size(), 2U);
}

TEST_P(ButtonRowTest, windowThatTakesAnotherClass_isPreviewedWithItsNewApplication)
{
    const Application& beta = launch(u"beta"_s, 1);
    const AppWindow window = launch(u"alpha"_s, 1).windows().front();
    ASSERT_TRUE(hoverShows(beta));
    const QByteArray name("beta\0Beta\0", 10);
    xcb_change_property(display().connection(), XCB_PROP_MODE_REPLACE, window.id, XCB_ATOM_WM_CLASS,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(name.size()), name.data());
    xcb_flush(display().connection());
    EXPECT_TRUE(waitUntil([&] { return display().previews().size() == 2; }));
    ASSERT_TRUE(parkShowsNothing());
    hoverButtonOf(window);
    EXPECT_TRUE(waitUntil([&] { return display().previews().size() == 2; }));
    EXPECT_TRUE(marks(window));
}

// The row of the neighbour came up, and the one that the hand was on its way to was gone.
TEST_P(WayTest, handThatPausesOverTheNeighbour_reachesTheRow)
{
    const Application& alpha = launch(u"alpha"_s, 3);
    const Application& beta = launch(u"beta"_s, 1);
    const QPointF start = desk().iconOf(alpha).value_or(QPoint());
    const QPointF pause = QPointF(desk().iconOf(beta).value_or(QPoint())) - QPointF(10, 20);
    // A busy machine may make a longer pause of it, which means the neighbour: then once more.
    ASSERT_TRUE(waitUntil(
        [&] {
            desk().park();
            if (!showsNothing())
                return false;
            hover(alpha);
            if (!shows(alpha))
                return false;
            const QPointF end = display().previews().back().geometry.center();
            const auto path = [&](std::chrono::duration<double> passed) {
                const double time = passed.count(); // 0.1 s, a pause, 0.2 s
                return time < 0.22 ? start + (pause - start) * std::min(1.0, time / 0.1)
                                   : pause + (end - pause) * (time - 0.22) / 0.2;
            };
            return display().moveAlong(path, std::chrono::duration<double>(0.42)) <
                   std::chrono::milliseconds(40);
        },
        30000));
    EXPECT_TRUE(shows(alpha));
    EXPECT_TRUE(row().contains(display().pointer()));
}

TEST_P(RowTest, preview_clicked_bringsItsWindowForward)
{
    Application& alpha = launch(u"alpha"_s, 3);
    const AppWindow minimised = alpha.windows()[1];
    const AppWindow elsewhere = alpha.windows()[2];
    // Pictures of windows that cannot be seen are those from when they could be.
    ASSERT_TRUE(hoverShows(alpha));
    alpha.minimise(minimised);
    alpha.moveToDesktop(elsewhere, 1);
    launch(u"beta"_s, 1);
    ASSERT_TRUE(parkShowsNothing());

    for (const AppWindow& window : alpha.windows()) {
        ASSERT_TRUE(hoverShows(alpha)) << "before the click on " << window.title.constData();
        moveToPreview(window.title);
        display().click();
        EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == window.id; }))
            << window.title.constData();
        EXPECT_FALSE(alpha.isMinimised(window));
        EXPECT_EQ(display().currentDesktop(), window.id == elsewhere.id ? 1 : 0);
        EXPECT_TRUE(parkShowsNothing());
    }
    display().request(display().root(), "_NET_CURRENT_DESKTOP", {0, 0});
    EXPECT_TRUE(waitUntil([&] { return display().currentDesktop() == 0; }));
}

TEST_P(RowTest, wheelMiddleClickAndEscape_areForTheRowWhileTheMouseIsOnIt)
{
    Application& alpha = launch(u"alpha"_s, 3);
    const auto escapes = [&] {
        const std::vector<int> keys = alpha.keys();
        return std::count(keys.begin(), keys.end(), escapeKey);
    };
    const auto show = [&] {
        desk().park();
        ASSERT_TRUE(hoverShows(alpha));
    };
    show();
    const auto previews = display().previews();
    moveToPreview(previews[1].title);
    constexpr int wheelDown = 5, middle = 2;
    display().click(wheelDown);
    display().click();
    const auto idOf = [&](const Panel& panel) {
        return *std::ranges::find(alpha.windows(), panel.title, &AppWindow::title);
    };
    const xcb_window_t chosen = idOf(previews[2]).id;
    EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == chosen; }));
    display().type({escapeKey});
    EXPECT_TRUE(showsNothing());
    EXPECT_EQ(escapes(), 0);

    // On the icon it is only forgotten, perhaps. The key is asked for a moment after the row has
    // come: a hand would press again.
    show();
    EXPECT_TRUE(waitUntil([&] {
        display().type({escapeKey});
        return display().panels().empty();
    }));
    EXPECT_TRUE(waitUntil([&] { return escapes() >= 2; }));

    show();
    moveToPreview(previews[1].title);
    display().click(middle);
    const std::vector<int> closed{idOf(previews[1]).index};
    EXPECT_TRUE(waitUntil([&] { return alpha.closeRequests() == closed; }));
    EXPECT_TRUE(waitUntil([&] { return display().previews().size() == 2; }));
}

TEST_P(RowTest, preview_hovered_showsItsWindowInFull)
{
    Application& alpha = launch(u"alpha"_s, 1);
    // Clear of the row.
    const AppWindow window = alpha.open("alpha apart", Qt::red, {{400, 300}, {420, 380}});
    launch(u"beta"_s, 3);
    ASSERT_TRUE(hoverShows(alpha));
    moveToPreview(window.title);
    const QRect place = display().geometry(window.id).value_or(QRect());
    EXPECT_TRUE(waitUntil([&] {
        return this->window(u"zoom"_s) && portionOf(display().picture(place), window.colour) > 0.2;
    }));
    savePicture("zoom");
    EXPECT_TRUE(shows(alpha));
}

TEST_P(RowTest, windows_openedChangedAndClosed_areFollowed)
{
    Application& alpha = launch(u"alpha"_s, 2);
    ASSERT_TRUE(hoverShows(alpha));
    alpha.open(1);
    EXPECT_TRUE(shows(alpha, 1000)) << "after a window was opened";
    alpha.setTitle(alpha.windows()[1], "renamed");
    alpha.setColour(alpha.windows()[1], Qt::white);
    EXPECT_TRUE(shows(alpha, 2000)) << "after a window changed";
    alpha.destroy(alpha.windows()[2]);
    EXPECT_TRUE(shows(alpha, 1000)) << "after a window was closed";
}

TEST_P(RowTest, windows_twenty_showTheFirstFifteen)
{
    const Application& alpha = launch(u"alpha"_s, 20);
    hover(alpha);
    ASSERT_TRUE(waitUntil([&] { return display().previews().size() == 15; }));
    std::set<QByteArray> shown;
    for (const Panel& panel : display().previews()) {
        shown.insert(panel.title);
        EXPECT_TRUE(QRect(QPoint(), display().size()).contains(panel.geometry));
        const auto window = std::ranges::find(alpha.windows(), panel.title, &AppWindow::title);
        ASSERT_NE(window, alpha.windows().end()) << panel.title.constData();
        EXPECT_TRUE(waitUntil([&] {
            return portionOf(display().picture(panel.geometry), window->colour) > 0.02;
        })) << panel.title.constData();
    }
    EXPECT_EQ(shown.size(), 15U);
    const auto more = window(u"more"_s);
    ASSERT_TRUE(more);
    EXPECT_EQ(more->title, "+5 more");
    savePicture("more");
    display().moveTo(more->geometry.center());
    display().click();
    EXPECT_TRUE(waitUntil([&] {
        const auto rest = display().previews();
        return rest.size() == 5 && std::ranges::none_of(rest, [&](const Panel& panel) {
                   return shown.contains(panel.title);
               });
    }));
}

} // namespace lumbrix::privatedesk
