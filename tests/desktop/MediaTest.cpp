// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preview of a media player that people use.
#include "DesktopTest.h"
#include "RealPlayer.h"

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
                return icon && display().previews().size() == 1;
            },
            20000))
            << "the dock shows no icon, or there is no preview";
    }
    /// The track alone, not the window's title.
    Result showsTitle(const QByteArray& title)
    {
        return waitUntil([&] { return preview(title).has_value(); });
    }
    /// Of the row's only preview; it is 30 points large, in the middle or beside that.
    enum Button { Previous = -30, PlayPause = 0, Next = 30 };
    void click(Button button)
    {
        const QRect area = row();
        display().moveTo({area.x() + qRound(area.width() * 0.5) + 6 + button, area.bottom() - 54});
        display().click();
    }
};

INSTANTIATE_TEST_SUITE_P(, MediaTest, testing::Values(plank()), deskName);

TEST_P(MediaTest, musicPlayer_isDrivenFromItsPreview)
{
    const auto player = RealPlayer::audacious(desk().session());
    ASSERT_TRUE(player) << "audacious is not installed, which scripts/setup does";
    hover(*player);
    ASSERT_TRUE(showsTitle("Ann - First Song"));
    EXPECT_TRUE(waitUntil([&] {
        const QColor seen = display().picture(row()).pixelColor(row().width() / 2, 60);
        return seen.red() > 100 && seen.green() < 60;
    })) << "the artwork";
    ASSERT_TRUE(waitUntil([&] { return player->state() == u"Playing"; }, 20000));
    moveToPreview("Ann - First Song");
    savePicture("controls");
    click(PlayPause);
    EXPECT_TRUE(waitUntil([&] { return player->state() == u"Paused"; }));
    click(PlayPause);
    EXPECT_TRUE(waitUntil([&] { return player->state() == u"Playing"; }));
    click(Next);
    EXPECT_TRUE(waitUntil([&] { return player->title() == u"Second Song"; }));
    EXPECT_TRUE(showsTitle("Bob - Second Song"));
    click(Previous);
    EXPECT_TRUE(waitUntil([&] { return player->title() == u"First Song"; }));
    EXPECT_TRUE(showsTitle("Ann - First Song"));
}

} // namespace lumbrix::privatedesk
