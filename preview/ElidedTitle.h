// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which part of a title too long for its line is shown. Pure functions.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>
#include <QtGui/QFontMetrics>

#include <vector>

namespace lumbrix
{

/// For each title, how many of its first characters another, different one of them begins with.
std::vector<qsizetype> charactersAlike(const QStringList& titles);

/// As much as fits into the width (points) with an ellipsis at the end, unless that would cut off
/// what distinguishes it from a title with the same first `alike` characters: then the ellipsis is
/// in the middle, before what differs.
QString elidedTitle(const QString& title, qsizetype alike, int width, const QFontMetrics& metrics);

} // namespace lumbrix
