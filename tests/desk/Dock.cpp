// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Dock.h"
#include "platform/StringLiterals.h"

#include <QtCore/QFileInfo>
#include <QtCore/QUrl>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <QtDBus/QDBusMessage>

#include <csignal>
#include <set>
#include <vector>

namespace lumbrix::privatedesk
{

namespace
{

class Plank final : public Dock
{
public:
    Plank(Session& session, const DockPlace& place, const QStringList& pinned)
        : Dock(session, place), m_pinned(pinned)
    {
        configure();
        // Plank gives up for ever when the matcher is not there at its start.
        m_matcher = session.start(u"bamfdaemon"_s, u"/usr/libexec/bamf/bamfdaemon"_s);
        m_bus = std::make_unique<QDBusConnection>(
            QDBusConnection::connectToBus(session.busAddress(), session.busAddress()));
        if (!session.display().waitFor([this] { return owns(u"org.ayatana.bamf"_s); },
                                       patience(10000)))
            qFatal("the window matcher did not start:\n%s", qPrintable(session.logs()));
        restart();
    }
    ~Plank() override { QDBusConnection::disconnectFromBus(m_session.busAddress()); }

    void restart() override
    {
        m_process = m_session.start(u"plank"_s, u"plank"_s);
        if (!m_session.display().waitFor(
                [this] {
                    return owns(u"net.launchpad.plank"_s) &&
                           m_session.display().dockArea().has_value();
                },
                patience(15000)))
            qFatal("Plank did not start:\n%s", qPrintable(m_session.logs()));
    }

    std::optional<QPoint> iconOf(const QString& entry, xcb_window_t) override
    {
        QDBusMessage call = QDBusMessage::createMethodCall(
            u"net.launchpad.plank"_s, u"/net/launchpad/plank/dock1"_s,
            u"net.launchpad.plank.Items"_s, u"GetHoverPosition"_s);
        call << QUrl::fromLocalFile(entry).toString();
        const QList<QVariant> answer = m_bus->call(call, QDBus::Block, 1000).arguments();
        if (answer.size() != 4 || !answer.at(3).toBool())
            return std::nullopt;
        if (answer.at(isHorizontal(m_place.edge) ? 0 : 1).toInt() == 0)
            return std::nullopt;                     // added, but not laid out yet
        const int scale = m_session.options().scale; // of what it counts in
        const QPoint middle = QPoint(answer.at(0).toInt(), answer.at(1).toInt()) * scale;
        const QRect screen = m_session.monitorArea(m_place.monitor);
        const int depth = 24 * scale; // about the middle of an icon of 48 pixels
        switch (m_place.edge) {
        case Edge::Left:
            return QPoint(screen.x() + depth, middle.y());
        case Edge::Right:
            return QPoint(screen.x() + screen.width() - depth, middle.y());
        case Edge::Top:
            return QPoint(middle.x(), screen.y() + depth);
        default:
            return QPoint(middle.x(), screen.y() + screen.height() - depth);
        }
    }

private:
    void reconfigure() override
    {
        configure();
        // It takes note of monitors only when it starts.
        kill();
        restart();
    }
    void configure()
    {
        QStringList items;
        for (const QString& entry : m_pinned) {
            const QString name = QFileInfo(entry).completeBaseName() + u".dockitem"_s;
            m_session.write(m_session.configPath(u"plank/dock1/launchers/"_s + name),
                            "[PlankDockItemPreferences]\nLauncher=file://" + entry.toUtf8() + '\n');
            items << u'\'' + name + u'\'';
        }
        const QString settings =
            u"[net/launchpad/plank/docks/dock1]\nposition='%1'\nmonitor='%2'\n"
            u"hide-mode='%3'\nshow-dock-item=false\nauto-pinning=false\nlock-items=true\n"
            u"dock-items=[%4]\nzoom-enabled=false\nicon-size=48\n"_s.arg(
                QLatin1String(nameOf(m_place.edge)), m_place.monitor,
                m_place.hides ? u"auto"_s : u"none"_s, items.join(u','));
        m_session.addSettings(settings.toUtf8());
    }
    bool owns(const QString& name) { return m_bus->interface()->isServiceRegistered(name); }

    const QStringList m_pinned;
    std::unique_ptr<Process> m_matcher;
    std::unique_ptr<QDBusConnection> m_bus;
};

/// A panel of window buttons, which tells every window where its button is.
class Panel : public Dock
{
public:
    /// With the settings that are written already.
    Panel(Session& session, const DockPlace& place, QString program, QStringList arguments = {})
        : Dock(session, place), m_program(std::move(program)), m_arguments(std::move(arguments))
    {
        restart();
    }

