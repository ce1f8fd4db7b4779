// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Titles of the controls that need more than their setting applied, as LumbrixController's
// updateState() knows them: in English, whatever language they are shown in.
#pragma once

#include <QtCore/QString>

namespace lumbrix::SenderTitle
{

inline const QString HideMenuIcon = QStringLiteral("Hide the menu icon");
inline const QString ShowIconInDock = QStringLiteral("Show Lumbrix's icon in the Dock");
inline const QString BadgeDockIcons =
    QStringLiteral("Badge Dock Icons with the number of windows open");

} // namespace lumbrix::SenderTitle
