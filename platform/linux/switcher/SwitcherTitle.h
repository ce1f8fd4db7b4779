// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What a switcher writes below its pictures, as it tells assistive technology.
#pragma once

#include <QtCore/QString>
#include <QtDBus/QDBusConnection>

#include <functional>
#include <optional>
#include <vector>

#include "platform/linux/docks/AccessibleBus.h"

namespace lumbrix::platform
{

/// Main thread. Never waits; connected from the first question on.
class SwitcherTitle
{
public:
    using Answer = std::function<void(const QString&)>;

    explicit SwitcherTitle(const QDBusConnection& session);

    /// The text of the first element with the role that the process shows; `answer` comes from the
    /// event loop, with an empty text when there is none. Nobody answers a question before the
    /// last.
    void ask(std::int32_t pid, std::uint32_t role, Answer answer);
    /// The switcher has gone, and what it showed with it.
    void forget();

private:
    using Elements = std::vector<AccessibleRef>;
    struct Question {
        std::int32_t pid = 0;
        std::uint32_t role = 0;
        Answer answer;
    };
    /// One generation of elements and of their children, asked all at once.
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
    std::uint64_t m_turn = 0; ///< grows with each question, to drop late answers
    std::int32_t m_pid = 0;   ///< whose name is known
    QString m_name;           ///< of the process's program on the bus
    std::optional<AccessibleRef> m_element;
};

} // namespace lumbrix::platform
