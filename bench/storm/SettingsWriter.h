// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Another program that writes the settings' file while Lumbrix runs.
#pragma once

#include <QtCore/QMap>

#include <functional>

#include "Session.h"
#include "storm/Fault.h"

namespace lumbrix
{
struct SettingRow;
}

namespace lumbrix::bench
{

/// Main thread. The session outlives it.
class SettingsWriter
{
public:
    /// `pick` gives a number below its argument, by chance.
    SettingsWriter(privatedesk::Session& session, std::function<int(std::size_t)> pick);

    /// Some settings get other values, good and bad, which the program then reads; at the end it
    /// has those it had before.
    Fault fault();

private:
    void change();
    QByteArray anyValue(const SettingRow& row);
    void write(const QMap<QByteArray, QByteArray>& settings);
    /// The program does not watch the file, but reads it when it stores a setting of its own.
    void haveItRead();

    privatedesk::Session& m_session;
    std::function<int(std::size_t)> m_pick;
    QMap<QByteArray, QByteArray> m_ordinary;
};

} // namespace lumbrix::bench
