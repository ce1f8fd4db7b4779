// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which preview of a row is chosen though the mouse is not on it.
#pragma once

#include <QtCore/QPointF>

#include <memory>
#include <optional>
#include <vector>

#include "platform/Desktop.h"
#include "platform/RunLoop.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

/// Main thread. What is chosen looks as if the mouse was on it, and nothing else does. A choice of
/// the wheel holds while the mouse rests, a shake of the hand included: what is marked is what a
/// click means. A choice of the keyboard holds until the mouse comes onto another preview, which is
/// chosen then.
class RowSelection
{
public:
    /// All of it outlives the selection.
    RowSelection(const platform::Desktop& ports, const std::vector<ScreenyViewPtr>& previews)
        : m_ports(ports), m_previews(previews)
    {
    }

    /// Null when nothing of the row is chosen.
    ScreenyViewPtr chosen() const;
    /// The wheel over a preview: so many previews on from the chosen one, else from that; not
    /// beyond the ends.
    void turn(const ScreenyView& preview, int steps);
    /// By the keyboard. Null: nothing any more.
    void choose(const ScreenyViewPtr& preview);
    /// The mouse has come onto a preview.
    void mouseEntered(ScreenyView& preview);
    /// Brings the hover state of a preview in step with the choice, else with the mouse.
    void track(ScreenyView& preview, bool isMouseInside) const;

private:
    void set(const ScreenyViewPtr& preview);
    void followMouse();

    const platform::Desktop& m_ports;
    const std::vector<ScreenyViewPtr>& m_previews;
    std::weak_ptr<ScreenyView> m_chosen;
    std::optional<QPointF> m_mouse; ///< where the wheel was turned last; null: by the keyboard
    platform::TimerPtr m_timer;     ///< while the wheel has chosen
};

} // namespace lumbrix
