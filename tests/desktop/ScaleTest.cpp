// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A desktop that draws everything twice as large, until the user has it draw smaller.
#include "DesktopTest.h"
#include "FontSettings.h"

namespace lumbrix::privatedesk
{

class ScaleTest : public DesktopTest
{
protected:
    /// Waits until the application's row is to the right of its icon, at the icon's height.
    Result showsBesideTheIcon(const Application& application)
    {
        hover(application);
        if (const Result shown = shows(application); !shown)
            return shown;
        const QPoint off = QPoint(row().left(), row().center().y()) - display().pointer();
        if (off.x() > 24 && off.x() < 250 && std::abs(off.y()) < 20)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << off.x() << ',' << off.y() << " from the pointer";
    }
};

INSTANTIATE_TEST_SUITE_P(, ScaleTest, testing::Values(enlarged(Edge::Left)), deskName);

TEST_P(ScaleTest, scale_changedMeanwhile_isThatOfTheNextRow)
{
    auto settings = std::make_unique<FontSettings>(display());
    settings->setDotsPerInch(192);
    desk().stopLumbrix();
    desk().startLumbrix({{u"badgeDock"_s, u"1"_s}});
    const Application& alpha = launch(u"alpha"_s, 2);
    ASSERT_TRUE(waitUntil([&] { return display().badges().size() == 1; }));
    EXPECT_TRUE(showsBesideTheIcon(alpha));
    savePicture("before");
    const auto width = [](const std::vector<Panel>& panels) {
        return panels.empty() ? 0 : panels.front().geometry.width();
    };
    const int count = width(display().badges());
    const int preview = width(display().previews());
    desk().park();
    ASSERT_TRUE(waitUntil([&] { return display().previews().empty(); }));

    settings->setDotsPerInch(96);
    ASSERT_TRUE(waitUntil([&] { return width(display().badges()) != count; }));
    EXPECT_TRUE(showsBesideTheIcon(alpha));
    savePicture("after");
    EXPECT_EQ(width(display().previews()), preview / 2);

    settings.reset();
    desk().stopLumbrix(); // it keeps the scale that it was told last
    desk().startLumbrix();
}

} // namespace lumbrix::privatedesk
