// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How a benchmark that measures from outside begins.
#pragma once

#include <QtCore/QCommandLineParser>
#include <QtCore/QCoreApplication>

namespace lumbrix::bench
{

/// The application, with its options read. Prints line by line from then on, and outlives a private
/// desktop's programs that go away. Main thread; one.
class Program
{
public:
    /// Ends the program where the options are wrong, or only help was asked for.
    Program(int& argc, char** argv, const QList<QCommandLineOption>& options);

    bool isSet(const QString& option) const { return m_parser.isSet(option); }
    QString text(const QString& option) const { return m_parser.value(option); }
    /// At least 1.
    int number(const QString& option) const;

private:
    const QCoreApplication m_application;
    QCommandLineParser m_parser;
};

} // namespace lumbrix::bench
