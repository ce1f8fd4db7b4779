// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Controls of the preferences, each bound to the setting that it shows and changes.
//
// Interface files describe the binding by these properties:
//   settingsKey     of a checkbox (0 or 1), a combo box (an integer) or a slider (a number)
//   settingsTitle   of a checkbox: its title as the program knows it, where it knows it
//   settingsValues  of a combo box: what its items stand for, "0,1,4"; otherwise their indices
//   settingsElse    of a combo box: the index of the item that stands for all other values
//   settingsStep    of a slider: what one of its steps stands for; otherwise 1
//   settingsAction  of a slider: the host's method to call instead of updateState()
//   valueLabel      of a slider: the name of the label beside it ...
//   valueFormat     ... and its text, with %1 in the place of the rounded value
//   enabledBy       of any widget: the checkbox that must be set for it to be enabled, or with !
//                   before its name, must not be set
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <cstdint>
#include <memory>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QSlider;
class QWidget;

namespace lumbrix
{

class PreferencesHost;

/// Main thread. When the user changes the control, the value is stored and the host is called.
/// Until then a value that the control cannot show stays unchanged.
class SettingsBinding : public QObject
{
    Q_OBJECT

public:
    /// Null for a widget without a key or of an unsupported kind. The control owns the binding.
    static SettingsBinding* bind(QWidget& control, PreferencesHost& host);

    const QString& key() const { return m_key; }
    /// Shows the stored value.
    virtual void refresh() = 0;

protected:
    SettingsBinding(QWidget& control, PreferencesHost& host);

    void storeInteger(std::int64_t value);
    void storeFloat(float value);
    PreferencesHost& host() { return m_host; }

private:
    PreferencesHost& m_host;
    const QString m_key;
};

/// Binds every control of a pane that has a key, and sets up the dependencies given by "enabledBy".
std::vector<SettingsBinding*> bindPane(QWidget& pane, PreferencesHost& host);

} // namespace lumbrix
