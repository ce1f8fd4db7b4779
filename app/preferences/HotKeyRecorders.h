// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The recorders of the hot keys.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <array>

#include "platform/RunLoop.h"

class QWidget;

namespace lumbrix
{

class NoteLabel;
class PreferencesHost;
class SRRecorderControl;

/// Main thread. The pane owns it.
class HotKeyRecorders final : public QObject
{
    Q_OBJECT

public:
    HotKeyRecorders(QWidget& pane, PreferencesHost& host);
    ~HotKeyRecorders() override;

    /// Shows the stored hot keys.
    void refresh();
    /// Whether the pane is visible. Only then is it checked which hot keys other programs have.
    void setShown(bool shown);

private:
    struct Row {
        QString identifier;
        SRRecorderControl* control = nullptr;
        NoteLabel* note = nullptr;
    };

    void shortcutRecorderKeyComboDidChange(const Row& row);
    void updateNotes();
    QString noteFor(const Row& row) const;

    PreferencesHost& m_host;
    std::array<Row, 4> m_rows;
    platform::TimerPtr m_noteTimer;
};

} // namespace lumbrix
