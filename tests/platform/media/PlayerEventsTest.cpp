// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Event codes to real messages on a bus, with players that behave and players that do not.
#include <gtest/gtest.h>

#include <QtCore/QCoreApplication>

#include <algorithm>
#include <atomic>

#include "platform/StringLiterals.h"
#include "platform/linux/media/LinuxAppleEvents.h"
#include "platform/linux/media/MprisPlayers.h"
#include "platform/qt/QtRunLoop.h"
#include "tests/platform/linux/FakeTracker.h"
#include "tests/platform/media/TestPlayer.h"
#include "tests/support/Files.h"
#include "tests/support/VirtualRunLoop.h"

inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

namespace lumbrix::test
{

using namespace platform;
using Kind = ObjectSpecifier::Step::Kind;
using Manners = TestPlayer::Manners;

class PlayerEventsTest : public testing::Test
{
protected:
    PlayerEventsTest() { m_tracker.addListener(&m_registry); }
    ~PlayerEventsTest() override { m_loop.shutdown(); }

    AppleEventReply get(const AppleEventTarget& target, const char (&code)[5], Kind kind,
                        const char (&more)[5])
    {
        return m_events.getItem(
            target, {{{kind, fourCharCode(code), 1}, {Kind::Property, fourCharCode(more)}}});
    }
    AppleEventReply state(const AppleEventTarget& target = {u"iTunes"_s})
    {
        return m_events.getItem(target, {{{Kind::Property, fourCharCode("pPlS")}}});
    }
    bool isState(const char (&code)[5])
    {
        const AppleEventReply reply = state();
        return reply.as<FourCharCode>() && *reply.as<FourCharCode>() == fourCharCode(code);
    }
    /// Artist and name of the track; "?" for what cannot be told.
    QString trackNames(const AppleEventTarget& target = {u"iTunes"_s})
    {
        const auto text = [](const AppleEventReply& reply) {
            return reply.as<QString>() ? *reply.as<QString>() : u"?"_s;
        };
        return text(get(target, "pTrk", Kind::Property, "pArt")) + u'/' +
               text(get(target, "pTrk", Kind::Property, "pnam"));
    }
    QImage artwork()
    {
        const AppleEventReply elements = m_events.getItem(
            {u"iTunes"_s},
            {{{Kind::Property, fourCharCode("pTrk")}, {Kind::Elements, fourCharCode("cArt")}}});
        const auto* artworks = elements.as<std::vector<ObjectSpecifier>>();
        if (!artworks || artworks->empty())
            return {};
        ObjectSpecifier picture = artworks->front();
        picture.steps.push_back({Kind::Property, fourCharCode("pPCT")});
        const AppleEventReply reply = m_events.getItem({u"iTunes"_s}, picture);
        return reply.as<QImage>() ? *reply.as<QImage>() : QImage();
    }
    /// Sends as the program does, from a thread of its own, while the players' thread is free.
    AppleEventError send(const AppleEventTarget& target, const char (&eventClass)[5],
                         const char (&eventID)[5])
    {
        std::atomic<bool> isDone = false;
        AppleEventError error = AppleEventError::None;
        m_loop.detachThread("script", [&](const Thread&) {
            error =
                m_events.send(target, fourCharCode(eventClass), fourCharCode(eventID), {}).error;
            isDone = true;
        });
        EXPECT_TRUE(waitUntil([&] { return isDone.load(); }));
        return error;
    }
    void addWindow(xcb_window_t id, const QString& className, std::int32_t pid,
                   const QString& instance = {}, xcb_window_t transientFor = XCB_NONE)
    {
        FakeTracker::Window window;
        window.id = id;
        window.className = className;
        window.classInstance = instance;
        window.transientFor = transientFor;
        window.pid = pid;
        m_tracker.add(window);
    }

