// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Light or dark, by the desktop portal's word, else by the name of the theme.
#pragma once

#include <QtCore/QObject>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusMessage>

#include "platform/DesktopLook.h"
#include "platform/MainThreadGuard.h"
#include "platform/RunLoop.h"
#include "platform/linux/x11/ThemeWatch.h"

namespace lumbrix::platform
{

/// Whether a theme of that name is a dark one: it says so, as a word of its own.
bool isDarkTheme(const QString& name);

/// Main thread. Asks without waiting, and starts no portal. The watch outlives it; null: no daemon
/// tells a theme.
class LinuxLook final : public QObject, public DesktopLook
{
    Q_OBJECT

public:
    /// `folder` is where programs have their settings: without a portal and a daemon, the theme is
    /// the one that is written there.
    LinuxLook(RunLoop& runLoop, x11::ThemeWatch* theme, const QDBusConnection& bus,
              const QString& folder);
    ~LinuxLook() override;

    std::optional<bool> isDark() override;
    void setObserver(std::function<void()> changed) override { m_changed = std::move(changed); }

private Q_SLOTS:
    void settingChanged(const QDBusMessage& signal);

private:
    void askPortal();
    void setScheme(const QVariant& value);
    void tell();

    x11::ThemeWatch* const m_theme;
    QDBusConnection m_bus;
    const QString m_writtenTheme;
    std::optional<bool> m_isDarkByPortal;
    std::function<void()> m_changed;
    const MainThreadGuard m_guard;
};

} // namespace lumbrix::platform
