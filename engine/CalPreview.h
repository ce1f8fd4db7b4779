// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The preview of a calendar application: the rest of today's events instead of its windows.
#pragma once

#include <QtCore/QDateTime>
#include <QtCore/QStringList>

#include <memory>

#include "engine/Companions.h"
#include "platform/Desktop.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

class LXHandler;

/// Main thread.
class CalPreview final : public CalendarPreview, public std::enable_shared_from_this<CalPreview>
{
public:
    /// The shared instance, which lives as long as somebody holds it. It uses the ports of the
    /// first caller, which must outlive it. Any thread.
    static std::shared_ptr<CalPreview> sharedPreview(const platform::Desktop& ports);
    explicit CalPreview(const platform::Desktop& ports) : m_ports(ports) {}

    bool shouldShowCal() const override { return m_shouldShowCal; }
    void setShouldShowCal(bool on) override { m_shouldShowCal = on; }
    /// Shows the preview beside the icon. If today's events have been read before, it appears at
    /// once and is updated if they have changed; otherwise it appears when they have been read, if
    /// the icon is still hovered then.
    void calIconHovered(const SWElementPtr& dockItem) override;

    /// The lines of the preview, from what the store knows: at least one, at most ten.
    QStringList upcomingEvents() const;
    /// The midnight that ends today.
    QDateTime nextDate() const;
    /// For example "9:00 AM - 10:30 AM", in the user's format for times.
    static QString humanTimeFromDate(const QDateTime& start, const QDateTime& end);

private:
    static void addTextField(const QString& line, int index, ScreenyView& preview, float width);
    void generateCalData(ScreenyView& preview);
    void showPreview(const SWElementPtr& dockItem, bool isBusyCal);
    /// Makes the store read today's events, unless it is already reading, and shows the result at
    /// this icon.
    void read(const SWElementPtr& dockItem, bool isBusyCal);
    void eventsRead(const QDateTime& day);
    /// The preview on screen; null if there is none.
    static ScreenyViewPtr shownPreview();

    const platform::Desktop& m_ports;
    bool m_shouldShowCal = false;
    QStringList m_lines; ///< as last shown
    struct Wanted {
        SWElementPtr dockItem;
        bool isBusyCal = false;
    };
    Wanted m_wanted;          ///< the calendar icon hovered last, while its day is being read
    QDateTime m_dayBeingRead; ///< its start; null if none is being read
};

} // namespace lumbrix