    QTemporaryDir m_folder;
    PrivateBus m_bus;
    QtRunLoop m_loop;
    FakeTracker m_tracker;
    DesktopEntries m_entries{{}, {}, [this] { return m_loop.now(); }};
    ApplicationRegistry m_registry{m_tracker,
                                   m_entries,
                                   [](std::int32_t) { return ProcessNames(); },
                                   {77, u"lumbrix"_s},
                                   [this] { return m_loop.now(); }};
    std::pair<xcb_window_t, x11::Shortcut> m_sent; ///< the last one
    LinuxAppleEvents m_events{m_loop, m_bus.connect(u"lumbrix"_s), m_tracker, m_registry,
                              [this](xcb_window_t window, const x11::Shortcut& shortcut) {
                                  m_sent = {window, shortcut};
                                  return window != XCB_NONE;
                              }};
};

TEST_F(PlayerEventsTest, goodPlayer_isKnownByItsAnnouncements)
{
    QImage cover(30, 20, QImage::Format_RGB32);
    cover.fill(Qt::green);
    const QString path = m_folder.filePath(u"cover.png"_s);
    ASSERT_TRUE(cover.save(path));
    EXPECT_EQ(state().error, AppleEventError::NotRunning);

    auto player = std::make_unique<TestPlayer>(
        m_bus.address(), u"audacious"_s,
        track(QStringList{u"Ann"_s, u"Bob"_s}, u"First"_s, u"file://"_s + path));
    player->set({{u"PlaybackStatus"_s, u"Playing"_s}}, false);
    EXPECT_TRUE(waitUntil([&] { return isState("kPSP"); }));
    EXPECT_EQ(trackNames(), u"Ann, Bob/First");
    EXPECT_TRUE(waitUntil([&] { return artwork().size() == QSize(30, 20); }));
    EXPECT_EQ(artwork().cacheKey(), artwork().cacheKey()) << "the same picture every time";

    player->set({{u"PlaybackStatus"_s, u"Paused"_s}});
    EXPECT_TRUE(waitUntil([&] { return isState("kPSp"); }));
    EXPECT_EQ(trackNames(), u"Ann, Bob/First");
    player->set(track(u"Cleo"_s, {}, u"http://127.0.0.1/x.png"_s));
    EXPECT_TRUE(waitUntil([&] { return trackNames() == u"Cleo/"; }));
    EXPECT_TRUE(waitUntil([&] { return artwork().isNull(); }));
    // Changed without being told: found out because somebody looks.
    player->set({{u"PlaybackStatus"_s, u"Stopped"_s}}, false);
    EXPECT_TRUE(waitUntil([&] { return isState("kPSS"); }));

    player.reset();
    EXPECT_TRUE(waitUntil([&] { return state().error == AppleEventError::NotRunning; }));
}

TEST_F(PlayerEventsTest, commands_reachThePlayersOfTheirRole)
{
    TestPlayer music(m_bus.address(), u"quodlibet"_s);
    TestPlayer vlc(m_bus.address(), u"vlc.instance42"_s);
    TestPlayer film(m_bus.address(), u"unheardof"_s, {{u"PlaybackStatus"_s, u"Playing"_s}});
    film.setDesktopEntry(u"org.gnome.Totem"_s);
    TestPlayer browser(m_bus.address(), u"chromium"_s);
    const auto playing = [&] {
        return get({u"QuickTime Player"_s}, "docu", Kind::Element, "play");
    };
    ASSERT_TRUE(waitUntil([&] {
        return playing().as<bool>() && music.questions() > 0 && vlc.questions() > 0 &&
               send({u"VLC"_s}, "VLC#", "VLC1") == AppleEventError::None &&
               send({u"iTunes"_s}, "hook", "Play") == AppleEventError::None;
    }));
    EXPECT_TRUE(*playing().as<bool>());
    music.takeCommands();
    vlc.takeCommands();
    const struct {
        const char* application;
        const char (&eventClass)[5];
        const char (&eventID)[5];
        TestPlayer& player;
        const char* method;
    } commands[] = {
        {"iTunes", "hook", "Play", music, "Play"},
        {"iTunes", "hook", "Paus", music, "Pause"},
        {"iTunes", "hook", "Prev", music, "Previous"},
        {"iTunes", "hook", "Next", music, "Next"},
        {"VLC", "VLC#", "VLC1", vlc, "PlayPause"},
        {"VLC", "VLC#", "VLC3", vlc, "Previous"},
        {"VLC", "VLC#", "VLC4", vlc, "Next"},
        {"QuickTime Player", "MVWR", "play", film, "Play"},
        {"QuickTime Player", "MVWR", "paus", film, "Pause"},
    };
    for (const auto& [application, eventClass, eventID, player, method] : commands) {
        EXPECT_EQ(send({QString::fromLatin1(application)}, eventClass, eventID),
                  AppleEventError::None);
        EXPECT_EQ(player.takeCommands().join(u' '), QString::fromLatin1(method));
    }
    EXPECT_EQ(send({u"VLC"_s}, "hook", "Play"), AppleEventError::NotHandled);
    EXPECT_EQ(send({u"Finder"_s}, "hook", "Play"), AppleEventError::NotHandled);
    EXPECT_EQ(
        (browser.takeCommands() + music.takeCommands() + vlc.takeCommands() + film.takeCommands())
            .join(u' '),
        QString());
}

TEST_F(PlayerEventsTest, playersOfAllApplications_areReachedAsLongAsTheyAreThere)
{
    TestPlayer browser(m_bus.address(), u"firefox.instance_1_20"_s);
    TestPlayer byEntry(m_bus.address(), u"a"_s);
    byEntry.setDesktopEntry(u"tauonmb"_s);
    auto byName = std::make_unique<TestPlayer>(m_bus.address(), u"b"_s);
    byName->setIdentity(u"Web Radio"_s);
    TestPlayer music(m_bus.address(), u"c"_s, {{u"PlaybackStatus"_s, u"Playing"_s}});
    music.setIdentity(u"Audacious"_s);
    TestPlayer standIn(m_bus.address(), u"playerctld"_s);
    standIn.setDesktopEntry(u"proxied"_s);
    const auto self = static_cast<std::int32_t>(QCoreApplication::applicationPid());
    const std::pair<QString, std::int32_t> windows[] = {
        {u"Firefox"_s, 500}, {u"tauonmb"_s, 501}, {u"Web Radio"_s, 502}, {u"Audacious"_s, 503},
        {u"proxied"_s, 504}, {u"mpv"_s, 505},     {u"nameless"_s, self}, {u"evolution"_s, 507}};
    for (const auto& [name, pid] : windows)
        addWindow(static_cast<xcb_window_t>(pid), name, pid);
    const auto roles = [&] {
        QString result;
        for (const auto& [name, pid] : windows) {
            const auto role = m_events.roleOf(pid, static_cast<xcb_window_t>(pid));
            result += role == ApplicationRole::MusicPlayer ? u'm'
                      : role == ApplicationRole::VLC       ? u'v'
                      : role == ApplicationRole::Mail      ? u'@'
                      : role == ApplicationRole::Other     ? u'-'
                                                           : u'?';
        }
        return result;
    };
    EXPECT_TRUE(waitUntil([&] { return roles() == u"vvvm--v@"; })) << qPrintable(roles());
    EXPECT_EQ(send({u"VLC"_s, 502, 502}, "VLC#", "VLC1"), AppleEventError::None);
    EXPECT_EQ(byName->takeCommands().join(u' '), u"PlayPause");
    EXPECT_EQ(send({u"iTunes"_s, 503, 503}, "hook", "Paus"), AppleEventError::None);
    EXPECT_EQ(music.takeCommands().join(u' '), u"Pause");
    EXPECT_TRUE(waitUntil([&] { return state({u"iTunes"_s, 503, 503}).as<FourCharCode>(); }));
    byName->manners = Manners::Hangs;
    EXPECT_EQ(send({u"VLC"_s, 502, 502}, "VLC#", "VLC1"), AppleEventError::NotRunning);
    EXPECT_EQ(roles(), u"vvvm--v@") << "it may answer again under the mouse";
    byName.reset();
    EXPECT_TRUE(waitUntil([&] { return roles() == u"vv-m--v@"; })) << qPrintable(roles());
    EXPECT_EQ(standIn.questions(), 0);
}

// Each that is met may cost a thread, and anyone on the bus may own as many names as it likes.
TEST_F(PlayerEventsTest, crowdOfPlayers_isNotMetWhole)
{
    const auto name = [](int i) { return u"org.mpris.MediaPlayer2.crowd%1"_s.arg(i); };
    QDBusConnection crowd = m_bus.connect(u"crowd"_s);
    for (int i = 0; i < 50; ++i)
        ASSERT_TRUE(crowd.registerService(name(i)));
    TestPlayer tooMany(m_bus.address(), u"audacious"_s);
    crowd.unregisterService(name(0));
    TestPlayer inItsPlace(m_bus.address(), u"rhythmbox"_s);
    EXPECT_TRUE(waitUntil([&] { return inItsPlace.questions() > 0; }));
    EXPECT_EQ(tooMany.questions(), 0);
}

// One may take seconds, and players may come and go, and change their tracks, meanwhile.
TEST(MprisPlayersTest, pictures_areReadAFewAtATime)
{
    const QTemporaryDir folder;
    const QString path = folder.filePath(u"cover.png"_s);
    ASSERT_TRUE(QImage(30, 20, QImage::Format_RGB32).save(path));
    const PrivateBus bus;
    VirtualRunLoop loop;
    MprisPlayers players(loop, bus.connect(u"lumbrix"_s));
    players.start();
    std::vector<std::unique_ptr<TestPlayer>> them;
    for (int i = 1; i <= 6; ++i) {
        them.push_back(
            std::make_unique<TestPlayer>(bus.address(), u"audacious.instance%1"_s.arg(i)));
        for (const QString& title : {u"First"_s, u"Second"_s}) {
            them.back()->set(track(u"Ann"_s, title, u"file://"_s + path));
            EXPECT_TRUE(waitUntil([&] {
                them.back()->set({}); // has it asked again if it was too slow
                const auto all = players.players();
                return std::ssize(all) == i && all.back().properties.name == title;
            }));
            EXPECT_EQ(loop.runningThreads("artwork"), std::min(i, 4));
        }
    }
    EXPECT_TRUE(waitUntil([&] {
        loop.runUntilIdle();
        return std::ranges::all_of(players.players(), [](const MediaPlayer& player) {
            return player.artwork.width() == 30;
        });
    }));
}

TEST_F(PlayerEventsTest, playerThatHangs_keepsNobodyWaiting)
{
    TestPlayer player(m_bus.address(), u"audacious"_s, {{u"PlaybackStatus"_s, u"Playing"_s}});
    player.manners = Manners::Hangs;
    ASSERT_TRUE(waitUntil([&] { return player.questions() > 0; }));
    const int before = player.questions();
    for (int i = 0; i < 100; ++i)
        EXPECT_EQ(state().error, AppleEventError::NotRunning);
    EXPECT_EQ(send({u"iTunes"_s}, "hook", "Next"), AppleEventError::NotRunning);

    player.manners = Manners::Good;
    EXPECT_TRUE(waitUntil([&] { return isState("kPSP"); })) << "it answers again";
    EXPECT_EQ(player.takeCommands(), QStringList()) << "nobody waits for a command in vain";
    EXPECT_LT(player.questions() - before, 100) << "each question was passed on, and waited for";
    // Hangs again: commands end, and what was known of it does not outlive the next look.
    player.manners = Manners::Hangs;
    EXPECT_EQ(send({u"iTunes"_s}, "hook", "Next"), AppleEventError::NotRunning);
    EXPECT_TRUE(waitUntil([&] { return state().error == AppleEventError::NotRunning; }));
}

TEST_F(PlayerEventsTest, nonsense_isNothing)
{
    TestPlayer other(m_bus.address(), u"rhythmbox"_s, track(u"Ann"_s, u"First"_s));
    TestPlayer player(m_bus.address(), u"audacious"_s, {{u"PlaybackStatus"_s, u"Playing"_s}});
    addWindow(1, u"rhythmbox"_s, 500);
    addWindow(3, u"audacious"_s, 501);
    const auto namesOfOther = [&] { return trackNames({u"iTunes"_s, 500, 1}); };
    const AppleEventTarget target{u"iTunes"_s, 501, 3};
    const auto stateOfPlayer = [&] { return state(target); };
    ASSERT_TRUE(waitUntil([&] { return namesOfOther() == u"Ann/First"; }));
    ASSERT_TRUE(waitUntil([&] { return stateOfPlayer().as<FourCharCode>(); }));

    for (const Manners manners : {Manners::Nonsense, Manners::Refuses}) {
        player.manners = manners;
        EXPECT_TRUE(
            waitUntil([&] { return stateOfPlayer().error == AppleEventError::NotRunning; }));
        player.manners = Manners::Good;
        EXPECT_TRUE(waitUntil([&] { return stateOfPlayer().as<FourCharCode>(); }));
    }
    player.tellNonsense();
    EXPECT_TRUE(waitUntil([&] { return stateOfPlayer().error == AppleEventError::NotRunning; }));
    const QString longText(100000, u'x');
    for (const QVariantMap& strange :
         {QVariantMap{{u"PlaybackStatus"_s, 3}}, QVariantMap{{u"PlaybackStatus"_s, longText}},
          QVariantMap{{u"Metadata"_s, u"none"_s}, {u"PlaybackStatus"_s, u"Singing"_s}},
          track(7, QStringList{longText}, 9), track(QStringList{longText, longText}, longText)})
        player.set(strange);
    player.set({{u"PlaybackStatus"_s, u"Paused"_s}});
    EXPECT_TRUE(waitUntil([&] { return stateOfPlayer().as<FourCharCode>(); }));
    const AppleEventReply name = get(target, "pTrk", Kind::Property, "pnam");
    ASSERT_TRUE(name.as<QString>());
    EXPECT_EQ(*name.as<QString>(), longText.left(1000));
    EXPECT_EQ(namesOfOther(), u"Ann/First");
}

TEST_F(PlayerEventsTest, mailProgram_isToldInItsOwnWay)
{
    // It is told by its own program, which tells the one that runs.
    const QString log = m_folder.filePath(u"log"_s);
    const QString program = writeFile(m_folder.filePath(u"claws-mail"_s),
                                      "#!/bin/sh\necho \"$@\" > " + log.toUtf8() + ".new\nmv " +
                                          log.toUtf8() + ".new " + log.toUtf8() + "\n");
    QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    const QByteArray path = qgetenv("PATH");
    qputenv("PATH", m_folder.path().toUtf8() + ':' + path);

    const auto fetch = [this](const AppleEventTarget& target) {
        m_sent = {};
        return send(target, "emal", "chma");
    };
    EXPECT_EQ(fetch({u"Mail"_s}), AppleEventError::NotRunning);
    addWindow(1, u"unheardof"_s, 500);
    EXPECT_EQ(fetch({u"Mail"_s, 500}), AppleEventError::NotHandled);
    addWindow(3, u"Claws-mail"_s, 501);
    EXPECT_EQ(fetch({u"Mail"_s, 501}), AppleEventError::None);
    EXPECT_EQ(m_sent.first, XCB_NONE);
    // Others heed their keyboard shortcuts, F12, and F5 with Shift, in their main windows: not in a
    // dialog, nor where a message is written.
    addWindow(4, u"Evolution"_s, 502, {}, 5);
    addWindow(5, u"Evolution"_s, 502);
    addWindow(6, u"Evolution"_s, 502);
    EXPECT_EQ(fetch({u"Mail"_s, 502, 6}), AppleEventError::None);
    EXPECT_EQ(m_sent, std::pair(xcb_window_t(5), x11::Shortcut{0x6F}));
    addWindow(7, u"thunderbird-default"_s, 503, u"Msgcompose"_s);
    addWindow(8, u"thunderbird-default"_s, 503, u"Mail"_s);
    EXPECT_EQ(fetch({u"Mail"_s, 503, 7}), AppleEventError::None);
    EXPECT_EQ(m_sent, std::pair(xcb_window_t(8), (x11::Shortcut{0x60, true})));
    EXPECT_TRUE(waitUntil([&] { return QFile::exists(log); }));
    EXPECT_EQ(readFile(log), "--receive-all\n");
    qputenv("PATH", path);
}

} // namespace lumbrix::test