    void restart() override
    {
        m_process = m_session.start(m_program, m_program, m_arguments);
        if (!m_session.display().waitFor(
                [this] { return m_session.display().dockArea().has_value(); }, patience(15000)))
            qFatal("%s did not start:\n%s", qPrintable(m_program), qPrintable(m_session.logs()));
    }
    std::optional<QPoint> iconOf(const QString&, xcb_window_t window) override
    {
        Display& display = m_session.display();
        const auto read = [&] { return display.numbers(window, "_NET_WM_ICON_GEOMETRY"); };
        const auto before = read();
        // Panels move their buttons in small steps; a place counts once it stays for a while.
        const bool moving = display.waitFor([&] { return read() != before; }, patience(60));
        if (moving || before.size() != 4)
            return std::nullopt;
        const QRect button(static_cast<int>(before[0]), static_cast<int>(before[1]),
                           static_cast<int>(before[2]), static_cast<int>(before[3]));
        if (button.width() < 8 || button.height() < 8)
            return std::nullopt;
        return button.center();
    }

protected:
    const QString m_program;
    const QStringList m_arguments;
};

class Tint2 final : public Panel
{
public:
    Tint2(Session& session, const DockPlace& place)
        // One file for each that runs at a time.
        : Panel(session, place, u"tint2"_s,
                {u"-c"_s, configure(session, place, session.path(u"tint2rc"_s + place.monitor))})
    {
    }

private:
    static QString configure(const Session& session, const DockPlace& place, const QString& file)
    {
        const QByteArray side = QByteArray(nameOf(place.edge));
        const QByteArray shape =
            isHorizontal(place.edge)
                ? "panel_position = " + side + " center horizontal\npanel_size = 100% 40\n"
                : "panel_position = center " + side + " vertical\npanel_size = 100% 60\n";
        const QByteArray monitor = place.monitor.isEmpty() ? "all" : place.monitor.toLatin1();
        session.write(file, "rounded = 0\nborder_width = 0\nbackground_color = #303030 100\n" +
                                shape + "panel_monitor = " + monitor +
                                "\nautohide = " + (place.hides ? "1" : "0") +
                                "\npanel_items = T\npanel_padding = 4 0 4\npanel_background_id = "
                                "1\npanel_layer = top\n"
                                "strut_policy = follow_size\ntaskbar_mode = single_desktop\n"
                                "task_maximum_size = 60 40\ntask_text = 0\ntask_icon = 1\n"
                                "task_padding = 4 2 4\nmouse_left = toggle_iconify\n");
        return file;
    }
    void reconfigure() override
    {
        configure(m_session, m_place, m_arguments.last());
        m_process->signal(SIGUSR1);
    }
};

class XfcePanel final : public Panel
{
public:
    /// A stock one takes the settings of its package: a panel at the top and launchers at the
    /// bottom.
    XfcePanel(Session& session, const DockPlace& place, bool isStock)
        : Panel(session, place, u"xfce4-panel"_s, arguments(session, place, isStock))
    {
    }

    std::optional<QPoint> iconOf(const QString& entry, xcb_window_t window) override
    {
        const auto told = Panel::iconOf(entry, window);
        const auto panel = m_session.display().dockArea();
        if (!m_isMoved || !told || !panel)
            return told;
        // After a move it leaves what it told the windows as it was.
        constexpr int handle = 8;
        const int length = isHorizontal(m_place.edge) ? 200 : 32;
        const int along = handle + length * numberOfButton(window) + length / 2;
        return panel->topLeft() + (isHorizontal(m_place.edge) ? QPoint(along, panel->height() / 2)
                                                              : QPoint(panel->width() / 2, along));
    }

private:
    // The panel's own words: positions 10 and 9 are the middle of the bottom and of the top edge,
    // 5 and 1 are the left and right edges.
    static QByteArray position(Edge edge)
    {
        constexpr const char* positions[] = {"10", "5", "1", "9"};
        return QByteArray("p=") + positions[static_cast<int>(edge)] + ";x=0;y=0";
    }
    static QByteArray mode(Edge edge) { return isHorizontal(edge) ? "0" : "2"; }

