// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The names of the filter levels for the user. The settings store the numbers.
#pragma once

#include <QtCore/QString>

namespace lumbrix::FilterLevel
{

inline constexpr int low = 0;
inline constexpr int medium = 1;
inline constexpr int high = 2;
inline constexpr int blockAll = 3;
inline constexpr int totalFinder = 4; ///< for the Finder only

/// In the user's language; a number that is no level counts as High.
QString title(int level);
/// Which windows are previewed at that level, in a few words that follow its title.
QString summary(int level);
/// One sentence that says what the level leaves out, in the user's language.
QString description(int level);

} // namespace lumbrix::FilterLevel
