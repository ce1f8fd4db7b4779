// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Titles of the controls for which LumbrixController::updateState() does more than apply the
// settings. In English, whatever language the controls are shown in.
#pragma once

#include <QtCore/QString>

#include "platform/StringLiterals.h"

namespace lumbrix::SenderTitle
{

inline const QString HideMenuIcon = u"Hide the menu icon"_s;
inline const QString ShowIconInDock = u"Show Lumbrix's icon in the Dock"_s;
inline const QString BadgeDockIcons = u"Badge Dock Icons with the number of windows open"_s;

} // namespace lumbrix::SenderTitle
