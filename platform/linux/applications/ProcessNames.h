// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a process was started as.
#pragma once

#include <QtCore/QString>
#include <QtCore/QStringList>

#include <cstdint>
#include <functional>

namespace lumbrix::platform
{

struct ProcessNames {
    QString executablePath; ///< empty when it may not be seen
    QStringList arguments;  ///< the first ones of its command line

    /// Base names to look a desktop entry up by, best first. An interpreter is replaced by the
    /// script it runs: a program written in Python is not the application "Python".
    QStringList programs() const;
};

using ProcessReader = std::function<ProcessNames(std::int32_t pid)>;

/// From /proc; empty when the process is gone or not ours to see. Any thread.
ProcessNames readProcessNames(std::int32_t pid);

} // namespace lumbrix::platform
