// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace lumbrix::platform
{

/// How an event is related to others, from its text. Any thread; linear time, whatever the text is.
struct EvolutionObject {
    QString uid; ///< empty if it has none
    /// Whether it has a rule or dates for several occurrences, or replaces one of those
    /// occurrences.
    bool recurs = false;

    static EvolutionObject parse(const QString& text);
};

} // namespace lumbrix::platform
