// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A row that is opened and worked by the keyboard, and what is said of it.

#include <QtGui/QAccessible>
#include <QtGui/QKeyEvent>
#include <QtWidgets/QApplication>

#include "preview/KeyboardPanel.h"
#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class KeyboardRowTest : public EngineFixture
{
protected:
    void toggle()
    {
        engine().toggleKeyboardRow();
        loop.runUntilIdle();
    }
    static KeyboardPanel* panel()
    {
        for (QWidget* each : QApplication::topLevelWidgets())
            if (auto* found = qobject_cast<KeyboardPanel*>(each); found && found->isUp())
                return found;
        return nullptr;
    }
    void press(const std::vector<Qt::Key>& keys)
    {
        for (const Qt::Key key : keys) {
            QKeyEvent event(QEvent::KeyPress, key, {});
            QCoreApplication::sendEvent(panel()->focusWidget(), &event);
            loop.advance(0.2);
        }
    }
    /// What is said of the entry that has the focus.
    static QString said()
    {
        QAccessibleInterface* entry =
            panel() ? QAccessible::queryAccessibleInterface(panel()->focusWidget()) : nullptr;
        if (!entry)
            return {};
        EXPECT_EQ(entry->role(), QAccessible::ListItem);
        EXPECT_EQ(entry->parent()->role(), QAccessible::List);
        return entry->text(QAccessible::Name);
    }
    /// Whether the keyboard is whose it was, and nothing is left of the row.
    bool isOver() { return !desk.windowServer().hasKeyboard && !panel() && shown().isEmpty(); }
};

TEST_F(KeyboardRowTest, keys_moveRaiseAndClose_andEachStepIsSaid)
{
    add(u"Maps"_s, 1);
    const Pid pid = add(u"Notes"_s, 3);
    desk.minimizeWindow(idOf(u"Notes 2"_s));
    desk.activateApplication(pid);
    toggle();
    loop.advance(5);
    EXPECT_EQ(shown(), u"Notes 3, Notes 2, Notes 1"_s) << "it needs no mouse";
    EXPECT_TRUE(desk.windowServer().hasKeyboard);
    EXPECT_EQ(panel()->accessibleName(), u"Windows of Notes"_s);
    EXPECT_EQ(said(), u"Notes 3, 1 of 3, workspace 1"_s);
    press({Qt::Key_Left});
    EXPECT_EQ(said(), u"Notes 3, 1 of 3, workspace 1"_s);
    press({Qt::Key_Down});
    EXPECT_EQ(said(), u"Notes 2, 2 of 3, minimised, workspace 1"_s);
    EXPECT_TRUE(preview(1).isHovered());
    EXPECT_FALSE(preview(0).isHovered());
    press({Qt::Key_Right, Qt::Key_Right});
    EXPECT_EQ(said(), u"Notes 1, 3 of 3, workspace 1"_s);
    preview(0).mouseEntered(); // takes the choice along
    loop.advance(0.2);
    EXPECT_EQ(said(), u"Notes 3, 1 of 3, workspace 1"_s);
    EXPECT_FALSE(preview(2).isHovered());

    press({Qt::Key_Right, Qt::Key_Delete});
    loop.advance(1);
    EXPECT_EQ(shown(), u"Notes 3, Notes 1"_s);
    EXPECT_EQ(said(), u"Notes 1, 2 of 2, workspace 1"_s);
    press({Qt::Key_Return});
    EXPECT_TRUE(isOver());
    EXPECT_EQ(desk.stacking().front(), idOf(u"Notes 1"_s));
    EXPECT_EQ(desk.previewRequests().ended.size(), 0U) << "nobody else has asked";
}

TEST_F(KeyboardRowTest, everyEnd_givesTheKeyboardBack)
{
    const Pid pid = add(u"Notes"_s, 1);
    add(u"Maps"_s, 1);
    const std::pair<const char*, std::function<void()>> ends[] = {
        {"Escape", [&] { press({Qt::Key_Escape}); }},
        {"the key again", [&] { toggle(); }},
        {"Escape that was taken", [&] { engine().escape(); }},
        {"another program's request, which ends",
         [&] {
             auto& host = desk.previewRequests().host();
             host.show(desk.dockItem(u"Maps"_s));
             EXPECT_FALSE(panel());
             host.hide(desk.dockItem(u"Maps"_s));
         }},
        {"turned off",
         [&] {
             settings().disabled = 1;
             engine().settingsDidChange();
             settings().disabled = 0;
         }},
        {"the keyboard taken by another program", [&] { Q_EMIT panel()->left(); }},
        {"the last window closed", [&] { press({Qt::Key_Delete}); }},
    };
    for (const auto& [name, end] : ends) {
        SCOPED_TRACE(name);
        desk.activateApplication(pid);
        toggle();
        ASSERT_TRUE(panel());
        ASSERT_TRUE(desk.windowServer().hasKeyboard);
        end();
        loop.advance(2);
        EXPECT_TRUE(isOver());
        EXPECT_TRUE(isAtRest());
    }
    toggle(); // no window
    EXPECT_TRUE(isOver());
}

TEST_F(KeyboardRowTest, hoveredRow_takesNoKeyboard_andLongOneTurnsThePage)
{
    desk.activateApplication(add(u"Notes"_s, 17));
    toggle();
    for (int i = 0; i < 15; ++i)
        press({Qt::Key_Right});
    EXPECT_EQ(said(), u"Notes 2, 16 of 17, workspace 1"_s);
    press({Qt::Key_Escape});
    hover(u"Notes"_s);
    loop.advance(1);
    EXPECT_EQ(engine().screenyViews().size(), 15U);
    EXPECT_FALSE(panel());
    EXPECT_FALSE(desk.windowServer().hasKeyboard);
}

} // namespace
} // namespace lumbrix::test
