// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/docks/ButtonMatcher.h"
#include "platform/StringLiterals.h"

#include <QtCore/QHash>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <utility>

namespace lumbrix::platform
{

namespace
{

/// What a label may mean.
struct Label {
    explicit Label(const QString& name) : title(name)
    {
        // What panels add around the titles of minimised and shaded windows, and window managers
        // after duplicate titles.
        isOfIconic = name.startsWith(u'[') && name.endsWith(u']');
        if (name.size() > 2 && (isOfIconic || (name.startsWith(u'=') && name.endsWith(u'='))))
            unwrapped = name.mid(1, name.size() - 2);
        static const QRegularExpression number(u" <\\d{1,4}>$"_s);
        unnumbered = QString(name).remove(number);
        if (unnumbered.size() == name.size())
            unnumbered.clear();
        // Some panels add the number of windows.
        static const QRegularExpression count(u"^[(\\[]\\d{1,4}[)\\]] | [(\\[]\\d{1,4}[)\\]]$"_s);
        application = QString(name).remove(count).toCaseFolded();
    }

    QString title;
    QString unwrapped;       ///< null without marks around it
    bool isOfIconic = false; ///< these marks mean a minimised window
    QString unnumbered;      ///< null without a number
    QString application;
};

/// The windows by what labels say of them, as a panel with hundreds of buttons would otherwise
/// compare each with every window. All lists are in the order of appearance.
class WindowIndex
{
public:
    using Places = std::vector<std::size_t>;

    explicit WindowIndex(const std::vector<ButtonWindow>& windows) : m_windows(windows)
    {
        for (std::size_t i = 0; i < windows.size(); ++i) {
            m_byTitle[windows[i].title].push_back(i);
            m_byApplication[windows[i].application].push_back(i);
            for (const QString& name : windows[i].applicationNames) {
                Places& named = m_byName[name.toCaseFolded()];
                if (named.empty() || named.back() != i)
                    named.push_back(i);
            }
        }
    }

    const ButtonWindow& operator[](std::size_t place) const { return m_windows[place]; }
    std::size_t size() const { return m_windows.size(); }
    const Places& ofApplication(std::int32_t application) const
    {
        return at(m_byApplication, application);
    }
    const Places& named(const Label& label) const
    {
        return label.application.isEmpty() ? nowhere : at(m_byName, label.application);
    }
    const Places& titled(const Label& label) const
    {
        return label.title.isEmpty() ? nowhere : at(m_byTitle, label.title);
    }
    Places titledWithMarks(const Label& label) const
    {
        Places places = label.unnumbered.isNull() ? nowhere : at(m_byTitle, label.unnumbered);
        if (!label.unwrapped.isNull()) {
            for (const std::size_t place : at(m_byTitle, label.unwrapped))
                if (!label.isOfIconic || m_windows[place].isIconic)
                    places.push_back(place);
            std::ranges::sort(places);
        }
        return places;
    }
    bool isMeant(const Label& label) const
    {
        return !titled(label).empty() || !titledWithMarks(label).empty() || !named(label).empty();
    }

private:
    template <class Key> static const Places& at(const QHash<Key, Places>& index, const Key& key)
    {
        const auto known = index.constFind(key);
        return known == index.cend() ? nowhere : *known;
    }

    static inline const Places nowhere;

    const std::vector<ButtonWindow>& m_windows;
    QHash<QString, Places> m_byTitle;
    QHash<QString, Places> m_byName; ///< of the application, case-folded
    QHash<std::int32_t, Places> m_byApplication;
};

std::vector<PanelButton> windowButtons(std::vector<PanelButton> buttons, const WindowIndex& windows)
{
    using Score = std::pair<int, std::size_t>;
    std::map<AccessibleRef, Score> scores;
    for (const PanelButton& button : buttons) {
        Score& score = scores[button.list];
        score.first += windows.isMeant(Label(button.name)) ? 1 : 0;
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
    using Places = WindowIndex::Places;

    explicit Matching(const WindowIndex& windows) : m_windows(windows), m_isTaken(windows.size()) {}

    void byTitle(const PanelButton& button, const Places& titled)
    {
        if (m_result.contains(button.ref))
            return;
        const auto free = std::ranges::find_if(titled, [&](auto place) { return isFree(place); });
        if (free != titled.end())
            take(button, {*free});
    }

    void asBefore(const PanelButton& button, const ButtonWindows& before)
    {
        const auto known = before.find(button.ref);
        if (known == before.end() || m_result.contains(button.ref))
            return;
        Places places;
        for (const xcb_window_t id : known->second)
            if (const auto place = m_places.find(id); place != m_places.end())
                places.push_back(*place);
        std::ranges::sort(places);
        take(button, places);
    }

    // Even if one of the windows has the application's name as its title.
    void byApplication(const PanelButton& button, const Places& named)
    {
        const auto first = std::ranges::find_if(named, [&](auto place) { return isFree(place); });
        if (first != named.end())
            take(button, m_windows.ofApplication(m_windows[*first].application));
    }

    ButtonWindows result() && { return std::move(m_result); }

private:
    bool isFree(std::size_t place) const { return !m_isTaken[place]; }
    void take(const PanelButton& button, const Places& places)
    {
        for (const std::size_t place : places) {
            if (isFree(place)) {
                m_isTaken[place] = true;
                m_result[button.ref].push_back(m_windows[place].id);
            }
        }
    }

    static QHash<xcb_window_t, std::size_t> placesOf(const WindowIndex& windows)
    {
        QHash<xcb_window_t, std::size_t> places;
        for (std::size_t i = 0; i < windows.size(); ++i)
            places.insert(windows[i].id, i);
        return places;
    }

    const WindowIndex& m_windows;
    const QHash<xcb_window_t, std::size_t> m_places = placesOf(m_windows);
    std::vector<bool> m_isTaken;
    ButtonWindows m_result;
};

} // namespace

ButtonWindows matchButtons(std::vector<PanelButton> buttons,
                           const std::vector<ButtonWindow>& windows, const ButtonWindows& before)
{
    const WindowIndex index(windows);
    buttons = windowButtons(std::move(buttons), index);
    sortAlongPanel(buttons);
    std::vector<Label> labels;
    labels.reserve(buttons.size());
    for (const PanelButton& button : buttons)
        labels.emplace_back(button.name);
    Matching matching(index);
    for (std::size_t i = 0; i < buttons.size(); ++i)
        matching.byTitle(buttons[i], index.titled(labels[i]));
    for (std::size_t i = 0; i < buttons.size(); ++i)
        matching.byTitle(buttons[i], index.titledWithMarks(labels[i]));
    for (const PanelButton& button : buttons)
        matching.asBefore(button, before);
    for (std::size_t i = 0; i < buttons.size(); ++i)
        matching.byApplication(buttons[i], index.named(labels[i]));
    return std::move(matching).result();
}

} // namespace lumbrix::platform
