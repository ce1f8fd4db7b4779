// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the desktop starts when the user logs in.
#pragma once

#include <QtCore/QString>

namespace lumbrix::platform
{

/// Main thread. Failures are silent: the next call tries again.
class LoginItems
{
public:
    virtual ~LoginItems() = default;
    /// Has the program started at login. Harmless when it is already: nothing is written then, and
    /// what the user added to its item is kept in any case.
    virtual void insert(const QString& path) = 0;
    /// Removes every item that starts a program whose path begins with this one.
    virtual void remove(const QString& path) = 0;
};

} // namespace lumbrix::platform
