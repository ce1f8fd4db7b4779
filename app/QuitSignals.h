// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Reports SIGTERM, SIGINT and SIGHUP, which ask the program to end.
#pragma once

#include <QtCore/QObject>

#include <memory>

class QSocketNotifier;

namespace lumbrix
{

/// At most one at a time. Main thread.
class QuitSignals final : public QObject
{
    Q_OBJECT

public:
    QuitSignals();
    ~QuitSignals() override;

Q_SIGNALS:
    void quitRequested();

private:
    void signalled();

    std::unique_ptr<QSocketNotifier> m_notifier;
};

} // namespace lumbrix
