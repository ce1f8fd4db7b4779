// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/switcher/SwitcherTitle.h"

#include <algorithm>
#include <memory>
#include <utility>

#include "platform/linux/docks/AccessibleQuestions.h"

namespace lumbrix::platform
{

namespace
{

constexpr int maximumDepth = 6;
constexpr std::size_t maximumElements = 256; ///< of one generation

} // namespace

struct SwitcherTitle::Level {
    std::size_t missing = 0;
    Elements found;
    std::optional<AccessibleRef> wanted;
};

SwitcherTitle::SwitcherTitle(const QDBusConnection& session) : m_bus(session)
{
    m_bus.setMoved([](const QString&) {});
    m_bus.setLost([this] {
        m_pid = 0;
        finish(QString());
    });
}

void SwitcherTitle::ask(std::int32_t pid, std::uint32_t role, Answer answer)
{
    ++m_turn;
    m_question = {.pid = pid, .role = role, .answer = std::move(answer)};
    if (m_bus.isOpen()) {
        step();
    } else if (!std::exchange(m_isOpening, true)) {
        m_pid = 0;
        m_bus.open([this](bool isOpen) {
            m_isOpening = false;
            if (isOpen)
                step();
            else
                finish(QString());
        });
    }
}

void SwitcherTitle::forget()
{
    ++m_turn;
    m_question.reset();
    m_element.reset();
}

void SwitcherTitle::finish(const QString& text)
{
    ++m_turn;
    if (const auto done = std::exchange(m_question, std::nullopt))
        done->answer(text);
}

void SwitcherTitle::call(const QDBusMessage& message, AccessibleBus::Answer answer)
{
    m_bus.call(message,
               [this, turn = m_turn, answer = std::move(answer)](const QDBusMessage& reply) {
                   if (turn == m_turn)
                       answer(reply);
               });
}

void SwitcherTitle::step()
{
    if (!m_question)
        return;
    if (m_pid != m_question->pid) {
        m_bus.findApplication(m_question->pid, [this, pid = m_question->pid](const QString& name) {
            m_pid = name.isEmpty() ? 0 : pid;
            m_name = name;
            m_element.reset();
            if (m_question && m_question->pid == pid)
                name.isEmpty() ? finish(QString()) : step();
        });
    } else if (m_element) {
        readName();
    } else {
        search({accessibleRoot(m_name)}, 0);
    }
}

void SwitcherTitle::search(const Elements& parents, int depth)
{
    if (parents.empty() || depth == maximumDepth) {
        finish(QString());
        return;
    }
    const auto level = std::make_shared<Level>();
    level->missing = parents.size();
    for (const AccessibleRef& parent : parents) {
        call(childrenQuestion(parent), [this, level, depth](const QDBusMessage& reply) {
            const Elements children = accessibleRefs(reply, maximumElements);
            level->found.insert(level->found.end(), children.begin(), children.end());
            if (--level->missing == 0) {
                level->found.resize(std::min(level->found.size(), maximumElements));
                readRoles(level->found, depth);
            }
        });
    }
}

void SwitcherTitle::readRoles(const Elements& elements, int depth)
{
    if (elements.empty()) {
        finish(QString());
        return;
    }
    const auto level = std::make_shared<Level>();
    level->missing = elements.size();
    for (const AccessibleRef& element : elements) {
        call(roleQuestion(element),
             [this, level, element, elements, depth](const QDBusMessage& reply) {
                 if (roleIn(reply) == m_question->role)
                     level->wanted = level->wanted.value_or(element);
                 if (--level->missing > 0)
                     return;
                 m_element = level->wanted;
                 m_element ? readName() : search(elements, depth + 1);
             });
    }
}

void SwitcherTitle::readName()
{
    call(nameQuestion(*m_element), [this](const QDBusMessage& reply) {
        const std::optional<QString> name = nameIn(reply);
        if (!name)
            m_element.reset(); // it has gone; the next call searches again
        finish(name.value_or(QString()));
    });
}

} // namespace lumbrix::platform
