// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Previews of media players and mail: what they show, and what their buttons tell the application.
#include "preview/NamedImage.h"
#include "scripting/SWScript.h"
#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{

using platform::ApplicationRole;
using platform::fourCharCode;
using Manners = SimulatedScriptable::Manners;

class MediaTest : public EngineFixture
{
protected:
    /// One that can be reached, as its identifier tells where it has no role.
    Pid addPlayer(const QString& name, const QString& identifier,
                  ApplicationRole role = ApplicationRole::Other)
    {
        const Pid pid = addUnreachable(name, identifier, role);
        desk.appleEvents().setRole(pid,
                                   role == ApplicationRole::Other ? ApplicationRole::VLC : role);
        return pid;
    }
    Pid addUnreachable(const QString& name, const QString& identifier, ApplicationRole role)
    {
        return desk.addApplication({.name = name, .bundleIdentifier = identifier, .role = role});
    }
    /// A music player with this window, which plays the tracks, if there are any, and is hovered.
    Pid showPlayer(const SimulatedWindow& window, std::vector<SimulatedTrack> tracks = {})
    {
        const Pid pid =
            addPlayer(u"Player"_s, u"org.example.Player"_s, ApplicationRole::MusicPlayer);
        desk.addWindow(pid, window);
        if (!tracks.empty())
            play(u"iTunes"_s, std::move(tracks));
        loop.runUntilIdle();
        hover(u"Player"_s);
        return pid;
    }
    void play(const QString& name, std::vector<SimulatedTrack> tracks)
    {
        desk.appleEvents().change(name, [&](SimulatedScriptable& player) {
            player.tracks = std::move(tracks);
            player.state = ITApplication::playing;
        });
    }
    void setState(platform::FourCharCode state)
    {
        desk.appleEvents().change(u"iTunes"_s,
                                  [state](SimulatedScriptable& player) { player.state = state; });
    }
    void setManners(Manners manners)
    {
        desk.appleEvents().change(
            u"iTunes"_s, [manners](SimulatedScriptable& player) { player.manners = manners; });
    }
    /// A preview is 200 points wide, so its buttons are in three places.
    enum class Place { Left = 76, Middle = 106, Right = 136 };
    void enter()
    {
        movePointerTo(preview(0));
        preview(0).mouseEntered();
    }
    bool click(Place place)
    {
        const bool isThere = preview(0).clickControlAt({static_cast<qreal>(place), 55});
        loop.runUntilIdle();
        return isThere;
    }
    QString commands() { return desk.appleEvents().takeCommands().join(u", "_s); }
    static QImage picture(const QColor& color)
    {
        QImage image(8, 8, QImage::Format_RGB32);
        image.fill(color);
        return image;
    }
};

TEST_F(MediaTest, musicPlayer_mainWindow_showsTrackAndArtwork)
{
    const Pid pid = addPlayer(u"iTunes"_s, u"com.apple.iTunes"_s);
    desk.addWindow(pid, {u"iTunes"_s, {100, 100, 400, 300}});
    desk.addWindow(pid, {u"Equalizer"_s, {100, 150, 400, 300}});
    play(u"iTunes"_s, {{u"Ann"_s, u"First"_s, {QImage(), picture(Qt::red)}},
                       {u""_s, u"Second"_s},
                       {u"Bob"_s, u""_s},
                       {u""_s, u""_s}});
    loop.runUntilIdle();
    hover(u"iTunes"_s);
    const bool isFirst = preview(0).iTunes();
    EXPECT_EQ(shown(), isFirst ? u"Ann - First, Equalizer"_s : u"Equalizer, Ann - First"_s);
    ScreenyView& main = preview(isFirst ? 0 : 1);
    EXPECT_FALSE(preview(isFirst ? 1 : 0).iTunes()) << "not its main window";
    EXPECT_EQ(main.image().pixelColor(0, 0), QColor(Qt::red));

    const auto next = [&] {
        desk.appleEvents().change(u"iTunes"_s, [](SimulatedScriptable& it) { ++it.current; });
        loop.advance(1.1);
        return main.titleString();
    };
    EXPECT_EQ(next(), u"Second");
    EXPECT_EQ(main.image().pixelColor(4, 4), QColor(Qt::darkCyan)) << "its window, without artwork";
    EXPECT_EQ(next(), u"Bob");
    EXPECT_EQ(next(), u"Bob") << "a track without names changes no title";
    leave();
}

TEST_F(MediaTest, musicPlayerOfAnotherName_everyStandardWindow_isTheMainOne)
{
    const Pid pid = addPlayer(u"Player"_s, u"org.example.Player"_s, ApplicationRole::MusicPlayer);
    desk.addWindow(pid, {u"First - Ann - Player"_s, {100, 100, 400, 300}});
    desk.addWindow(
        pid, {.title = u"Settings"_s, .frame = {100, 150, 400, 300}, .subrole = u"AXDialog"_s});
    play(u"iTunes"_s, {{u"Ann"_s, u"First"_s}});
    loop.runUntilIdle();
    hover(u"Player"_s);
    EXPECT_TRUE(shown() == u"Ann - First, Settings" || shown() == u"Settings, Ann - First")
        << qPrintable(shown());
}

