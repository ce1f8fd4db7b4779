// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// An application under our command, whose windows look and behave as a test wants.
#pragma once

#include <QtCore/QPoint>
#include <QtCore/QSize>
#include <QtGui/QColor>

#include <memory>
#include <vector>

#include "Session.h"

namespace lumbrix::privatedesk
{

struct AppWindow {
    int index = 0; ///< within its application
    xcb_window_t id = 0;
    QByteArray title;
    QColor colour; ///< of the upper half; the lower half is darker
};

struct WindowOptions {
    QSize size{400, 300};
    QPoint position{200, 150};
};

QColor lowerColour(const QColor& colour);

/// Main thread. The application `alpha` has the windows class `Alpha` and the desktop entry
/// `alpha.desktop`, which must be installed.
class Application
{
public:
    Application(Session& session, const QString& identifier);
    ~Application();

    QString identifier() const { return m_identifier; }
    QString entry() const; ///< the desktop entry's path
    Process& process() { return *m_process; }
    const std::vector<AppWindow>& windows() const { return m_windows; }
    std::vector<QByteArray> titles() const;

    /// Opens a window and waits until it is listed and has the focus.
    AppWindow open(const QByteArray& title, const QColor& colour,
                   const WindowOptions& options = WindowOptions());
    /// Opens several, each with a title and a colour of its own.
    void open(int count);
    void destroy(const AppWindow& window);
    void setTitle(const AppWindow& window, const QByteArray& title);
    void setColour(const AppWindow& window, const QColor& colour);
    /// Draws a new picture, all over the window, so many times a second until told to stop.
    void startAnimating(const AppWindow& window, int framesPerSecond);
    /// Shows the window's colour again. How many pictures there were.
    int stopAnimating(const AppWindow& window);
    void maximise(const AppWindow& window);
    void minimise(const AppWindow& window);
    void moveToDesktop(const AppWindow& window, int desktop);
    void activate(const AppWindow& window);
    bool isMinimised(const AppWindow& window) const;
    /// The indices of the windows that were asked to close so far.
    const std::vector<int>& closeRequests();
    /// The codes of the keys that its windows saw, once for a press and once for a release.
    std::vector<int> keys();

private:
    QByteArray command(const QByteArray& line);

    Session& m_session;
    QString m_identifier;
    std::unique_ptr<Process> m_process;
    std::vector<AppWindow> m_windows;
    std::vector<int> m_closeRequests;
};

} // namespace lumbrix::privatedesk
