// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A preview shown for a moment to demonstrate a changed size or position.
#pragma once

#include <memory>

#include "platform/RunLoop.h"

namespace lumbrix
{

class ScreenyView;

/// Main thread. Must be destroyed or closed before the engine is destroyed.
class SamplePreview
{
public:
    SamplePreview() = default;
    ~SamplePreview() { closeWindow(); }
    SamplePreview(const SamplePreview&) = delete;
    SamplePreview& operator=(const SamplePreview&) = delete;

    /// Shows it beside the Dock's first item, with the engine's current settings, or keeps showing
    /// it; it disappears half a second after the last call. `resize`: also apply the current
    /// preview size.
    void show(bool resize);
    void closeWindow();

    const ScreenyView* previewWindow() const { return m_previewWindow.get(); } ///< null: not shown

private:
    void invalidateCloseTimer();

    std::shared_ptr<ScreenyView> m_previewWindow;
    platform::TimerPtr m_closeWindowTimer;
};

} // namespace lumbrix
