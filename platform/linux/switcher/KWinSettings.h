// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What KWin's settings say of its switcher.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace lumbrix::platform
{

/// Whether it shows a list, of all windows of the current desktop in the order in which they were
/// active, as it does unless it is told otherwise, and would not draw the selected window over
/// everything else, as its compositor does unless it is told otherwise. Reads a file; any thread.
bool kwinLetsPreviewsBeSeen(const QString& configFolder, const QStringList& dataFolders,
                            bool isComposited);

} // namespace lumbrix::platform
