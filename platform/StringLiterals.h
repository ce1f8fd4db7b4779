// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// u"..."_s, the one way in which the program writes a QString.
#pragma once

#include <QtCore/QString>

namespace lumbrix
{

using namespace Qt::StringLiterals;

} // namespace lumbrix
