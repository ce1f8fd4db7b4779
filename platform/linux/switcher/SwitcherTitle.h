// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Reads the title that a switcher shows below its pictures from its accessibility tree.
#pragma once

#include <QtCore/QString>
#include <QtDBus/QDBusConnection>

#include <functional>
#include <optional>
#include <vector>

#include "platform/linux/docks/AccessibleBus.h"

namespace lumbrix::platform
{

/// Main thread. Never waits; connected from the first query on.
class SwitcherTitle
{
public:
    using Answer = std::function<void(const QString&)>;

    explicit SwitcherTitle(const QDBusConnection& session);

    /// Finds the text of the process's first element with the role. `answer` is called from the
    /// event loop, with an empty text if there is none; only for the latest query.
    void ask(std::int32_t pid, std::uint32_t role, Answer answer);
    /// The switcher has closed, so cached elements are invalid.
    void forget();

private:
    using Elements = std::vector<AccessibleRef>;
    struct Question {
        std::int32_t pid = 0;
        std::uint32_t role = 0;
        Answer answer;
    };
    /// Queries one level of elements and their children, all at once.
    struct Level;

    void step();
    void search(const Elements& parents, int depth);
    void readRoles(const Elements& elements, int depth);
    void readName();
    void finish(const QString& text);
    void call(const QDBusMessage& message, AccessibleBus::Answer answer);

    AccessibleBus m_bus;
    bool m_isOpening = false;
    std::optional<Question> m_question;
    std::uint64_t m_turn = 0; ///< incremented by each query, to drop late answers
    std::int32_t m_pid = 0;   ///< whose name is known
    QString m_name;           ///< of the process's program on the bus
    std::optional<AccessibleRef> m_element;
};

} // namespace lumbrix::platform
