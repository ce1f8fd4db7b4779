// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/RowSelection.h"

#include <algorithm>
#include <utility>

#include "engine/HitTest.h"
#include "engine/Timers.h"
#include "platform/InputState.h"

namespace lumbrix
{
namespace
{
/// How far a hand that turns the wheel moves the mouse without meaning it, points.
constexpr qreal shake = 6;
constexpr platform::Seconds followInterval = 0.05;
} // namespace

ScreenyViewPtr RowSelection::chosen() const
{
    ScreenyViewPtr preview = m_chosen.lock();
    return std::ranges::find(m_previews, preview) == m_previews.end() ? nullptr : preview;
}

void RowSelection::turn(const ScreenyView& preview, int steps)
{
    // The switcher has keys and a wheel of its own, and tells what is hovered there.
    if (preview.setByTab() || m_previews.size() < 2)
        return;
    const ScreenyViewPtr former = chosen();
    const auto from = std::ranges::find_if(m_previews, [&](const ScreenyViewPtr& each) {
        return each == former || (!former && each.get() == &preview);
    });
    if (from == m_previews.end())
        return;
    const auto last = static_cast<std::ptrdiff_t>(m_previews.size()) - 1;
    const auto index = std::clamp<std::ptrdiff_t>(from - m_previews.begin() + steps, 0, last);
    m_mouse = m_ports.inputState.mouseLocation();
    set(m_previews[static_cast<std::size_t>(index)]);
    invalidateTimer(m_timer);
    m_timer = m_ports.runLoop.scheduleTimer(followInterval, true, [this] { followMouse(); });
}

void RowSelection::choose(const ScreenyViewPtr& preview)
{
    invalidateTimer(m_timer);
    m_mouse.reset();
    set(preview);
}

void RowSelection::set(const ScreenyViewPtr& preview)
{
    m_chosen = preview;
    const auto previews = m_previews;
    for (const ScreenyViewPtr& each : previews)
        if (each != preview && each->isMouseInside())
            each->endHover();
    if (preview && !preview->isHovered())
        preview->mouseEntered();
}

void RowSelection::mouseEntered(ScreenyView& preview)
{
    const ScreenyViewPtr former = chosen();
    if (!former || former.get() == &preview)
        return;
    if (m_mouse) {
        choose(nullptr);
        return;
    }
    m_chosen = preview.shared_from_this();
    former->endHover();
}

/// Nothing else would tell that the mouse has moved on a preview where it was before.
void RowSelection::followMouse()
{
    const QPointF moved = m_ports.inputState.mouseLocation() - m_mouse.value_or(QPointF());
    if (chosen() && QPointF::dotProduct(moved, moved) <= shake * shake)
        return;
    choose(nullptr);
    const auto previews = m_previews;
    for (const ScreenyViewPtr& each : previews)
        track(*each, contains(frameOf(*each), m_ports.inputState.mouseLocation()));
}

void RowSelection::track(ScreenyView& preview, bool isMouseInside) const
{
    const ScreenyViewPtr chosen = this->chosen();
    trackHover(preview, chosen ? chosen.get() == &preview : isMouseInside);
}

} // namespace lumbrix
