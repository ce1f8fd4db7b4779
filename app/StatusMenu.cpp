// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/StatusMenu.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{

StatusMenu::StatusMenu()
{
    setWindowRole(u"status-menu"_s);
    m_toggle = addAction(QString(), this, &StatusMenu::toggleChosen);
    addSeparator();
    addAction(tr("Preferences"), this, &StatusMenu::preferencesChosen);
    addAction(tr("About"), this, &StatusMenu::aboutChosen);
    addSeparator();
    addAction(tr("Quit"), this, &StatusMenu::quitChosen);
    update(false, QString());
}

void StatusMenu::update(bool isDisabled, const QString& keyEquivalent)
{
    QString text = isDisabled ? tr("Enable") : tr("Disable");
    // As part of the text, not as the action's shortcut: the hot-key centre handles the key.
    if (!keyEquivalent.isEmpty())
        text += u'\t' + QString(keyEquivalent).replace(u'&', u"&&"_s);
    if (m_toggle->text() != text)
        m_toggle->setText(text);
}

} // namespace lumbrix
