// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The program at the end of a session.
#pragma once

#include <QtCore/QObject>

class QGuiApplication;

namespace lumbrix
{

/// Main thread. Has nothing to save and nothing to ask; what starts the program with the next
/// session is its login item alone.
class SessionEnd final : public QObject
{
    Q_OBJECT

public:
    /// The application outlives it.
    explicit SessionEnd(QGuiApplication& application);

Q_SIGNALS:
    /// The session, or someone else by way of the toolkit, wants the program to end.
    void quitRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace lumbrix
