// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/ButtonMatcher.h"
#include "platform/StringLiterals.h"

#include <QtCore/QRegularExpression>

#include <algorithm>
#include <utility>

namespace lumbrix::platform
{

namespace
{

bool isTitle(const QString& name, const ButtonWindow& window)
{
    return !name.isEmpty() && name == window.title;
}

// What panels add around the titles of minimised and shaded windows, and window managers after
// duplicate titles.
bool isDecoratedTitle(const QString& name, const ButtonWindow& window)
{
    static const QRegularExpression number(u" <\\d{1,4}>$"_s);
    const bool isWrapped = (window.isIconic && name.startsWith(u'[') && name.endsWith(u']')) ||
                           (name.startsWith(u'=') && name.endsWith(u'='));
    return (isWrapped && name.size() > 2 && name.mid(1, name.size() - 2) == window.title) ||
           (name.size() > window.title.size() && name.startsWith(window.title) &&
            QString(name).remove(number) == window.title);
}

// Some panels add the number of windows.
bool isNameOfGroup(const QString& name, const ButtonWindow& window)
{
    static const QRegularExpression count(u"^[(\\[]\\d{1,4}[)\\]] | [(\\[]\\d{1,4}[)\\]]$"_s);
    const QString plain = QString(name).remove(count);
    return !plain.isEmpty() && window.applicationNames.contains(plain, Qt::CaseInsensitive);
}

using Rule = bool (*)(const QString&, const ButtonWindow&);

std::vector<PanelButton> windowButtons(std::vector<PanelButton> buttons,
                                       const std::vector<ButtonWindow>& windows)
{
    using Score = std::pair<int, std::size_t>;
    std::map<AccessibleRef, Score> scores;
    for (const PanelButton& button : buttons) {
        Score& score = scores[button.list];
        score.first += std::ranges::any_of(windows, [&](const ButtonWindow& window) {
            return isTitle(button.name, window) || isDecoratedTitle(button.name, window) ||
                   isNameOfGroup(button.name, window);
        });
        score.second = button.siblings;
    }
    const auto best =
        std::ranges::max_element(scores, {}, [](const auto& list) { return list.second; });
    std::erase_if(buttons, [&](const PanelButton& button) { return button.list != best->first; });
    return buttons;
}

void sortAlongPanel(std::vector<PanelButton>& buttons)
{
    QRect extent;
    for (const PanelButton& button : buttons)
        extent |= button.place;
    const bool isRow = extent.width() >= extent.height();
    std::ranges::stable_sort(buttons, {}, [isRow](const PanelButton& button) {
        const QPoint at = button.place.topLeft();
        return isRow ? std::pair(at.x(), at.y()) : std::pair(at.y(), at.x());
    });
}

class Matching
{
public:
    explicit Matching(const std::vector<ButtonWindow>& windows)
    {
        for (const ButtonWindow& window : windows)
            m_free.push_back(&window);
    }

    void byTitle(const PanelButton& button, Rule rule)
    {
        if (m_result.contains(button.ref))
            return;
        const auto it = std::ranges::find_if(
            m_free, [&](const ButtonWindow* window) { return rule(button.name, *window); });
        if (it != m_free.end()) {
            m_result[button.ref].push_back((*it)->id);
            m_free.erase(it);
        }
    }

    void asBefore(const PanelButton& button, const ButtonWindows& before)
    {
        const auto known = before.find(button.ref);
        if (known == before.end() || m_result.contains(button.ref))
            return;
        take(button, [&](const ButtonWindow& window) {
            return std::ranges::find(known->second, window.id) != known->second.end();
        });
    }

    // Even if one of the windows has the application's name as its title.
    void byApplication(const PanelButton& button)
    {
        const auto first = std::ranges::find_if(m_free, [&](const ButtonWindow* window) {
            return isNameOfGroup(button.name, *window);
        });
        if (first != m_free.end()) {
            const std::int32_t application = (*first)->application;
            take(button, [application](const ButtonWindow& window) {
                return window.application == application;
            });
        }
    }

    ButtonWindows result() && { return std::move(m_result); }

private:
    template <typename Condition> void take(const PanelButton& button, Condition condition)
    {
        std::vector<xcb_window_t> taken;
        std::erase_if(m_free, [&](const ButtonWindow* window) {
            const bool isTaken = condition(*window);
            if (isTaken)
                taken.push_back(window->id);
            return isTaken;
        });
        if (!taken.empty()) {
            std::vector<xcb_window_t>& all = m_result[button.ref];
            all.insert(all.end(), taken.begin(), taken.end());
        }
    }

    std::vector<const ButtonWindow*> m_free;
    ButtonWindows m_result;
};

} // namespace

ButtonWindows matchButtons(std::vector<PanelButton> buttons,
                           const std::vector<ButtonWindow>& windows, const ButtonWindows& before)
{
    buttons = windowButtons(std::move(buttons), windows);
    sortAlongPanel(buttons);
    Matching matching(windows);
    for (const Rule rule : {isTitle, isDecoratedTitle})
        for (const PanelButton& button : buttons)
            matching.byTitle(button, rule);
    for (const PanelButton& button : buttons)
        matching.asBefore(button, before);
    for (const PanelButton& button : buttons)
        matching.byApplication(button);
    return std::move(matching).result();
}

} // namespace lumbrix::platform
