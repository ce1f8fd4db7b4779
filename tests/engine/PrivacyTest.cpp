// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What is not for everybody's eyes.

#include "engine/PrivateChoices.h"
#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class PrivacyTest : public EngineFixture
{
protected:
    /// With two windows, the first one minimised.
    Pid addVault(platform::ApplicationRole role)
    {
        const Pid pid = desk.addApplication(
            {.name = u"Vault"_s, .role = role, .iconColor = QColor(Qt::magenta)});
        windows = {desk.addWindow(pid, {u"Vault 1"_s}), desk.addWindow(pid, {u"Vault 2"_s})};
        desk.minimizeWindow(windows[0]);
        loop.advance(3);
        return pid;
    }
    /// Hovers the item, then its first preview, long enough for updates and the zoomed view.
    void look()
    {
        hover(u"Vault"_s);
        ASSERT_EQ(shown(), u"Vault 2, Vault 1"_s);
        movePointerTo(preview(0));
        loop.advance(2);
    }
    int captures() { return desk.captures(windows[0]) + desk.captures(windows[1]); }

    std::vector<WindowID> windows;
};

TEST_F(PrivacyTest, privateWindows_areCardsWithTheIconAndNeverCaptured)
{
    settings().zoomWindows = 1;
    addVault(platform::ApplicationRole::PasswordManager);
    look();
    for (const ScreenyViewPtr& each : engine().screenyViews()) {
        EXPECT_TRUE(each->image().isNull());
        EXPECT_TRUE(each->hasIcon());
    }
    EXPECT_FALSE(preview(0).zoomWindow());
    EXPECT_EQ(captures(), 0);

    engine().setPrivateChoices({{u"org.example.Vault"_s, false}});
    leave();
    look();
    EXPECT_FALSE(preview(0).image().isNull());
    EXPECT_TRUE(preview(0).zoomWindow());
    const int before = captures();
    engine().setPrivateChoices({});
    EXPECT_EQ(panelsOnScreen(), 0) << "what was shown is private again";
    leave();
    look();
    EXPECT_EQ(captures(), before);
}

TEST_F(PrivacyTest, userWhoIsAway_leavesNoPictureAndHasNoRow)
{
    settings().zoomWindows = 1;
    addVault(platform::ApplicationRole::Other);
    look();
    ASSERT_TRUE(preview(0).zoomWindow());
    const auto zoom = preview(0).weak_from_this();
    settings().neverClose = 1;
    hover(u"Vault"_s);
    desk.privacy().setAway(true);
    EXPECT_EQ(shown(), QString());
    EXPECT_EQ(panelsOnScreen(), 0);
    EXPECT_TRUE(zoom.expired()) << "its panel keeps what was painted";

    const int before = captures();
    loop.advance(3); // the mouse is still where it was
    leave();
    hover(u"Vault"_s);
    loop.advance(3);
    EXPECT_EQ(desk.previewRequests().host().show(desk.dockItem(u"Vault"_s)),
              platform::PreviewRequests::Answer::Disabled);
    EXPECT_EQ(shown(), QString());
    EXPECT_EQ(captures(), before);

    desk.privacy().setAway(false);
    leave();
    look();
    EXPECT_FALSE(preview(0).image().isNull());
}

// A file of settings that was edited by hand: what is no number errs on the safe side.
TEST_F(PrivacyTest, storedChoices_areReadWhateverTheyAre)
{
    desk.userDefaults().setDictionary({{u"a"_s, 0}, {u"b"_s, 1}, {u"c"_s, u"perhaps"_s}},
                                      u"privateApplications"_s);
    EXPECT_EQ(PrivateChoices::stored(desk.userDefaults()),
              (platform::Privacy::Choices{{u"a"_s, false}, {u"b"_s, true}, {u"c"_s, true}}));
}

} // namespace
} // namespace lumbrix::test
