// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Plank's preferences as it keeps them in GSettings.
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <optional>

#include "platform/linux/docks/PlankGeometry.h"

namespace lumbrix::platform
{

/// Main thread. Without Plank's schema every read gives null.
class PlankSettings
{
public:
    struct Values {
        DockEdge edge = DockEdge::Bottom;
        bool hides = false;
        PlankLook look;
    };

    /// `dockName` as in "dock1". `changed` is called when one of the values changed.
    PlankSettings(const QString& dockName, std::function<void()> changed);
    ~PlankSettings();
    PlankSettings(const PlankSettings&) = delete;
    PlankSettings& operator=(const PlankSettings&) = delete;

    std::optional<Values> read() const;

private:
    struct Native;
    std::unique_ptr<Native> m_native;
};

} // namespace lumbrix::platform
