// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/model/ModelFixture.h"

#include "model/AXNames.h"
#include "model/EngineSettings.h"
#include "model/WindowInventory.h"
#include "platform/InputState.h"

namespace lumbrix::test
{
namespace
{

class WindowInventoryTest : public ModelFixture, public InventoryObserver
{
protected:
    QStringList listed() const
    {
        QStringList titles;
        for (const SWElementPtr& window : inventory.windowsArray())
            titles << window->getTitle().value_or(u"-"_s);
        return titles;
    }
    QStringList titlesFor(Pid pid) const
    {
        QStringList titles;
        for (const SWElementPtr& window : inventory.windowsForPID(pid))
            titles << window->getTitle().value_or(u"-"_s);
        return titles;
    }
    int countFor(Pid pid)
    {
        return inventory.countForRunningApp(*desk.workspace().runningApplication(pid));
    }

    EngineSettings settings;
    WindowInventory inventory{ports(), settings, *this};
    bool isShowing = false;
    int changes = 0;

private:
    void windowsChanged() override
    {
        ++changes;
        inventory.windowsArray(); // the lock is free
    }
    bool isShowingPreviews() const override { return isShowing; }
};

TEST_F(WindowInventoryTest, scan_listsEveryRealWindowOnce_andForgetsClosedOnes)
{
    const Pid notes = addApplication(u"Notes"_s, 2);
    const Pid maps = addApplication(u"Maps"_s, 1);
    const Pid agent = desk.addApplication({u"Agent"_s, {}, 0, false});
    desk.addWindow(agent, {u"Status"_s});
    desk.addWindow(maps, {.title = u"Palette"_s, .subrole = u"AXFloatingWindow"_s});
    desk.addWindow(maps, {QString(), {0, 0, 300, 300}});

    settings.disabled = 1;
    inventory.windowScanner();
    EXPECT_EQ(listed(), QStringList());
    settings.disabled = 0;
    for (int i = 0; i < 2; ++i) {
        inventory.windowScanner();
        EXPECT_EQ(listed(), QStringList({u"Notes 2"_s, u"Notes 1"_s, u"Maps 1"_s}));
    }
    EXPECT_EQ(changes, 3);

    desk.quitApplication(maps);
    desk.closeWindow(desk.stacking().back());
    settings.showOthersInDockIcon = 1;
    inventory.windowScanner();
    EXPECT_EQ(listed(), QStringList({u"Notes 2"_s, u"Status"_s}));
    inventory.removeWindow(inventory.windowsArray()[1]->element());
    EXPECT_EQ(listed(), QStringList{u"Notes 2"_s});
    inventory.windowScanner();
    EXPECT_EQ(listed(), QStringList({u"Notes 2"_s, u"Status"_s})); // removed is not known
    inventory.removeWindow(inventory.windowsArray()[1]->element());
    inventory.removeWindow(desk.dockItem(u"Trash"_s));
    EXPECT_EQ(titlesFor(notes), QStringList{u"Notes 2"_s});
}

// As a record it had the process, and the filter level, of the application it was matched for.
TEST_F(WindowInventoryTest, windowThatBecomesAnotherApplications_isMatchedAnew)
{
    const Pid start = addApplication(u"Start"_s, 1);
    const Pid sheets = addApplication(u"Sheets"_s, 1);
    inventory.windowScanner();
    desk.giveWindow(desk.stacking().back(), sheets);
    inventory.cleanWindowsArray();
    EXPECT_EQ(listed(), QStringList{u"Sheets 1"_s});
    inventory.windowScanner();
    EXPECT_EQ(titlesFor(start), QStringList());
    EXPECT_EQ(titlesFor(sheets), QStringList({u"Sheets 1"_s, u"Start 1"_s}));
    // The process may stay.
    desk.changeApplication(sheets, [](auto& each) { each.bundleIdentifier = u"org.other"_s; });
    inventory.windowScanner();
    for (const SWElementPtr& window : inventory.windowsArray())
        EXPECT_EQ(window->bundle(), u"org.other"_s);
    EXPECT_EQ(listed().size(), 2);
}

TEST_F(WindowInventoryTest, scan_takesOneWindowList_andLeavesSpacesAloneWhilePreviewsShow)
{
    struct Counting : ForwardingWindowServer {
        using ForwardingWindowServer::ForwardingWindowServer;
        platform::WindowList copyWindowInfo(platform::WindowListOption option) override
        {
            ++lists;
            EXPECT_EQ(option, platform::WindowListOption::ExcludeDesktopElements);
            return ForwardingWindowServer::copyWindowInfo(option);
        }
        int lists = 0;
    };
    Counting counting(desk.windowServer());
    install(desk.accessibility(), counting);
    for (const QString& name : {u"Notes"_s, u"Maps"_s, u"Mail"_s})
        addApplication(name, 4);
    settings.showSpaces = 1;
    isShowing = true;
    inventory.windowScanner();
    EXPECT_EQ(counting.lists, 1);
    EXPECT_EQ(inventory.windowsArray().front()->spaceNumber(), 0);
    isShowing = false;
    inventory.windowScanner();
    EXPECT_EQ(counting.lists, 2);
    EXPECT_EQ(inventory.windowsArray().front()->spaceNumber(), 1);
}

TEST_F(WindowInventoryTest, windowBroughtByScanAndNotificationAtOnce_isListedOnce)
{
    // The scan is stopped in the middle of its look at the window.
    struct Slow : ForwardingAccessibility {
        using ForwardingAccessibility::ForwardingAccessibility;
        platform::AXResult copyAttributeValue(const platform::ElementRef& element,
                                              const QString& attribute) override
        {
            if (!m_state.runLoop.isMainThread() && attribute == AX::Subrole)
                m_state.runLoop.sleep(0.1);
            return ForwardingAccessibility::copyAttributeValue(element, attribute);
        }
    };
    Slow slow(desk.accessibility());
    install(slow, desk.windowServer());
    addApplication(u"Notes"_s, 1);
    const WindowID number = desk.stacking().front();
    loop.detachThread("scanner", [this](const platform::Thread&) { inventory.windowScanner(); });
    loop.advance(0.05);
    EXPECT_EQ(loop.runningThreads("scanner"), 1);
    inventory.processWindow(element(number), list());
    loop.advance(1);
    EXPECT_EQ(loop.runningThreads(), 0);
    EXPECT_EQ(listed(), QStringList{u"Notes 1"_s});
}

TEST_F(WindowInventoryTest, windowsOfAProcess_followTheVisibilitySettings_unlessTheKeyIsHeld)
{
    const Pid notes = addApplication(u"Notes"_s, 2);
    addApplication(u"Maps"_s, 1);
    inventory.windowScanner();
    desk.minimizeWindow(desk.stacking().back());
    const QStringList all{u"Notes 2"_s, u"Notes 1"_s};
    EXPECT_EQ(titlesFor(notes), all);
    settings.ignoreMinimized = 1;
    EXPECT_EQ(titlesFor(notes), QStringList{u"Notes 2"_s});
    EXPECT_EQ(inventory.countForPID(notes), 1);
    settings.ignoreHidden = 1;
    desk.workspace().hide(notes);
    EXPECT_EQ(titlesFor(notes), QStringList());
    EXPECT_EQ(countFor(notes), 0);

    // The settings' index 2 means Control.
    settings.tempDisableFiltersKeycode = 2;
    desk.setModifiers(platform::ModifierFlag::control | platform::ModifierFlag::shift);
    EXPECT_EQ(titlesFor(notes), QStringList());
    settings.tempDisableFilters = 1;
    EXPECT_EQ(titlesFor(notes), all);
    EXPECT_EQ(countFor(notes), 0); // counts do not flicker with the key
    desk.setModifiers(platform::ModifierFlag::command | platform::ModifierFlag::option);
    EXPECT_EQ(titlesFor(notes), QStringList());
    settings.tempDisableFiltersKeycode = 0;
    EXPECT_EQ(titlesFor(notes), all);
    settings.ignoreMinimized = 0;
    EXPECT_EQ(inventory.countForPID(notes), 2);
}

TEST_F(WindowInventoryTest, ownDockIcon_countsEveryApplicationWithoutAnIcon)
{
    const Pid self = desk.ownPid();
    const Pid agent = desk.addApplication({u"Agent"_s, {}, 0, false});
    desk.addWindow(self, {u"Lumbrix"_s});
    desk.addWindow(agent, {u"Status"_s});
    addApplication(u"Notes"_s, 2);
    settings.showOthersInDockIcon = 1;
    inventory.windowScanner();
    settings.showOthersInDockIcon = 0;
    EXPECT_EQ(countFor(self), 1);
    EXPECT_EQ(countFor(agent), 1);
    settings.showOthersInDockIcon = 1;
    EXPECT_EQ(countFor(self), 2);
}

TEST_F(WindowInventoryTest, minimisedIcon_standsForTheFirstMinimisedWindowOfItsTitle)
{
    const Pid notes = addApplication(u"Notes"_s);
    const WindowID open = desk.addWindow(notes, {u"Ideas"_s, {0, 0, 400, 300}});
    const WindowID minimized = desk.addWindow(notes, {u"Ideas"_s, {50, 50, 400, 300}});
    inventory.windowScanner();
    desk.minimizeWindow(minimized);
    const SWElementPtr icon = dockItem(u"Ideas"_s);
    ASSERT_TRUE(inventory.windowForMinimizedIcon(*icon));
    EXPECT_TRUE(inventory.windowForMinimizedIcon(*icon)->isEqualTo(element(minimized)));
    EXPECT_EQ(inventory.windowForMinimizedIcon(*dockItem(u"Trash"_s)), nullptr);
    desk.minimizeWindow(minimized, false);
    EXPECT_EQ(inventory.windowForMinimizedIcon(*icon), nullptr); // the icon is gone
    EXPECT_TRUE(desk.window(open));

    // Of several with that title the right one, where that is known.
    desk.with([](SimulatedState& state) { state.knowsWindowNumbers = true; });
    for (const WindowID number : {open, minimized}) {
        desk.minimizeWindow(open, number == open);
        desk.minimizeWindow(minimized, number == minimized);
        desk.minimizeWindow(open);
        desk.minimizeWindow(minimized); // its icon is the first of this title
        const SWElementPtr own = inventory.windowForMinimizedIcon(*dockItem(u"Ideas"_s));
        ASSERT_TRUE(own);
        EXPECT_EQ(own->wid(), number);
    }
}

} // namespace
} // namespace lumbrix::test
