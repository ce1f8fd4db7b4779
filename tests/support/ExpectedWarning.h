// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace lumbrix::test
{

/// Announces, for its own lifetime, one or more warnings that contain a text; the test fails when
/// none came. One at a time, main thread.
class ExpectedWarning
{
public:
    explicit ExpectedWarning(QString text);
    ~ExpectedWarning();
    ExpectedWarning(const ExpectedWarning&) = delete;
    ExpectedWarning& operator=(const ExpectedWarning&) = delete;

    /// Whether the message was announced. Any thread.
    static bool accept(const QString& message);

private:
    const QString m_text;
    bool m_hasCome = false;
};

} // namespace lumbrix::test