    static QStringList arguments(Session& session, const DockPlace& place, bool isStock)
    {
        if (!isStock)
            configure(session, place);
        return {u"--disable-wm-check"_s, u"--sm-client-disable"_s};
    }
    static void configure(Session& session, const DockPlace& place)
    {
        session.write(session.configPath(u"xfce4/xfconf/xfce-perchannel-xml/xfce4-panel.xml"_s),
                      R"(<?xml version="1.0" encoding="UTF-8"?>
<channel name="xfce4-panel" version="1.0">
  <property name="configver" type="int" value="2"/>
  <property name="panels" type="array">
    <value type="int" value="1"/>
    <property name="panel-1" type="empty">
      <property name="position" type="string" value=")" +
                          position(place.edge) + R"("/>
      <property name="output-name" type="string" value=")" +
                          place.monitor.toLatin1() + R"("/>
      <property name="mode" type="uint" value=")" +
                          mode(place.edge) + R"("/>
      <property name="length" type="uint" value="100"/>
      <property name="size" type="uint" value="40"/>
      <property name="position-locked" type="bool" value="true"/>
      <property name="plugin-ids" type="array">
        <value type="int" value="1"/><value type="int" value="2"/>
      </property>
    </property>
  </property>
  <property name="plugins" type="empty">
    <property name="plugin-1" type="string" value="tasklist">
      <property name="grouping" type="uint" value="1"/>
      <property name="include-all-workspaces" type="bool" value="false"/>
      <property name="show-labels" type="bool" value="true"/>
    </property>
    <property name="plugin-2" type="string" value="systray"/>
  </property>
</channel>
)");
    }
    void reconfigure() override
    {
        m_isMoved = true;
        for (const auto& [name, value] : {std::pair(u"output-name"_s, m_place.monitor.toLatin1()),
                                          std::pair(u"mode"_s, mode(m_place.edge)),
                                          std::pair(u"position"_s, position(m_place.edge))})
            m_session
                .start(u"xfconf-query"_s, u"xfconf-query"_s,
                       {u"-c"_s, u"xfce4-panel"_s, u"-p"_s, u"/panels/panel-1/"_s + name, u"-s"_s,
                        QString::fromLatin1(value)})
                ->waitForExit(patience(5000));
    }
    int numberOfButton(xcb_window_t window)
    {
        Display& display = m_session.display();
        const auto place = [&](xcb_window_t of) {
            return display.numbers(of, "_NET_WM_ICON_GEOMETRY");
        };
        std::set<std::vector<std::uint32_t>> before;
        for (const xcb_window_t other : display.numbers(display.root(), "_NET_CLIENT_LIST"))
            if (!place(other).empty() && place(other) < place(window))
                before.insert(place(other));
        return static_cast<int>(before.size());
    }

    bool m_isMoved = false;
};

/// As it comes at the bottom, the upper of its two panels left out; elsewhere that panel is moved.
std::unique_ptr<Dock> startMatePanel(Session& session, Edge edge)
{
    session.addSettings("[org/mate/panel/general]\ntoplevel-id-list=['panel']\n"
                        "object-id-list=['window-list']\n"
                        "[org/mate/panel/toplevels/panel]\nexpand=true\nsize=24\norientation='" +
                        QByteArray(nameOf(edge)) +
                        "'\n[org/mate/panel/objects/window-list]\nobject-type='applet'\n"
                        "applet-iid='WnckletFactory::WindowListApplet'\ntoplevel-id='panel'\n"
                        "position=20\nlocked=true\n");
    return std::make_unique<Panel>(session, edge, u"mate-panel"_s);
}

std::unique_ptr<Dock> startLxqtPanel(Session& session, Edge edge)
{
    QByteArray side = nameOf(edge);
    side[0] = static_cast<char>(side[0] + 'A' - 'a');
    session.write(
        session.configPath(u"lxqt/panel.conf"_s),
        "panels=panel1\n[panel1]\nplugins=mainmenu,desktopswitch,taskbar,worldclock\n"
        "position=" +
            side +
            "\ndesktop=0\n[mainmenu]\ntype=mainmenu\n[desktopswitch]\ntype=desktopswitch\n"
            "[taskbar]\ntype=taskbar\nbuttonWidth=220\ngroupingEnabled=false\n"
            "[worldclock]\ntype=worldclock\n");
    return std::make_unique<Panel>(session, edge, u"lxqt-panel"_s);
}

} // namespace

std::unique_ptr<Dock> Dock::start(Session& session, DockKind kind, const DockPlace& place,
                                  const QStringList& pinned)
{
    switch (kind) {
    case DockKind::Tint2:
        return std::make_unique<Tint2>(session, place);
    case DockKind::XfcePanel:
    case DockKind::StockXfcePanel:
        return std::make_unique<XfcePanel>(session, place, kind == DockKind::StockXfcePanel);
    case DockKind::MatePanel:
        return startMatePanel(session, place.edge);
    case DockKind::LxqtPanel:
        return startLxqtPanel(session, place.edge);
    default:
        return std::make_unique<Plank>(session, place, pinned);
    }
}

void Dock::moveTo(const DockPlace& place)
{
    m_place = place;
    reconfigure();
    if (!m_session.display().waitFor([this] { return isInPlace(); }))
        qFatal("the dock has not moved:\n%s", qPrintable(m_session.logs()));
}

bool Dock::isInPlace()
{
    const QRect monitor = m_session.monitorArea(m_place.monitor);
    const QRect area = m_session.display().dockArea().value_or(QRect());
    const int gap = m_place.edge == Edge::Bottom ? monitor.bottom() - area.bottom()
                    : m_place.edge == Edge::Top  ? area.top() - monitor.top()
                    : m_place.edge == Edge::Left ? area.left() - monitor.left()
                                                 : monitor.right() - area.right();
    return monitor.contains(area) && gap == 0 &&
           isHorizontal(m_place.edge) == (area.width() > area.height());
}

void Dock::kill()
{
    m_process->signal(SIGKILL);
    m_process->waitForExit(patience(5000));
}

} // namespace lumbrix::privatedesk
