// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// KWin's settings of its switcher.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace lumbrix::platform
{

/// Whether the switcher shows a list of all windows of the current desktop, most recently active
/// first (the default), and does not draw the selected window over everything else (the default
/// with compositing). Reads a file; any thread.
bool kwinLetsPreviewsBeSeen(const QString& configFolder, const QStringList& dataFolders,
                            bool isComposited);

} // namespace lumbrix::platform
