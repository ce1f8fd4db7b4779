// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Keys that are taken from other programs, and what is printed on them.

#include "X11Desk.h"

#include <QtCore/QCoreApplication>
#include <QtCore/QTemporaryDir>

#include <xcb/record.h>
#include <xcb/xcbext.h>

#include <algorithm>
#include <cstdlib>
#include <list>
#include <memory>

#include "platform/EventTaps.h"
#include "platform/InputState.h"
#include "platform/KeyboardLayout.h"
#include "platform/linux/x11/Connection.h"
#include "platform/linux/x11/SentKey.h"
#include "tests/support/Files.h"

namespace lumbrix::platform::x11
{
namespace
{

const SessionOptions plain{{1280, 1024}, WindowManager::Xfwm4, false};

// Key codes of the server's keyboard.
constexpr std::uint8_t super = 133, shift = 50, numLock = 77, capsLock = 66;
constexpr std::uint8_t keyTwo = 11, keyThree = 12, keyF5 = 71;
constexpr TapKey two{19, ModifierFlag::command};
constexpr TapKey three{20, ModifierFlag::command};

class KeyDesk
{
public:
    KeyDesk() : m_application(desk.session(), u"alpha"_s)
    {
        m_application.open(1);
        tap = desk.core().eventTaps().createTap(TapEvents::Keys, [this](const TapEvent& event) {
            seen.push_back(event);
            return true;
        });
    }

    Display& display() { return desk.display(); }
    /// The event thread has done what it was asked before: it does so in the pass in which it sees
    /// a new window at the latest. That pass may go on to see what comes at once, but is over when
    /// it has seen several, one after the other.
    void settle()
    {
        {
            // All at once: ids are given out again, and xfwm4 may take a new window for one that
            // has just gone.
            std::list<RawWindow> windows;
            for (int i = 0; i < 4; ++i) {
                RawWindow& window = windows.emplace_back(desk.session(), QRect(0, 0, 10, 10));
                window.map();
                desk.waitForWindow(window.id(), [](const TrackedWindow& w) { return w.isMapped; });
            }
        }
        // The windows had the focus for a moment.
        const xcb_window_t window = m_application.windows().front().id;
        EXPECT_TRUE(desk.waitFor([&] {
            // Asked again, as the window manager may still be at finding an heir for it.
            m_application.activate(m_application.windows().front());
            return display().focus() == window;
        }));
    }
    void want(const std::vector<TapKey>& keys)
    {
        tap->setKeys(keys);
        tap->setEnabled(true);
        settle();
    }
    bool sees(std::size_t events)
    {
        return desk.waitFor([&] {
            QCoreApplication::processEvents();
            return seen.size() == events;
        });
    }
    bool programSees(std::uint8_t keycode, std::ptrdiff_t times)
    {
        return desk.waitFor([&] {
            const std::vector<int> keys = m_application.keys();
            return std::count(keys.begin(), keys.end(), keycode) == times;
        });
    }
    /// Another program asks for the key with Super: whether it gets it.
    bool canBeTaken(std::uint8_t keycode) { return display().takeKey(keycode, XCB_MOD_MASK_4); }
    bool areTaken(const std::vector<TapKey>& expected)
    {
        return desk.waitFor([&] { return tap->takenKeys() == expected; });
    }
    /// Giving back is not confirmed: the server may serve another program before it reads of it.
    bool comesFree(std::uint8_t keycode)
    {
        return desk.waitFor([&] { return canBeTaken(keycode); });
    }
    void giveBack(std::uint8_t keycode) { display().giveKeyBack(keycode, XCB_MOD_MASK_4); }
    void run(const QString& program, const QStringList& arguments)
    {
        desk.session().start(program, program, arguments)->waitForExit(patience(5000));
    }

