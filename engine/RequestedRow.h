// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Shows the rows of previews that other programs request.
#pragma once

#include <functional>

#include "engine/Dismissal.h"
#include "engine/EngineContext.h"
#include "model/SWElement.h"
#include "platform/PreviewRequests.h"

namespace lumbrix
{

/// Main thread. Such a row is made like that of a hovered icon, with one difference: it was shown
/// without the mouse, so it stays without it, until the mouse has been on the row or its item and
/// leaves, or hovers another item.
class RequestedRow final : public platform::PreviewRequests::Host
{
public:
    using Answer = platform::PreviewRequests::Answer;

    RequestedRow(const EngineContext& context, Dismissal& dismissal)
        : m(context), m_dismissal(dismissal)
    {
    }
    ~RequestedRow() override;
    /// Accepts requests from now on.
    void setUp();

    Answer show(const platform::ElementRef& item) override;
    /// The same for an item of the Dock, at the user's own wish; `ended` is told of its end.
    Answer bringUp(const SWElementPtr& element, std::function<void()> ended);
    void hide(const platform::ElementRef& item) override;
    void mouseLeft(const platform::ElementRef& item) override;
    void abandon(const platform::ElementRef& item) override;

private:
    Answer judge(const SWElement& element) const;

    const EngineContext m;
    Dismissal& m_dismissal;
    bool m_takesRequests = false;
};

} // namespace lumbrix
