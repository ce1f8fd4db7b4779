// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the end-to-end tests share: a desktop that is kept from test to test, and the questions they
// ask of the screen.
#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <ostream>
#include <string>
#include <vector>

#include "Desk.h"
#include "platform/StringLiterals.h"

namespace lumbrix::privatedesk
{

inline void PrintTo(const DeskOptions& options, std::ostream* out) { *out << options.name; }

// The desktops that the tests run on.
DeskOptions plank(Edge edge = Edge::Bottom);     ///< xfwm4 with compositing
DeskOptions enlarged(Edge edge);                 ///< the same, all of it drawn twice as large
DeskOptions tint2(Edge edge = Edge::Bottom);     ///< Openbox, no compositor, windows not grouped
DeskOptions xfcePanel(Edge edge = Edge::Bottom); ///< xfwm4 with compositing, windows grouped
DeskOptions panelAndPlank();                     ///< the same at the top, and Plank at the bottom

inline const QString firstMonitor = u"DUMMY0"_s; ///< the primary one
inline const QString secondMonitor = u"DUMMY1"_s;
/// With the dock on the second one of two monitors, which is "right" of the primary one, "left" and
/// lower, or "above" and larger.
DeskOptions onSecondMonitor(DeskOptions options, const std::string& arrangement);

/// As people call it, and as it is started.
struct Program {
    const char* shown;
    const char* command;
};

Program programOf(DockKind kind);
Program programOf(WindowManager manager);

inline std::string deskName(const testing::TestParamInfo<DeskOptions>& info)
{
    return info.param.name;
}

/// Where the close button of a hovered preview is, from the preview's top left corner.
inline constexpr QPoint closeButton(14, 14);

using Result = testing::AssertionResult;

/// How much of the picture shows the window: the smaller of the parts in its two colours, where the
/// upper one is above the lower one; otherwise nothing.
double portionOf(const QImage& picture, const QColor& colour);

/// The pixels of such a colour: how many there are, and what they take together.
struct Pixels {
    int count = 0;
    QRect box;
};
Pixels pixelsOf(const QImage& picture, const std::function<bool(QRgb)>& areSought);

class DesktopTest : public testing::TestWithParam<DeskOptions>
{
protected:
    void SetUp() override;
    void TearDown() override;

    Desk& desk() { return *m_desk; }
    Display& display() { return m_desk->display(); }

    /// Starts an application with so many windows; it ends with the test.
    Application& launch(const QString& identifier, int windows = 0);
    void hover(const Application& application);

    /// Waits until exactly this application's windows are previewed, in any order, each with its
    /// title and the picture of that window. Else tells what "--inspect" says about it.
    Result shows(const Application& application, int milliseconds = 3000);
    /// The report of "lumbrix --inspect", which must end well.
    QByteArray inspect();
    /// The same once its icon is hovered.
    Result hoverShows(const Application& application, int milliseconds = 3000);
    /// Waits until no window of Lumbrix is on the screen.
    Result showsNothing(int milliseconds = 3000);
    /// The same once the pointer is where there is neither a dock nor a preview.
    Result parkShowsNothing();
    Result waitUntil(const std::function<bool()>& condition, int milliseconds = 3000);
    std::optional<Panel> preview(const QByteArray& title);
    /// What all previews take together; empty without any.
    QRect row();
    /// A window of Lumbrix with this role, minimised or not; none while there is none.
    std::optional<Panel> window(const QString& role);
    Result getsFocus(const QString& role);
    /// The settings file, as far as it has been written.
    QByteArray settings();
    /// Whether all that is shown is on that monitor, the row beside the pointer's icon.
    Result isBeside(const QRect& monitor, Edge edge);
    /// Moves from the icon to the middle of the preview: first straight away from the dock, because
    /// other icons on the way would be hovered too.
    void moveToPreview(const QByteArray& title);
    void savePicture(const char* what);

private:
    Result match(const Application& application);

    Desk* m_desk = nullptr;
    std::vector<std::unique_ptr<Application>> m_applications;
};

} // namespace lumbrix::privatedesk
