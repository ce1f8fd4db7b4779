// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Plank's preferences in GSettings.
#pragma once

#include <QtCore/QString>

#include <functional>
#include <memory>
#include <optional>

#include "platform/linux/defaults/ProgramSettings.h"
#include "platform/linux/docks/PlankGeometry.h"

namespace lumbrix::platform
{

/// The path of a dock's settings; `dock` is a name like "dock1".
QString plankSettingsPath(const QString& dockName);

/// Main thread. Without Plank's schema every read returns null.
class PlankSettings
{
public:
    struct Values {
        DockEdge edge = DockEdge::Bottom;
        bool hides = false;
        PlankLook look;
    };

    /// `changed` is called when one of the values changed.
    PlankSettings(const QString& dockName, std::function<void()> changed);

    std::optional<Values> read() const;

private:
    const std::unique_ptr<ProgramSettings> m_settings;
};

} // namespace lumbrix::platform
