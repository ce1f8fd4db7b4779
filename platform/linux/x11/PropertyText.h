// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Text as X11 clients write it into properties: of any encoding, of any length, often broken.
#pragma once

#include <QtCore/QByteArrayView>
#include <QtCore/QString>

namespace lumbrix::platform::x11
{

inline constexpr int maxTitleLength = 4096;

enum class TextEncoding { Utf8, Latin1, CompoundText };

/// Ends at the first NUL. Broken sequences become replacement characters, except one that was cut
/// off at the end. The result is at most maxTitleLength long, valid UTF-16.
QString decodeText(QByteArrayView bytes, TextEncoding encoding);

} // namespace lumbrix::platform::x11
