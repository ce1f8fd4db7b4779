// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// How the previews shown keep up with their windows.

#include "preview/BadgeView.h"
#include "preview/NumberLabel.h"
#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class Update : public EngineFixture
{
protected:
    void update() { loop.advance(0.5); }

    SlowWindowServer& installSlow()
    {
        install(desk.accessibility(), m_slow);
        return m_slow;
    }

private:
    SlowWindowServer m_slow{desk.windowServer()};
};

TEST_F(Update, windowsThatComeAndGo_joinAndLeaveTheRow)
{
    const Pid notes = add(u"Notes"_s, 2);
    const auto windows = desk.stacking();
    hover(u"Notes"_s);
    desk.addWindow(notes, {u"New"_s});
    update();
    EXPECT_EQ(shown(), u"Notes 2, Notes 1, New"_s);
    const double middle = desk.dockItemFrame(u"Notes"_s).center().x();
    EXPECT_EQ(preview(2).window()->frame(), QRectF(middle + 94, 62, 200, 150));
    desk.closeWindow(windows[0]);
    update();
    EXPECT_EQ(shown(), u"Notes 1, New"_s);
    EXPECT_EQ(panelsOnScreen(), 2);
    desk.quitApplication(notes);
    update();
    EXPECT_EQ(shown(), u""_s);
    EXPECT_EQ(panelsOnScreen(), 0);
    EXPECT_FALSE(isTapOn());
}

TEST_F(Update, spaceNumbers_followTheWindows)
{
    add(u"Notes"_s, 2);
    settings().showSpaces = 1;
    hover(u"Notes"_s);
    const auto move = [this](int space, bool isOnAll) {
        desk.changeWindow(desk.stacking().front(), [=](auto& window) {
            window.space = space;
            window.isOnAllSpaces = isOnAll;
        });
        update();
    };
    const auto number = [this] {
        const BadgeView* badge = preview(0).spaceView();
        return !badge || badge->isHidden() ? u""_s : badge->label(BadgeView::Small)->text();
    };
    EXPECT_EQ(number(), u""_s) << "where all are, and the user is";
    EXPECT_EQ((move(3, false), number()), u"3"_s);
    EXPECT_FALSE(preview(1).spaceView()->isHidden()) << "to compare with";
    EXPECT_EQ((move(3, true), number()), u""_s);
    EXPECT_EQ((move(2, false), number()), u"2"_s);
    EXPECT_EQ((move(0, false), number()), u"2"_s) << "not known is no change";
}

TEST_F(Update, titles_followTheirWindows_everyHalfSecond)
{
    add(u"Notes"_s, 1);
    hover(u"Notes"_s);
    for (const QString& title : {u"Other"_s, u"Another"_s}) {
        const QString before = shown();
        desk.changeWindow(desk.stacking()[0], [&](auto& window) { window.title = title; });
        loop.advance(0.45);
        EXPECT_EQ(shown(), before);
        loop.advance(0.05);
        EXPECT_EQ(shown(), title);
    }
}

TEST_F(Update, slowPicture_holdsItsPreviewBriefly_andGoesToNoOther)
{
    installSlow();
    add(u"Notes"_s, 1);
    add(u"Mail"_s, 1);
    hover(u"Notes"_s);
    EXPECT_EQ(shown(), u"Notes 1"_s); // on screen, though with nothing to see yet
    EXPECT_TRUE(preview(0).isHeld());
    loop.advance(0.15);
    EXPECT_FALSE(preview(0).isHeld());
    EXPECT_TRUE(preview(0).image().isNull());
    loop.advance(0.2);
    EXPECT_FALSE(preview(0).image().isNull());
    leave(2);

    // The panel of a picture that is still on its way is used for another window.
    desk.changeWindow(desk.stacking()[1], [](auto& window) { window.version = 7; });
    hover(u"Notes"_s);
    const ScreenyView* const panel = &preview(0);
    leave(0.1);
    hover(u"Mail"_s);
    ASSERT_EQ(shown(), u"Mail 1"_s);
    ASSERT_EQ(&preview(0), panel);
    loop.advance(0.25);
    EXPECT_TRUE(preview(0).image().isNull());
    loop.advance(1);
    EXPECT_EQ(preview(0).image().pixel(0, 0) & 0xff, 0U);
    EXPECT_EQ(loop.runningThreads("capture"), 0);
}

TEST_F(Update, slowServer_isAskedForAWindowOnlyOnceAtATime)
{
    SlowWindowServer& slow = installSlow();
    slow.alwaysCopies = true;
    slow.duration = 2;
    add(u"Notes"_s, 3);
    hover(u"Notes"_s);
    loop.advance(20.1);
    slow.duration = 0;
    slow.started = 0;
    loop.advance(2.35); // those that were under way end, and one that waited
    EXPECT_LE(slow.started, 3 * 5) << "what had piled up came first";
}

