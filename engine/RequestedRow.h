// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The row of previews that another program has asked for.
#pragma once

#include <QtCore/QPointF>

#include <optional>

#include "model/SWElement.h"
#include "platform/PreviewRequests.h"

namespace lumbrix
{

class LXHandler;

/// Main thread. A row like any other, on the ways of a hovered icon, but for one thing: it came
/// without the mouse, so it stays without it, until the mouse has been on it or on its item and
/// leaves, or hovers another item. Told of the ends of all rows, it tells the port of the end of
/// the one that was asked for.
class RequestedRow final : public platform::PreviewRequests::Host
{
public:
    using Answer = platform::PreviewRequests::Answer;

    explicit RequestedRow(LXHandler& handler) : m_handler(handler) {}
    ~RequestedRow() override;
    /// Takes requests from now on.
    void setUp();

    Answer show(const platform::ElementRef& item) override;
    void hide(const platform::ElementRef& item) override;
    void mouseLeft(const platform::ElementRef& item) override;
    void abandon(const platform::ElementRef& item) override;

    /// Whether the present row, or one that waits for a key, was asked for.
    bool isUp() const { return m_element != nullptr; }
    /// Whether the mouse rests where a preview of the former row was, which has gone from under it:
    /// that is no leaving.
    bool hasLeftTheMouse() const;
    /// There is something to show for the present request, after a time without.
    void bringUp();
    /// Every row has ended.
    void rowEnded();
    /// From now on the previews belong to this item.
    void itemChanged(const SWElementPtr& item);
    /// Ends a row of which nothing is left, and nothing comes when the user holds or lets go a key.
    void endIfEmpty();

private:
    Answer judge(const SWElement& element) const;
    bool isItem(const platform::ElementRef& item) const;

    LXHandler& m_handler;
    bool m_takesRequests = false;
    SWElementPtr m_element;               ///< null = the present row was not asked for
    std::optional<QPointF> m_mouseBefore; ///< where it was, if that was on the former row
};

} // namespace lumbrix
