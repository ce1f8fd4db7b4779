// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Settings files that no one would want to have.
#include "DesktopTest.h"
#include "platform/StringLiterals.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace lumbrix::privatedesk
{
namespace
{

/// Of a user who has not started this version yet, so that starting it writes the file.
const QByteArray ofAnEarlierVersion = "[General]\nfirstRun=true\nshowInDock=1\nwindowWidth=300\n"
                                      "windowHeight=190\nzoomWindows=1\n";

QByteArray flood()
{
    QByteArray bytes;
    while (bytes.size() < 10'000'000)
        bytes += "[section]\nwindowWidth=7\n\xff\xfe key of nobody = \x01\n";
    return bytes;
}

} // namespace

class SettingsTest : public DesktopTest
{
protected:
    QString path() { return settingsPath(desk().session()); }
    /// Starts Lumbrix with this file.
    void startWith(const QByteArray& bytes, const Application& application)
    {
        desk().stopLumbrix();
        desk().session().write(path(), bytes);
        desk().startLumbrixAgain(application);
    }
};

INSTANTIATE_TEST_SUITE_P(, SettingsTest, testing::Values(plank()), deskName);

TEST_P(SettingsTest, file_damaged_isReadAsFarAsItGoesAndKept)
{
    const Application& alpha = launch(u"alpha"_s, 1);
    const std::pair<const char*, QByteArray> damages[] = {
        {"cut off", "exitDelay=0.5\n[filters]\nAll appli"},
        {"not text", QByteArray("\0\0=\0\n\xff\xfe\xc3=\xc3\n[\xc3]\n]\n[\n=\n\0", 22)},
        {"far too long", flood()},
    };
    for (const auto& [what, damage] : damages) {
        SCOPED_TRACE(what);
        startWith(ofAnEarlierVersion + damage, alpha);
        ASSERT_TRUE(shows(alpha));
        EXPECT_EQ(display().previews().front().geometry.width(), 300);
        EXPECT_TRUE(
            waitUntil([this] { return settings().contains("\nbadgeDockIconsFirstRun=true\n"); }));
        QByteArray rest = settings();
        for (const char* added : {"badgeDockIconsFirstRun=true\n", "badgePosition=3\n",
                                  "badgeDock=1\n", "distanceFromDock=33\n", "previewStyle=1\n",
                                  "shouldBubbleWrap=1\n", "shouldShowCal=1\n"})
            rest.replace(rest.indexOf(added), qstrlen(added), "");
        EXPECT_TRUE(rest == ofAnEarlierVersion + damage) << "something of it went";
        EXPECT_EQ(desk().complaints().toStdString(), "");
    }
}

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

TEST_P(SettingsTest, place_ofNoUse_isToldOnceAndPreviewsShow)
{
    const Application& alpha = launch(u"alpha"_s, 1);
    desk().stopLumbrix();
    ASSERT_TRUE(QFile::remove(path()) && QDir().mkdir(path()));
    desk().startLumbrixAgain(alpha);
    EXPECT_TRUE(waitUntil([this] { return !display().previews().empty(); }));
    const QString complaints = desk().complaints();
    EXPECT_TRUE(complaints.startsWith(u"lumbrix: the settings in "_s + path()));
    EXPECT_EQ(complaints.count(u'\n'), 1) << qPrintable(complaints);
    ASSERT_TRUE(QDir().rmdir(path()));
    desk().startLumbrix();
}

} // namespace lumbrix::privatedesk