TEST_F(MediaTest, musicPlayer_withArtwork_isZoomedAsItsWindow)
{
    settings().zoomWindows = 1;
    settings().disableLivePreviews = 1;
    showPlayer({.title = u"Main"_s, .color = Qt::green},
               {{u"Ann"_s, u"First"_s, {picture(Qt::red)}}});
    enter();
    loop.advance(0.05);
    ASSERT_TRUE(preview(0).zoomWindow());
    EXPECT_TRUE(preview(0).zoomWindow()->isFront());
    EXPECT_EQ(preview(0).zoomWindow()->grab().toImage().pixelColor(5, 5), QColor(Qt::green));
    EXPECT_EQ(preview(0).image().pixelColor(5, 5), QColor(Qt::red));
}

TEST_F(MediaTest, musicPlayer_minimised_tellsTheTrackOfItsIcon)
{
    showPlayer({.title = u"Main"_s, .isMinimized = true},
               {{u"Ann"_s, u"First"_s}, {u"Bob"_s, u"Second"_s}, {u""_s, u""_s}});
    hover(u"Main"_s);
    EXPECT_EQ(shown(), u"Ann - First");
    for (int track = 1; track <= 2; ++track) {
        desk.appleEvents().change(u"iTunes"_s, [](SimulatedScriptable& it) { ++it.current; });
        loop.advance(0.5);
        EXPECT_EQ(shown(), u"Bob - Second") << "nor does one without names change it";
    }
}

TEST_F(MediaTest, musicPlayer_withoutArtworkAndCapture_showsANote)
{
    showPlayer({.title = u"Main"_s, .hasPicture = false});
    loop.advance(0.2);
    ASSERT_FALSE(preview(0).image().isNull());
    EXPECT_EQ(preview(0).image(), namedImage(u"noMusic"_s));
    EXPECT_EQ(preview(0).titleString(), u"Main") << "the player does not answer";
    loop.advance(1);
    EXPECT_EQ(preview(0).image(), namedImage(u"noMusic"_s));
}

TEST_F(MediaTest, musicPlayer_buttons_controlItWithoutWaiting)
{
    const Pid pid = showPlayer({u"Main"_s}, {{u"Ann"_s, u"First"_s}, {u"Bob"_s, u"Second"_s}});
    const QString prefix = QString::number(pid) + u" iTunes hook/"_s;

    enter();
    EXPECT_TRUE(preview(0).isPlaying());
    EXPECT_TRUE(click(Place::Middle));
    EXPECT_EQ(commands(), prefix + u"Paus"_s);
    EXPECT_FALSE(preview(0).isPlaying());
    EXPECT_TRUE(click(Place::Middle));
    EXPECT_EQ(commands(), prefix + u"Play"_s);
    EXPECT_TRUE(click(Place::Right));
    EXPECT_EQ(commands(), prefix + u"Next"_s);
    EXPECT_EQ(preview(0).titleString(), u"Ann - First") << "read while the skip is under way";
    loop.advance(0.6);
    EXPECT_EQ(preview(0).titleString(), u"Bob - Second");
    EXPECT_TRUE(click(Place::Left));
    EXPECT_EQ(commands(), prefix + u"Prev"_s);

    // Read at each entry of the pointer: paused and stopped players are offered to be played.
    const struct {
        platform::FourCharCode state;
        Manners manners;
        bool hasButton;
        bool plays;
    } entries[] = {{ITApplication::paused, Manners::Answers, true, false},
                   {ITApplication::playing, Manners::Answers, true, true},
                   {ITApplication::stopped, Manners::Answers, true, false},
                   {fourCharCode("kPSF"), Manners::Answers, false, false},
                   {ITApplication::playing, Manners::Hangs, false, false},
                   {ITApplication::playing, Manners::AnswersNonsense, false, false}};
    for (const auto& entry : entries) {
        preview(0).mouseExited();
        setState(entry.state);
        setManners(entry.manners);
        preview(0).mouseEntered();
        EXPECT_TRUE(!entry.hasButton || preview(0).isPlaying() == entry.plays);
        EXPECT_EQ(preview(0).clickControlAt({106, 55}), entry.hasButton);
        EXPECT_TRUE(preview(0).clickControlAt({76, 55})) << "the others do not depend on the state";
        loop.advance(0.3);
    }
    EXPECT_EQ(engine().screenyViews().size(), 1U);

    preview(0).mouseExited();
    setManners(Manners::Answers);
    settings().hideControls = 1;
    preview(0).mouseEntered();
    EXPECT_FALSE(click(Place::Right));
    EXPECT_EQ(preview(0).titleString(), u"Ann - First") << "the title applies all the same";
}

