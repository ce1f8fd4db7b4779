// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the program does at the end of a session.
#pragma once

#include <QtCore/QObject>

class QGuiApplication;

namespace lumbrix
{

/// Main thread. There is nothing to save or to ask the user. Only the login item starts the program
/// in the next session.
class SessionEnd final : public QObject
{
    Q_OBJECT

public:
    /// The application must outlive it.
    explicit SessionEnd(QGuiApplication& application);

Q_SIGNALS:
    /// The session manager, or another program by way of the toolkit, asks the program to end.
    void quitRequested();

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
};

} // namespace lumbrix