    X11Desk desk{plain};
    std::vector<TapEvent> seen;
    std::unique_ptr<EventTap> tap;

private:
    Application m_application;
};

/// Counts the presses of all keys, repeats too, whoever they go to.
class PressCounter
{
public:
    explicit PressCounter(const Display& display)
        : m_control(xcb_connect(display.name().constData(), nullptr)),
          m_data(xcb_connect(display.name().constData(), nullptr))
    {
        xcb_record_range_t presses{};
        presses.device_events = {XCB_KEY_PRESS, XCB_KEY_PRESS};
        const xcb_record_client_spec_t all = XCB_RECORD_CS_ALL_CLIENTS;
        m_context = xcb_generate_id(m_control);
        const Event error(reinterpret_cast<xcb_generic_event_t*>(
            xcb_request_check(m_control, xcb_record_create_context_checked(m_control, m_context, 0,
                                                                           1, 1, &all, &presses))));
        EXPECT_FALSE(error);
        m_request = xcb_record_enable_context(m_data, m_context).sequence;
        xcb_flush(m_data);
    }
    ~PressCounter()
    {
        xcb_disconnect(m_data);
        xcb_disconnect(m_control);
    }
    /// How many since it was made; the first answer tells that it has begun.
    int presses()
    {
        void* answer = nullptr;
        xcb_generic_error_t* error = nullptr;
        while (xcb_poll_for_reply(m_data, m_request, &answer, &error) != 0 && answer) {
            std::free(answer);
            ++m_answers;
        }
        std::free(error);
        return m_answers - 1;
    }

private:
    xcb_connection_t* const m_control;
    xcb_connection_t* const m_data;
    xcb_record_context_t m_context = XCB_NONE;
    unsigned int m_request = 0;
    int m_answers = 0;
};

TEST(Keys, wantedKey_isSwallowedWholeInEveryStateOfTheLocks)
{
    KeyDesk keys;
    keys.want({two});
    std::size_t events = 0;
    for (const std::uint8_t lock : {std::uint8_t{0}, numLock, capsLock}) {
        if (lock)
            keys.display().type({lock});
        keys.display().type({super, keyTwo});
        events += 2;
        ASSERT_TRUE(keys.sees(events)) << "lock " << int{lock} << ", saw " << keys.seen.size();
        EXPECT_EQ(keys.seen[events - 2].type, TapEvent::Type::KeyDown);
        EXPECT_EQ(keys.seen[events - 1].type, TapEvent::Type::KeyUp);
        EXPECT_EQ(keys.seen[events - 1].key, two);
    }
    keys.display().type({numLock});
    keys.display().type({capsLock});

    // Neither other keys nor other modifiers are touched.
    keys.display().type({super, keyThree});
    EXPECT_TRUE(keys.programSees(keyThree, 2));
    keys.display().type({shift, keyTwo});
    EXPECT_TRUE(keys.programSees(keyTwo, 2));
    // A key that is given back while it is down leaves no half of it to the program.
    keys.display().holdKey(super);
    keys.display().holdKey(keyTwo);
    EXPECT_TRUE(keys.sees(events + 1));
    keys.tap->setEnabled(false);
    keys.settle();
    keys.display().letGoOfKey(keyTwo);
    keys.display().letGoOfKey(super);
    keys.display().type({shift, keyTwo});
    EXPECT_TRUE(keys.programSees(keyTwo, 4));
    EXPECT_TRUE(keys.comesFree(keyTwo));
    keys.giveBack(keyTwo);
}

TEST(Keys, heldKey_isPressedOnce)
{
    KeyDesk keys;
    keys.run(u"xset"_s, {u"r"_s, u"rate"_s, u"50"_s, u"100"_s});
    keys.want({two, three});
    PressCounter counter(keys.display());
    ASSERT_TRUE(keys.desk.waitFor([&] { return counter.presses() == 0; }));
    keys.display().holdKey(super);
    keys.display().holdKey(keyTwo);
    EXPECT_TRUE(keys.desk.waitFor([&] { return counter.presses() > 10; }));
    keys.display().letGoOfKey(keyTwo);
    keys.display().type({keyThree}); // comes after all that the repeats have made
    ASSERT_TRUE(keys.sees(4)) << "saw " << keys.seen.size();
    EXPECT_EQ(keys.seen.at(1).type, TapEvent::Type::KeyUp);
    EXPECT_EQ(keys.seen.at(2).key, three);
    // Programs can type so fast that a release and the next press are of the same moment, too.
    for (int i = 0; i < 20; ++i)
        keys.display().type({keyTwo});
    keys.display().letGoOfKey(super);
    EXPECT_TRUE(keys.sees(44));
    keys.run(u"xset"_s, {u"r"_s, u"rate"_s});
}

TEST(Keys, passedOn_reachTheProgramToo_alsoWhenNotWantedAnyMore)
{
    KeyDesk keys;
    keys.want({{19, ModifierFlag::command, true}});
    for (std::ptrdiff_t i = 1; i <= 3; ++i) {
        keys.display().type({super, keyTwo});
        EXPECT_TRUE(keys.sees(static_cast<std::size_t>(i))) << "the press alone";
        EXPECT_TRUE(keys.programSees(keyTwo, 2 * i));
    }
    // Not wanted, wanted, pressed: at whatever moment, nothing stays frozen.
    for (std::ptrdiff_t i = 0; i < 20; ++i) {
        keys.tap->setEnabled(false);
        keys.display().type({super, keyTwo});
        keys.tap->setEnabled(true);
        keys.display().type({super, keyTwo});
        EXPECT_TRUE(keys.programSees(keyTwo, 6 + 4 * (i + 1)));
    }
}

TEST(Keys, takenByAnotherProgram_isToldAndTriedAgain)
{
    KeyDesk keys;
    ASSERT_TRUE(keys.canBeTaken(keyTwo));
    keys.want({two, three});
    EXPECT_TRUE(keys.areTaken({two}));
    EXPECT_FALSE(keys.canBeTaken(keyThree));
    keys.giveBack(keyTwo);
    keys.want({two, three});
    EXPECT_TRUE(keys.areTaken({}));
    EXPECT_FALSE(keys.canBeTaken(keyTwo));
    keys.tap.reset();
    keys.settle();
    for (const std::uint8_t keycode : {keyTwo, keyThree}) {
        EXPECT_TRUE(keys.comesFree(keycode));
        keys.giveBack(keycode);
    }
}

TEST(Keys, shortcut_reachesAWindowThatIsNotInFront)
{
    X11Desk desk(plain);
    Application behind(desk.session(), u"alpha"_s);
    Application inFront(desk.session(), u"beta"_s);
    behind.open(1);
    inFront.open(1);
    constexpr Shortcut shiftF5{0x60, true};
    const xcb_window_t window = behind.windows().front().id;
    EXPECT_TRUE(sendShortcut(desk.core().connection(), window, shiftF5));
    EXPECT_TRUE(desk.waitFor([&] { return behind.keys() == std::vector<int>{keyF5, keyF5}; }));
    EXPECT_TRUE(inFront.keys().empty());
    EXPECT_EQ(desk.display().activeWindow(), inFront.windows().front().id);

    EXPECT_FALSE(sendShortcut(desk.core().connection(), window, {-1}));
    EXPECT_FALSE(sendShortcut(desk.core().connection(), window, {1000}));
    behind.destroy(behind.windows().front());
    EXPECT_FALSE(sendShortcut(desk.core().connection(), window, shiftF5));
    EXPECT_FALSE(desk.isConnectionLost());
}

TEST(Keys, keyboardLayout_changed_isFollowed)
{
    KeyDesk keys;
    KeyboardLayout& layout = keys.desk.core().keyboardLayout();
    keys.want({two});
    const std::uint64_t before = layout.currentLayout();
    EXPECT_EQ(layout.charactersOfKey(19), u"2"_s);
    EXPECT_EQ(layout.charactersOfKey(83), u"1"_s) << "on the keypad";
    EXPECT_EQ(layout.charactersOfKey(123), QString());
    EXPECT_EQ(layout.charactersOfKey(4711), QString());
    EXPECT_EQ(layout.nameOfKey(105) + layout.nameOfKey(107) + layout.nameOfKey(113),
              u"PrintScroll LockPause"_s);
    EXPECT_EQ(layout.nameOfKey(122), QString()) << "F1 everywhere";
    EXPECT_EQ(layout.signOfModifier(ModifierFlag::command), u"\u229e"_s);

    keys.run(u"setxkbmap"_s, {u"fr"_s});
    EXPECT_TRUE(keys.desk.waitFor([&] { return layout.charactersOfKey(19) == u"é"_s; }));
    EXPECT_EQ(layout.charactersOfKey(33), u"^"_s) << "a dead key";
    EXPECT_NE(layout.currentLayout(), before);
    keys.settle();
    keys.display().type({super, keyTwo});
    EXPECT_TRUE(keys.sees(2));

    // A keyboard that numbers its keys differently: the places of 2 and 3 change numbers.
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"map.xkb"_s);
    const QString server = QString::fromLatin1(keys.display().name());
    keys.run(u"setxkbmap"_s, {u"us,de"_s, u"-option"_s, u"grp:caps_toggle"_s});
    keys.run(u"xkbcomp"_s, {server, path});
    const QByteArray map = test::readFile(path);
    QByteArray swapped = map;
    swapped.replace("<AE02> = 11;", "<AE02> = 12;").replace("<AE03> = 12;", "<AE03> = 11;");
    ASSERT_NE(swapped, map);
    test::writeFile(path, swapped);
    // Twice, as it writes the keys' places last, of which the core protocol does not tell.
    for (int i = 0; i < 2; ++i)
        keys.run(u"xkbcomp"_s, {u"-w0"_s, path, server});
    EXPECT_TRUE(keys.desk.waitFor([&] { return keys.canBeTaken(keyTwo); }));
    keys.giveBack(keyTwo);
    keys.settle();
    keys.seen.clear();
    keys.display().type({super, 12});
    EXPECT_TRUE(keys.sees(2));

    // Another of the user's layouts, chosen by a key.
    EXPECT_EQ(layout.charactersOfKey(16), u"y"_s);
    keys.display().type({capsLock});
    EXPECT_TRUE(keys.desk.waitFor([&] { return layout.charactersOfKey(16) == u"z"_s; }));
    keys.display().type({super, 12});
    EXPECT_TRUE(keys.sees(4)) << "the same place in another layout";
    keys.display().type({capsLock});
    keys.run(u"setxkbmap"_s, {u"us"_s, u"-option"_s, QString()});
}

} // namespace
} // namespace lumbrix::platform::x11
