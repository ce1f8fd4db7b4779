// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/HotKeyRecorders.h"

#include <algorithm>

#include "app/HotKeyIdentifiers.h"
#include "app/SGHotKeyCenter.h"
#include "app/preferences/NoteLabel.h"
#include "app/preferences/PreferencesHost.h"
#include "app/preferences/SRRecorderControl.h"
#include "platform/Desktop.h"
#include "platform/UserDefaults.h"

namespace lumbrix
{
namespace
{

/// Whether another program has a key is known only a moment after it was requested.
constexpr platform::Seconds noteInterval = 0.25;

SGKeyCombo storedCombo(const QString& identifier)
{
    const auto stored = platform::desktop().userDefaults.dictionaryForKey(identifier);
    return SGKeyCombo::initWithPlistRepresentation(stored.value_or(QVariantMap()));
}

} // namespace

HotKeyRecorders::HotKeyRecorders(QWidget& pane, PreferencesHost& host)
    : QObject(&pane), m_host(host)
{
    const auto row = [&pane](const QString& identifier, const char* control, const char* note) {
        return Row{identifier, pane.findChild<SRRecorderControl*>(QLatin1String(control)),
                   pane.findChild<NoteLabel*>(QLatin1String(note))};
    };
    m_rows = {
        row(HotKeyIdentifier::CloseAllWindows, "closeAllWindowsControl", "closeAllWindowsNote"),
        row(HotKeyIdentifier::EnableDisable, "enableDisableControl", "enableDisableNote"),
        row(HotKeyIdentifier::HideAllPreviews, "hideAllPreviewsControl", "hideAllPreviewsNote"),
        row(HotKeyIdentifier::OpenRow, "openRowControl", "openRowNote"),
    };
    for (const Row& each : m_rows) {
        SRRecorderControl* control = each.control;
        connect(control, &SRRecorderControl::keyComboDidChange, this,
                [this, &each] { shortcutRecorderKeyComboDidChange(each); });
        connect(control, &SRRecorderControl::recordingDidBegin, this,
                [this] { m_host.hotKeyCenter().setSuspended(true); });
        connect(control, &SRRecorderControl::recordingDidEnd, this,
                [this] { m_host.hotKeyCenter().setSuspended(false); });
    }
    refresh();
}

HotKeyRecorders::~HotKeyRecorders()
{
    setShown(false);
    m_host.hotKeyCenter().setSuspended(false);
}

void HotKeyRecorders::refresh()
{
    for (const Row& row : m_rows)
        row.control->setKeyCombo(storedCombo(row.identifier));
    updateNotes();
}

void HotKeyRecorders::setShown(bool shown)
{
    if (shown == (m_noteTimer != nullptr))
        return;
    m_host.hotKeyCenter().setTrying(shown);
    m_noteTimer = shown ? platform::desktop().runLoop.scheduleTimer(noteInterval, true,
                                                                    [this] { updateNotes(); })
                        : nullptr;
}

void HotKeyRecorders::shortcutRecorderKeyComboDidChange(const Row& row)
{
    platform::UserDefaults& defaults = platform::desktop().userDefaults;
    defaults.setDictionary(row.control->keyCombo().plistRepresentation(), row.identifier);
    defaults.synchronize();
    m_host.updateState();
    updateNotes();
}

void HotKeyRecorders::updateNotes()
{
    for (const Row& row : m_rows)
        row.note->setText(noteFor(row));
}

QString HotKeyRecorders::noteFor(const Row& row) const
{
    const SGKeyCombo& combo = row.control->keyCombo();
    if (!combo.isValidHotKeyCombo())
        return {};
    const bool isDouble = std::any_of(m_rows.begin(), m_rows.end(), [&](const Row& other) {
        return &other != &row && other.control->keyCombo() == combo;
    });
    if (isDouble)
        return tr("Chosen twice: only one of them works.");
    const auto taken = m_host.hotKeyCenter().takenHotKeys();
    const bool isTaken = std::any_of(taken.begin(), taken.end(), [&row](const auto& hotKey) {
        return hotKey->identifier == row.identifier;
    });
    return isTaken ? tr("Taken: another program has these keys.") : QString();
}

} // namespace lumbrix
