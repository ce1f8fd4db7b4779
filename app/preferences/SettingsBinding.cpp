// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/SettingsBinding.h"

#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QSlider>

#include <algorithm>
#include <cmath>
#include <utility>

#include "app/preferences/PreferencesHost.h"
#include "platform/Desktop.h"
#include "platform/UserDefaults.h"

namespace lumbrix
{
namespace
{

platform::UserDefaults& defaults() { return platform::desktop().userDefaults; }

/// The title in English, whatever language it is shown in, if the program handles this control
/// specially.
QString titleOf(const QCheckBox& box)
{
    const QVariant title = box.property("settingsTitle");
    return title.isValid() ? title.toString() : box.text().remove(QLatin1Char('&'));
}

class CheckBoxBinding final : public SettingsBinding
{
public:
    CheckBoxBinding(QCheckBox& box, PreferencesHost& host) : SettingsBinding(box, host), m_box(box)
    {
        connect(&box, &QCheckBox::clicked, this, [this](bool isChecked) {
            storeInteger(isChecked ? 1 : 0);
            this->host().updateState(titleOf(m_box));
        });
    }
    void refresh() override { m_box.setChecked(defaults().integerForKey(key()) != 0); }

private:
    QCheckBox& m_box;
};

class ComboBoxBinding final : public SettingsBinding
{
public:
    ComboBoxBinding(QComboBox& box, PreferencesHost& host) : SettingsBinding(box, host), m_box(box)
    {
        const QString values = box.property("settingsValues").toString();
        const auto given = values.split(QLatin1Char(','), Qt::SkipEmptyParts);
        for (int i = 0; i < box.count(); ++i)
            m_values.push_back(given.isEmpty() ? i : given.value(i).toLongLong());
        const QVariant otherwise = box.property("settingsElse");
        m_else = otherwise.isValid() ? otherwise.toInt() : -1;
        connect(&box, &QComboBox::activated, this, [this](int index) {
            // One item can stand for several values; choosing it again is no change.
            if (index == indexOf(defaults().integerForKey(key())))
                return;
            storeInteger(m_values.at(static_cast<std::size_t>(index)));
            this->host().updateState();
        });
    }
    void refresh() override { m_box.setCurrentIndex(indexOf(defaults().integerForKey(key()))); }

private:
    int indexOf(std::int64_t value) const
    {
        const auto found = std::find(m_values.begin(), m_values.end(), value);
        return found == m_values.end() ? m_else : static_cast<int>(found - m_values.begin());
    }

    QComboBox& m_box;
    std::vector<std::int64_t> m_values;
    int m_else = -1;
};

class SliderBinding final : public SettingsBinding
{
public:
    SliderBinding(QSlider& slider, PreferencesHost& host)
        : SettingsBinding(slider, host), m_slider(slider),
          m_label(labelNamed(slider.property("valueLabel").toString(), slider)),
          m_format(slider.property("valueFormat").toString()),
          m_action(actionNamed(slider.property("settingsAction").toString()))
    {
        const QVariant step = slider.property("settingsStep");
        m_step = step.isValid() ? step.toDouble() : 1.0;
        connect(&slider, &QSlider::valueChanged, this, [this](int position) {
            if (m_isRefreshing)
                return;
            storeFloat(static_cast<float>(position * m_step));
            showValue();
            m_action(this->host());
        });
    }
    void refresh() override
    {
        const double value = defaults().floatForKey(key());
        const double position =
            std::clamp<double>(std::round(value / m_step), m_slider.minimum(), m_slider.maximum());
        m_isRefreshing = true;
        m_slider.setValue(static_cast<int>(position));
        m_isRefreshing = false;
        showValue();
    }

private:
    using Action = void (*)(PreferencesHost&);

    static QLabel* labelNamed(const QString& name, const QSlider& slider)
    {
        return name.isEmpty() ? nullptr : slider.parentWidget()->findChild<QLabel*>(name);
    }
    static Action actionNamed(const QString& name)
    {
        static const std::pair<const char*, Action> actions[] = {
            {"updateWindowSize", [](PreferencesHost& h) { h.updateWindowSize(); }},
            {"updateDistanceFromDock", [](PreferencesHost& h) { h.updateDistanceFromDock(); }},
            {"updateDockBadgeSize", [](PreferencesHost& h) { h.updateDockBadgeSize(); }},
        };
        for (const auto& [known, action] : actions)
            if (name == QLatin1String(known))
                return action;
        return [](PreferencesHost& h) { h.updateState(); };
    }
    /// The stored value, which may be outside the slider's range.
    void showValue()
    {
        if (!m_label)
            return;
        const double value = defaults().floatForKey(key());
        const QString number = QString::number(value, 'f', 0);
        m_label->setText(m_format.isEmpty() ? number : m_format.arg(number));
    }

    QSlider& m_slider;
    QLabel* const m_label;
    const QString m_format;
    const Action m_action;
    double m_step = 1.0;
    bool m_isRefreshing = false;
};

/// Enables a widget while a checkbox is set, or while it is not set.
void makeDependent(QWidget& widget, QWidget& pane)
{
    QString name = widget.property("enabledBy").toString();
    const bool isInverse = name.startsWith(QLatin1Char('!'));
    if (isInverse)
        name.remove(0, 1);
    const auto* master = pane.findChild<QCheckBox*>(name);
    if (!master)
        return;
    const auto follow = [&widget, isInverse](bool isSet) { widget.setEnabled(isSet != isInverse); };
    QObject::connect(master, &QCheckBox::toggled, &widget, follow);
    follow(master->isChecked());
}

} // namespace

SettingsBinding::SettingsBinding(QWidget& control, PreferencesHost& host)
    : QObject(&control), m_host(host), m_key(control.property("settingsKey").toString())
{
}

SettingsBinding* SettingsBinding::bind(QWidget& control, PreferencesHost& host)
{
    if (!control.property("settingsKey").isValid())
        return nullptr;
    SettingsBinding* binding = nullptr;
    if (auto* checkBox = qobject_cast<QCheckBox*>(&control))
        binding = new CheckBoxBinding(*checkBox, host);
    else if (auto* comboBox = qobject_cast<QComboBox*>(&control))
        binding = new ComboBoxBinding(*comboBox, host);
    else if (auto* slider = qobject_cast<QSlider*>(&control))
        binding = new SliderBinding(*slider, host);
    if (binding)
        binding->refresh();
    return binding;
}

void SettingsBinding::storeInteger(std::int64_t value)
{
    defaults().setInteger(value, m_key);
    defaults().synchronize();
}

void SettingsBinding::storeFloat(float value)
{
    defaults().setFloat(value, m_key);
    defaults().synchronize();
}

std::vector<SettingsBinding*> bindPane(QWidget& pane, PreferencesHost& host)
{
    std::vector<SettingsBinding*> bindings;
    const auto widgets = pane.findChildren<QWidget*>();
    for (QWidget* widget : widgets)
        if (SettingsBinding* binding = SettingsBinding::bind(*widget, host))
            bindings.push_back(binding);
    for (QWidget* widget : widgets)
        if (widget->property("enabledBy").isValid())
            makeDependent(*widget, pane);
    return bindings;
}

} // namespace lumbrix
