// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The Filters pane of the preferences, by keyboard.
#include "DesktopTest.h"

#include <QtCore/QFile>

namespace lumbrix::privatedesk
{
namespace
{

// Key codes of the server's keyboard.
constexpr std::uint8_t altKey = 64, controlKey = 37;
constexpr std::uint8_t tabKey = 23, returnKey = 36, endKey = 115;
constexpr std::uint8_t aKey = 38, lKey = 46, pKey = 33;

} // namespace

class FilterTest : public DesktopTest
{
protected:
    /// The window of Lumbrix with this role; none while there is none.
    xcb_window_t window(const QByteArray& role)
    {
        for (const xcb_window_t each : display().numbers(display().root(), "_NET_CLIENT_LIST")) {
            if (display().bytes(each, "WM_WINDOW_ROLE") == role)
                return each;
        }
        return XCB_NONE;
    }
    Result getsFocus(const QByteArray& role)
    {
        return waitUntil([&] {
                   const xcb_window_t found = window(role);
                   return found && display().activeWindow() == found;
               })
               << "no window '" << role.constData() << "' with the focus";
    }
    void openPane()
    {
        const auto second = desk().session().start(u"second"_qs, lumbrixBinary());
        ASSERT_TRUE(getsFocus("preferences"));
        const auto isShown = [this] {
            return display().bytes(window("preferences"), "_NET_WM_NAME") == "Filters";
        };
        display().type({controlKey, tabKey});
        ASSERT_TRUE(waitUntil(isShown));
    }
    QList<QByteArray> storedLines()
    {
        QFile file(settingsPath(desk().session()));
        return file.open(QIODevice::ReadOnly) ? file.readAll().split('\n') : QList<QByteArray>();
    }
};

INSTANTIATE_TEST_SUITE_P(, FilterTest, testing::Values(plank(), tint2()), deskName);

TEST_P(FilterTest, blockAll_chosenWhilePreviewsShow_stopsThemAtOnceAndForGood)
{
    const Application& alpha = launch(u"alpha"_qs, 2);
    const Application& beta = launch(u"beta"_qs, 1);
    openPane();
    display().type({altKey, aKey});
    ASSERT_TRUE(getsFocus("alert"));
    for (const std::uint8_t key : {aKey, lKey, pKey}) // "Alpha"
        display().type({key});
    display().type({tabKey});
    display().type({endKey}); // "Block all"
    hover(alpha);
    ASSERT_TRUE(shows(alpha)) << "the sheet holds the previews up";
    savePicture("sheet");
    display().type({returnKey});
    EXPECT_TRUE(waitUntil([this] { return display().previews().empty(); }, 400))
        << "at once, not with the next update";
    EXPECT_TRUE(waitUntil([this] { return window("alert") == XCB_NONE; }));
    EXPECT_TRUE(waitUntil([this] { return storedLines().contains("alpha=3"); }));
    EXPECT_TRUE(storedLines().contains("All applications=2"));
    savePicture("pane");
    hover(beta);
    EXPECT_TRUE(shows(beta));

    desk().startLumbrixAgain(beta);
    hover(alpha);
    EXPECT_TRUE(waitUntil([this] { return display().previews().empty(); }));
    EXPECT_FALSE(waitUntil([this] { return !display().previews().empty(); }, 1000));
}

} // namespace lumbrix::privatedesk
