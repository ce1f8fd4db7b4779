// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "badges/WinNumberBadger.h"

#include <algorithm>
#include <map>
#include <utility>

#include "badges/BadgeLook.h"
#include "platform/DockPreferences.h"
#include "platform/StringLiterals.h"
#include "platform/UserDefaults.h"
#include "preview/MAWindow.h"

namespace lumbrix
{
namespace
{

constexpr platform::Seconds watchInterval = 0.25;
constexpr int settleReadings = 30;
// Deliberately the single-precision value, converted to double.
constexpr platform::Seconds settleInterval = 0.02f;

QString colorKey() { return u"winBadgeColor"_s; }

/// Waits until a moving icon has come to rest, at most half a second.
void waitUntilSettled(const SWElement& item, platform::RunLoop& runLoop,
                      const platform::Thread& self)
{
    QRectF previous;
    for (int reading = 0; reading < settleReadings && !self.isCancelled(); ++reading) {
        const QRectF current = WinNumberBadge::iconRect(item);
        if (current == previous)
            return;
        previous = current;
        runLoop.sleep(settleInterval);
    }
}

} // namespace

WinNumberBadger::WinNumberBadger(const platform::Desktop& ports) : m_ports(ports) {}

WinNumberBadger::~WinNumberBadger() = default;

void WinNumberBadger::setUp(WindowCounts& counts)
{
    m_counts = &counts;
    using platform::WorkspaceNotification;
    m_subscriptions.push_back(
        m_ports.workspace.observe(WorkspaceNotification::SystemUIModeDidChange,
                                  [this](std::int32_t) { systemUIModeChanged(); }));
    m_subscriptions.push_back(m_ports.workspace.observe(
        WorkspaceNotification::DockItemsDidChange, [this](std::int32_t) { badgeDockItems(); }));
    m_isInFullscreen = m_ports.workspace.systemUIMode() != 0;
    badgeDockItems();
}

void WinNumberBadger::tearDown()
{
    m_subscriptions.clear();
    dismissBadges();
    m_counts = nullptr;
}

void WinNumberBadger::systemUIModeChanged()
{
    m_isInFullscreen = m_ports.workspace.systemUIMode() != 0;
    if (m_isInFullscreen)
        m_counts->removeAllScreenViews(); // the watcher removes the badges on its next pass
    else
        badgeDockItems();
}

void WinNumberBadger::badgeDockItems()
{
    if (!m_counts)
        return;
    if (!mayBadge()) {
        dismissBadges();
        return;
    }
    // The windows of a restarted Dock are above the existing badges.
    const std::int32_t dockPid = SWElement::getDockPid(m_ports);
    const bool isOtherDock = std::exchange(m_dockPid, dockPid) != dockPid;
    Badges confirmed;
    // A panel may have a button for each of an application's windows, which are counted once.
    std::map<std::int32_t, int> counts;
    const auto countOf = [&](const platform::RunningApplication& application) {
        const auto [known, isNew] = counts.try_emplace(application.pid, 0);
        if (isNew)
            known->second = m_counts->countForRunningApp(application);
        return known->second;
    };
    for (const SWElementPtr& item :
         SWElement::runningApps(m_ports).value_or(std::vector<SWElementPtr>{})) {
        const auto application = item->runningApplicationForDockElement();
        const int count = application ? countOf(*application) : 0;
        if (count == 0 || (m_badgeOnlyIfMore && count < 2))
            continue;
        // On a task bar with a button for each window, every button would show the application's
        // count, which is true of none of them.
        if (count > 1 && item->ownWindow())
            continue;
        // A second number beside the Dock's own says nothing, and covers the button's text.
        if (m_ports.dockPreferences.countsWindows(item->element()))
            continue;
        const auto known =
            std::find_if(m_badgesArray.begin(), m_badgesArray.end(), [&item](const auto& badge) {
                return badge && badge->dockItem()->isEqualTo(item);
            });
        if (known == m_badgesArray.end()) {
            if (auto badge = makeBadge(item, count))
                confirmed.push_back(std::move(badge));
            continue;
        }
        (*known)->setBadgeValue(count);
        (*known)->arrangeRelativeTo(m_badgePosition, m_badgeSizeExtra);
        if (isOtherDock)
            (*known)->orderFront();
        confirmed.push_back(std::move(*known));
    }
    m_badgesArray = std::move(confirmed); // destroying the others removes them from the screen
    watch();
}

std::unique_ptr<WinNumberBadge> WinNumberBadger::makeBadge(const SWElementPtr& item, int count)
{
    std::unique_ptr<WinNumberBadge> badge = WinNumberBadge::load(m_ports, item);
    if (!badge)
        return nullptr;
    badge->updateImageColor(getCurrentColor());
    badge->setBadgeValue(count);
    badge->arrangeRelativeTo(m_badgePosition, m_badgeSizeExtra);
    badge->orderFront();
    return badge;
}

WinNumberBadge* WinNumberBadger::badgeForDockItem(const SWElement& item) const
{
    const auto found =
        std::find_if(m_badgesArray.begin(), m_badgesArray.end(),
                     [&item](const auto& badge) { return badge->dockItem()->isEqualTo(&item); });
    return found == m_badgesArray.end() ? nullptr : found->get();
}

void WinNumberBadger::dismissBadges()
{
    for (const auto& badge : m_badgesArray)
        badge->dismiss();
    m_badgesArray.clear();
    watch();
}

void WinNumberBadger::updateBadgeSizes()
{
    for (const auto& badge : m_badgesArray)
        badge->arrangeRelativeTo(m_badgePosition, m_badgeSizeExtra);
    watch();
}

void WinNumberBadger::updateBadgeColors()
{
    const QColor color = getCurrentColor();
    for (const auto& badge : m_badgesArray)
        badge->updateImageColor(color);
}

QColor WinNumberBadger::getCurrentColor()
{
    if (!m_color) {
        const auto data = m_ports.userDefaults.dataForKey(colorKey());
        m_color = data ? unarchivedColor(*data) : std::nullopt;
    }
    return m_color.value_or(defaultBadgeColor);
}

void WinNumberBadger::setCurrentColor(const QColor& color)
{
    if (!color.isValid())
        return;
    m_color = color;
    m_ports.userDefaults.setData(archivedColor(color), colorKey());
    m_ports.userDefaults.synchronize();
    updateBadgeColors();
}

void WinNumberBadger::watch()
{
    bool isNeeded = false;
    {
        const std::lock_guard lock(m_lock);
        m_watched.clear();
        for (const auto& badge : m_badgesArray)
            m_watched.push_back({badge->dockItem(), badge->prevRect()});
        isNeeded = !m_watched.empty() && !std::exchange(m_isWatching, !m_watched.empty());
    }
    if (isNeeded)
        m_ports.runLoop.detachThread(
            "badge-watcher", [this](const platform::Thread& self) { scanForChanges(self); });
}

void WinNumberBadger::scanForChanges(const platform::Thread& self)
{
    while (!self.isCancelled()) {
        std::vector<Watched> watched;
        {
            const std::lock_guard lock(m_lock);
            watched = m_watched;
            m_isWatching = !watched.empty();
        }
        if (watched.empty())
            return; // nothing to watch
        const auto moved = std::find_if(watched.begin(), watched.end(), [](const Watched& each) {
            return WinNumberBadge::iconRect(*each.dockItem) != each.prevRect;
        });
        if (!mayBadge()) {
            m_ports.runLoop.performOnMainThread([this] { dismissBadges(); }, true);
        } else if (moved != watched.end()) {
            waitUntilSettled(*moved->dockItem, m_ports.runLoop, self);
            m_ports.runLoop.performOnMainThread([this] { updateBadgeSizes(); }, true);
        }
        m_ports.runLoop.sleep(watchInterval);
    }
}

} // namespace lumbrix
