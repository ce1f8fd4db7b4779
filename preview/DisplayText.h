// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace lumbrix
{

/// Makes a title of another program safe to lay out as one line: at most a few hundred characters,
/// without line breaks and control characters, valid UTF-16. Otherwise unchanged.
QString displayText(const QString& title);

} // namespace lumbrix
