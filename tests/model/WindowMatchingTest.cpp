// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which entry of the window server's list an accessibility window is.

#include "tests/model/ModelFixture.h"

namespace lumbrix::test
{
namespace
{

class WindowMatching : public ModelFixture
{
protected:
    /// Window number that the element is matched to; 0 = none.
    WindowID match(WindowID window)
    {
        const SWElementPtr result = element(window);
        return result->findPIDandWID(list()) ? result->wid() : 0;
    }
    void change(WindowID window, const std::function<void(SimulatedWindow&)>& change)
    {
        desk.changeWindow(window, change);
    }
};

TEST_F(WindowMatching, window_isFoundByItsExactFrameAndTitle)
{
    const Pid notes = addApplication(u"Notes"_s);
    const Pid maps = addApplication(u"Maps"_s);
    const QRectF frame(10.5, 20, 400, 300);
    const WindowID wanted = desk.addWindow(notes, {u"Same"_s, frame});
    desk.addWindow(maps, {u"Same"_s, frame});
    desk.addWindow(notes, {.title = u"Same"_s, .frame = frame, .layer = 3});
    desk.addWindow(notes, {u"Other"_s, frame});

    const SWElementPtr found = matched(wanted);
    EXPECT_EQ(found->wid(), wanted);
    EXPECT_EQ(found->pid(), notes);
    EXPECT_EQ(found->frame(), frame);
    EXPECT_EQ(found->bundle(), u"org.example.Notes"_s);

    change(wanted, [&](auto& window) { window.listedFrame = frame.translated(1e-9, 0); });
    EXPECT_EQ(match(wanted), 0U);
    change(wanted, [](auto& window) { window.listedFrame.reset(), window.frame = {5, 5, 49, 49}; });
    EXPECT_EQ(match(wanted), 0U); // too small to be a window
}

TEST_F(WindowMatching, twins_resolveToTheFrontmost_unlessTheNumberIsKnown)
{
    const Pid notes = addApplication(u"Notes"_s);
    const WindowID back = desk.addWindow(notes, {u"Untitled"_s});
    const WindowID front = desk.addWindow(notes, {u"Untitled"_s});
    EXPECT_EQ(match(back), front);
    desk.with([](SimulatedState& state) { state.knowsWindowNumbers = true; });
    EXPECT_EQ(match(back), back);
    EXPECT_EQ(match(front), front);
}

TEST_F(WindowMatching, titles_areComparedAtTheStandardLevelOnly_butNeverEmpty)
{
    const Pid notes = addApplication(u"Notes"_s);
    const WindowID number = desk.addWindow(
        notes, {.title = u"Long title, told in full"_s, .listedName = u"Long title, ..."_s});
    EXPECT_EQ(match(number), 0U);
    for (const int level : {0, 1, 3, 4}) {
        levels[u"org.example.Notes"_s] = level;
        EXPECT_EQ(match(number), number) << level;
        change(number, [](auto& each) { each.title.clear(); });
        EXPECT_EQ(match(number), 0U) << level;
        change(number, [](auto& each) { each.title = u"Long title, told in full"_s; });
    }
}

TEST_F(WindowMatching, finderAtItsOwnLevel_isMatchedWithOrWithoutItsTabs)
{
    const Pid finder = desk.addApplication({u"Finder"_s, u"com.apple.finder"_s});
    const WindowID number = desk.addWindow(finder, {u"Home"_s, {0, 100, 500, 400}});
    const QRectF trimmed(0, 128, 500, 372);
    for (const QRectF& listed : {QRectF(0, 100, 500, 400), trimmed}) {
        change(number, [&](auto& window) { window.listedFrame = listed; });
        EXPECT_EQ(matched(number)->frame(), trimmed);
    }
    change(number, [](auto& window) { window.listedName = u"Elsewhere"_s; });
    EXPECT_EQ(match(number), 0U);
    levels[u"com.apple.finder"_s] = 2; // an application like any other
    change(number, [](auto& window) { window.listedName.reset(); });
    EXPECT_EQ(match(number), 0U);
}

TEST_F(WindowMatching, illustrator_prefersItsOnscreenWindow)
{
    const Pid illustrator = desk.addApplication({u"Illustrator"_s, u"com.adobe.illustrator"_s});
    const auto add = [&](double trim, bool isOnscreen) {
        return desk.addWindow(illustrator, {.title = u"Drawing"_s,
                                            .frame = {0, 0, 800, 600},
                                            .listedFrame = QRectF(0, trim, 800, 600 - trim),
                                            .listedName = u"?"_s,
                                            .isOnscreen = isOnscreen});
    };
    const WindowID last = add(22, false);
    add(42, false);
    EXPECT_EQ(match(last), last); // the last off-screen one stands ...
    EXPECT_EQ(matched(last)->frame(), QRectF(0, 22, 800, 578));
    const WindowID shown = add(42, true);
    add(22, false);
    EXPECT_EQ(match(last), shown); // ... unless there is one on the screen
    change(last, [](auto& window) { window.title.clear(); });
    EXPECT_EQ(match(last), 0U);
}

TEST_F(WindowMatching, vanishedOrUnreadableWindow_isNotMatched)
{
    const Pid notes = addApplication(u"Notes"_s);
    const WindowID number = desk.addWindow(notes, {u"Ideas"_s});
    const SWElementPtr window = element(number);
    const auto before = list();
    desk.changeApplication(notes, [](auto& application) { application.responds = false; });
    EXPECT_FALSE(window->findPIDandWID(before));
    desk.changeApplication(notes, [](auto& application) { application.responds = true; });
    desk.closeWindow(number);
    EXPECT_FALSE(window->findPIDandWID(before));

    EXPECT_FALSE(SWElement::testWindow(ports(), 0));
    EXPECT_FALSE(SWElement::testWindow(ports(), number));
    const auto isWindow = [&](double width, double height) {
        return SWElement::testWindow(ports(),
                                     desk.addWindow(notes, {u"x"_s, {0, 0, width, height}}));
    };
    EXPECT_FALSE(isWindow(49, 49));
    EXPECT_TRUE(isWindow(49, 50));
    EXPECT_TRUE(isWindow(50, 1));
    EXPECT_FALSE(isWindow(0, 500));
}

} // namespace
} // namespace lumbrix::test
