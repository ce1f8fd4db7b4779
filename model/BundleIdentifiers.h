// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The particular applications that the rules treat specially.
#pragma once

#include <QtCore/QString>

#include "platform/StringLiterals.h"

namespace lumbrix::BundleIdentifier
{

inline const QString Dock = u"com.apple.dock"_s;
inline const QString Finder = u"com.apple.finder"_s;
inline const QString Illustrator = u"com.adobe.illustrator"_s;
inline const QString ITunes = u"com.apple.iTunes"_s;
inline const QString Mail = u"com.apple.mail"_s;
inline const QString QuickTimePlayer = u"com.apple.QuickTimePlayerX"_s;
inline const QString VLC = u"org.videolan.vlc"_s;

} // namespace lumbrix::BundleIdentifier
