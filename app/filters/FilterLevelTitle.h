// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The filter levels as users read of them. The numbers are what is stored.
#pragma once

#include <QtCore/QString>

namespace lumbrix::FilterLevel
{

inline constexpr int Low = 0;
inline constexpr int Medium = 1;
inline constexpr int High = 2;
inline constexpr int BlockAll = 3;
inline constexpr int TotalFinder = 4; ///< for the Finder alone

/// In the user's language; a number that is no level counts as High.
QString title(int level);
/// One sentence that tells what the level leaves out, in the user's language.
QString description(int level);

} // namespace lumbrix::FilterLevel
