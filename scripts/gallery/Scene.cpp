// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Scene.h"

#include <QtGui/QPainter>

#include <algorithm>
#include <iostream>

#include "platform/StringLiterals.h"
#include "scripts/gallery/Hills.h"

namespace lumbrix::privatedesk
{
namespace
{

const QString changes = uR"(c() { printf "\033[33m$1\033[0m $2\n"; }
c 8f21c04 'Keep the row while the mouse is on its way'
c 5be9a77 'Have pictures follow what is drawn'
c 1d03e58 'Tell of an icon where the pointer stops'
c c44a1f0 'Open a row by the keyboard'
c 90b7d26 'Show cards for private windows'
c 37e5fa1 'Count windows on the icons'
printf '\n\033[32m+    row.keepWhile(corridor.leadsToRow());\033[0m\n'
printf '\033[31m-    row.close();\033[0m\n\n\033[1;34m~/lumbrix\033[0m $ ')"_s;

const QString files = uR"(printf '\033[1;34m~/Pictures\033[0m $ ls\n'
for y in 2022 2023 2024 2025; do for p in beach garden harbour ; do
printf '\033[35m%-17s\033[0m' "$y-$p.jpg"; done; printf '\n'; done
printf '\n\033[1;34m~/Pictures\033[0m $ df -h .\nFilesystem   Size  Used Avail Use%%\n'
printf '/dev/sda2    466G  211G  255G  46%%\n\n\033[42;30m everything is backed up \033[0m\n')"_s;

/// Alive: bars that move twice a second.
const QString monitor = uR"(n=0; while :; do
printf '\033[H\033[1;36m  System monitor\033[0m   %3d s\n\n' $((n / 2))
for i in 1 2 3 4 5 6 7 8; do w=$((6 + (n * (3 + i) + i * 17) % 38))
printf '  cpu%d \033[4%dm%*s\033[0m%*s\n' $i $((1 + i % 6)) $w '' $((46 - w)) ''; done
n=$((n + 1)); sleep 0.5; done)"_s;

} // namespace

QImage hills(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.scale(size.width() / 1440.0, size.height() / 900.0);
    painter.fillRect(0, 0, 1440, 900, QColor(58, 66, 112));
    painter.fillRect(0, 330, 1440, 570, QColor(66, 74, 120));
    paintHills(painter);
    return image;
}

Scene::Scene(QSize size)
    : m_session([&] {
          SessionOptions options;
          options.size = size;
          options.accessibility = true; // the switcher tells titles
          return options;
      }())
{
    display().setWallpaper(hills(size));
    display().setResources(
        "XTerm*scrollBar: false\nXTerm*borderWidth: 0\nXTerm*internalBorder: 6\n");
    m_terminal = install(u"debian-xterm"_s, "Terminal", "utilities-terminal", "XTerm");
    m_dock = Dock::start(m_session, DockKind::Plank, Edge::Bottom,
                         {install(u"clock"_s, "Clock", "appointment-soon", "XClock"),
                          install(u"calculator"_s, "Calculator", "accessories-calculator", "XCalc"),
                          m_terminal, u"/usr/share/applications/audacious.desktop"_s,
                          u"/usr/share/applications/pcmanfm.desktop"_s});
    startPlayer();
    m_programs.push_back(m_session.start(
        u"xclock"_s, u"xclock"_s,
        {u"-title"_s, u"Clock"_s, u"-geometry"_s, u"190x190-30+30"_s, u"-update"_s, u"1"_s}));
    startTerminal(u"Changes"_s, u"+30+30"_s, u"#20242c"_s, changes);
    startTerminal(u"System monitor"_s, u"+%1+50"_s.arg(size.width() / 2 - 20), u"#14222e"_s,
                  monitor);
    startTerminal(u"Pictures"_s, u"+%1+%2"_s.arg(size.width() / 4).arg(size.height() / 3),
                  u"#2c1c30"_s, files);
}

