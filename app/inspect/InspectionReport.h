// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

#include "app/inspect/Inspection.h"

namespace lumbrix
{

/// The whole report as plain text, to be pasted into a bug report: the answer first, then the facts
/// behind it. Every line ends with a line feed. Main thread.
QString inspectionReport(const Inspection& inspection);

} // namespace lumbrix
