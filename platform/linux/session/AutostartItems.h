// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The login items of an XDG desktop: desktop entries in the user's autostart folder.
#pragma once

#include "platform/LoginItems.h"

namespace lumbrix::platform
{

/// Main thread. The program's own item is "lumbrix.desktop". In an existing item only the command
/// is replaced, so an item that the user or the session's settings switched off stays off; and the
/// command is kept, too, if it already starts the program in some way.
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