void Scene::startPlayer()
{
    m_player = RealPlayer::audacious(m_session, hills({400, 400}));
    if (!m_player)
        qFatal("audacious is not installed, which scripts/setup does");
    wait("a song", [this] { return m_player->state() == u"Playing" && m_player->window(); });
    // It opens as large as the film; this is a place and a size, as a pager asks for them.
    constexpr std::uint32_t all = 0xF00, pager = 0x2000;
    const auto height = static_cast<std::uint32_t>(display().size().height());
    display().request(*m_player->window(), "_NET_MOVERESIZE_WINDOW",
                      {all | pager, 20, height / 2 - 30, 430, height / 2 - 110});
}

void Scene::startLumbrix(const Settings& changed)
{
    m_lumbrix.reset();
    m_lumbrix = privatedesk::startLumbrix(m_session, changed, [this] {
        display().moveTo(rest());
        display().moveTo(terminalIcon());
    });
    display().moveTo(rest());
    wait("no previews", [this] { return display().previews().empty(); });
}

QPoint Scene::preview(const QByteArray& title)
{
    QPoint middle;
    wait(title, [&] {
        const auto previews = display().previews();
        const auto found = std::ranges::find(previews, title, &Panel::title);
        if (found != previews.end())
            middle = found->geometry.center();
        return found != previews.end();
    });
    return middle;
}

void Scene::wait(const char* what, const std::function<bool()>& condition)
{
    if (!display().waitFor(condition, patience(15000)))
        std::cerr << "waited in vain for " << what << "\n";
}

QImage Scene::look(const QRect& area)
{
    QImage picture = display().picture(area);
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(display().pointer() - area.topLeft());
    painter.setPen(QPen(Qt::black, 1.4));
    painter.setBrush(Qt::white);
    painter.drawPolygon(
        QPolygonF{{0, 0}, {0, 19}, {4.4, 15}, {7.4, 22}, {10.6, 20.6}, {7.7, 13.8}, {13.6, 13.6}});
    return picture;
}

bool Scene::isZoomed()
{
    const auto panels = display().panels();
    return std::ranges::find(panels, u"zoom"_s, &Panel::role) != panels.end();
}

void Scene::settle()
{
    display().waitFor([] { return false; }, std::chrono::milliseconds(900));
}

QPoint Scene::iconOf(const QString& entry)
{
    std::optional<QPoint> icon;
    wait("an icon", [&] {
        icon = m_dock->iconOf(entry, XCB_WINDOW_NONE);
        return icon.has_value();
    });
    return icon.value_or(rest());
}

QString Scene::install(const QString& identifier, const QByteArray& name, const QByteArray& icon,
                       const QByteArray& windowClass)
{
    QString path = m_session.dataPath(u"applications/"_s + identifier + u".desktop"_s);
    m_session.write(path, "[Desktop Entry]\nType=Application\nName=" + name +
                              "\nExec=" + windowClass.toLower() + "\nIcon=" + icon +
                              "\nStartupWMClass=" + windowClass + '\n');
    return path;
}

void Scene::startTerminal(const QString& title, const QString& place, const QString& background,
                          const QString& script)
{
    const std::size_t before = display().numbers(display().root(), "_NET_CLIENT_LIST").size();
    m_programs.push_back(m_session.start(u"xterm"_s, u"xterm"_s,
                                         {u"-T"_s, title, u"-geometry"_s, u"56x17"_s + place,
                                          u"-fa"_s, u"DejaVu Sans Mono"_s, u"-fs"_s, u"10"_s,
                                          u"-bg"_s, background, u"-fg"_s, u"#e8e8e8"_s, u"-e"_s,
                                          u"sh"_s, u"-c"_s, script + u"; exec sleep 3600"_s}));
    wait("a terminal",
         [&] { return display().numbers(display().root(), "_NET_CLIENT_LIST").size() > before; });
}

} // namespace lumbrix::privatedesk