TEST_F(Update, pictureThatComesTooLate_isKeptByNobody)
{
    SlowWindowServer& slow = installSlow();
    slow.alwaysCopies = true;
    settings().zoomWindows = 1;
    add(u"Notes"_s, 1);
    const auto kept = [] { return engine().inventory().windowsArray()[0]->screenshot(); };
    for (const double wait : {0.1, 0.7}) { // the first picture, that of an update or of the zoom
        hover(u"Notes"_s);
        loop.advance(wait);
        hover(u"Trash"_s);
        EXPECT_EQ(shown(), u""_s);
        EXPECT_EQ(loop.runningThreads("capture"), 1);
        loop.advance(1);
        EXPECT_TRUE(kept().isNull()) << wait;
    }
    hover(u"Notes"_s);
    loop.advance(0.4);
    movePointerTo(preview(0));
    preview(0).mouseEntered();
    loop.advance(0.05);
    hover(u"Trash"_s);
    EXPECT_EQ(loop.runningThreads("capture"), 1);
    loop.advance(1);
    EXPECT_TRUE(kept().isNull()) << "of the zoom";
}

TEST_F(Update, numbers_areOnEveryPreview_alsoOnceTheirSizeChanged)
{
    settings().showSpaces = 1;
    settings().alwaysShowSpaces = 1;
    settings().showFastKeys = 1;
    const Pid notes = add(u"Notes"_s, 2);
    hover(u"Notes"_s);
    EXPECT_EQ(numbers(), u"1@40 1 1@40 2"_s);
    desk.addWindow(notes, {.title = u"New"_s, .space = 4});
    update();
    EXPECT_EQ(numbers(), u"1@40 1 1@40 2 4@40 3"_s);
    std::vector<WindowID> more;
    for (int i = 0; i < 7; ++i)
        more.push_back(desk.addWindow(notes, {u"More %1"_s.arg(i)}));
    update();
    EXPECT_EQ(preview(0).window()->frame().width(), 144);
    EXPECT_EQ(numbers().count(u"@40"_s), 10) << qPrintable(numbers());
    for (const WindowID window : more)
        desk.closeWindow(window);
    update();
    EXPECT_EQ(preview(0).window()->frame().width(), 200);
    EXPECT_EQ(numbers(), u"1@40 1 1@40 2 4@40 3"_s);
}

TEST_F(Update, windowThatVanishesBeforeAnyOneRequest_isSimplyGone)
{
    /// Closes a window of the application just before the given request.
    struct Vanishing : ForwardingAccessibility {
        using ForwardingAccessibility::ForwardingAccessibility;
        platform::AXResult copyAttributeValue(const platform::ElementRef& element,
                                              const QString& attribute) override
        {
            if (requests++ == fatal)
                m_state.locked()->close(window);
            return ForwardingAccessibility::copyAttributeValue(element, attribute);
        }
        int requests = 0;
        int fatal = 0;
        WindowID window = 0;
    };
    Vanishing vanishing(desk.accessibility());
    install(vanishing, desk.windowServer());
    const Pid notes = add(u"Notes"_s, 1);
    int runs = 0;
    do {
        vanishing.requests = 0;
        vanishing.fatal = runs++;
        vanishing.window = desk.addWindow(notes, {u"Passing"_s});
        hover(u"Notes"_s);
        loop.advance(0.6);
        if (!desk.window(vanishing.window)) {
            loop.advance(0.5);
            ASSERT_EQ(shown(), u"Notes 1"_s) << runs;
        }
        leave(2);
        ASSERT_EQ(panelsOnScreen(), 0);
    } while (!desk.window(vanishing.window));
    EXPECT_GT(runs, 20); // each was met
}

TEST_F(Update, panels_areReused_eachInItsFormerPlace)
{
    add(u"Notes"_s, 2);
    hover(u"Notes"_s);
    const ScreenyView* const second = &preview(1);
    const ScreenyView* const first = &preview(0);
    hover(u"Trash"_s);
    EXPECT_EQ(engine().row().cache().cacheArray().size(), 2U);
    EXPECT_EQ(second->elementRef(), nullptr);
    hover(u"Notes"_s);
    EXPECT_EQ(&preview(0), first) << "or two panels would be seen to change places";
    EXPECT_EQ(&preview(1), second);
    EXPECT_TRUE(engine().row().cache().cacheArray().empty());
    engine().removeAllScreenViews();
    engine().clearCache();
    EXPECT_EQ(engine().row().cache().cacheArray().size(), 6U);
    int style = -1;
    for (const char* look : {"Black", "", "Black", "Borderless", "Blue", "Red", "Green", "Black"})
        EXPECT_EQ(PreviewCache::interfaceFileForStyle(style++),
                  u"ScreenyView"_s + QString::fromLatin1(look));
}

} // namespace
} // namespace lumbrix::test
