// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <limits>

#include "platform/StringLiterals.h"
#include "preview/BadgeView.h"
#include "preview/Cells.h"
#include "preview/NamedImage.h"
#include "preview/NumberLabel.h"
#include "tests/preview/PanelFixture.h"

namespace lumbrix::test
{
namespace
{

class SpacesBadge : public PanelFixture
{
protected:
    SpacesBadge() { host.settingsMirror.showSpaces = 1; }

    /// "<label>@<frame in the panel>", nothing when there is no badge.
    static QString badge(const ScreenyView& preview)
    {
        const BadgeView* view = preview.spaceView();
        if (!view || view->isHidden())
            return {};
        QStringList labels;
        for (const auto size : {BadgeView::Small, BadgeView::Medium, BadgeView::Large})
            if (!view->label(size)->isHidden())
                labels += view->label(size)->text();
        const QRect r = view->geometry();
        return u"%1@%2,%3 %4x%5"_s.arg(labels.join(u'+'))
            .arg(r.x())
            .arg(r.y())
            .arg(r.width())
            .arg(r.height());
    }
};

TEST_F(SpacesBadge, sizes_shrinkUntilTheyTakeHalfThePanelAtMost)
{
    const struct {
        int size;
        double height;
        const char* expected; ///< distances from the panel's left and top
    } cases[] = {
        {0, 190, "3@203,16 30x30"},
        {1, 190, "3@173,13 60x60"},
        {2, 190, "3@113,7 120x120"},
        {2, 180, "3@113,7 120x120"}, // just fits
        {2, 179, "3@173,13 60x60"},
        {2, 119, "3@203,16 30x30"},
        {1, 100, "3@203,16 30x30"},
        {2, 50, "3@203,16 30x30"},   // from medium it stays small, however low the panel
        {0, 59, ""},                 // no size to shrink to
        {3, 190, "3@113,7 120x120"}, // unknown sizes shrink into the known ones ...
        {3, 1000, ""},               // ... or are left alone
        {-1, 190, ""},
        {std::numeric_limits<std::int32_t>::max(), 190, "3@113,7 120x120"},
    };
    for (const auto& [size, height, expected] : cases) {
        host.settingsMirror.spaceSize = size;
        const ScreenyViewPtr panel = preview({10, 20, 243, height}, 3);
        panel->showSpaces();
        EXPECT_EQ(badge(*panel), QString::fromLatin1(expected)) << size << " " << height;
    }
}

TEST_F(SpacesBadge, numbers_onlyFromOneToFiftyNine)
{
    for (const auto& [space, expected] : {std::pair(0, ""), {1, "1"}, {59, "59"}, {60, ""}}) {
        const ScreenyViewPtr panel = preview({0, 0, 243, 190}, space);
        panel->showSpaces();
        EXPECT_EQ(badge(*panel).section(u'@', 0, 0), QString::fromLatin1(expected)) << space;
    }
    // A badge that is up goes when the preview comes to show a window without a number.
    const ScreenyViewPtr panel = preview({0, 0, 243, 190}, 7);
    panel->showSpaces();
    ASSERT_EQ(badge(*panel).section(u'@', 0, 0), u"7"_s);
    panel->setElementRef(preview({0, 0, 243, 190}, 0)->elementRef());
    panel->showSpaces();
    EXPECT_EQ(badge(*panel), QString());
    // Or when the panel becomes too low for any.
    panel->setElementRef(preview({0, 0, 243, 190}, 7)->elementRef());
    panel->showSpaces();
    panel->window()->setFrame({0, 0, 70, 59});
    panel->showSpaces();
    EXPECT_EQ(badge(*panel), QString());

    host.settingsMirror.showSpaces = 0;
    const ScreenyViewPtr without = preview({0, 0, 243, 190}, 7);
    without->showSpaces();
    EXPECT_FALSE(without->spaceView());
}

TEST_F(SpacesBadge, nextLife_keepsTheBadgeButShowsNothingOfTheFormerOne)
{
    host.settingsMirror.spaceSize = 2;
    const ScreenyViewPtr panel = preview({0, 0, 243, 190}, 4);
    panel->showSpaces();
    const BadgeView* view = panel->spaceView();
    const SWElementPtr window = panel->elementRef();
    for (const auto& end : {&ScreenyView::rebirth, &ScreenyView::dismissWithoutRebirth,
                            &ScreenyView::prepareForCal}) {
        (panel.get()->*end)();
        EXPECT_EQ(badge(*panel), QString());
        for (const auto size : {BadgeView::Small, BadgeView::Medium, BadgeView::Large})
            EXPECT_TRUE(view->label(size)->isHidden());
        panel->setElementRef(window);
        host.settingsMirror.spaceSize = 0;
        panel->showSpaces();
        EXPECT_EQ(badge(*panel), u"4@203,16 30x30"_s);
    }
    EXPECT_EQ(panel->spaceView(), view);
}

TEST_F(SpacesBadge, style_oneIsBlue)
{
    QStringList images;
    for (const int style : {0, 1, 2}) {
        host.settingsMirror.spaceStyle = style;
        const ScreenyViewPtr panel = preview({0, 0, 243, 190});
        panel->showSpaces();
        images += panel->spaceView()->badgeImage()->imageName();
        EXPECT_FALSE(namedImage(images.last()).isNull()) << qPrintable(images.last());
    }
    EXPECT_EQ(images, QStringList({u"Space"_s, u"SpaceBlue"_s, u"Space"_s}));
}

} // namespace
} // namespace lumbrix::test
