// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QtCore/QStringList>

#include "platform/StringLiterals.h"
#include "platform/linux/docks/ButtonMatcher.h"

namespace lumbrix::test
{

using namespace platform;

namespace
{

/// A button of the list "list", or of another one where the name has a slash: "menu/Files".
PanelButton button(const QString& name, int x)
{
    const bool isElsewhere = name.contains(u'/');
    return {.ref = {u":1.1"_s, QString::number(x)},
            .list = {u":1.1"_s, isElsewhere ? name.section(u'/', 0, 0) : u"list"_s},
            .name = isElsewhere ? name.section(u'/', 1) : name,
            .place = QRect(x, 0, 90, 30),
            .siblings = isElsewhere ? 1U : 5U};
}

ButtonWindow window(xcb_window_t id, const QString& title, std::int32_t application,
                    const QString& name, bool isIconic = false)
{
    return {.id = id,
            .title = title,
            .application = application,
            .applicationNames = {name},
            .isIconic = isIconic};
}

/// The buttons' places along the panel, and the windows of each: "100: 1 3, 200: 5".
std::string match(const std::vector<PanelButton>& buttons, const std::vector<ButtonWindow>& windows,
                  const ButtonWindows& before = {})
{
    QStringList result;
    const ButtonWindows matched = matchButtons(buttons, windows, before);
    for (const auto& [ref, ids] : matched) {
        QStringList numbers;
        for (const xcb_window_t id : ids)
            numbers << QString::number(id);
        result << ref.path + u": "_s + numbers.join(u' ');
    }
    result.sort();
    return result.join(u", "_s).toStdString();
}

QString text(const char* latin1) { return QString::fromLatin1(latin1); }

} // namespace

TEST(ButtonMatcherTest, titles_come_before_names_of_applications)
{
    const std::vector<ButtonWindow> windows{
        window(1, text("~"), 10, text("Term")), window(3, text("~"), 10, text("Term")),
        window(5, text("Files"), 20, text("Files")), window(7, text("Music"), 20, text("Files"))};
    struct Case {
        std::vector<PanelButton> buttons;
        const char* expected;
    };
    for (const Case& at : {
             // Of two windows with one title the earlier one comes first on the panel.
             Case{{button(text("~"), 300), button(text("~"), 200)}, "200: 1, 300: 3"},
             Case{{button(text("Term"), 100), button(text("Files"), 200),
                   button(text("Music"), 300)},
                  "100: 1 3, 200: 5, 300: 7"},
             // A group that is called like one of its windows; some panels count.
             Case{{button(text("Files"), 200)}, "200: 5 7"},
             Case{{button(text("term (2)"), 100)}, "100: 1 3"},
             Case{{button(text("[2] Files"), 100)}, "100: 5 7"},
             // One of the group stands alone.
             Case{{button(text("Files"), 100), button(text("Music"), 200)}, "100: 5, 200: 7"},
             // A menu is called like a window; the window buttons are the other ones.
             Case{{button(text("menu/Files"), 100), button(text("Files"), 200),
                   button(text("Music"), 300)},
                  "200: 5, 300: 7"},
             Case{{button(text("menu/Term"), 100), button(text("Music"), 300)}, "300: 7"},
             Case{{button(text("menu/Term"), 100), button(text("Term"), 200)}, "200: 1 3"},
             Case{{button(text("12:30"), 100), button(QString(), 200), button(text("~ <2>"), 300)},
                  "300: 1"},
             Case{{}, ""},
         })
        EXPECT_EQ(match(at.buttons, windows), at.expected);
}

TEST(ButtonMatcherTest, minimised_windows_are_known_in_brackets)
{
    const std::vector<ButtonWindow> windows{window(1, text("a"), 10, text("App"), true),
                                            window(3, text("b"), 10, text("App"))};
    EXPECT_EQ(match({button(text("[a]"), 100), button(text("[b]"), 200)}, windows), "100: 1");
    EXPECT_EQ(match({button(text("=b="), 200)}, windows), "200: 3");
}

TEST(ButtonMatcherTest, button_with_an_old_title_goes_on_standing_for_its_window)
{
    const PanelButton one = button(text("old"), 100);
    const PanelButton other = button(text("b"), 200);
    const ButtonWindows before{{one.ref, {1}}, {other.ref, {3}}};
    const ButtonWindow renamed = window(1, text("new"), 10, text("App"));
    EXPECT_EQ(match({one, other}, {renamed, window(3, text("b"), 20, text("Other"))}, before),
              "100: 1, 200: 3");
    // Its window is gone, and its title now another one's.
    EXPECT_EQ(match({one}, {window(5, text("old"), 10, text("App")), renamed}, before), "100: 5");
    EXPECT_EQ(match({one}, {window(7, text("x"), 10, text("App"))}, before), "");
}

} // namespace lumbrix::test
