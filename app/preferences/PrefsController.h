// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preferences of Lumbrix.
#pragma once

#include <QtCore/QPointer>

#include <vector>

#include "app/preferences/DBPrefsWindowController.h"

namespace lumbrix
{

class HotKeyRecorders;
class PreferencesHost;
class SettingsBinding;

/// Main thread.
class PrefsController final : public DBPrefsWindowController
{
    Q_OBJECT

public:
    /// Whose preferences they are from now on; null after their release.
    static void setHost(PreferencesHost* host);
    /// The one instance, made on first use. Not without a host.
    static PrefsController& sharedPrefsWindowController();
    /// Closes the window, without a host to tell about it any more.
    static void releaseSharedPrefsWindowController();
    /// The window, for sheets; null while it is closed.
    static QWidget* openWindow();
    /// Has an open window show what is stored now.
    static void settingsDidChange();

    explicit PrefsController(PreferencesHost& host) : m_host(host) {}
    ~PrefsController() override;

    /// Shows what is stored now; does nothing while there is no window.
    void refresh();

protected:
    void setupToolbar() override;
    void windowWillShow() override;
    void currentViewDidChange() override;
    void windowWillClose() override;
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void awakeFromNib(QWidget& pane);
    void tellRecorders();

    PreferencesHost& m_host;
    std::vector<QPointer<SettingsBinding>> m_bindings;
    QPointer<HotKeyRecorders> m_recorders;
};

} // namespace lumbrix
