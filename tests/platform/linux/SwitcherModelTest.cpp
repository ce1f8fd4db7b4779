// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What is reported of a window manager's switcher, from what it shows.

#include "platform/linux/switcher/KWinSettings.h"
#include "platform/linux/switcher/SwitcherChoice.h"
#include "tests/platform/linux/AdapterFixture.h"
#include "tests/support/Files.h"

namespace lumbrix::test
{

using namespace platform;

namespace
{

constexpr std::int32_t managerPid = 900;
constexpr xcb_keysym_t tabKey = 0xff09;
constexpr xcb_keysym_t escapeKey = 0xff1b;
constexpr xcb_keysym_t altKey = 0xffe9;
constexpr xcb_keysym_t rightKey = 0xff53;
constexpr xcb_window_t listWindow = 3;
const QRect listRect(300, 400, 600, 200);

class SwitcherModelTest : public AdapterFixture
{
protected:
    SwitcherModelTest()
    {
        m_programs = {{11, u"/usr/bin/term"_s}, {12, u"/usr/bin/editor"_s}};
        // In the order in which they are opened; the two terminals are elsewhere than the editor.
        add(0x100, "term", 11, "one", QRect(0, 0, 400, 300));
        add(0x101, "term", 11, "two", QRect(50, 50, 400, 300));
        add(0x200, "editor", 12, "text", QRect(90, 90, 500, 400));
        show(std::nullopt);
        m_observer = m_accessibility.createObserver(
            m_registry.dockPid(),
            [this](AXObserver&, const ElementRef& element, const QString&, NotificationContext*) {
                const auto selected = list(element, "AXSelectedChildren");
                m_told << (selected.empty() ? u"nothing"_s : text(selected.front(), "AXTitle"));
            });
        if (m_observer) {
            m_observer->addNotification(X11Element::dockList(), u"AXFocusedUIElementChanged"_s,
                                        nullptr);
            m_observer->addToRunLoop();
        }
    }

    void add(xcb_window_t id, const char* program, std::int32_t pid, const char* title,
             const QRect& bounds)
    {
        const QString name = QString::fromLatin1(program);
        FakeTracker::Window added = window(id, name, name, pid, QString::fromLatin1(title));
        added.bounds = added.frameBounds = bounds;
        m_tracker.add(added);
        m_tracker.setActive(id);
    }
    /// The window manager shows its switcher with this outline, or nothing of its own.
    void show(std::optional<QRect> outline, const char* manager = "Xfwm4")
    {
        x11::Manager shown{.name = QString::fromLatin1(manager), .pid = managerPid, .windows = {}};
        if (outline) {
            shown.windows = {
                {.id = 1, .rect = listRect, .depth = 32, .classInstance = u"xfwm4"_s},
                {.id = 2, .rect = *outline, .depth = 32, .classInstance = u"xfwm4-wireframe"_s}};
        }
        m_tracker.showManager(shown);
        m_loop.advance(0.1);
    }
    /// What KWin has selected after these keys, where each with a minus goes with Shift.
    xcb_window_t selectedByKWin(const std::vector<std::int64_t>& before,
                                const std::vector<std::int64_t>& after = {})
    {
        m_tracker.showManager({.name = u"KWin"_s, .pid = managerPid, .windows = {}});
        press(altKey);
        for (const std::int64_t key : before)
            press(static_cast<xcb_keysym_t>(std::abs(key)), key < 0);
        shownByKWin();
        for (const std::int64_t key : after)
            press(static_cast<xcb_keysym_t>(std::abs(key)), key < 0);
        return selected();
    }
    /// What it has selected when its list comes.
    xcb_window_t shownByKWin()
    {
        m_tracker.showManager(
            {.name = u"KWin"_s,
             .pid = managerPid,
             .windows = {{.id = listWindow, .rect = listRect, .classInstance = u"kwin_x11"_s}}});
        m_loop.advance(0.1);
        return selected();
    }
    xcb_window_t selected() const
    {
        return m_switcher.selection().value_or(SwitcherModel::Selection{}).window;
    }
    void press(xcb_keysym_t key, bool withShift = false)
    {
        m_tracker.pressKey(key, withShift);
        m_loop.advance(0.1);
    }
    QString focusedSubrole()
    {
        const AXResult focused =
            read(m_accessibility.createApplication(m_registry.dockPid()), "AXFocusedUIElement");
        const ElementRef* element = focused.as<ElementRef>();
        return element ? text(*element, "AXSubrole") : QString();
    }
    QStringList told() { return std::exchange(m_told, {}); }

