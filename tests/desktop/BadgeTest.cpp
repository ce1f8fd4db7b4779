// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The window counts on the dock's icons.
#include "DesktopTest.h"

namespace lumbrix::privatedesk
{

class BadgeTest : public DesktopTest
{
protected:
    void SetUp() override
    {
        DesktopTest::SetUp();
        desk().startLumbrix({{u"badgeDock"_s, u"1"_s}});
    }

    /// Where the dock shows the application; none while it shows it nowhere, or moves it.
    std::optional<QRect> iconArea(const Application& application)
    {
        const xcb_window_t window = application.windows().front().id;
        const auto middle = desk().dock().iconOf(application.entry(), window);
        if (!middle)
            return std::nullopt;
        // A panel tells the whole button, Plank the middle of an icon of 48 pixels.
        if (const auto button = display().numbers(window, "_NET_WM_ICON_GEOMETRY");
            GetParam().dock != DockKind::Plank && button.size() == 4)
            return QRect(static_cast<int>(button[0]), static_cast<int>(button[1]),
                         static_cast<int>(button[2]), static_cast<int>(button[3]));
        return QRect(*middle - QPoint(30, 40), QSize(60, 80));
    }
    /// The badge whose middle is on the application's icon or button; none without one.
    std::optional<Panel> badge(const Application& application)
    {
        const auto area = iconArea(application);
        for (const Panel& panel : display().badges())
            if (area && area->contains(panel.geometry.center()))
                return panel;
        return std::nullopt;
    }
    /// Waits until the application's badge shows this number.
    Result counts(const Application& application, const QByteArray& number)
    {
        return waitUntil([&] {
            const auto found = badge(application);
            return found && found->title == number;
        });
    }
};

INSTANTIATE_TEST_SUITE_P(, BadgeTest,
                         testing::Values(plank(), plank(Edge::Left), plank(Edge::Right), tint2(),
                                         xfcePanel()),
                         deskName);

TEST_P(BadgeTest, counts_lieOnTheirIconsAndFollowTheWindows)
{
    // Where each window has a button, none of them has several windows; Xfce's panel writes the
    // number on a button of several itself.
    const bool isCounted = GetParam().dock == DockKind::Plank;
    Application& alpha = launch(u"alpha"_s, 1);
    const Application& beta = launch(u"beta"_s, 1);
    EXPECT_TRUE(counts(alpha, "1"));
    EXPECT_TRUE(counts(beta, "1"));
    for (const char* number : {"2", "3"}) {
        alpha.open(1);
        EXPECT_TRUE(isCounted ? counts(alpha, number)
                              : waitUntil([&] { return display().badges().size() == 1; }));
    }
    EXPECT_TRUE(counts(beta, "1"));
    savePicture("counts");
    for (const AppWindow& window : std::vector(alpha.windows().begin() + 1, alpha.windows().end()))
        alpha.destroy(window);
    EXPECT_TRUE(counts(alpha, "1"));
    for (const Panel& panel : display().badges()) {
        EXPECT_TRUE(panel.overrideRedirect);
        EXPECT_TRUE(QRect(QPoint(), display().size()).contains(panel.geometry));
    }
}

TEST_P(BadgeTest, click_onABadge_goesToTheDock)
{
    const Application& alpha = launch(u"alpha"_s, 1);
    const Application& beta = launch(u"beta"_s, 1);
    ASSERT_TRUE(counts(alpha, "1"));
    ASSERT_TRUE(counts(beta, "1"));
    ASSERT_EQ(display().activeWindow(), beta.windows().front().id);
    display().moveTo(badge(alpha)->geometry.center());
    ASSERT_TRUE(waitUntil([&] { return display().previews().size() == 1; })) << "as the icon does";
    display().click();
    EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == alpha.windows().front().id; }));
    // Neither the click nor what the dock did about it has put the dock above its badges.
    const auto isBlue = [](QRgb pixel) {
        return qBlue(pixel) > 150 && qRed(pixel) < 60 && qGreen(pixel) < 130;
    };
    EXPECT_TRUE(waitUntil([&] {
        const auto shown = badge(beta); // where the panel has its button by now
        if (!shown)
            return false;
        const QRect place = shown->geometry;
        const QImage seen = display().picture(place);
        return isBlue(seen.pixel(place.width() / 2, 3)) &&
               isBlue(seen.pixel(3, place.height() / 2));
    }));
}

} // namespace lumbrix::privatedesk
