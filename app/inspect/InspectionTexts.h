// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the rules said, in words for the user. Each names the setting by which it can be changed.
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

// Main thread, all of them.

/// What hovering brings, or why it brings nothing.
QString outcomeText(const Inspection& inspection);
/// Why the window is not previewed; empty when it is.
QString reasonText(const InspectedWindow& window);
QString placeText(const QRectF& rect);
QString levelText(const AppliedFilterLevel& level);

} // namespace lumbrix
