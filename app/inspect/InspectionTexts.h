// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The verdicts of the rules as texts for the user. Each names the setting that changes it.
#pragma once

#include <QtCore/QCoreApplication>
#include <QtCore/QString>

#include "app/inspect/Inspection.h"

namespace lumbrix
{

/// Translates the texts of the report.
class InspectionText
{
    Q_DECLARE_TR_FUNCTIONS(Inspection)
};

// All functions: main thread.

/// What hovering shows, or why it shows nothing.
QString outcomeText(const Inspection& inspection);
/// Why the window is not previewed; empty when it is.
QString reasonText(const InspectedWindow& window);
/// Size and place of a rectangle in points, in whole pixels.
QString placeText(const QRectF& rect);
/// What sort of window has that subrole.
QString kindText(const QString& subrole);
/// What the setting does now; empty if another one tells that.
QString settingText(const ChangedSetting& setting, const Inspection& inspection);
QString levelText(const AppliedFilterLevel& level);

} // namespace lumbrix
