// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The hot keys that users choose. Each is stored under its identifier.
#pragma once

#include <QtCore/QString>

#include "platform/StringLiterals.h"

namespace lumbrix::HotKeyIdentifier
{

inline const QString CloseAllWindows = u"closeAllWindowsKey"_s;
inline const QString EnableDisable = u"enableDisableKey"_s;
inline const QString HideAllPreviews = u"hideAllPreviewsKey"_s;
inline const QString OpenRow = u"openRowKey"_s;

} // namespace lumbrix::HotKeyIdentifier
