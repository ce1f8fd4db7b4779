// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/KeyboardRow.h"

#include <QtCore/QCoreApplication>

#include <algorithm>

#include "platform/Log.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{
/// Windows come, go and change their titles meanwhile.
constexpr platform::Seconds syncInterval = 0.1;

template <class... Arguments> QString text(const char* source, const Arguments&... arguments)
{
    return QCoreApplication::translate("KeyboardRow", source).arg(arguments...);
}
} // namespace

void KeyboardRow::toggle()
{
    if (m_panel && m_panel->isUp()) {
        m_dismissal.endAtOnce("its hot key was pressed again");
        return;
    }
    const SWElementPtr window = SWElement::elementOfFocusedWindow(m.ports);
    const SWElementPtr item = window ? itemFor(*window) : nullptr;
    if (!item)
        qCDebug(log::hover, "no row by its hot key: %s",
                window ? "the active window has no icon" : "no window is active");
    if (!item || m_requested.bringUp(item, [this] { ended(); }) != RequestedRow::Answer::Accepted)
        return;
    if (m.row.isEmpty()) {
        m_dismissal.endAtOnce("it would come with a key that nobody holds");
        return;
    }
    makePanel();
    const auto application = window->runningApplicationForWindow();
    m_panel->begin(text(QT_TRANSLATE_NOOP("KeyboardRow", "Windows of %1"),
                        application ? application->localizedName : QString()));
    const auto& previews = m.row.previews();
    const auto own = std::ranges::find_if(previews, [&](const ScreenyViewPtr& preview) {
        return window->isEqualTo(preview->elementRef());
    });
    m_index = own == previews.end() ? 0 : static_cast<int>(own - previews.begin());
    sync();
    m_timer = m.ports.runLoop.scheduleTimer(syncInterval, true, [this] { sync(); });
}

/// The window's own button where it has one, else its application's icon.
SWElementPtr KeyboardRow::itemFor(const SWElement& window) const
{
    const auto application = window.runningApplicationForWindow();
    const auto items = SWElement::runningApps(m.ports);
    if (!application || !items)
        return nullptr;
    SWElementPtr best;
    for (const SWElementPtr& item : *items) {
        const auto owner = item->runningApplicationForDockElement();
        if (!owner || owner->pid != application->pid)
            continue;
        const auto own = item->ownWindow();
        if (!best || (own && own == window.ownWindow()))
            best = item;
    }
    return best;
}

void KeyboardRow::makePanel()
{
    if (m_panel)
        return;
    m_panel = std::make_unique<KeyboardPanel>(m.ports);
    KeyboardPanel* panel = m_panel.get();
    QObject::connect(panel, &KeyboardPanel::moved, panel, [this](int steps) { move(steps); });
    QObject::connect(panel, &KeyboardPanel::raised, panel, [this] { raise(); });
    QObject::connect(panel, &KeyboardPanel::closed, panel, [this] {
        if (const ScreenyViewPtr chosen = m.row.selection().chosen())
            chosen->closeWindow();
    });
    QObject::connect(panel, &KeyboardPanel::left, panel,
                     [this] { m_dismissal.endAtOnce("the keyboard has left it"); });
}

void KeyboardRow::sync()
{
    const auto previews = m.row.previews();
    if (previews.empty()) {
        m_dismissal.endAtOnce("its last window is gone");
        return;
    }
    ScreenyViewPtr chosen = m.row.selection().chosen();
    if (!chosen) {
        const auto last = static_cast<int>(previews.size()) - 1;
        chosen = previews[static_cast<std::size_t>(std::clamp(m_index, 0, last))];
        m.row.selection().choose(chosen);
    }
    m_index = m.row.indexOf(*chosen);
    QStringList texts;
    for (std::size_t i = 0; i < previews.size(); ++i)
        texts << textOf(*previews[i], i);
    m_panel->setEntries(texts, m_index);
}

QString KeyboardRow::textOf(const ScreenyView& preview, std::size_t index) const
{
    QString said = text(QT_TRANSLATE_NOOP("KeyboardRow", "%1, %2 of %3"), preview.titleString(),
                        QString::number(m.row.firstWindow() + index + 1),
                        QString::number(std::max(m.row.allWindows(), m.row.previews().size())));
    const SWElementPtr& window = preview.elementRef();
    if (window && window->checkIfMinimized())
        said += QCoreApplication::translate("KeyboardRow", ", minimised");
    if (const int number = window ? window->getSpaceNumber() : 0; number > 0)
        said += text(QT_TRANSLATE_NOOP("KeyboardRow", ", workspace %1"), number);
    return said;
}

void KeyboardRow::move(int steps)
{
    const auto last = static_cast<int>(m.row.previews().size()) - 1;
    if (m_index + steps > last && !m.row.more().text().isEmpty()) {
        m_updater.showMore();
        m_index = 0;
    } else {
        m_index = std::clamp(m_index + steps, 0, std::max(last, 0));
        m.row.selection().choose(nullptr);
    }
    sync();
}

/// The keyboard goes back first: the window manager gives it to the window then, and would
/// otherwise lose it again.
void KeyboardRow::raise()
{
    const ScreenyViewPtr chosen = m.row.selection().chosen();
    m_panel->end();
    if (chosen)
        chosen->activateWindow();
    m_dismissal.endAtOnce("a window was chosen by the keyboard");
}

void KeyboardRow::ended()
{
    invalidateTimer(m_timer);
    if (m_panel)
        m_panel->end();
    m.row.selection().choose(nullptr);
}

} // namespace lumbrix
