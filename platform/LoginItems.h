// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The programs that the desktop starts when the user logs in.
#pragma once

#include <QtCore/QString>

namespace lumbrix::platform
{

/// Main thread. Failures are silent: the next call tries again.
class LoginItems
{
public:
    virtual ~LoginItems() = default;
    /// Makes the desktop start the program at login. If it already does, nothing is written. The
    /// user's changes to the item are always kept.
    virtual void insert(const QString& path) = 0;
    /// Removes every item that starts a program whose path begins with this one.
    virtual void remove(const QString& path) = 0;
};

} // namespace lumbrix::platform