    std::unique_ptr<AXObserver> m_observer;
    QStringList m_told;
};

TEST_F(SwitcherModelTest, selectedApplication_isToldOnce_withoutADock)
{
    ASSERT_NE(m_observer, nullptr);
    EXPECT_EQ(focusedSubrole(), u"<-25202>"_s);
    EXPECT_EQ(m_hearing, x11::KeyHearing::None);
    show(QRect(50, 50, 400, 300));
    EXPECT_EQ(m_hearing, x11::KeyHearing::All);
    EXPECT_EQ(focusedSubrole(), u"AXProcessSwitcherList"_s);
    const auto entry = m_switcher.selection();
    ASSERT_TRUE(entry);
    EXPECT_EQ(entry->list, listRect);
    const auto selected = [this] {
        return list(X11Element::switcherList(), "AXSelectedChildren").at(0);
    };
    const ElementRef first = selected();
    EXPECT_EQ(m_accessibility.windowIDOf(first), 0x101U);
    show(QRect(0, 0, 400, 300)); // another window of the same application
    EXPECT_EQ(m_accessibility.windowIDOf(selected()), 0x100U);
    EXPECT_FALSE(elementsEqual(first, selected()));
    show(QRect(94, 98, 492, 384)); // within an invisible border
    show(QRect(700, 1, 5, 5));     // about nothing: it is just being drawn
    EXPECT_EQ(told(), (QStringList{u"Term"_s, u"Editor"_s}));
    show(std::nullopt);
    EXPECT_EQ(m_hearing, x11::KeyHearing::None);
    EXPECT_EQ(told(), QStringList());
    EXPECT_EQ(focusedSubrole(), u"<-25202>"_s);
}

TEST_F(SwitcherModelTest, givingUp_endsTheSelection_lettingGoDoesNot)
{
    show(QRect(0, 0, 400, 300));
    press(escapeKey);
    show(std::nullopt);
    EXPECT_EQ(told(), (QStringList{u"Term"_s, u"<-25202>"_s}));
    EXPECT_FALSE(m_switcher.selection());
    show(QRect(0, 0, 400, 300));
    press(0xffe9); // Alt repeats
    show(std::nullopt);
    EXPECT_EQ(told(), QStringList{u"Term"_s});
}

TEST_F(SwitcherModelTest, windowsInOnePlace_areToldApartByTheKeys)
{
    const QRect whole(0, 0, 1280, 770);
    for (const xcb_window_t id : {0x100U, 0x200U})
        m_tracker.change(
            id, [&](FakeTracker::Window& window) { window.bounds = window.frameBounds = whole; });
    m_tracker.setActive(0x101);
    show(whole);
    press(tabKey);
    press(tabKey, true);
    EXPECT_EQ(told(), (QStringList{u"Editor"_s, u"Term"_s, u"Editor"_s}));
    m_tracker.pressKey(tabKey); // onto the next one, and over another
    m_tracker.pressKey(tabKey);
    m_tracker.pressKey(tabKey);
    m_loop.advance(0.1);
    EXPECT_EQ(told(), QStringList());
    m_tracker.pressKey(tabKey, true);
    m_tracker.pressKey(tabKey, true);
    m_loop.advance(0.1);
    EXPECT_EQ(told(), QStringList{u"Term"_s});
}

TEST_F(SwitcherModelTest, pickedWindow_comesUpAgain_whenTheSwitcherCloses)
{
    show(QRect(0, 0, 400, 300));
    m_accessibility.performAction(X11Element::window(0x100), u"AXRaise"_s);
    m_tracker.setActive(0x200); // the switcher goes, and brings up what was selected
    show(std::nullopt);
    EXPECT_EQ(m_tracker.activeWindow(), 0x100U);
    show(QRect(50, 50, 400, 300));
    show(std::nullopt);
    EXPECT_EQ(m_tracker.activeWindow(), 0x100U);
}

TEST_F(SwitcherModelTest, otherWindowManager_endsTheSwitcher_andIsReadAsItCan)
{
    EXPECT_TRUE(m_switcher.canRead());
    show(QRect(0, 0, 400, 300));
    show(QRect(0, 0, 400, 300), "Another");
    EXPECT_FALSE(m_switcher.canRead());
    EXPECT_FALSE(m_switcher.selection());
    EXPECT_EQ(m_registry.dockPid(), 0);
    show(QRect(50, 50, 400, 300));
    EXPECT_TRUE(m_switcher.selection());
    EXPECT_EQ(m_registry.dockPid(), managerPid);
    addPanel();
    EXPECT_EQ(m_registry.dockPid(), panelPid);
    EXPECT_EQ(told(), (QStringList{u"Term"_s, u"Term"_s}));
}

TEST_F(SwitcherModelTest, kwin_isReadFromTheKeys_asLongAsTheyTell)
{
    constexpr std::int64_t tab = tabKey;
    const struct {
        std::vector<std::int64_t> before, after;
        xcb_window_t window;
    } cases[] = {
        {{tab}, {}, 0x101},
        {{-tab}, {}, 0x100},
        {{tab, tab}, {tab, tab}, 0x101},
        {{tab, tab}, {-tab, -tab, -tab}, 0x100},
        {{tab, escapeKey, tab}, {}, 0x101},
        {{rightKey, tab}, {altKey}, 0x101}, // the first is none of its keys
        {{}, {}, XCB_NONE},
        {{'`'}, {tab}, XCB_NONE}, // that lists other windows
        {{tab}, {rightKey, tab}, XCB_NONE},
    };
    for (const auto& [before, after, window] : cases)
        EXPECT_EQ(selectedByKWin(before, after), window)
            << testing::PrintToString(before) << testing::PrintToString(after);
    EXPECT_EQ(m_hearing, x11::KeyHearing::WithModifier);

    // It takes a step without its list, and then shows it.
    press(escapeKey);
    m_tracker.showManager({.name = u"KWin"_s, .pid = managerPid, .windows = {}});
    press(altKey);
    press(tabKey);
    m_tracker.setActive(0x101);
    press(tabKey);
    EXPECT_EQ(shownByKWin(), 0x200U);
    m_tracker.setActive(0x200);

    EXPECT_EQ(selectedByKWin({tab}), 0x101U);
    m_tracker.repeatKey(tabKey);
    m_loop.advance(0.1);
    EXPECT_EQ(selected(), 0U);
    EXPECT_EQ(selectedByKWin({tab}), 0x101U);
    FakeTracker::Window list = window(listWindow - 1, u"kwin"_s, u"kwin"_s, managerPid);
    list.type = x11::WindowType::Other;
    list.bounds = listRect;
    m_tracker.add(list);
    m_tracker.movePointer(listRect.center());
    m_tracker.press(1);
    m_loop.advance(0.1);
    EXPECT_EQ(selected(), 0U);

    m_canCount = false;
    EXPECT_EQ(selectedByKWin({tab}), 0U);
    EXPECT_FALSE(m_switcher.canRead());
}

TEST_F(SwitcherModelTest, kwin_listsDialogsForTheirWindows_andNothingThatAsksToBeLeftOut)
{
    m_tracker.change(0x101, [](FakeTracker::Window& window) { window.skipSwitcher = true; });
    FakeTracker::Window dialog = window(0x102, u"term"_s, u"term"_s, 11, u"question"_s);
    dialog.type = x11::WindowType::Dialog;
    dialog.transientFor = 0x100;
    dialog.isModal = dialog.skipTaskbar = true;
    m_tracker.add(dialog); // without the focus
    EXPECT_EQ(selectedByKWin({tabKey}), 0x102U);
    EXPECT_EQ(selectedByKWin({tabKey, tabKey}), 0x200U);
}

TEST(KWinSettingsTest, previews_areSeen_unlessTheSwitcherIsSetOtherwiseOrHasNoLayout)
{
    const QTemporaryDir folder;
    const QStringList data{folder.filePath(u"data"_s)};
    const auto isSeenWith = [&](const char* lines, bool isComposited = false) {
        writeFile(folder.filePath(u"kwinrc"_s), lines);
        return kwinLetsPreviewsBeSeen(folder.path(), data, isComposited);
    };
    EXPECT_FALSE(kwinLetsPreviewsBeSeen(folder.path(), data, false));
    QDir().mkpath(data.front() + u"/plasma/look-and-feel/some/contents/windowswitcher"_s);
    EXPECT_TRUE(kwinLetsPreviewsBeSeen(folder.path(), data, false));
    EXPECT_TRUE(isSeenWith("[TabBox]\nDesktopMode=1\n[TabBoxAlternative]\nDesktopMode=0\n"));
    EXPECT_FALSE(isSeenWith("[TabBox]\nLayoutName=compact\nApplicationsMode=1\n"));
    EXPECT_FALSE(isSeenWith("[TabBox]\nShowTabBox=false\n"));
    EXPECT_FALSE(isSeenWith("[TabBox]\nLayoutName=compact\n", true));
    EXPECT_TRUE(isSeenWith("[TabBox]\nHighlightWindows=false\n", true));
}

} // namespace

} // namespace lumbrix::test
