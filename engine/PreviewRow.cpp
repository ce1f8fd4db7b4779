// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PreviewRow.h"

#include <algorithm>
#include <utility>

#include "engine/HoverRules.h"
#include "platform/Log.h"
#include "platform/WindowServer.h"
#include "preview/ElidedTitle.h"

namespace lumbrix
{
namespace
{

/// The cache is last in, first out: returned in this order, each panel gets its former position in
/// the next row, and panels that are still on screen do not swap places.
template <class Action>
void forEachFromLast(const std::vector<ScreenyViewPtr>& previews, Action action)
{
    for (auto preview = previews.rbegin(); preview != previews.rend(); ++preview)
        action(**preview);
}

} // namespace

PreviewRow::PreviewRow(const platform::Desktop& ports, PreviewHost& host,
                       const EngineSettings& settings, const Companions& companions,
                       const HoveredItem& hovered)
    : m_ports(ports), m_companions(companions), m_hovered(hovered), m_cache(ports, host),
      m_queue(std::make_shared<CaptureQueue>(ports.runLoop)), m_feed(ports, settings, *m_queue),
      m_arranger(ports, settings, m_previews, *companions.helpBubble),
      m_pictures(ports, m_previews, *m_queue, m_feed), m_selection(ports, m_previews),
      m_more(ports, host)
{
    m_previews.reserve(2);
}

int PreviewRow::indexOf(const ScreenyView& preview) const
{
    const auto found =
        std::find_if(m_previews.begin(), m_previews.end(),
                     [&preview](const ScreenyViewPtr& shown) { return shown.get() == &preview; });
    return found == m_previews.end() ? -1 : static_cast<int>(found - m_previews.begin());
}

bool PreviewRow::belongsTo(const Application& application, bool byTab) const
{
    if (m_previews.empty() || !application)
        return false;
    const ScreenyView& first = *m_previews.front();
    return first.elementRef() && first.elementRef()->pid() == application->pid &&
           first.setByTab() == byTab;
}

bool PreviewRow::isOnOtherSpaces() const
{
    const int current = m_ports.windowServer.currentWorkspace();
    return std::ranges::any_of(m_previews, [current](const ScreenyViewPtr& preview) {
        const SWElementPtr& window = preview->elementRef();
        const int space = window ? window->getSpaceNumber() : 0;
        return space > 0 && space != current;
    });
}

void PreviewRow::append(const ScreenyViewPtr& preview)
{
    m_previews.push_back(preview);
    m_isShowing = true;
    m_companions.hotKeyCenter->rowChanged();
}

ScreenyViewPtr PreviewRow::append(const SWElementPtr& window, const Application& application,
                                  bool byTab)
{
    ScreenyViewPtr preview = m_cache.createScreenyView();
    if (!preview)
        return nullptr;
    qCDebug(log::hover, "window %#x comes into the row%s", unsigned{window->wid()},
            qUtf8Printable(log::title(window->getTitle().value_or(QString()))));
    if (byTab)
        preview->setSetByTab(true);
    append(preview);
    // A preview that is reused at once still has the picture of its former window.
    preview->setImage({});
    preview->setElementRef(window);
    preview->setTitleString(window->getTitle().value_or(QString()));
    preview->setAppFlags(m_hovered.applicationOf(*window, application));
    return preview;
}

void PreviewRow::append(const std::vector<SWElementPtr>& windows, const Application& application,
                        bool byTab)
{
    m_firstWindow = 0;
    for (const SWElementPtr& window : present(windows))
        append(window, application, byTab);
}

std::vector<SWElementPtr> PreviewRow::present(const std::vector<SWElementPtr>& windows)
{
    m_allWindows = windows.size();
    if (m_firstWindow >= m_allWindows)
        m_firstWindow = 0;
    m_presentWindows = std::min(m_allWindows - m_firstWindow, maxPreviews);
    const auto first = windows.begin() + static_cast<std::ptrdiff_t>(m_firstWindow);
    return {first, first + static_cast<std::ptrdiff_t>(m_presentWindows)};
}

void PreviewRow::tellTitlesApart() const
{
    QStringList titles;
    for (const ScreenyViewPtr& preview : m_previews)
        titles += preview->shownTitle();
    const auto alike = charactersAlike(titles);
    for (std::size_t i = 0; i < m_previews.size(); ++i)
        m_previews[i]->setTitleAlike(alike[i]);
}

void PreviewRow::updateMore()
{
    // The switcher's row is gone with the keys that are held.
    const bool hasMore =
        !m_previews.empty() && !m_previews.front()->setByTab() && !m_previews.front()->iCal();
    if (hasMore)
        m_more.show(m_allWindows - m_presentWindows, m_arranger.placeOfMore(MoreEntry::size),
                    *m_previews.front());
    else
        m_more.hide();
}

void PreviewRow::setPreviews(std::vector<ScreenyViewPtr> previews)
{
    m_previews = std::move(previews);
    m_isShowing = !m_previews.empty();
    tellTitlesApart();
    m_feed.keepTo(m_previews);
    if (m_previews.empty())
        m_more.hide();
    m_companions.hotKeyCenter->rowChanged();
}

std::vector<ScreenyViewPtr> PreviewRow::take()
{
    m_isShowing = false;
    m_feed.keepTo({});
    m_selection.choose(nullptr);
    m_companions.hotKeyCenter->rowChanged();
    return std::exchange(m_previews, {});
}

void PreviewRow::bringOut()
{
    m_pictures.loadMissing();
    tellTitlesApart();
    const auto previews = m_previews;
    for (const ScreenyViewPtr& preview : previews) {
        // The position and size of the numbers depend on the panels, which may have just changed,
        // even for previews that were already shown. A calendar's panel has no number.
        if (!preview->iCal()) {
            preview->showSpaces();
            preview->setShortcut();
        }
        preview->orderFront();
    }
    updateMore();
    m_pictures.showWhenComplete();
}

void PreviewRow::takeAwayWithTheNextPass()
{
    forEachFromLast(take(), [](ScreenyView& preview) { preview.rebirth(); });
    m_orderOutTimer = m_ports.runLoop.scheduleTimer(0, false, [this] {
        m_cache.orderCacheOut();
        if (m_previews.empty())
            m_more.hide();
    });
}

void PreviewRow::takeAway()
{
    forEachFromLast(take(), [](ScreenyView& preview) { preview.dismiss(); });
    m_more.hide();
}

} // namespace lumbrix
