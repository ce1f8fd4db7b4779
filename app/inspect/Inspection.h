// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What was found under the pointer, and what the rules said of it.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdint>
#include <optional>
#include <vector>

#include "engine/HoverRules.h"
#include "model/FilterLevels.h"
#include "model/WindowVerdict.h"
#include "platform/DockPreferences.h"
#include "platform/WindowServer.h"

namespace lumbrix
{

/// Places are in accessibility coordinates. Texts are as other programs gave them.
struct InspectedWindow {
    QString title;
    QString subrole; ///< empty when it cannot be read
    QRectF frame;
    QString owner;                 ///< name of its application, where that is not the one inspected
    int level = 0;                 ///< filter level
    platform::WindowID number = 0; ///< 0 = not known
    std::optional<platform::WindowInfo> listed; ///< what the window server says of it
    int space = 0;                              ///< 0 = on all, or unknown
    bool isMinimized = false;
    bool isUnderPointer = false;
    WindowVerdict verdict = WindowVerdict::Good;
};

struct InspectedApplication {
    QString name;
    QString identifier;
    std::int32_t pid = 0;
    bool isHidden = false;
    bool answers = true;
    AppliedFilterLevel level;
};

struct InspectedItem {
    QString title;
    QString dock; ///< which dock it is in, in that dock's words
    DockItemKind kind = DockItemKind::Other;
    bool isRunning = false;
};

struct InspectedDock {
    QString name;
    std::int32_t pid = 0;                   ///< 0 = none was recognised
    std::optional<platform::DockEdge> edge; ///< null: none that previews can be placed at
    std::size_t items = 0;
    std::vector<platform::DockDisplay> displays; ///< that it shows or may show by itself
};

struct Inspection {
    QPointF pointer;
    std::vector<QRectF> screens;
    QString element; ///< the report on the element; empty when there is none
    bool pointsAtItem = false;
    InspectedDock dock;
    std::optional<InspectedItem> item; ///< under the pointer, else the application's; null if none
    std::optional<InspectedApplication> application;
    std::vector<InspectedWindow> windows;
    std::size_t previewable = 0; ///< how many of them could be previewed, if there is room
    /// Of the Lumbrix that runs on this desktop: 0 = none does, null = not known.
    std::optional<std::int32_t> runningProcess;
    bool hasRun = false;  ///< Lumbrix has been started before, and left its settings
    QString unseen;       ///< which windows this desktop keeps from us; empty when none
    QStringList settings; ///< those that were changed and matter here, "name=value"
    bool isDisabled = false;
    int hidingKey = 0;                              ///< modifier index
    int showingKey = 0;                             ///< modifier index
    HoverVerdict verdict = HoverVerdict::NoWindows; ///< on the item, where there is one
};

} // namespace lumbrix
