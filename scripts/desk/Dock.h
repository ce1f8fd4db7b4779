// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The docks and window-button panels that people use, set up and started for a test.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QRect>

#include <memory>
#include <optional>

#include "Session.h"

namespace lumbrix::privatedesk
{

enum class DockKind { Plank, Tint2, XfcePanel, StockXfcePanel, MatePanel, LxqtPanel };
enum class Edge { Bottom, Left, Right, Top };

inline bool isHorizontal(Edge edge) { return edge == Edge::Bottom || edge == Edge::Top; }

/// Main thread.
class Dock
{
public:
    /// Starts it and waits until it shows. The session outlives it. `pinned` are desktop entries
    /// that Plank shows whether they run or not, also on its second dock, if it is to have one.
    static std::unique_ptr<Dock> start(Session& session, DockKind kind, Edge edge,
                                       const QStringList& pinned = {},
                                       std::optional<Edge> secondEdge = {});
    virtual ~Dock() = default;

    Edge edge() const { return m_edge; }
    /// Where to put the pointer to be on the icon that stands for this window of the application
    /// with this desktop entry (a path); none while the dock shows none or is still moving it.
    virtual std::optional<QPoint> iconOf(const QString& entry, xcb_window_t window) = 0;
    /// The same on the second dock.
    virtual std::optional<QPoint> iconOnSecondDock(const QString& /*entry*/) { return {}; }
    /// Kills the dock as a crash would.
    virtual void kill();
    /// Starts it again after kill().
    virtual void restart() = 0;

protected:
    Dock(Session& session, Edge edge) : m_session(session), m_edge(edge) {}

    Session& m_session;
    const Edge m_edge;
    std::unique_ptr<Process> m_process;
};

} // namespace lumbrix::privatedesk
