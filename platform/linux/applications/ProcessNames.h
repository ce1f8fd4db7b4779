// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The names that a process was started with.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdint>
#include <functional>

namespace lumbrix::platform
{

struct ProcessNames {
    QString executablePath; ///< empty if not readable
    QStringList arguments;  ///< the first words of its command line

    /// Base names for looking up a desktop entry, the best first. An interpreter is replaced by its
    /// script: a program written in Python is not the application "Python".
    QStringList programs() const;
};

using ProcessReader = std::function<ProcessNames(std::int32_t pid)>;

/// From /proc; empty if the process is gone or not readable. Any thread.
ProcessNames readProcessNames(std::int32_t pid);

} // namespace lumbrix::platform
