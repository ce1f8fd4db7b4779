// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The docks and window-button panels that people use, set up and started for a test.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>

#include <memory>
#include <optional>
#include <utility>

#include "Session.h"

namespace lumbrix::privatedesk
{

enum class DockKind { Plank, Tint2, XfcePanel, StockXfcePanel, MatePanel, LxqtPanel };
enum class Edge { Bottom, Left, Right, Top };

/// In lower case.
inline const char* nameOf(Edge edge)
{
    constexpr const char* names[] = {"bottom", "left", "right", "top"};
    return names[static_cast<int>(edge)];
}
inline bool isHorizontal(Edge edge) { return edge == Edge::Bottom || edge == Edge::Top; }

struct DockPlace {
    DockPlace(Edge at, QString of = {}, bool doesHide = false)
        : edge(at), monitor(std::move(of)), hides(doesHide)
    {
    }

    Edge edge;
    QString monitor; ///< the dock's own choice when empty
    bool hides;      ///< while the pointer is elsewhere; not xfce4-panel
};

/// Main thread.
class Dock
{
public:
    /// Starts it and waits until it shows. The session outlives it. `pinned` are desktop entries
    /// that Plank shows whether they run or not.
    static std::unique_ptr<Dock> start(Session& session, DockKind kind, const DockPlace& place,
                                       const QStringList& pinned = {});
    virtual ~Dock() = default;

    Edge edge() const { return m_place.edge; }
    /// Has the user choose another place while it runs, and waits until it is there. Plank, tint2
    /// and xfce4-panel.
    void moveTo(const DockPlace& place);
    /// Whether it is at its edge of its monitor, or of the primary one while that is off.
    bool isInPlace();
    /// Where to put the pointer to be on the icon that stands for this window of the application
    /// with this desktop entry (a path); none while the dock shows none or is still moving it.
    virtual std::optional<QPoint> iconOf(const QString& entry, xcb_window_t window) = 0;
    void signal(int number) { m_process->signal(number); }
    virtual void kill();
    virtual void restart() = 0;

protected:
    Dock(Session& session, const DockPlace& place) : m_session(session), m_place(place) {}
    /// Has the program, which runs, go where m_place says.
    virtual void reconfigure() {}

    Session& m_session;
    DockPlace m_place;
    std::unique_ptr<Process> m_process;
};

} // namespace lumbrix::privatedesk