TEST_F(MediaTest, buttons_areThereAsLongAsThePlayerIs)
{
    const Pid mpv = addUnreachable(u"mpv"_s, u"mpv"_s, ApplicationRole::MoviePlayer);
    const Pid browser = addUnreachable(u"Browser"_s, u"browser"_s, ApplicationRole::Other);
    const Pid music = addPlayer(u"Player"_s, u"player"_s, ApplicationRole::MusicPlayer);
    for (const Pid pid : {mpv, browser, music})
        desk.addWindow(pid, {u"Main"_s});
    play(u"iTunes"_s, {{u"Ann"_s, u"First"_s}});
    loop.runUntilIdle();
    const auto set = [&](Pid pid, ApplicationRole role) {
        desk.appleEvents().setRole(pid, role);
        loop.advance(1.1);
    };
    for (const auto& [pid, name, role] : {std::tuple{mpv, u"mpv"_s, ApplicationRole::MoviePlayer},
                                          {browser, u"Browser"_s, ApplicationRole::VLC}}) {
        SCOPED_TRACE(qPrintable(name));
        hover(name);
        enter();
        EXPECT_FALSE(click(Place::Middle));
        set(pid, role);
        EXPECT_TRUE(click(Place::Middle));
        set(pid, ApplicationRole::Other);
        EXPECT_FALSE(click(Place::Middle));
        leave(1);
    }
    hover(u"Player"_s);
    EXPECT_EQ(shown(), u"Ann - First"_s);
    set(music, ApplicationRole::Other);
    EXPECT_EQ(shown(), u"Main"_s) << "a window like any other";
    set(music, ApplicationRole::MusicPlayer);
    EXPECT_EQ(shown(), u"Ann - First"_s);
    EXPECT_FALSE(click(Place::Middle)) << "the mouse is not there";
}

TEST_F(MediaTest, otherApplications_haveTheirOwnButtons)
{
    using enum ApplicationRole;
    struct Case {
        QString name, identifier;
        ApplicationRole role;
        QString left, middle, right; ///< what is sent; empty without a button
    };
    const QString previous = u"VLC VLC#/VLC3"_s, toggle = u"VLC VLC#/VLC1"_s,
                  next = u"VLC VLC#/VLC4"_s, movie = u"QuickTime Player MVWR/play docu 1"_s,
                  mail = u"Mail emal/chma"_s;
    const Case cases[] = {
        {u"V"_s, u"org.videolan.vlc"_s, Other, previous, toggle, next},
        {u"W"_s, u"vlc"_s, ApplicationRole::VLC, previous, toggle, next},
        {u"Q"_s, u"com.apple.QuickTimePlayerX"_s, Other, {}, movie, {}},
        {u"R"_s, u"totem"_s, MoviePlayer, {}, movie, {}},
        {u"M"_s, u"com.apple.mail"_s, Other, {}, mail, {}},
        {u"N"_s, u"claws-mail"_s, Mail, {}, mail, {}},
        {u"B"_s, u"browser"_s, Other, previous, toggle, next},
    };
    for (const Case& each : cases) {
        SCOPED_TRACE(qPrintable(each.identifier));
        const Pid pid = addPlayer(each.name, each.identifier, each.role);
        desk.addWindow(pid, {u"iTunes"_s});
        loop.runUntilIdle();
        hover(each.name);
        enter();
        const auto sent = [&](Place place) {
            const QString text = click(place) ? commands() : QString();
            return QString(text).remove(QString::number(pid) + u' ');
        };
        EXPECT_EQ(sent(Place::Left), each.left);
        EXPECT_EQ(sent(Place::Middle), each.middle) << "without a document, too";
        EXPECT_EQ(sent(Place::Right), each.right);
        EXPECT_EQ(preview(0).titleString(), u"iTunes");
        leave(2);
        ASSERT_TRUE(engine().screenyViews().empty());
    }

    play(u"QuickTime Player"_s, {{{}, {}}});
    const SWScript& script = *SWScript::sharedScript(desk.appleEvents(), loop);
    script.playPause(ApplicationRole::MoviePlayer);
    script.playPause(ApplicationRole::MusicPlayer);
    script.skipLeft(ApplicationRole::MoviePlayer);
    script.skipRight(ApplicationRole::Mail);
    loop.runUntilIdle();
    EXPECT_EQ(commands(), u"QuickTime Player MVWR/paus docu 1") << "the rest are no such players";
    EXPECT_EQ(desk.appleEvents().application(u"QuickTime Player"_s).state, ITApplication::paused);
}

} // namespace lumbrix::test
