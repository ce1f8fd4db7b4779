// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Application.h"
#include "platform/StringLiterals.h"

#include <algorithm>

namespace lumbrix::privatedesk
{

QColor lowerColour(const QColor& colour)
{
    return {colour.red() / 2, colour.green() / 2, colour.blue() / 2};
}

Application::Application(Session& session, const QString& identifier)
    : m_session(session), m_identifier(identifier)
{
    m_process = session.start(u"application-"_s + identifier, QStringLiteral(LUMBRIX_TEST_CLIENT),
                              {identifier}, true);
}

Application::~Application()
{
    m_process->stop();
    Display& display = m_session.display();
    display.waitFor([&] {
        const auto listed = display.numbers(display.root(), "_NET_CLIENT_LIST");
        return std::none_of(m_windows.begin(), m_windows.end(), [&](const AppWindow& window) {
            return std::count(listed.begin(), listed.end(), window.id) != 0;
        });
    });
}

QString Application::entry() const
{
    return m_session.dataPath(u"applications/"_s + m_identifier + u".desktop"_s);
}

std::vector<QByteArray> Application::titles() const
{
    std::vector<QByteArray> result;
    for (const AppWindow& window : m_windows)
        result.push_back(window.title);
    return result;
}

AppWindow Application::open(const QByteArray& title, const QColor& colour,
                            const WindowOptions& options)
{
    const QByteArray reply = command(u"open %1 %2 %3 %4 %5 "_s.arg(options.size.width())
                                         .arg(options.size.height())
                                         .arg(options.position.x())
                                         .arg(options.position.y())
                                         .arg(colour.rgb() & 0xffffffU)
                                         .toLatin1() +
                                     title.toHex());
    const QList<QByteArray> fields = reply.split(' ');
    if (fields.size() != 3)
        qFatal("the test application did not open a window: %s", reply.constData());
    AppWindow window{fields[1].toInt(), fields[2].toUInt(), title, colour};
    m_windows.push_back(window);
    Display& display = m_session.display();
    display.waitFor([&] {
        const auto listed = display.numbers(display.root(), "_NET_CLIENT_LIST");
        return std::count(listed.begin(), listed.end(), window.id) != 0 &&
               display.activeWindow() == window.id;
    });
    return window;
}

void Application::open(int count)
{
    const int first = static_cast<int>(m_windows.size());
    // Applications start at different hues, so that no two windows on the desktop look alike.
    const int base = m_identifier.isEmpty() ? 0 : (m_identifier.at(0).unicode() - u'a') * 110;
    for (int i = first; i < first + count; ++i) {
        const QColor colour = QColor::fromHsv((base + i * 47) % 360, 255, 230);
        open((m_identifier + u" window "_s + QString::number(i + 1)).toUtf8(), colour,
             {{400, 300}, {120 + 60 * (i % 10), 100 + 40 * (i % 10)}});
    }
}

void Application::destroy(const AppWindow& window)
{
    command("destroy " + QByteArray::number(window.index));
    std::erase_if(m_windows, [&](const AppWindow& other) { return other.id == window.id; });
}

void Application::setTitle(const AppWindow& window, const QByteArray& title)
{
    command("title " + QByteArray::number(window.index) + ' ' + title.toHex());
    for (AppWindow& own : m_windows)
        if (own.id == window.id)
            own.title = title;
}

void Application::setColour(const AppWindow& window, const QColor& colour)
{
    command("colour " + QByteArray::number(window.index) + ' ' +
            QByteArray::number(colour.rgb() & 0xffffffU));
    for (AppWindow& own : m_windows)
        if (own.id == window.id)
            own.colour = colour;
}

void Application::startAnimating(const AppWindow& window, int framesPerSecond)
{
    command("animate " + QByteArray::number(window.index) + ' ' +
            QByteArray::number(framesPerSecond));
}

int Application::stopAnimating(const AppWindow& window)
{
    const QByteArray reply = command("animate " + QByteArray::number(window.index) + " 0");
    return reply.mid(QByteArrayLiteral("frames ").size()).toInt();
}

void Application::maximise(const AppWindow& window)
{
    Display& display = m_session.display();
    display.request(window.id, "_NET_WM_STATE",
                    {1, display.atom("_NET_WM_STATE_MAXIMIZED_VERT"),
                     display.atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2});
    display.waitFor([&] {
        const auto area = display.geometry(window.id);
        return area && area->width() > display.size().width() / 2;
    });
}

void Application::minimise(const AppWindow& window)
{
    m_session.display().request(window.id, "WM_CHANGE_STATE", {3});
    m_session.display().waitFor([&] { return isMinimised(window); });
}

bool Application::isMinimised(const AppWindow& window) const
{
    return m_session.display().isMinimised(window.id);
}

void Application::moveToDesktop(const AppWindow& window, int desktop)
{
    Display& display = m_session.display();
    const auto number = static_cast<std::uint32_t>(desktop);
    display.request(window.id, "_NET_WM_DESKTOP", {number, 2});
    display.waitFor([&] {
        const auto now = display.numbers(window.id, "_NET_WM_DESKTOP");
        return !now.empty() && now.front() == number;
    });
}

void Application::activate(const AppWindow& window)
{
    m_session.display().request(window.id, "_NET_ACTIVE_WINDOW", {2, 0, 0});
    m_session.display().waitFor([&] { return m_session.display().activeWindow() == window.id; });
}

const std::vector<int>& Application::closeRequests()
{
    command("sync");
    return m_closeRequests;
}

std::vector<int> Application::keys()
{
    std::vector<int> codes;
    for (const QByteArray& field : command("keys").split(' ').mid(1))
        codes.push_back(field.toInt());
    return codes;
}

QByteArray Application::command(const QByteArray& line)
{
    m_process->writeLine(line);
    while (const auto answer = m_process->readLine(patience(5000))) {
        if (!answer->startsWith("close "))
            return *answer;
        m_closeRequests.push_back(answer->mid(6).toInt());
    }
    qFatal("the test application does not answer to: %s", line.constData());
}

} // namespace lumbrix::privatedesk
