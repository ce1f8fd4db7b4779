// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace lumbrix
{

/// A text of another program as part of one line on a terminal: at most a few hundred characters,
/// with everything escaped that would break the line, command the terminal or turn the text round.
QString printableText(const QString& text);

} // namespace lumbrix
