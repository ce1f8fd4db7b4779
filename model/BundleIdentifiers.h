// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the rules know of particular applications.
#pragma once

#include <QtCore/QString>

namespace lumbrix::BundleIdentifier
{

inline const QString Dock = QStringLiteral("com.apple.dock");
inline const QString Finder = QStringLiteral("com.apple.finder");
inline const QString Illustrator = QStringLiteral("com.adobe.illustrator");
inline const QString ITunes = QStringLiteral("com.apple.iTunes");
inline const QString Mail = QStringLiteral("com.apple.mail");
inline const QString QuickTimePlayer = QStringLiteral("com.apple.QuickTimePlayerX");
inline const QString VLC = QStringLiteral("org.videolan.vlc");

} // namespace lumbrix::BundleIdentifier
