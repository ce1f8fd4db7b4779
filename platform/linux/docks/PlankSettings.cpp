// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/PlankSettings.h"
#include "platform/StringLiterals.h"

namespace lumbrix::platform
{

QString plankSettingsPath(const QString& dockName)
{
    return u"/net/launchpad/plank/docks/%1/"_s.arg(dockName);
}

PlankSettings::PlankSettings(const QString& dockName, std::function<void()> changed)
    : m_settings(ProgramSettings::open(u"net.launchpad.plank.dock.settings"_s,
                                       plankSettingsPath(dockName), std::move(changed)))
{
}

std::optional<PlankSettings::Values> PlankSettings::read() const
{
    if (!m_settings)
        return std::nullopt;
    Values values;
    values.edge =
        edgeNamed(m_settings->text("position").value_or(QString())).value_or(DockEdge::Bottom);
    const QString mode = m_settings->text("hide-mode").value_or(QString());
    values.hides = !mode.isEmpty() && mode != u"none";
    values.look.iconSize = m_settings->number("icon-size").value_or(values.look.iconSize);
    values.look.magnifies = m_settings->flag("zoom-enabled").value_or(false);
    values.look.zoomPercent = m_settings->number("zoom-percent").value_or(values.look.zoomPercent);
    return values;
}

} // namespace lumbrix::platform
