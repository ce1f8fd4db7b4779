// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A desktop to test on: a session, a dock, three known applications, and Lumbrix.
#pragma once

#include <memory>
#include <string>
#include <vector>

#include "Application.h"
#include "Dock.h"
#include "Lumbrix.h"
#include "Session.h"
#include "platform/StringLiterals.h"

namespace lumbrix::privatedesk
{

struct DeskOptions {
    std::string name; ///< in the names of tests and pictures
    DockKind dock = DockKind::Plank;
    Edge edge = Edge::Bottom;
    SessionOptions session;
    std::optional<DockKind> panel{}; ///< at the top, besides
    QString monitor{};               ///< of the dock; its own choice when empty
};

/// Main thread.
class Desk
{
public:
    explicit Desk(const DeskOptions& options);
    ~Desk();

    const DeskOptions& options() const { return m_options; }
    Session& session() { return m_session; }
    Display& display() { return m_session.display(); }
    Dock& dock() { return *m_dock; }
    Dock& panel() { return *m_panel; } ///< only with one besides
    Process& lumbrix() { return *m_lumbrix; }

    void changeDock(DockKind kind, const DockPlace& place);
    /// Starts one of the applications "alpha", "beta" and "gamma", or "delta", which is not pinned
    /// to the dock, without windows.
    std::unique_ptr<Application> launch(const QString& identifier);
    /// Starts Lumbrix with the settings of a user who has changed only these, and waits until it
    /// answers to the pointer. Does nothing when it runs with the same settings already.
    void startLumbrix(const Settings& changed = {});
    /// Starts Lumbrix, again if it runs, with the settings as they are in their file, and waits
    /// until it previews the windows of this application.
    void startLumbrixAgain(const Application& application);
    /// Ends the one that runs; the next startLumbrix() starts another.
    void stopLumbrix();
    /// What Lumbrix has complained about since its start.
    QString complaints() const { return m_session.log(u"lumbrix"_s); }

    /// Waits for the icon of the application's first window; none when the dock shows none.
    std::optional<QPoint> iconOf(const Application& application);
    /// Moves the pointer there; false when the dock shows none.
    bool hover(const Application& application);
    /// Moves the pointer to where there is neither a dock nor a preview.
    void park();
    void savePicture(const QString& name);

private:
    DeskOptions m_options;
    Session m_session;
    QStringList m_entries;
    std::unique_ptr<Dock> m_panel;
    std::unique_ptr<Dock> m_dock;
    std::unique_ptr<Process> m_lumbrix;
    std::optional<Settings> m_settings; ///< none when a test has changed the file
};

} // namespace lumbrix::privatedesk
