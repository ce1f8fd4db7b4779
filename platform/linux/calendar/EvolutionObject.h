// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QString>

namespace lumbrix::platform
{

/// What the text of an event says of how it hangs together with others. Any thread; costs one look
/// at each character, whatever the text is.
struct EvolutionObject {
    QString uid; ///< empty when it has none
    /// It has a rule or dates by which it happens more than once, or stands for one time of those.
    bool recurs = false;

    static EvolutionObject parse(const QString& text);
};

} // namespace lumbrix::platform
