// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Lumbrix.h"
#include "platform/StringLiterals.h"

#include <QtCore/QFile>

namespace lumbrix::privatedesk
{

namespace
{

/// What a user has after the first start, without the welcome.
const Settings ordinary{
    {u"firstRun"_s, u"true"_s},   {u"badgeDockIconsFirstRun"_s, u"true"_s},
    {u"showInDock"_s, u"1"_s},    {u"showInTab"_s, u"1"_s},
    {u"windowWidth"_s, u"243"_s}, {u"windowHeight"_s, u"190"_s},
    {u"spaceSize"_s, u"0"_s},     {u"showFastKeys"_s, u"1"_s},
    {u"zoomWindows"_s, u"1"_s},   {u"showSpaces"_s, u"0"_s},
    {u"badgePosition"_s, u"3"_s}, {u"distanceFromDock"_s, u"33"_s},
    {u"previewStyle"_s, u"1"_s},  {u"shouldBubbleWrap"_s, u"1"_s},
    {u"shouldShowCal"_s, u"1"_s}, {u"keepOnTheWay"_s, u"1"_s},
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
    return session.configPath(u"lumbrix/lumbrix.conf"_s);
}

std::unique_ptr<Process> startLumbrix(Session& session, const std::function<void()>& approach)
{
    QFile::remove(session.path(u"logs/lumbrix"_s));
    // The machine's own system bus is none of ours.
    auto lumbrix =
        session.start(u"lumbrix"_s, u"env"_s,
                      {u"DBUS_SYSTEM_BUS_ADDRESS="_s + session.busAddress(), lumbrixBinary()});

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
