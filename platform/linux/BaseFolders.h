// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The folders of the XDG base directory specification. Any thread.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

namespace lumbrix::platform
{

/// $XDG_CONFIG_HOME, or ~/.config where that is no absolute path.
QString configHome();
/// $XDG_DATA_HOME or ~/.local/share, then what $XDG_DATA_DIRS names: absolute, clean, each once.
QStringList dataFolders();

} // namespace lumbrix::platform
