// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/Companions.h"

namespace lumbrix
{
namespace
{

class AbsentHotKeyCenter final : public HotKeyCenter
{
    void registerHotKey(const std::shared_ptr<SGHotKey>&) override {}
    void unregisterHotKey(const std::shared_ptr<SGHotKey>&) override {}
    void toggleEventTap(bool) override {}
    void rowChanged() override {}
};

class AbsentCalendarPreview final : public CalendarPreview
{
    bool shouldShowCal() const override { return false; }
    void setShouldShowCal(bool) override {}
    void calIconHovered(const SWElementPtr&) override {}
};

class AbsentHelpBubble final : public HelpBubble
{
    void setShouldBubbleWrap(bool) override {}
    void positionAndShowBubble(const std::vector<ScreenyViewPtr>&) override {}
    void hideBubble() override {}
};

class AbsentWindowCountBadger final : public WindowCountBadger
{
    void setUp(WindowCounts&) override {}
    void tearDown() override {}
    void badgeDockItems() override {}
    void updateBadgeSizes() override {}
    bool shouldBadgeDock() const override { return false; }
    void setShouldBadgeDock(bool) override {}
    std::int32_t badgePosition() const override { return 0; }
    void setBadgePosition(std::int32_t) override {}
    bool badgeOnlyIfMore() const override { return false; }
    void setBadgeOnlyIfMore(bool) override {}
    void setBadgeSizeExtra(float) override {}
    QColor getCurrentColor() override { return {}; }
    void setCurrentColor(const QColor&) override {}
};

class AbsentPlayerControls final : public PlayerControls
{
    void setAppFlags(ScreenyView&, const std::optional<platform::RunningApplication>&) override {}
    bool isReachable(const ScreenyView&) override { return false; }
    PlayerState playerState(const ScreenyView&) override { return PlayerState::Unknown; }
    std::optional<QString> currentTrack(const ScreenyView&) override { return std::nullopt; }
    QImage artwork(const ScreenyView&) override { return {}; }
    void skipLeft(ScreenyView&) override {}
    void skipRight(ScreenyView&) override {}
    void play(ScreenyView&) override {}
    void getMail(ScreenyView&) override {}
    void playPause(ScreenyView&) override {}
};

} // namespace

Companions::Companions()
    : hotKeyCenter(std::make_shared<AbsentHotKeyCenter>()),
      calendarPreview(std::make_shared<AbsentCalendarPreview>()),
      helpBubble(std::make_shared<AbsentHelpBubble>()),
      windowCountBadger(std::make_shared<AbsentWindowCountBadger>()),
      playerControls(std::make_shared<AbsentPlayerControls>())
{
}

} // namespace lumbrix
