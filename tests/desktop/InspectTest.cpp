// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The report of "lumbrix --inspect", beside a Lumbrix that runs.
#include "DesktopTest.h"

#include <iostream>

#include "Lumbrix.h"

namespace lumbrix::privatedesk
{

class InspectTest : public DesktopTest
{
protected:
    void makeUtility(const AppWindow& window)
    {
        const xcb_atom_t type = display().atom("_NET_WM_WINDOW_TYPE_UTILITY");
        xcb_change_property(display().connection(), XCB_PROP_MODE_REPLACE, window.id,
                            display().atom("_NET_WM_WINDOW_TYPE"), XCB_ATOM_ATOM, 32, 1, &type);
        xcb_flush(display().connection());
    }
};

INSTANTIATE_TEST_SUITE_P(, InspectTest, testing::Values(plank(), tint2()), deskName);

TEST_P(InspectTest, report_agreesWithWhatTheHoverShows_andDisturbsNothing)
{
    desk().startLumbrix({{u"ignoreMinimized"_s, u"1"_s}});
    Application& alpha = launch(u"alpha"_s, 3);
    const auto windows = alpha.windows();
    alpha.minimise(windows[1]);
    makeUtility(windows[2]);
    alpha.setTitle(windows[0], "first \xf0\x9f\x8e\xa8 \x1b[31m");
    hover(alpha);
    ASSERT_TRUE(waitUntil([&] { return display().previews().size() == 1; }));
    const QByteArray before = settings();
    const std::size_t panels = display().panels().size();
    const xcb_window_t active = display().activeWindow();

    const QByteArray report = inspect();
    const QByteArray id = "0x" + QByteArray::number(windows[0].id, 16) + ", AXStandardWindow, ";
    for (const QByteArray& expected :
         {QByteArray("Previews      1 of 3 windows."), QByteArray("\nApplication   Alpha\n"),
          QByteArray("\nApplication   alpha, process "),
          QByteArray("\nSettings      minimised windows are left out\n"),
          QByteArray("\nSettings      ignoreMinimized=1\n"),
          desk().options().dock == DockKind::Plank
              ? QByteArray("Dock's own    a tooltip, off with: gsettings set net.launchpad.plank."
                           "dock.settings:/net/launchpad/plank/docks/dock1/ tooltips-enabled false")
              : QByteArray("perhaps a tooltip, off with: task_tooltip = 0 (tint2rc)"),
          QByteArray("edge: bottom"), QByteArray("“Alpha”, a running application, in "),
          QByteArray("“first 🎨 \\x1b[31m”"), id,
          QByteArray("not previewed: minimised windows are left out (Preferences > Advanced)"),
          QByteArray("not previewed: the filter “High” leaves it out, as it is a palette"),
          QByteArray("\n  <AXDockItem: “Alpha”>\n"),
          QByteArray("\n   AXSubrole:  “AXApplicationDockItem”\n")})
        EXPECT_TRUE(report.contains(expected)) << expected.constData();
    EXPECT_EQ(report.count("can be previewed"), 1);
    if (HasFailure())
        std::cerr << report.constData();

    EXPECT_EQ(display().panels().size(), panels) << "a window of its own";
    EXPECT_EQ(display().previews().size(), 1U);
    EXPECT_EQ(display().activeWindow(), active);
    EXPECT_EQ(settings(), before);
}

// Wayland sessions ask the toolkit not to draw where the docks are.
TEST_P(InspectTest, report_isInTheUsersLanguage_whateverTheSessionAsksTheToolkitFor)
{
    const auto process = desk().session().start(
        u"german"_s, u"env"_s,
        {u"LANGUAGE=de"_s, u"WAYLAND_DISPLAY=wayland-0"_s, u"XDG_SESSION_TYPE=wayland"_s,
         u"QT_QPA_PLATFORM=wayland"_s, lumbrixBinary(), u"--inspect"_s},
        true);
    EXPECT_TRUE(process->readLine(patience(10'000)).value_or("").startsWith("Vorschauen "));
    EXPECT_EQ(process->waitForExit(patience(2000)), 0);
}

} // namespace lumbrix::privatedesk
