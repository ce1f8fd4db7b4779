// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What happens next, by chance: the same for a seed everywhere, unlike the library's distributions.
#pragma once

#include <QtCore/QString>

#include <cstdio>
#include <functional>
#include <random>
#include <vector>

namespace lumbrix::bench
{

/// Things that can be done, and how often each was.
struct Kind {
    const char* name;
    std::size_t weight;
    std::function<void()> action;
    long count = 0;
};
using Kinds = std::vector<Kind>;

class Chance
{
public:
    explicit Chance(unsigned seed) : m_random(seed) {}

    /// From nothing to less than `count`.
    int pick(std::size_t count) { return static_cast<int>(m_random() % count); }
    template <class Items> const auto& anyOf(const Items& items)
    {
        return items[static_cast<std::size_t>(pick(items.size()))];
    }
    void doOneOf(Kinds& kinds)
    {
        std::size_t weight = 0;
        for (const Kind& kind : kinds)
            weight += kind.weight;
        auto chosen = static_cast<std::size_t>(pick(weight));
        for (Kind& kind : kinds) {
            if (chosen < kind.weight) {
                ++kind.count;
                m_last = m_last.right(60) + u' ' + QLatin1String(kind.name);
                kind.action();
                return;
            }
            chosen -= kind.weight;
        }
    }
    const QString& last() const { return m_last; } ///< what was done last

private:
    std::mt19937 m_random;
    QString m_last;
};

inline void print(const char* title, const Kinds& kinds)
{
    long all = 0;
    for (const Kind& kind : kinds)
        all += kind.count;
    std::printf("%ld %s:", all, title);
    for (const Kind& kind : kinds)
        std::printf(" %s %.1f %%%s", kind.name,
                    100.0 * static_cast<double>(kind.count) /
                        static_cast<double>(std::max(all, 1L)),
                    &kind == &kinds.back() ? "\n" : ",");
}

} // namespace lumbrix::bench
