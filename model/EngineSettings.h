// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The engine's copy of every user setting that its hot paths read.
#pragma once

#include <atomic>
#include <cstdint>

namespace lumbrix
{

/// One setting: written on the main thread, read on any. Relaxed, because settings are independent
/// of each other and a reader may see a slightly older value.
template <class T> class Setting
{
public:
    Setting() = default;
    Setting(const Setting&) = delete;
    Setting& operator=(const Setting&) = delete;
    Setting& operator=(T value)
    {
        m_value.store(value, std::memory_order_relaxed);
        return *this;
    }
    operator T() const { return m_value.load(std::memory_order_relaxed); }

private:
    std::atomic<T> m_value{};
};

/// Named as the user defaults they mirror, each of which has a row in app/SettingsTable.cpp. All
/// start at zero, that is, off, until the controller fills them. Flags are on when non-zero; a
/// "Keycode" is a modifier index (1 Option, 2 Control, 3 Shift, anything else Command).
struct EngineSettings {
    Setting<float> distanceFromDock; ///< points
    Setting<float> windowWidth;      ///< points
    Setting<float> windowHeight;     ///< points
    Setting<float> exitDelay;        ///< seconds
    Setting<std::int32_t> showInDock;
    Setting<std::int32_t> showInTab;
    Setting<std::int32_t> ignoreHidden;
    Setting<std::int32_t> ignoreMinimized;
    Setting<std::int32_t> neverClose;
    Setting<std::int32_t> keepOnTheWay;
    Setting<std::int32_t> showSpaces;
    Setting<std::int32_t> alwaysShowSpaces;
    Setting<std::int32_t> previewStyle;
    Setting<std::int32_t> spaceStyle;
    Setting<std::int32_t> spaceSize;
    Setting<std::int32_t> hideControls;
    Setting<std::int32_t> closeOnClick;
    Setting<std::int32_t> ignoreOneWindow;
    Setting<std::int32_t> showOthersInDockIcon;
    Setting<std::int32_t> onlyIfPressed;
    Setting<std::int32_t> onlyIfKeycode;
    Setting<std::int32_t> tempDisableFilters;
    Setting<std::int32_t> tempDisableFiltersKeycode;
    Setting<std::int32_t> disableLivePreviews;
    Setting<std::int32_t> hidePreviews;
    Setting<std::int32_t> hidePreviewsKeycode;
    Setting<std::int32_t> hideClose;
    Setting<std::int32_t> disabled;
    Setting<std::int32_t> showFastKeys;
    Setting<std::int32_t> zoomWindows;
    Setting<std::int32_t> keepOnMiddleClick;
};

} // namespace lumbrix
