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
    /// Sets the host for the instance that is created next. Must be set to null after that instance
    /// is released.
    static void setHost(PreferencesHost* host);
    /// The one instance, created on first use. A host must be set before.
    static PrefsController& sharedPrefsWindowController();
    /// Destroys the instance, which closes its window. Does not call the host.
    static void releaseSharedPrefsWindowController();
    /// The window, for sheets; null while it is closed.
    static QWidget* openWindow();
    /// Makes an open window show the stored values.
    static void settingsDidChange();

    explicit PrefsController(PreferencesHost& host) : m_host(host) {}
    ~PrefsController() override;

    /// Shows the stored values; does nothing while there is no window.
    void refresh();

protected:
    void setupToolbar() override;
    void windowWillShow() override;
    void currentViewDidChange() override;
    /// Says whose window it is: a list of windows shows nothing but titles.
    QString titleForLabel(const QString& label) const override;
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
