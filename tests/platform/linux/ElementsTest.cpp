// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <limits>
#include <set>

#include "tests/platform/linux/AdapterFixture.h"

namespace lumbrix::test
{

using namespace platform;

class ElementsTest : public AdapterFixture
{
protected:
    ElementRef application(std::int32_t pid) { return m_accessibility.createApplication(pid); }
};

TEST_F(ElementsTest, windows_say_what_they_are)
{
    m_space.setScreens({QRect(1280, 0, 1920, 1080), QRect(0, 0, 1280, 800)});
    FakeTracker::Window plain = window(1, u"editor"_s, u"Editor"_s, 302);
    m_tracker.add(plain);
    const std::vector<std::pair<x11::WindowType, const char*>> types{
        {x11::WindowType::Dialog, "AXDialog"},
        {x11::WindowType::Utility, "AXFloatingWindow"},
        {x11::WindowType::Splash, "AXFloatingWindow"}};
    xcb_window_t id = 3;
    for (const auto& [type, subrole] : types) {
        plain.id = id;
        plain.type = type;
        m_tracker.add(plain);
        EXPECT_EQ(text(X11Element::window(id), "AXSubrole"), QString::fromLatin1(subrole));
        id += 2;
    }
    const ElementRef element = X11Element::window(1);
    EXPECT_EQ(text(element, "AXSubrole"), u"AXStandardWindow"_s);
    m_tracker.change(1, [](auto& window) { window.skipTaskbar = true; });
    EXPECT_EQ(text(element, "AXSubrole"), u"AXSystemFloatingWindow"_s);
    EXPECT_EQ(*read(element, "AXPosition").as<QPointF>(), QPointF(-1180, 100));
    EXPECT_EQ(*read(element, "AXSize").as<QSizeF>(), QSizeF(400, 300));
    EXPECT_EQ(m_accessibility.windowIDOf(element), 1U);
    EXPECT_EQ(m_accessibility.pidOf(element), 302);
    EXPECT_EQ(list(application(302), "AXWindows").size(), 4U);

    const ElementRef button = *read(element, "AXCloseButton").as<ElementRef>();
    EXPECT_TRUE(*read(button, "AXEnabled").as<bool>());
    EXPECT_TRUE(elementsEqual(*read(button, "AXWindow").as<ElementRef>(), element));
    m_tracker.change(1, [](auto& window) { window.canDelete = false; });
    EXPECT_FALSE(*read(button, "AXEnabled").as<bool>());
    EXPECT_EQ(m_accessibility.performAction(button, u"AXPress"_s), AXError::Success);
    EXPECT_EQ(read(element, "AXRole").error, AXError::InvalidUIElement);
    EXPECT_EQ(m_accessibility.performAction(element, u"AXRaise"_s), AXError::InvalidUIElement);
    EXPECT_EQ(read(nullptr, "AXRole").error, AXError::IllegalArgument);
}

TEST_F(ElementsTest, busy_windows_cannot_complete)
{
    m_tracker.add(window(1, u"editor"_s, u"Editor"_s, 302));
    m_tracker.add(window(3, u"editor"_s, u"Editor"_s, 302));
    const auto hang = [&](xcb_window_t id) {
        m_tracker.change(id, [](auto& window) { window.isResponding = false; });
    };
    hang(1);
    EXPECT_EQ(read(X11Element::window(1), "AXTitle").error, AXError::CannotComplete);
    EXPECT_EQ(list(application(302), "AXWindows").size(), 2U);
    hang(3);
    EXPECT_EQ(read(application(302), "AXWindows").error, AXError::CannotComplete);
    EXPECT_EQ(m_accessibility.performAction(X11Element::closeButton(1), u"AXPress"_s),
              AXError::Success);
}

TEST_F(ElementsTest, topmost_element_is_under_a_point)
{
    addPanel();
    m_tracker.add(window(1, u"editor"_s, u"Editor"_s, 302));
    m_tracker.placeIcon(1, QRect(100, 772, 150, 26));
    auto term = window(3, u"term"_s, u"Term"_s, 101);
    term.decorations = {0, 24, 0, 0};
    m_tracker.add(term);
    m_loop.advance(0.1);
    const auto at = [&](float x, float y) {
        const AXResult result = m_accessibility.copyElementAtPosition(x, y);
        const ElementRef* element = result.as<ElementRef>();
        return element ? text(*element, "AXTitle") : QString();
    };
    EXPECT_EQ(at(110, 785), u"Editor"_s);
    EXPECT_EQ(at(600, 785), QString());
    EXPECT_EQ(at(200, 200), u"Term"_s);
    EXPECT_EQ(at(200, 80), u"Term"_s) << "its title bar";
    m_tracker.iconify(3);
    EXPECT_EQ(at(200, 200), u"Editor"_s);
    EXPECT_EQ(at(std::numeric_limits<float>::quiet_NaN(), 0), QString());
    m_tracker.setActive(1);
    const ElementRef focused =
        *read(m_accessibility.createSystemWide(), "AXFocusedApplication").as<ElementRef>();
    EXPECT_TRUE(elementsEqual(focused, application(302)));
    EXPECT_TRUE(
        elementsEqual(*read(focused, "AXFocusedWindow").as<ElementRef>(), X11Element::window(1)));
}

TEST_F(ElementsTest, listed_names_are_those_that_can_be_read_and_set)
{
    addPanel();
    m_tracker.add(window(1, u"editor"_s, u"Editor"_s, 302));
    m_tracker.placeIcon(1, QRect(100, 772, 150, 26));
    m_loop.advance(0.1);
    const std::vector<ElementRef> all{m_accessibility.createSystemWide(),
                                      application(302),
                                      application(panelPid),
                                      X11Element::window(1),
                                      X11Element::closeButton(1),
                                      dockList(),
                                      dockItems().at(0)};
    std::set<QString> known;
    for (const ElementRef& element : all) {
        const AXNames listed = m_accessibility.copyAttributeNames(element);
        ASSERT_TRUE(listed.ok());
        EXPECT_EQ(listed.names.front(), u"AXRole"_s);
        known.insert(listed.names.begin(), listed.names.end());
        const AXNames actions = m_accessibility.copyActionNames(element);
        EXPECT_TRUE(actions.ok());
        for (const QString& action : actions.names)
            EXPECT_TRUE(m_accessibility.copyActionDescription(element, action).as<QString>());
    }
    EXPECT_GE(known.size(), 20U);
    for (const ElementRef& element : all) {
        const AXNames listed = m_accessibility.copyAttributeNames(element);
        for (const QString& name : known) {
            const bool isListed = std::ranges::count(listed.names, name) == 1;
            const AXError readError = m_accessibility.copyAttributeValue(element, name).error;
            EXPECT_EQ(isListed, readError == AXError::Success || readError == AXError::NoValue)
                << qPrintable(text(element, "AXRole") + u' ' + name);
            const AXResult settable = m_accessibility.isAttributeSettable(element, name);
            const bool isSettable = settable.as<bool>() && *settable.as<bool>();
            EXPECT_EQ(settable.ok(), isListed);
            EXPECT_EQ(isSettable,
                      m_accessibility.setAttributeValue(element, name, false) == AXError::Success)
                << qPrintable(text(element, "AXRole") + u' ' + name);
        }
    }
    EXPECT_TRUE(text(dockItems().at(0), "AXDescription").startsWith(u"Panel"_s));
    EXPECT_EQ(*m_accessibility.attributeValueCount(dockList(), u"AXChildren"_s).as<double>(), 1.0);
    m_tracker.change(1, [](auto& window) { window.isResponding = false; });
    EXPECT_EQ(m_accessibility.copyAttributeNames(all[3]).error, AXError::CannotComplete);
    m_tracker.remove(1);
    EXPECT_EQ(m_accessibility.copyAttributeNames(all[3]).error, AXError::InvalidUIElement);
    EXPECT_EQ(m_accessibility.copyActionNames(all[4]).error, AXError::InvalidUIElement);
    EXPECT_EQ(m_accessibility.copyAttributeNames(nullptr).error, AXError::IllegalArgument);
}

TEST_F(ElementsTest, window_notifications_come_between_launch_and_end_of_the_application)
{
    QStringList log;
    std::map<std::int32_t, std::unique_ptr<AXObserver>> observers;
    const auto launched =
        m_workspace.observe(WorkspaceNotification::DidLaunchApplication, [&](std::int32_t pid) {
            log << u"launch %1"_s.arg(pid);
            auto observer = m_accessibility.createObserver(
                pid, [&, pid](AXObserver&, const ElementRef& element, const QString& name,
                              NotificationContext*) {
                    EXPECT_EQ(text(element, "AXRole"), u"AXWindow"_s);
                    log << u"%1 %2 of %3"_s.arg(QLatin1Char(name == u"AXWindowCreated" ? '+' : '-'))
                               .arg(*m_accessibility.windowIDOf(element))
                               .arg(pid);
                });
            ASSERT_TRUE(observer);
            for (const char* name : {"AXWindowCreated", "AXUIElementDestroyed"})
                observer->addNotification(application(pid), QString::fromLatin1(name), nullptr);
            observer->addToRunLoop();
            observers[pid] = std::move(observer);
        });
    const auto ended =
        m_workspace.observe(WorkspaceNotification::DidTerminateApplication, [&](std::int32_t pid) {
            log << u"end %1"_s.arg(pid);
            observers.erase(pid);
        });
    const auto taken = [&] {
        m_loop.runUntilIdle();
        return std::exchange(log, {}).join(u',');
    };
    m_tracker.add(window(1, u"office"_s, u"Start"_s, 302));
    EXPECT_EQ(taken(), u"launch 302,+ 1 of 302"_s);
    // A start window becomes a document's: another application, though the process is the same.
    m_tracker.change(1, [](auto& window) { window.className = u"Editor"_s; });
    EXPECT_EQ(taken(), u"- 1 of 302,end 302,launch 302,+ 1 of 302"_s);
    m_tracker.add(window(3, u"editor"_s, u"Editor"_s, 303));
    EXPECT_EQ(taken(), u"+ 3 of 302"_s);
    m_tracker.change(3, [](auto& window) { window.className = window.classInstance = u"Term"_s; });
    EXPECT_EQ(taken(), u"- 3 of 302,launch 303,+ 3 of 303"_s);
    m_tracker.change(3, [](auto& window) { window.type = x11::WindowType::Dock; });
    EXPECT_EQ(taken(), u"- 3 of 303,end 303"_s);
    m_tracker.remove(1);
    EXPECT_EQ(taken(), u"- 1 of 302,end 302"_s);
    EXPECT_TRUE(observers.empty());
    EXPECT_FALSE(m_accessibility.createObserver(302, {}));
}

} // namespace lumbrix::test
