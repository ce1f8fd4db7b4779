// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What is asked of the Dock, of the switcher and of whole applications.

#include "tests/model/ModelFixture.h"

namespace lumbrix::test
{
namespace
{

using ItemKind = SimulatedDockItem::Kind;

using SWElementDockTest = ModelFixture;

TEST_F(SWElementDockTest, everyKindOfItem_isToldFromTheOthers)
{
    const Pid notes = addApplication(u"Notes"_s, 1);
    desk.minimizeWindow(desk.stacking().front());
    desk.addDockItem({u"Maps"_s, ItemKind::Application, QUrl(u"file:///Applications/Maps.app"_s)});
    desk.addDockItem({u"Calendar"_s, ItemKind::Application, QUrl(u"file:///Calendar.app"_s)});
    desk.addDockItem({u"BusyCal"_s, ItemKind::Application, QUrl(u"file:///BusyCal.app"_s)});
    desk.addDockItem({u"iCal"_s, ItemKind::Folder});
    const auto classify = [&](const QString& title) {
        const auto item = desk.dockItem(title);
        QString is;
        is += SWElement::checkIfDockApplication(ports(), item) ? u'a' : u'-';
        is += SWElement::checkIfAppIsRunning(ports(), item) ? u'r' : u'-';
        is += SWElement::checkIfCal(ports(), item) ? u'c' : u'-';
        is += SWElement::checkIfBusyCal(ports(), item) ? u'b' : u'-';
        is += SWElement::checkIfMinimizedWindowIcon(ports(), item) ? u'm' : u'-';
        return is;
    };
    EXPECT_EQ(classify(u"Notes"_s), u"ar---"_s);
    EXPECT_EQ(classify(u"Maps"_s), u"a----"_s);
    EXPECT_EQ(classify(u"Calendar"_s), u"a-c--"_s);
    EXPECT_EQ(classify(u"BusyCal"_s), u"a-cb-"_s);
    EXPECT_EQ(classify(u"iCal"_s), u"-----"_s); // a folder of that name
    EXPECT_EQ(classify(u"Notes 1"_s), u"----m"_s);
    EXPECT_EQ(classify(u"Trash"_s), u"-----"_s);
    EXPECT_EQ(classify(u"no such item"_s), u"-----"_s);

    EXPECT_TRUE(SWElement::getFirstDockElement(ports())->isEqualTo(dockItem(u"Notes"_s)));
    const auto running = SWElement::runningApps(ports());
    ASSERT_TRUE(running && running->size() == 1);
    EXPECT_EQ(running->front()->url(), desk.application(notes).bundleURL);
    desk.quitApplication(notes);
    EXPECT_EQ(SWElement::runningApps(ports()), std::nullopt);
    desk.killDock();
    EXPECT_EQ(SWElement::getDockPid(ports()), 0);
    EXPECT_EQ(SWElement::getFirstDockElement(ports()), nullptr);
    EXPECT_EQ(SWElement::getDockPid(ports()), desk.dockPid());
}

TEST_F(SWElementDockTest, item_standsForTheApplicationAtItsPlace)
{
    const Pid notes = addApplication(u"Notes"_s);
    desk.with([](SimulatedState& state) {
        for (auto& item : state.dockItems)
            if (item.title == u"Notes"_s)
                item.url = QUrl(u"file:///Applications/Utilities/../Notes.app/"_s);
    });
    const auto application = dockItem(u"Notes"_s)->runningApplicationForDockElement();
    ASSERT_TRUE(application);
    EXPECT_EQ(application->pid, notes);
    EXPECT_FALSE(dockItem(u"Trash"_s)->runningApplicationForDockElement());
    const Pid copy = desk.addApplication({.name = u"Copy"_s}); // started twice, say
    desk.with([&](SimulatedState& state) {
        for (auto& item : state.dockItems)
            if (item.title == u"Notes"_s)
                item.owner = copy;
    });
    EXPECT_EQ(dockItem(u"Notes"_s)->runningApplicationForDockElement()->pid, copy);
    desk.quitApplication(copy);
    desk.quitApplication(notes);
    desk.addDockItem({u"Notes"_s, ItemKind::Application, application->bundleURL});
    EXPECT_FALSE(dockItem(u"Notes"_s)->runningApplicationForDockElement());
}

TEST_F(SWElementDockTest, switcherEntry_isTheRunningItemOfThatTitle)
{
    addApplication(u"Notes"_s);
    const Pid maps = addApplication(u"Maps"_s);
    EXPECT_FALSE(SWElement::checkIfDockFocusedIsAXList(ports()));
    EXPECT_EQ(SWElement::getDockSelectedChild(ports()), nullptr);
    desk.openSwitcher({{u"Notes"_s}, {u"Maps"_s}, {u"Helper"_s}}, 1);
    EXPECT_TRUE(SWElement::checkIfDockFocusedIsAXList(ports()));
    const auto selected = [this] {
        const SWElementPtr child = SWElement::getDockSelectedChild(ports());
        const auto application =
            SWElement::runningAppForProccessListIcon(ports(), child->element());
        return application ? application->pid : 0;
    };
    EXPECT_EQ(selected(), maps);
    desk.selectInSwitcher(2);
    EXPECT_EQ(selected(), 0); // no such item in the Dock
    const QUrl url = desk.application(maps).bundleURL;
    desk.openSwitcher({{u"Not on the Dock"_s, false, url}});
    EXPECT_EQ(selected(), maps);
    desk.closeSwitcher();
    EXPECT_FALSE(SWElement::checkIfDockFocusedIsAXList(ports()));
}

TEST_F(SWElementDockTest, openWindows_areStandardOnesAndDialogs_orAssumedOfABusyApplication)
{
    const Pid notes = addApplication(u"Notes"_s);
    EXPECT_FALSE(SWElement::checkIfPidHasOpenWindows(ports(), notes));
    desk.addWindow(notes, {.title = u"Colours"_s, .subrole = u"AXFloatingWindow"_s});
    EXPECT_FALSE(SWElement::checkIfPidHasOpenWindows(ports(), notes));
    desk.changeApplication(notes, [](auto& application) { application.responds = false; });
    EXPECT_TRUE(SWElement::checkIfPidHasOpenWindows(ports(), notes));
    desk.changeApplication(notes, [](auto& application) { application.responds = true; });
    for (const QString& subrole : {u"AXStandardWindow"_s, u"AXDialog"_s, u"AXSystemDialog"_s}) {
        const WindowID number = desk.addWindow(notes, {.title = u"Ideas"_s, .subrole = subrole});
        EXPECT_TRUE(SWElement::checkIfPidHasOpenWindows(ports(), notes));
        desk.closeWindow(number);
    }
    EXPECT_FALSE(SWElement::checkIfPidHasOpenWindows(ports(), 4711));
}

TEST_F(SWElementDockTest, quit_endsEveryApplicationNamedLikeTheOneUnderTheMouse)
{
    const Pid notes = addApplication(u"Notes"_s);
    desk.addWindow(notes, {u"Ideas"_s, {0, 0, 400, 300}});
    const Pid helper = desk.addApplication({u"Notes Helper"_s});
    const Pid shorter = desk.addApplication({u"Note"_s});
    const Pid maps = addApplication(u"Maps"_s);
    const Pid nameless = desk.addApplication({QString(), u"org.example.nameless"_s});
    desk.leaveDock();
    SWElement::quitApp(ports()); // nothing there
    desk.movePointer({100, 800});
    SWElement::quitApp(ports());
    for (const Pid pid : {notes, helper, shorter})
        EXPECT_EQ(desk.application(pid).pid, 0);
    for (const Pid pid : {maps, nameless})
        EXPECT_EQ(desk.application(pid).pid, pid);
}

} // namespace
} // namespace lumbrix::test
