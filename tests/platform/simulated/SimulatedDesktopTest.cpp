// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The simulated desktop behaves as a real one does where the program relies on it.

#include "tests/support/DesktopFixture.h"

#include "model/AXRead.h"

namespace lumbrix::test
{
namespace
{

using namespace Qt::StringLiterals;
using platform::AXError;
using platform::AXObserver;
using platform::ElementRef;
using platform::WorkspaceNotification;

class SimulatedDesktopTest : public DesktopFixture
{
protected:
    std::unique_ptr<AXObserver> observe(Pid pid, const QStringList& notifications)
    {
        auto observer = desk.accessibility().createObserver(
            pid, [this](AXObserver&, const ElementRef& element, const QString& name,
                        platform::NotificationContext*) {
                const auto selection =
                    AX::readElements(desk.accessibility(), element, AX::SelectedChildren);
                const ElementRef subject = selection.empty() ? element : selection.front();
                log << name + u' ' +
                           AX::read<QString>(desk.accessibility(), subject, AX::Title)
                               .value_or(u"-"_s);
            });
        const ElementRef application = desk.accessibility().createApplication(pid);
        for (const QString& name : notifications)
            EXPECT_EQ(observer->addNotification(application, name, nullptr), AXError::Success);
        return observer;
    }
    QStringList takeLog() { return loop.runUntilIdle(), std::exchange(log, {}); }

    QStringList log;
};

TEST_F(SimulatedDesktopTest, pointerOnAndOffDockItems_isToldToTheDocksObservers)
{
    addApplication(u"Notes"_s);
    addApplication(u"Maps"_s);
    auto observer = observe(desk.dockPid(), {AX::SelectedChildrenChanged, AX::MenuOpened});
    desk.hoverDockItem(u"Notes"_s);
    EXPECT_EQ(takeLog(), QStringList()); // not in the run loop yet
    observer->addToRunLoop();
    desk.hoverDockItem(u"Maps"_s);
    EXPECT_EQ(log, QStringList()); // never inside the call
    EXPECT_EQ(takeLog(), QStringList{u"AXSelectedChildrenChanged Maps"_s});
    desk.movePointer(desk.inputState().mouseLocation() + QPointF(3, 3));
    EXPECT_EQ(takeLog(), QStringList());
    desk.openDockMenu();
    desk.leaveDock();
    EXPECT_EQ(takeLog(), QStringList({u"AXMenuOpened -"_s, u"AXSelectedChildrenChanged -"_s}));
    desk.hoverDockItem(u"Maps"_s);
    observer.reset(); // what is under way is lost with it
    EXPECT_EQ(takeLog(), QStringList());
}

TEST_F(SimulatedDesktopTest, deadDock_leavesDeadElements_andReturnsAsAnotherProcess)
{
    addApplication(u"Notes"_s);
    const Pid first = desk.dockPid();
    const ElementRef item = desk.dockItem(u"Notes"_s);
    EXPECT_TRUE(elementsEqual(item, desk.dockItem(u"Notes"_s)));
    desk.killDock();
    EXPECT_EQ(desk.accessibility().copyAttributeValue(item, AX::Title).error,
              AXError::InvalidUIElement);
    EXPECT_EQ(desk.accessibility().createApplication(first), nullptr);
    EXPECT_NE(desk.startDock(), first);
    EXPECT_FALSE(elementsEqual(item, desk.dockItem(u"Notes"_s)));
    EXPECT_EQ(AX::read<QString>(desk.accessibility(), desk.dockItem(u"Notes"_s), AX::Title),
              u"Notes"_s);
}

TEST_F(SimulatedDesktopTest, windows_areReallyRaisedMinimisedAndClosed)
{
    const Pid notes = addApplication(u"Notes"_s, 2);
    const auto numbers = desk.stacking(); // "Notes 2" in front
    const Pid maps = addApplication(u"Maps"_s, 1);
    auto observer = observe(notes, {AX::WindowCreated, AX::UIElementDestroyed});
    observer->addToRunLoop();
    std::vector<Pid> activated;
    const auto subscription = desk.workspace().observe(
        WorkspaceNotification::DidActivateApplication, [&](Pid pid) { activated.push_back(pid); });
    desk.activateApplication(maps);

    auto& accessibility = desk.accessibility();
    const ElementRef back = desk.windowElement(numbers[1]);
    accessibility.setAttributeValue(back, AX::Minimized, true);
    EXPECT_TRUE(desk.dockItem(u"Notes 1"_s));
    accessibility.performAction(back, AX::Raise);
    EXPECT_FALSE(desk.window(numbers[1])->isMinimized);
    EXPECT_FALSE(desk.dockItem(u"Notes 1"_s));
    EXPECT_EQ(desk.stacking()[1], numbers[1]); // in front of its own application's only
    desk.workspace().activate(notes, platform::ActivateIgnoringOtherApps);
    EXPECT_EQ(desk.stacking()[0], numbers[1]);
    accessibility.performAction(AX::readElement(accessibility, back, AX::CloseButton), AX::Press);
    EXPECT_FALSE(desk.window(numbers[1]));
    EXPECT_EQ(accessibility.copyAttributeValue(back, AX::Title).error, AXError::InvalidUIElement);
    desk.addWindow(notes, {u"Notes 3"_s});
    EXPECT_EQ(takeLog(), QStringList({u"AXUIElementDestroyed -"_s, u"AXWindowCreated Notes 3"_s}));
    EXPECT_EQ(activated, (std::vector<Pid>{maps, notes}));
}

TEST_F(SimulatedDesktopTest, capture_showsTheVersion_andIsSharedUntilThatChanges)
{
    const Pid notes = addApplication(u"Notes"_s);
    const WindowID number = desk.addWindow(notes, {u"Ideas"_s, {0, 0, 60, 40}});
    const QImage first = desk.windowServer().captureWindow(number, {});
    EXPECT_EQ(first.size(), QSize(60, 40));
    EXPECT_EQ(desk.windowServer().captureWindow(number, {}).constBits(), first.constBits());
    desk.changeWindow(number, [](SimulatedWindow& window) { window.version = 5; });
    EXPECT_EQ(desk.windowServer().captureWindow(number, {}).pixel(0, 0), 0xff000005U);
    EXPECT_EQ(first.pixel(0, 0), 0xff000000U);
    EXPECT_EQ(desk.captures(number), 3);
}

} // namespace
} // namespace lumbrix::test
