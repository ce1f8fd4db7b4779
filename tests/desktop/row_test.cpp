// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The row of previews while its windows come, go and change.
#include "DesktopTest.h"

#include <set>

namespace lumbrix::privatedesk
{

class RowTest : public DesktopTest
{
};

INSTANTIATE_TEST_SUITE_P(, RowTest, testing::Values(plank(), tint2(), xfcePanel()), deskName);

TEST_P(RowTest, windows_openedChangedAndClosed_areFollowed)
{
    Application& alpha = launch(u"alpha"_qs, 2);
    hover(alpha);
    ASSERT_TRUE(shows(alpha));
    alpha.open(1);
    EXPECT_TRUE(shows(alpha, 1000)) << "after a window was opened";
    alpha.setTitle(alpha.windows()[1], "renamed");
    alpha.setColour(alpha.windows()[1], Qt::white);
    EXPECT_TRUE(shows(alpha, 2000)) << "after a window changed";
    alpha.destroy(alpha.windows()[2]);
    EXPECT_TRUE(shows(alpha, 1000)) << "after a window was closed";
}

TEST_P(RowTest, windows_twenty_showTheFirstFifteen)
{
    const Application& alpha = launch(u"alpha"_qs, 20);
    hover(alpha);
    ASSERT_TRUE(waitUntil([&] { return display().previews().size() == 15; }));
    savePicture("fifteen");
    std::set<QByteArray> shown;
    for (const Panel& panel : display().previews()) {
        shown.insert(panel.title);
        EXPECT_TRUE(QRect(QPoint(), display().size()).contains(panel.geometry));
        const auto window = std::ranges::find(alpha.windows(), panel.title, &AppWindow::title);
        ASSERT_NE(window, alpha.windows().end()) << panel.title.constData();
        EXPECT_TRUE(waitUntil([&] {
            return portionOf(display().picture(panel.geometry), window->colour) > 0.02;
        })) << panel.title.constData();
    }
    EXPECT_EQ(shown.size(), 15U);
}

TEST_P(RowTest, windows_maximisedWithTheSameTitle_showBothPictures)
{
    Application& alpha = launch(u"alpha"_qs);
    for (const QColor& colour : {QColor(Qt::red), QColor(Qt::blue)})
        alpha.maximise(alpha.open("the same", colour));
    hover(alpha);
    EXPECT_TRUE(shows(alpha));
}

TEST_P(RowTest, titles_hostile_areShownAsPlainText)
{
    const QByteArray markup = "<b>bold</b> &amp; <img src=\"file:///etc/passwd\">%s%n";
    Application& alpha = launch(u"alpha"_qs);
    alpha.open(markup, Qt::red);
    hover(alpha);
    EXPECT_TRUE(shows(alpha));
    EXPECT_TRUE(preview(markup));

    const AppWindow window = alpha.windows().front();
    const QByteArray broken = "broken \xff\xc3\x28 text\n\x01second line";
    for (const QByteArray& title : {QByteArray(100 * 1024, 'x'), broken}) {
        alpha.setTitle(window, title);
        EXPECT_TRUE(waitUntil([&] {
            const auto now = display().previews();
            return now.size() == 1 && now.front().title.startsWith(title.left(6));
        })) << "with the title "
            << title.left(30).constData();
        const auto shown = display().previews();
        ASSERT_EQ(shown.size(), 1U);
        EXPECT_LT(shown.front().title.size(), 5000);
        EXPECT_EQ(QString::fromUtf8(shown.front().title).toUtf8(), shown.front().title);
    }
    savePicture("broken");
}

} // namespace lumbrix::privatedesk
