// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Previews of media players that people use, and of mail programs.
#include "DesktopTest.h"

#include <array>

#include "RealPlayer.h"
#include "platform/StringLiterals.h"

namespace lumbrix::privatedesk
{

class MediaTest : public DesktopTest
{
protected:
    /// Follows the icon, which a dock moves while it makes room, until a preview shows.
    void hover(RealPlayer& player)
    {
        ASSERT_TRUE(waitUntil(
            [&] {
                const auto window = player.window();
                const auto icon =
                    window ? desk().dock().iconOf(player.entry(), *window) : std::nullopt;
                if (icon && display().pointer() != *icon)
                    display().moveTo(*icon);
                return icon && onlyPreview();
            },
            20000))
            << "the dock shows no icon, or there is no preview";
    }
    /// The only preview.
    std::optional<Panel> onlyPreview()
    {
        const std::vector<Panel> previews = display().previews();
        return previews.size() == 1 ? std::optional(previews.front()) : std::nullopt;
    }
    Result showsTitle(const QByteArray& part)
    {
        return waitUntil([&] {
            const auto panel = onlyPreview();
            return panel && panel->title.contains(part);
        });
    }
    enum Button { Previous = -30, PlayPause = 0, GetMail = 0, Next = 30 };
    /// A preview has its buttons in the middle, 40 points from the bottom, each 30 points large.
    static QRect placeOf(const Panel& panel, Button button)
    {
        const int left = qRound(panel.geometry.width() * 0.5 - 9) + button;
        return QRect(panel.geometry.x() + left, panel.geometry.bottom() + 1 - 70, 30, 30);
    }
    void enter()
    {
        const auto panel = onlyPreview();
        ASSERT_TRUE(panel);
        moveToPreview(panel->title);
    }
    void click(Button button)
    {
        const auto panel = onlyPreview();
        ASSERT_TRUE(panel);
        display().moveTo(placeOf(*panel, button).center());
        display().click();
    }
    /// What the preview shows where buttons come.
    std::array<QImage, 3> places()
    {
        const auto panel = onlyPreview();
        std::array<QImage, 3> pictures;
        for (const Button button : {Previous, PlayPause, Next})
            pictures.at(static_cast<std::size_t>(button / 30 + 1)) =
                panel ? display().picture(placeOf(*panel, button)) : QImage();
        return pictures;
    }
    void isDrivenByItsButtons(RealPlayer& player)
    {
        ASSERT_TRUE(waitUntil([&] { return player.state() == u"Playing"; }, 20000));
        enter();
        click(PlayPause);
        EXPECT_TRUE(waitUntil([&] { return player.state() == u"Paused"; }));
        click(PlayPause);
        EXPECT_TRUE(waitUntil([&] { return player.state() == u"Playing"; }));
        click(Next);
        EXPECT_TRUE(waitUntil([&] { return player.title() == u"Second Song"; }));
        EXPECT_TRUE(showsTitle("Bob - Second Song"));
        click(Previous);
        EXPECT_TRUE(waitUntil([&] { return player.title() == u"First Song"; }));
        EXPECT_TRUE(showsTitle("Ann - First Song"));
    }
};

class PlayerTest : public MediaTest
{
};

INSTANTIATE_TEST_SUITE_P(, PlayerTest, testing::Values(plank()), deskName);
INSTANTIATE_TEST_SUITE_P(, MediaTest, testing::Values(tint2()), deskName);

TEST_P(PlayerTest, musicPlayer_isDrivenFromItsPreview)
{
    const auto player = RealPlayer::audacious(desk().session());
    ASSERT_TRUE(player) << "audacious is not installed, which scripts/setup does";
    hover(*player);
    ASSERT_TRUE(showsTitle("Ann - First Song"));
    EXPECT_EQ(onlyPreview()->title, "Ann - First Song")
        << "the track alone, not the window's title";
    const auto red = [&] {
        return QColor(places()[0].pixel(0, 0)).red() > 100 &&
               QColor(places()[0].pixel(0, 0)).green() < 60;
    };
    ASSERT_TRUE(waitUntil(red)) << "the artwork";

    // The buttons appear on entering and go on leaving.
    const auto before = places();
    enter();
    EXPECT_TRUE(waitUntil([&] {
        const auto now = places();
        return now[0] != before[0] && now[1] != before[1] && now[2] != before[2];
    }));
    savePicture("controls");
    hover(*player);
    EXPECT_TRUE(waitUntil([&] { return places() == before; }));
    isDrivenByItsButtons(*player);

    ASSERT_TRUE(parkShowsNothing());
    desk().startLumbrix({{u"hideControls"_s, u"1"_s}});
    hover(*player);
    ASSERT_TRUE(showsTitle("Ann - First Song"));
    ASSERT_TRUE(waitUntil([&] { return places() == before; }));
    enter();
    // The close button comes with the controls, if there are any.
    const auto panel = onlyPreview();
    ASSERT_TRUE(panel);
    const QRect corner(panel->geometry.topLeft(), QSize(28, 28));
    const QImage hovered = display().picture(corner);
    hover(*player);
    EXPECT_TRUE(waitUntil([&] { return display().picture(corner) != hovered; }));
    enter();
    EXPECT_TRUE(waitUntil([&] { return display().picture(corner) == hovered; }));
    EXPECT_TRUE(places() == before);
}

TEST_P(PlayerTest, vlc_isDrivenFromItsPreview)
{
    const auto player = RealPlayer::vlc(desk().session());
    if (!player)
        GTEST_SKIP() << "vlc is not installed";
    hover(*player);
    ASSERT_TRUE(showsTitle("First Song"));
    enter();
    savePicture("controls");
    isDrivenByItsButtons(*player);
}

TEST_P(MediaTest, mailProgram_isToldToFetchMailWithoutComingForward)
{
    desk().session().installApplication(u"evolution"_s, u"Mail"_s, u"Evolution"_s, u"true"_s,
                                        Qt::cyan);
    Application& mail = launch(u"evolution"_s, 1);
    Application& other = launch(u"beta"_s, 1);
    ASSERT_TRUE(hoverShows(mail));
    enter();
    click(GetMail);
    constexpr int f12 = 96;
    EXPECT_TRUE(waitUntil([&] { return mail.keys() == std::vector<int>{f12, f12}; }));
    EXPECT_EQ(display().activeWindow(), other.windows().front().id);
    EXPECT_TRUE(shows(mail)) << "the preview stays, as with every control";
}

} // namespace lumbrix::privatedesk
