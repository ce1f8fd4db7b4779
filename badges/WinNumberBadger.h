// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keeps a badge on the Dock icon of every running application, with the number of its windows.
#pragma once

#include <atomic>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "badges/WinNumberBadge.h"
#include "badges/WindowCountBadger.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"

namespace lumbrix
{

/// Main thread, except for the watcher, a thread of its own. It runs while there are badges,
/// because a Dock need not report that its icons moved.
class WinNumberBadger final : public WindowCountBadger
{
public:
    using Badges = std::vector<std::unique_ptr<WinNumberBadge>>;

    /// The ports must outlive it.
    explicit WinNumberBadger(const platform::Desktop& ports);
    ~WinNumberBadger() override;

    void setUp(WindowCounts& counts) override;
    void tearDown() override;

    void badgeDockItems() override;
    void updateBadgeSizes() override;
    void updateBadgeColors();
    void dismissBadges();
    WinNumberBadge* badgeForDockItem(const SWElement& item) const; ///< null if there is none
    const Badges& badgesArray() const { return m_badgesArray; }

    bool shouldBadgeDock() const override { return m_shouldBadgeDock; }
    /// When turned off, the watcher removes the badges on its next pass.
    void setShouldBadgeDock(bool on) override { m_shouldBadgeDock = on; }
    std::int32_t badgePosition() const override { return m_badgePosition; }
    void setBadgePosition(std::int32_t position) override { m_badgePosition = position; }
    bool badgeOnlyIfMore() const override { return m_badgeOnlyIfMore; }
    void setBadgeOnlyIfMore(bool on) override { m_badgeOnlyIfMore = on; }
    float badgeSizeExtra() const { return m_badgeSizeExtra; }
    void setBadgeSizeExtra(float points) override { m_badgeSizeExtra = points; }
    /// An application is full screen.
    bool isInFullscreen() const { return m_isInFullscreen; }
    QColor getCurrentColor() override;
    void setCurrentColor(const QColor& color) override;

private:
    /// What the watcher knows of a badge.
    struct Watched {
        SWElementPtr dockItem;
        QRectF prevRect;
    };

    void systemUIModeChanged();
    bool mayBadge() const { return shouldBadgeDock() && !isInFullscreen(); }
    std::unique_ptr<WinNumberBadge> makeBadge(const SWElementPtr& item, int count);
    /// Gives the watcher the current badges to compare with.
    void watch();
    void scanForChanges(const platform::Thread& self);

    const platform::Desktop& m_ports;
    WindowCounts* m_counts = nullptr; ///< null unless set up
    Badges m_badgesArray;
    std::int32_t m_dockPid = 0; ///< of the Dock that the badges were placed over
    std::atomic<bool> m_shouldBadgeDock{false};
    std::atomic<bool> m_isInFullscreen{false};
    std::int32_t m_badgePosition = 0;
    bool m_badgeOnlyIfMore = false;
    float m_badgeSizeExtra = 0;
    std::optional<QColor> m_color; ///< once loaded or chosen
    std::vector<std::unique_ptr<platform::WorkspaceSubscription>> m_subscriptions;

    std::mutex m_lock; ///< guards the members below
    std::vector<Watched> m_watched;
    bool m_isWatching = false; ///< a watcher is running and will look at m_watched again
};

} // namespace lumbrix
