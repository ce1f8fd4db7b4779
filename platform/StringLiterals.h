// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// u"..."_s, the way to write a QString literal in this program.
#pragma once

#include <QtCore/QString>

namespace lumbrix
{

using namespace Qt::StringLiterals;

} // namespace lumbrix
