// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What was found under the pointer, and the verdicts of the rules on it.
#pragma once

#include <QtCore/QPointF>
#include <QtCore/QRectF>
#include <QtCore/QString>

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

/// Positions are in accessibility coordinates. Texts are unchanged from other programs.
struct InspectedWindow {
    QString title;
    QString subrole; ///< empty when it cannot be read
    QRectF frame;
    QString owner;                 ///< name of its application, if that is not the one inspected
    int level = 0;                 ///< filter level
    platform::WindowID number = 0; ///< 0 = not known
    std::optional<platform::WindowInfo> listed; ///< what the window server reports about it
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
    QString dock; ///< name of the dock that it is in
    DockItemKind kind = DockItemKind::Other;
    bool isRunning = false;
};

struct InspectedDock {
    QString name;
    std::int32_t pid = 0;                   ///< 0 = none was recognised
    std::optional<platform::DockEdge> edge; ///< null: none that previews can be placed at
    std::size_t items = 0;
    std::vector<platform::DockDisplay> displays; ///< its own tooltips and previews, certain or
                                                 ///< possible
};

/// A setting that decides what a hover shows, with another value than at first.
struct ChangedSetting {
    QString key;
    double value = 0;
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
    std::size_t previewable = 0; ///< how many of them could be previewed, if there is space
    /// Process id of the Lumbrix that runs on this desktop; 0 = none runs, null = not known.
    std::optional<std::int32_t> runningProcess;
    bool hasRun = false; ///< Lumbrix has been started before, so its settings exist
    QString unseen;      ///< which windows this desktop hides from us; empty when none
    std::vector<ChangedSetting> settings;
    bool isDisabled = false;
    int hidingKey = 0;                              ///< modifier index
    int showingKey = 0;                             ///< modifier index
    int unfilteringKey = 0;                         ///< modifier index
    HoverVerdict verdict = HoverVerdict::NoWindows; ///< on the item, if there is one
};

} // namespace lumbrix
