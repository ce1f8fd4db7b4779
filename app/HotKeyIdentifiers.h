// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The hot keys that users choose. Each is stored under its identifier.
#pragma once

#include <QtCore/QString>

namespace lumbrix::HotKeyIdentifier
{

inline const QString CloseAllWindows = QStringLiteral("closeAllWindowsKey");
inline const QString EnableDisable = QStringLiteral("enableDisableKey");
inline const QString HideAllPreviews = QStringLiteral("hideAllPreviewsKey");

} // namespace lumbrix::HotKeyIdentifier
