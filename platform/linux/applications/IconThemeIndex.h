// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a theme of icons says of itself (index.theme).
#pragma once

#include <QtCore/QByteArray>
#include <QtCore/QString>
#include <QtCore/QStringList>

#include <vector>

namespace lumbrix::platform
{

struct IconThemeIndex {
    struct Directory {
        QString path; ///< below a theme's folder, and never out of it
        int smallest = 0;
        int largest = 0;

        /// How badly its icons suit a square of so many pixels.
        int distanceTo(int pixels) const;
    };
    std::vector<Directory> directories;
    QStringList parents; ///< the themes it builds on

    /// Each directory and parent once, and no more than any theme has. Pure.
    static IconThemeIndex parse(const QByteArray& text);
};

} // namespace lumbrix::platform
