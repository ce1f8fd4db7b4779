// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace lumbrix
{

/// A text of another program as part of one line on a terminal: at most so many characters, with
/// everything escaped that would break the line, command the terminal or turn the text round.
QString printableUpTo(qsizetype maxCharacters, const QString& text);
/// The same of a name or a title.
inline QString printableText(const QString& text) { return printableUpTo(300, text); }

} // namespace lumbrix
