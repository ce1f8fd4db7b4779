// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/StatusMenu.h"

#include "app/LumbrixController.h"

namespace lumbrix
{

StatusMenu::StatusMenu(LumbrixController& controller)
{
    setWindowRole(QStringLiteral("status-menu"));
    m_toggle = addAction(QString(), &controller, &LumbrixController::toggleDisabled);
    addSeparator();
    addAction(tr("Preferences"), &controller, &LumbrixController::showPreferences);
    addAction(tr("About"), &controller, &LumbrixController::showAbout);
    addSeparator();
    addAction(tr("Quit"), &controller, &LumbrixController::quitApp);
    update(false, QString());
}

void StatusMenu::update(bool isDisabled, const QString& keyEquivalent)
{
    QString text = isDisabled ? tr("Enable") : tr("Disable");
    // As part of the text, not as the action's shortcut: the hot-key centre is who listens for it.
    if (!keyEquivalent.isEmpty())
        text += u'\t' + QString(keyEquivalent).replace(u'&', QStringLiteral("&&"));
    if (m_toggle->text() != text)
        m_toggle->setText(text);
}

} // namespace lumbrix
