// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Desk.h"

#include <QtCore/QDir>
#include <QtCore/QFile>

namespace lumbrix::desktoptest
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

Desk::Desk(const DeskOptions& options) : m_options(options), m_session(options.session)
{
    QStringList entries;
    const std::vector<std::pair<QString, QColor>> applications{
        {u"alpha"_qs, Qt::red}, {u"beta"_qs, Qt::darkGreen}, {u"gamma"_qs, Qt::blue}};
    for (const auto& [identifier, colour] : applications) {
        const QString name = identifier.at(0).toUpper() + identifier.mid(1);
        entries << m_session.installApplication(
            identifier, name, name, QStringLiteral(LUMBRIX_TEST_CLIENT " ") + identifier, colour);
    }
    m_dock = Dock::start(m_session, options.dock, options.edge, entries);
    park();
}

Desk::~Desk() = default;

std::unique_ptr<Application> Desk::launch(const QString& identifier)
{
    return std::make_unique<Application>(m_session, identifier);
}

void Desk::startLumbrix(const Settings& changed)
{
    if (m_lumbrix && m_lumbrix->isRunning() && m_settings == changed)
        return;
    stopLumbrix();
    m_settings = changed;
    Settings all = ordinary;
    all.insert(changed);
    QByteArray file = "[General]\n";
    for (auto it = all.cbegin(); it != all.cend(); ++it)
        file += (it.key() + u'=' + it.value() + u'\n').toUtf8();
    m_session.write(m_session.configPath(u"lumbrix/lumbrix.conf"_qs), file);
    QFile::remove(m_session.path(u"logs/lumbrix"_qs));
    m_lumbrix = m_session.start(u"lumbrix"_qs, lumbrixBinary());

    // It says nowhere that it is ready, so ask as a person would: hover until something shows.
    const auto probe = launch(u"alpha"_qs);
    probe->open("probe", Qt::gray);
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + patience(15000);
    while (display().previews().empty()) {
        if (Clock::now() > deadline || !m_lumbrix->isRunning())
            qFatal("Lumbrix does not answer to the pointer:\n%s", qPrintable(m_session.logs()));
        park();
        if (hover(*probe))
            display().waitFor([&] { return !display().previews().empty(); }, patience(400));
    }
    park();
    display().waitFor([&] { return display().panels().empty(); }, patience(3000));
}

void Desk::stopLumbrix() { m_lumbrix.reset(); }

bool Desk::hover(const Application& application)
{
    if (application.windows().empty())
        return false;
    std::optional<QPoint> icon;
    display().waitFor(
        [&] {
            icon = m_dock->iconOf(application, application.windows().front());
            return icon.has_value();
        },
        patience(5000));
    if (icon)
        display().moveTo(*icon);
    return icon.has_value();
}

void Desk::park()
{
    const QSize size = display().size();
    display().moveTo(QPoint(size.width() / 2, size.height() / 3));
}

void Desk::savePicture(const QString& name)
{
    const QString folder = QStringLiteral(LUMBRIX_TEST_OUTPUT);
    QDir().mkpath(folder);
    display().picture().save(folder + u'/' + name + u".png"_qs);
}

} // namespace lumbrix::desktoptest
