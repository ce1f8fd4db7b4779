// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <map>

#include "app/inspect/InspectionReport.h"
#include "app/inspect/InspectionTexts.h"
#include "app/inspect/Inspector.h"
#include "platform/InputState.h"
#include "platform/PrintableText.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{
namespace
{

using ItemKind = SimulatedDockItem::Kind;

class InspectionTest : public DesktopFixture
{
protected:
    InspectionTest()
    {
        defaults.setBool(true, u"firstRun"_s);
        set(u"showInDock"_s, 1);
    }

    void set(const QString& setting, int value) { defaults.setInteger(value, setting); }
    Inspection inspect()
    {
        Inspector inspector;
        inspector.aim();
        return inspector.inspect();
    }
    QString outcome() { return outcomeText(inspect()); }
    void pointAtWindows() { desk.movePointer({300, 900 - 200}); }

    SimulatedUserDefaults& defaults = desk.userDefaults();
};

TEST_F(InspectionTest, windows_areListedWithTheFirstRuleThatKeepsEachAway)
{
    const Pid maps = addApplication(u"Maps"_s);
    std::map<QString, WindowVerdict> expected;
    const auto add = [&](const QString& title, WindowVerdict verdict,
                         const std::function<void(SimulatedWindow&)>& change) {
        // No two in the same place, as matching goes by that.
        SimulatedWindow window{title, QRectF(100, 40 + 20.0 * expected.size(), 400, 300)};
        change(window);
        expected[title] = verdict;
        return desk.addWindow(maps, window);
    };
    add(u"plain"_s, WindowVerdict::Good, [](auto&) {});
    add(u"dialog"_s, WindowVerdict::Good, [](auto& each) { each.subrole = u"AXDialog"_s; });
    add(u"palette"_s, WindowVerdict::FloatingAtLevel,
        [](auto& each) { each.subrole = u"AXFloatingWindow"_s; });
    add(QString(), WindowVerdict::Untitled, [](auto&) {});
    add(u"tiny"_s, WindowVerdict::TooSmall, [](auto& each) { each.frame.setSize({49, 49}); });
    add(u"moved"_s, WindowVerdict::NoSameFrame,
        [](auto& each) { each.listedFrame = QRectF(1, 2, 400, 300); });
    add(u"renamed"_s, WindowVerdict::NoSameTitle, [](auto& each) { each.listedName = u"other"_s; });
    add(u"menu"_s, WindowVerdict::NoOrdinaryLayer, [](auto& each) { each.layer = 3; });
    add(u"drawer"_s, WindowVerdict::NoWindowRole, [](auto& each) { each.role = u"AXDrawer"_s; });
    add(u"empty"_s, WindowVerdict::NoContent, [](auto& each) {
        each.subrole = u"AXDialog"_s;
        each.hasContent = false;
    });
    desk.minimizeWindow(add(u"minimised"_s, WindowVerdict::Minimized, [](auto&) {}));
    set(u"ignoreMinimized"_s, 1);
    desk.with([](SimulatedState& state) { state.knowsWindowNumbers = true; });
    desk.hoverDockItem(u"Maps"_s);
    Inspection inspection = inspect();
    ASSERT_EQ(inspection.windows.size(), expected.size());
    QStringList reasons;
    for (const InspectedWindow& window : inspection.windows) {
        EXPECT_EQ(window.verdict, expected[window.title]) << qPrintable(window.title);
        const QString reason = reasonText(window);
        EXPECT_EQ(reason.isEmpty(), window.verdict == WindowVerdict::Good);
        EXPECT_FALSE(reasons.contains(reason) && !reason.isEmpty()) << "one text for two reasons";
        reasons << reason;
    }
    EXPECT_TRUE(reasons.filter(u"400 × 300 pixels at 1, 2"_s).size() == 1);
    EXPECT_EQ(reasons.filter(u"as it is a palette (Pref"_s).size(), 1);
    EXPECT_EQ(outcomeText(inspection), u"2 of 11 windows."_s);

    // The rules for the application as a whole.
    const auto count = [this](WindowVerdict verdict) {
        return std::ranges::count(inspect().windows, verdict, &InspectedWindow::verdict);
    };
    defaults.setDictionary({{u"org.example.Maps"_s, 3}}, u"filters"_s);
    EXPECT_EQ(count(WindowVerdict::BlockedByLevel), 7) << "all but those that match nothing";
    EXPECT_EQ(inspect().application->level.source, FilterLevelSource::Application);
    defaults.setDictionary({{u"All applications"_s, 0}}, u"filters"_s);
    EXPECT_EQ(levelText(inspect().application->level),
              u"Low (every window), that of all applications"_s);
    desk.workspace().hide(maps);
    set(u"ignoreHidden"_s, 1);
    EXPECT_EQ(count(WindowVerdict::ApplicationHidden), 6) << "and but the drawer";
    desk.changeApplication(maps, [](auto& each) { each.isRegular = false; });
    EXPECT_EQ(count(WindowVerdict::NotScanned), 11);
}

TEST_F(InspectionTest, windowsBeyondTheFifteenth_andTwins_areLeftOut)
{
    addApplication(u"Maps"_s, 17);
    desk.hoverDockItem(u"Maps"_s);
    Inspection inspection = inspect();
    EXPECT_EQ(outcomeText(inspection), u"15 of 17 windows."_s);
    EXPECT_EQ(inspection.windows.back().verdict, WindowVerdict::BeyondMost);
    const Pid notes = addApplication(u"Notes"_s);
    desk.addWindow(notes, {u"Twin"_s});
    desk.addWindow(notes, {u"Twin"_s});
    desk.hoverDockItem(u"Notes"_s);
    inspection = inspect();
    EXPECT_EQ(inspection.windows.front().verdict, WindowVerdict::Good);
    EXPECT_EQ(inspection.windows.back().verdict, WindowVerdict::NumberListed);
}

TEST_F(InspectionTest, outcome_namesWhatKeepsPreviewsAway)
{
    const Pid maps = addApplication(u"Maps"_s, 1);
    desk.addDockItem({u"Chess"_s, ItemKind::Application, QUrl(u"file:///Chess.app"_s), 0, true});
    desk.hoverDockItem(u"Maps"_s);
    EXPECT_EQ(outcome(), u"1 of 1 windows."_s);
    set(u"ignoreOneWindow"_s, 1);
    EXPECT_EQ(outcome(), u"None: applications with a single window are left out "
                         u"(Preferences > Advanced)."_s);
    set(u"tempDisableFilters"_s, 1);
    desk.setModifiers(platform::ModifierFlag::command);
    EXPECT_EQ(outcome(), u"1 of 1 windows."_s);
    set(u"onlyIfPressed"_s, 1);
    set(u"onlyIfKeycode"_s, 2);
    EXPECT_TRUE(outcome().contains(u"only while Ctrl is held (Preferences > Hotkeys)"_s));
    desk.setModifiers(platform::ModifierFlag::control | platform::ModifierFlag::command);
    EXPECT_EQ(outcome(), u"1 of 1 windows."_s);
    set(u"hidePreviews"_s, 1);
    EXPECT_TRUE(outcome().contains(u"Super is held, which hides"_s));
    set(u"showInDock"_s, 0);
    EXPECT_TRUE(outcome().contains(u"icons in the Dock are turned off"_s));
    set(u"disabled"_s, 1);
    EXPECT_TRUE(outcome().contains(u"all previews are turned off"_s));
    EXPECT_EQ(inspect().settings.front().key, u"showInDock"_s);
    defaults.setBool(false, u"firstRun"_s);
    EXPECT_TRUE(inspect().settings.empty()) << "as the first start will set them";
    defaults.setBool(true, u"firstRun"_s);

    for (const QString& each : {u"disabled"_s, u"hidePreviews"_s, u"onlyIfPressed"_s})
        set(each, 0);
    set(u"showInDock"_s, 1);
    desk.hoverDockItem(u"Chess"_s);
    EXPECT_TRUE(outcome().contains(u"does not run"_s));
    desk.hoverDockItem(u"Trash"_s);
    EXPECT_TRUE(outcome().contains(u"not an application's"_s));
    addApplication(u"Calendar"_s, 1);
    desk.hoverDockItem(u"Calendar"_s);
    EXPECT_EQ(outcome(), u"1 of 1 windows."_s);
    set(u"shouldShowCal"_s, 1);
    EXPECT_TRUE(outcome().contains(u"today's events instead"_s));
    set(u"disabled"_s, 0);

    // A window instead of an icon.
    pointAtWindows();
    desk.activateApplication(maps);
    EXPECT_EQ(outcome(), u"1 of 1 windows."_s);
    EXPECT_TRUE(inspect().windows.front().isUnderPointer);
    const Pid agent = desk.addApplication({u"Agent"_s, {}, 0, false});
    const WindowID status = desk.addWindow(agent, {u"Status"_s});
    EXPECT_TRUE(outcome().contains(u"shows no icon"_s));
    desk.closeWindow(status);
    desk.setDockEdge(std::nullopt);
    EXPECT_TRUE(outcome().contains(u"no place for previews"_s));
    desk.setDockEdge(platform::DockEdge::Top);
    EXPECT_EQ(outcome(), u"1 of 1 windows."_s);
    desk.minimizeWindow(desk.stacking().front());
    desk.movePointer({1439, 899});
    EXPECT_TRUE(outcome().contains(u"no icon and no window"_s));
    desk.with([](SimulatedState& state) { state.dockItems.clear(); });
    EXPECT_TRUE(outcome().contains(u"tells of no icons"_s));
    desk.killDock();
    EXPECT_TRUE(outcome().contains(u"no Dock was recognised"_s));
}

TEST_F(InspectionTest, minimisedIconAndBusyApplication_areTold)
{
    const Pid maps = addApplication(u"Maps"_s, 2);
    const WindowID window = desk.stacking().front();
    desk.minimizeWindow(window);
    desk.hoverDockItem(u"Maps 2"_s);
    EXPECT_TRUE(outcome().contains(u"minimised window that the icon stands for"_s));
    // Its title is all that an icon is known by.
    desk.changeWindow(window, [](SimulatedWindow& each) { each.title = u"Other"_s; });
    EXPECT_TRUE(outcome().contains(u"no minimised window has the icon's title"_s));

    desk.changeApplication(maps, [](SimulatedApplication& each) { each.responds = false; });
    desk.hoverDockItem(u"Maps"_s);
    const Inspection inspection = inspect();
    EXPECT_FALSE(inspection.application->answers);
    EXPECT_TRUE(outcomeText(inspection).startsWith(u"Not known: "_s));
    desk.changeApplication(maps, [](SimulatedApplication& each) { each.responds = true; });
    defaults.setDictionary({{u"org.example.Maps"_s, 3}}, u"filters"_s);
    EXPECT_EQ(outcome(), u"None: the filter “Block all” leaves out every window of the application "
                         u"(Preferences > Filters)."_s);
}

TEST_F(InspectionTest, report_isPlainTextWithTheAnswerFirst)
{
    const Pid maps = addApplication(u"Maps"_s);
    desk.addWindow(maps, {u"Grüße\x1b[31m\n\u202e \U0001F600"_s, {10.4, 20, 400, 300}});
    desk.movePointer({30, 900 - 40});
    defaults.setFloat(0.5F, u"displayDelay"_s);
    set(u"tempDisableFilters"_s, 1);
    set(u"tempDisableFiltersKeycode"_s, 2);
    using enum platform::DockDisplay::Kind;
    desk.dockPreferences().displays = {
        {Tooltip, true, u"tips=0"_s}, {Preview, false, u"views=0"_s}, {Tooltip, true, {}}};
    QStringList lines = inspectionReport(inspect()).split(u'\n');
    EXPECT_TRUE(lines.removeOne(lines.filter(u"System        "_s).value(0)));
    const QString title = uR"(Grüße\x1b[31m\n\u202e 😀)"_s;
    EXPECT_EQ(lines.join(u'\n'), uR"(Previews      1 of 1 windows.
Icon          “Maps”, a running application, in No Description
Application   Maps
Filter        High (all but empty windows and palettes), that of all applications
Settings      what is left out shows while Ctrl is held
              previews wait for 0.5 s
Dock's own    a tooltip, off with: tips=0
              perhaps a preview, off with: views=0
              a tooltip, which nothing turns off

Windows
-------
 1. “%1”   <- under the pointer
    can be previewed
    a window, on workspace 1, 400 × 300 pixels at 10, 20

For a bug report
----------------
Lumbrix       , not known whether it runs
Screens       1440 × 900 pixels at 0, 0
Dock          No Description, process %2, edge: bottom, items: 3
Pointer       30, 40 pt, 1 pt = 1 px
Application   org.example.Maps, process %3
Settings      tempDisableFilters=1 tempDisableFiltersKeycode=2 displayDelay=0.5
Windows        1. 0x1, AXStandardWindow, 400 × 300 pt, 10.4, 20

<AXApplication: “Maps”>
 <AXWindow: “%1”>
  <AXGroup>

Attributes:
   AXRole:  “AXGroup”
   AXParent:  “<AXWindow: “%1”>”
   AXWindow:  “<AXWindow: “%1”>”
)"_s.arg(title, QString::number(desk.dockPid()), QString::number(maps)));
    Inspection idle = inspect();
    idle.runningProcess = 0;
    EXPECT_TRUE(inspectionReport(idle).startsWith(
        u"Previews      None: Lumbrix does not run on this desktop.\n"
        u"If it ran     1 of 1 windows.\n"_s));

    desk.windowServer().unseen = u"Only some."_s;
    EXPECT_TRUE(inspectionReport(inspect()).contains(u"\nSession       Only some.\n"_s));

    EXPECT_EQ(printableText(u"a\u200db\x7f\u2028"_s + QChar(0xD800)),
              u"a\u200db\\x7f\\u2028\ufffd"_s);
    EXPECT_EQ(printableText(QString(100'000, u'x')).size(), 300 + 10);
}

} // namespace
} // namespace lumbrix::test
