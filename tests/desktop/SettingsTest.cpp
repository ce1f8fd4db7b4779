// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Settings files that no one would want to have.
#include "DesktopTest.h"
#include "platform/StringLiterals.h"

namespace lumbrix::privatedesk
{

class SettingsTest : public DesktopTest
{
protected:
    /// Starts Lumbrix with this file.
    void startWith(const QByteArray& bytes, const Application& application)
    {
        desk().stopLumbrix();
        desk().session().write(settingsPath(desk().session()), bytes);
        desk().startLumbrixAgain(application);
    }
};

INSTANTIATE_TEST_SUITE_P(, SettingsTest, testing::Values(plank()), deskName);

TEST_P(SettingsTest, values_ofWrongTypes_harmNobody)
{
    const Application& alpha = launch(u"alpha"_s, 2);
    const QStringList keys =
        u"hideIcon dontDelayIfOpen monoChrome distanceFromDock ignoreHidden "
        u"ignoreMinimized showSpaces zoomWindows shouldShowCal previewStyle spaceStyle spaceSize "
        u"hideControls closeOnClick ignoreOneWindow onlyIfKeycode hidePreviewsKeycode showFastKeys "
        u"disableLivePreviews tempDisableFilters tempDisableFiltersKeycode showOthersInDockIcon "
        u"hideClose badgeDock badgePosition badgeOnlyIfMore badgeSizeExtra winBadgeColor "
        u"shouldBubbleWrap keepOnMiddleClick calendars"_s.split(u' ');
    const char* values[] = {"none", "-7", "1e30", "@data(\\x00\\xff", "99999999999", "\"", ""};
    for (const char* value : values) {
        SCOPED_TRACE(value);
        QByteArray bytes = "[General]\nfirstRun=1\nbadgeDockIconsFirstRun=1\nshowInDock=1\n"
                           "windowWidth=243\nwindowHeight=190\n";
        for (const QString& key : keys)
            bytes += key.toUtf8() + '=' + value + '\n';
        for (const char* key : {"closeAllWindowsKey", "enableDisableKey", "filters"})
            bytes += '[' + QByteArray(key) + "]\nkeyCode=" + value + "\nmodifiers=" + value + '\n';
        startWith(bytes, alpha);
        EXPECT_TRUE(waitUntil([this] { return !display().previews().empty(); }));
        EXPECT_EQ(settings(), bytes) << "starting changes no setting";
        EXPECT_EQ(desk().complaints().toStdString(), "");
    }
}

} // namespace lumbrix::privatedesk
