// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Lumbrix.h"

#include <QtCore/QFile>

namespace lumbrix::privatedesk
{

namespace
{

/// What a user has after the first start, without the welcome.
const Settings ordinary{
    {u"firstRun"_qs, u"true"_qs},   {u"badgeDockIconsFirstRun"_qs, u"true"_qs},
    {u"showInDock"_qs, u"1"_qs},    {u"showInTab"_qs, u"1"_qs},
    {u"windowWidth"_qs, u"243"_qs}, {u"windowHeight"_qs, u"190"_qs},
    {u"spaceSize"_qs, u"0"_qs},     {u"showFastKeys"_qs, u"1"_qs},
    {u"zoomWindows"_qs, u"1"_qs},   {u"showSpaces"_qs, u"0"_qs},
    {u"badgePosition"_qs, u"3"_qs}, {u"distanceFromDock"_qs, u"33"_qs},
    {u"previewStyle"_qs, u"1"_qs},  {u"shouldBubbleWrap"_qs, u"1"_qs},
    {u"shouldShowCal"_qs, u"1"_qs},
};

} // namespace

QString lumbrixBinary()
{
    const QString named = qEnvironmentVariable("LUMBRIX_BINARY");
    return named.isEmpty() ? QStringLiteral(LUMBRIX_BUILT_BINARY) : named;
}

std::unique_ptr<Process> startLumbrix(Session& session, const Settings& changed,
                                      const std::function<void()>& approach)
{
    Settings all = ordinary;
    all.insert(changed);
    QByteArray file = "[General]\n";
    for (auto it = all.cbegin(); it != all.cend(); ++it)
        file += (it.key() + u'=' + it.value() + u'\n').toUtf8();
    session.write(settingsPath(session), file);
    return startLumbrix(session, approach);
}

QString settingsPath(const Session& session)
{
    return session.configPath(u"lumbrix/lumbrix.conf"_qs);
}

std::unique_ptr<Process> startLumbrix(Session& session, const std::function<void()>& approach)
{
    QFile::remove(session.path(u"logs/lumbrix"_qs));
    auto lumbrix = session.start(u"lumbrix"_qs, lumbrixBinary());

    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + patience(15000);
    Display& display = session.display();
    while (display.previews().empty()) {
        if (Clock::now() > deadline || !lumbrix->isRunning())
            qFatal("Lumbrix does not answer to the pointer:\n%s", qPrintable(session.logs()));
        approach();
        display.waitFor([&] { return !display.previews().empty(); }, patience(400));
    }
    return lumbrix;
}

} // namespace lumbrix::privatedesk
