// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The login items of an XDG desktop: desktop entries in the user's autostart folder.
#pragma once

#include "platform/LoginItems.h"

namespace lumbrix::platform
{

/// Main thread. The program's own item is "lumbrix.desktop". One that is there already keeps all
/// but its command, so one that the user or a session's settings switched off stays off; and its
/// command too, where that starts the program in some other way.
class AutostartItems final : public LoginItems
{
public:
    /// $XDG_CONFIG_HOME/autostart, or below ~/.config.
    static QString defaultFolder();

    explicit AutostartItems(QString folder) : m_folder(std::move(folder)) {}

    void insert(const QString& path) override;
    void remove(const QString& path) override;

private:
    const QString m_folder;
};

} // namespace lumbrix::platform
