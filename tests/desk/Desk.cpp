// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Desk.h"

#include <QtCore/QDir>

namespace lumbrix::privatedesk
{

Desk::Desk(const DeskOptions& options) : m_options(options), m_session(options.session)
{
    const std::vector<std::pair<QString, QColor>> applications{
        {u"alpha"_s, Qt::red}, {u"beta"_s, Qt::darkGreen}, {u"gamma"_s, Qt::blue}};
    const auto install = [this](const QString& identifier, const QColor& colour) {
        const QString name = identifier.at(0).toUpper() + identifier.mid(1);
        return m_session.installApplication(
            identifier, name, name, QStringLiteral(LUMBRIX_TEST_CLIENT " ") + identifier, colour);
    };
    for (const auto& [identifier, colour] : applications)
        m_entries << install(identifier, colour);
    install(u"delta"_s, Qt::darkYellow);
    if (options.panel)
        m_panel = Dock::start(m_session, *options.panel, Edge::Top);
    changeDock(options.dock, {options.edge, options.monitor});
    park();
}

Desk::~Desk() = default;

void Desk::changeDock(DockKind kind, const DockPlace& place)
{
    m_dock.reset();
    m_dock = Dock::start(m_session, kind, place, m_entries);
}

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
    const auto probe = launch(u"alpha"_s);
    probe->open("probe", Qt::gray);
    m_lumbrix = privatedesk::startLumbrix(m_session, changed, [&] {
        park();
        hover(*probe);
    });
    park();
    display().waitFor([&] { return display().panels().size() == display().badges().size(); });
}

void Desk::startLumbrixAgain(const Application& application)
{
    stopLumbrix();
    m_settings.reset();
    m_lumbrix = privatedesk::startLumbrix(m_session, [&] {
        park();
        hover(application);
    });
}

void Desk::stopLumbrix() { m_lumbrix.reset(); }

std::optional<QPoint> Desk::iconOf(const Application& application)
{
    if (application.windows().empty())
        return std::nullopt;
    std::optional<QPoint> icon;
    display().waitFor(
        [&] {
            // Windows that share a button need not all have been told of it yet.
            for (const AppWindow& window : application.windows()) {
                icon = m_dock->iconOf(application.entry(), window.id);
                if (icon)
                    break;
            }
            return icon.has_value();
        },
        patience(10000));
    return icon;
}

bool Desk::hover(const Application& application)
{
    const auto icon = iconOf(application);
    if (icon)
        display().moveTo(*icon);
    return icon.has_value();
}

void Desk::park()
{
    const QRect area = m_session.monitors().front().area;
    display().moveTo(area.topLeft() + QPoint(area.width() / 2, area.height() / 3));
}

void Desk::savePicture(const QString& name)
{
    const QString folder = QStringLiteral(LUMBRIX_TEST_OUTPUT);
    QDir().mkpath(folder);
    display().picture().save(folder + u'/' + name + u".png"_s);
}

} // namespace lumbrix::privatedesk
