// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace lumbrix
{

/// A title of another program as one line that is safe to lay out: at most a few hundred
/// characters, without line breaks and control characters, and valid UTF-16. Otherwise unchanged.
QString displayText(const QString& title);

} // namespace lumbrix
