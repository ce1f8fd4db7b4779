// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A preview that shows for a moment what a change of its size or place looks like.
#pragma once

#include <memory>

#include "platform/RunLoop.h"

namespace lumbrix
{

class ScreenyView;

/// Main thread. To be gone, or closed, before the engine is.
class SamplePreview
{
public:
    SamplePreview() = default;
    ~SamplePreview() { closeWindow(); }
    SamplePreview(const SamplePreview&) = delete;
    SamplePreview& operator=(const SamplePreview&) = delete;

    /// Shows it beside the Dock's first item, with the engine's present settings, or keeps it
    /// there; half a second after the last call it goes. `resize`: in the present preview size too.
    void show(bool resize);
    void closeWindow();

    const ScreenyView* previewWindow() const { return m_previewWindow.get(); } ///< null: not shown

private:
    void invalidateCloseTimer();

    std::shared_ptr<ScreenyView> m_previewWindow;
    platform::TimerPtr m_closeWindowTimer;
};

} // namespace lumbrix
