// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/CalPreview.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QLocale>
#include <QtCore/QRegularExpression>

#include <algorithm>
#include <mutex>
#include <utility>

#include "engine/CalendarChoice.h"
#include "engine/HitTest.h"
#include "engine/HoverRules.h"
#include "engine/LXHandler.h"
#include "model/AXRead.h"
#include "model/Modifiers.h"
#include "platform/CalendarStore.h"
#include "platform/Log.h"
#include "platform/StringLiterals.h"
#include "platform/WallClock.h"
#include "preview/EventLine.h"

namespace lumbrix
{
namespace
{

using platform::CalendarError;

constexpr int maxLines = 10;
constexpr float lineHeight = 17;
constexpr float maxLineWidth = 700;
/// The panel's margins beside, above and below its lines.
constexpr QPointF firstLine(20, 21);
constexpr QSizeF surroundings(30, 40);

platform::CalendarEvents eventsUntil(const QDateTime& end, const platform::Desktop& ports)
{
    QStringList calendars;
    for (const platform::Calendar& calendar : CalendarChoice::getAllowedCalendars(ports))
        calendars << calendar.uid;
    return ports.calendarStore.events(ports.wallClock.now(), end, calendars);
}

} // namespace

std::shared_ptr<CalPreview> CalPreview::sharedPreview(const platform::Desktop& ports)
{
    static std::mutex mutex;
    static std::weak_ptr<CalPreview> shared; // guarded by mutex
    const std::lock_guard lock(mutex);
    std::shared_ptr<CalPreview> preview = shared.lock();
    if (!preview)
        shared = preview = std::make_shared<CalPreview>(ports);
    return preview;
}

ScreenyViewPtr CalPreview::shownPreview()
{
    const auto& previews = LXHandler::sharedHandler().screenyViews();
    return previews.empty() || !previews.front()->iCal() ? nullptr : previews.front();
}

void CalPreview::calIconHovered(const SWElementPtr& dockItem)
{
    LXHandler& engine = LXHandler::sharedHandler();
    const EngineSettings& settings = engine.settings();
    const bool isBusyCal = dockItem && SWElement::checkIfBusyCal(m_ports, dockItem->element());
    if (const ScreenyViewPtr shown = shownPreview(); shown && shown->BusyCal() == isBusyCal) {
        if (m_wanted.dockItem)
            m_wanted.dockItem = dockItem; // a new element each time the icon is hovered
        return;
    }
    qCDebug(log::hover, "a calendar is hovered: its row is today's events");
    engine.removeAllScreenViews();
    // Holding the key that hides window previews shows the calendar instead, and the other way
    // round.
    if (settings.hidePreviews && !isModifierHeld(m_ports.inputState, settings.hidePreviewsKeycode))
        return;
    engine.inventory().cleanWindowsArray();
    if (settings.onlyIfPressed && !isModifierHeld(m_ports.inputState, settings.onlyIfKeycode))
        return;
    if (eventsUntil(nextDate(), m_ports).error != CalendarError::NotReady)
        showPreview(dockItem, isBusyCal);
    read(dockItem, isBusyCal);
}

void CalPreview::read(const SWElementPtr& dockItem, bool isBusyCal)
{
    m_wanted = {dockItem, isBusyCal};
    // All of today, so that the result stays valid for the rest of the day.
    const QDateTime now = m_ports.wallClock.now();
    const QDateTime day = platform::WallClock::startOfDay(now);
    if (m_dayBeingRead == day)
        return; // its result is used for this icon, too
    m_dayBeingRead = day;
    m_ports.calendarStore.refresh(day, platform::WallClock::endOfDay(now),
                                  [weak = weak_from_this(), day] {
                                      if (const auto self = weak.lock())
                                          self->eventsRead(day);
                                  });
}

void CalPreview::eventsRead(const QDateTime& day)
{
    if (m_dayBeingRead != day)
        return; // a new day has begun since; that is read next
    m_dayBeingRead = {};
    const auto [dockItem, isBusyCal] = std::exchange(m_wanted, {});
    LXHandler& engine = LXHandler::sharedHandler();
    if (!dockItem || engine.currentDockElement() != dockItem || engine.settings().disabled)
        return;
    const ScreenyViewPtr shown = shownPreview();
    if (!shown) {
        // The icon may have been clicked since, which opens a menu or the application.
        if (engine.screenyViews().empty() &&
            (dockItem->isRequested() || isHovered(m_ports.inputState, dockItem)))
            showPreview(dockItem, isBusyCal);
        return;
    }
    if (upcomingEvents() == m_lines)
        return;
    generateCalData(*shown);
    engine.row().arranger().arrangeWindows(dockItem, false);
    shown->orderFront();
}

void CalPreview::showPreview(const SWElementPtr& dockItem, bool isBusyCal)
{
    LXHandler& engine = LXHandler::sharedHandler();
    if (HoverRules::verdictForPlace(m_ports.dockPreferences, dockItem) != HoverVerdict::Shows)
        return;
    const ScreenyViewPtr preview = engine.createScreenyView();
    if (!preview)
        return;
    preview->prepareForCal();
    generateCalData(*preview);
    qCDebug(log::hover, "a row of %lld lines of a calendar",
            static_cast<long long>(m_lines.size()));
    engine.row().append(preview);
    const auto application = dockItem ? dockItem->runningApplicationForDockElement() : std::nullopt;
    const auto windows = application ? engine.inventory().windowsForPID(application->pid)
                                     : std::vector<SWElementPtr>{};
    if (!windows.empty())
        preview->setElementRef(windows.front());
    else if (dockItem)
        preview->setCalURL(
            AX::read<QUrl>(m_ports.accessibility, dockItem->element(), AX::URL).value_or(QUrl()));
    preview->setICal(true);
    preview->setBusyCal(isBusyCal);
    engine.row().arranger().arrangeWindows(dockItem, false);
    if (preview->elementRef())
        engine.row().pictures().loadUnseen(preview);
    preview->setHeld(false); // in a former row it may have been
    preview->orderFront();
}

void CalPreview::generateCalData(ScreenyView& preview)
{
    m_lines = upcomingEvents();
    float width = 1;
    for (const QString& line : m_lines)
        width = std::max(width, static_cast<float>(EventLine::widthOf(line)));
    width = std::min(width, maxLineWidth);
    MAWindow& panel = *preview.window();
    const auto count = static_cast<double>(m_lines.size());
    panel.setFrame(QRectF(panel.frame().topLeft(),
                          surroundings + QSizeF(width, static_cast<double>(lineHeight) * count)));
    preview.setUpCalView();
    int index = 0;
    for (const QString& line : m_lines)
        addTextField(line, ++index, preview, width);
}

void CalPreview::addTextField(const QString& line, int index, ScreenyView& preview, float width)
{
    const bool isLight = LXHandler::sharedHandler().settings().previewStyle == 0;
    QWidget* view = preview.iCalView();
    auto* field = new EventLine(line, isLight ? Qt::black : Qt::white, view);
    field->setGeometry(QRectF(firstLine + QPointF(0, static_cast<double>(lineHeight) * (index - 1)),
                              QSizeF(static_cast<double>(width), static_cast<double>(lineHeight)))
                           .toAlignedRect());
    field->show();
}

QStringList CalPreview::upcomingEvents() const
{
    QStringList lines;
    for (const platform::CalendarEvent& event : eventsUntil(nextDate(), m_ports).events) {
        if (lines.size() == maxLines)
            break;
        lines << humanTimeFromDate(event.start, event.end) + u' ' + event.title;
    }
    if (lines.isEmpty())
        lines << QCoreApplication::translate("CalPreview", "No events for today.");
    return lines;
}

QDateTime CalPreview::nextDate() const
{
    // A calendar day, which can have 23 or 25 hours when the clocks change.
    return platform::WallClock::endOfDay(m_ports.wallClock.now());
}

QString CalPreview::humanTimeFromDate(const QDateTime& start, const QDateTime& end)
{
    // Hours and minutes. Without a language set, the short format would include seconds.
    static const QRegularExpression seconds(u"[:.]s+"_s);
    const QLocale locale;
    const QString format = locale.timeFormat(QLocale::ShortFormat).remove(seconds);
    return u"%1 - %2"_s.arg(locale.toString(start.time(), format),
                            locale.toString(end.time(), format));
}

} // namespace lumbrix
