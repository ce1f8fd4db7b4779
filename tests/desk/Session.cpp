// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Session.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QFileInfo>
#include <QtCore/QSaveFile>
#include <QtGui/QPainter>

namespace lumbrix::privatedesk
{

namespace
{

QStringList baseEnvironment(const QString& home, bool accessibility)
{
    QStringList result{
        u"HOME="_s + home, u"XDG_CONFIG_HOME="_s + home + u"/.config"_s,
        u"XDG_DATA_HOME="_s + home + u"/.local/share"_s, u"XDG_CACHE_HOME="_s + home + u"/.cache"_s,
        u"XDG_RUNTIME_DIR="_s + home + u"/run"_s, u"XDG_DATA_DIRS=/usr/local/share:/usr/share"_s,
        u"LANG=C.UTF-8"_s, u"GSETTINGS_BACKEND=keyfile"_s, u"GIO_USE_VFS=local"_s,
        // The screen of the machine may be locked while tests run.
        u"DBUS_SYSTEM_BUS_ADDRESS=unix:path=/nowhere"_s};
    if (!accessibility)
        result << u"NO_AT_BRIDGE=1"_s;
    for (const char* name : {"PATH", "ASAN_OPTIONS", "LSAN_OPTIONS", "TSAN_OPTIONS",
                             "UBSAN_OPTIONS", "USER", "LOGNAME", "TMPDIR", "LD_LIBRARY_PATH"})
        if (qEnvironmentVariableIsSet(name))
            result << QString::fromLatin1(name) + u'=' + qEnvironmentVariable(name);
    return result;
}

/// Something to see through translucent corners: no two places of it look alike.
QImage wallpaper(QSize size)
{
    QImage image(size, QImage::Format_RGB32);
    for (int y = 0; y < size.height(); ++y) {
        auto* line = reinterpret_cast<QRgb*>(image.scanLine(y));
        for (int x = 0; x < size.width(); ++x)
            line[x] = qRgb(60 + 100 * x / size.width(), 150, 90 + 120 * y / size.height());
    }
    return image;
}

} // namespace

Session::Session(const SessionOptions& options) : m_options(options)
{
    if (!m_directory.isValid())
        qFatal("no temporary directory");
    for (const char* name : {".config", ".cache", ".local/share/applications", "run", "logs"})
        QDir(m_directory.path()).mkpath(QString::fromLatin1(name));
    QFile::setPermissions(path(u"run"_s), QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
    m_environment = baseEnvironment(m_directory.path(), options.accessibility);
    startServer();
    startBus();
    m_display->setWallpaper(wallpaper(m_display->size()));
    startWindowManager();
}

Session::~Session() = default;

QString Session::path(const QString& relative) const
{
    QString result = m_directory.filePath(relative);
    QDir().mkpath(QFileInfo(result).path());
    return result;
}

std::unique_ptr<Process> Session::start(const QString& logName, const QString& program,
                                        const QStringList& arguments, bool pipes)
{
    ProcessOptions options;
    options.program = program;
    options.arguments = arguments;
    options.environment = m_environment;
    options.log = path(u"logs/"_s + logName);
    options.pipes = pipes;
    return Process::start(options);
}

void Session::write(const QString& path, const QByteArray& content) const
{
    QDir().mkpath(QFileInfo(path).path());
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(content) != content.size())
        qFatal("cannot write %s", qPrintable(path));
}

void Session::addSettings(const QByteArray& groups)
{
    m_settings += groups;
    const QString path = configPath(u"glib-2.0/settings/keyfile"_s);
    // At once, for programs that run: half a file would have them do what nobody chose.
    QSaveFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(m_settings) < 0 || !file.commit())
        qFatal("cannot write %s", qPrintable(path));
}

QString Session::installApplication(const QString& identifier, const QString& name,
                                    const QString& windowClass, const QString& command,
                                    const QColor& colour)
{
    QImage icon(128, 128, QImage::Format_ARGB32);
    icon.fill(Qt::transparent);
    QPainter painter(&icon);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(colour);
    painter.setPen(QPen(Qt::white, 6));
    painter.drawEllipse(12, 12, 104, 104);
    painter.end();
    const QString iconPath = dataPath(u"icons/"_s + identifier + u".png"_s);
    if (!icon.save(iconPath))
        qFatal("cannot write %s", qPrintable(iconPath));
    QString entryPath = dataPath(u"applications/"_s + identifier + u".desktop"_s);
    write(entryPath, (u"[Desktop Entry]\nType=Application\nName=%1\nExec=%2\nIcon=%3\n"
                      u"StartupWMClass=%4\n"_s)
                         .arg(name, command, iconPath, windowClass)
                         .toUtf8());
    return entryPath;
}

QString Session::log(const QString& name) const
{
    QFile file(m_directory.filePath(u"logs/"_s + name));
    return file.open(QIODevice::ReadOnly) ? QString::fromUtf8(file.readAll()) : QString();
}

QString Session::logs() const
{
    QString result;
    for (const QString& name : QDir(m_directory.filePath(u"logs"_s)).entryList(QDir::Files)) {
        const QString text = log(name).right(4000);
        if (!text.isEmpty())
            result += u"--- "_s + name + u'\n' + text + u'\n';
    }
    return result;
}

void Session::startServer()
{
    const QString log = path(u"logs/server"_s);
    m_server = m_options.monitors.empty()
                   ? privatedesk::startServer(m_options.size, m_environment, log,
                                              m_options.withoutExtension)
                   : startMonitorServer(m_directory.path(), m_environment, log);
    if (m_server.display.isEmpty())
        qFatal("the X server did not start:\n%s", qPrintable(logs()));
    m_environment << u"DISPLAY="_s + QString::fromLatin1(m_server.display);
    m_display = std::make_unique<Display>(m_server.display);
    if (m_options.monitors.empty())
        m_monitors = {{{}, QRect(QPoint(), m_options.size)}};
    else
        setMonitors(m_options.monitors);
    if (m_options.scale > 1) {
        m_environment << u"GDK_SCALE="_s + QString::number(m_options.scale);
        m_display->setResources("Xft.dpi:\t" + QByteArray::number(96 * m_options.scale) + '\n');
    }
}

void Session::setMonitors(const std::vector<Monitor>& monitors)
{
    const auto xrandr = [this](const QStringList& arguments) {
        if (start(u"xrandr"_s, u"xrandr"_s, arguments)->waitForExit(patience(5000)) != 0)
            qFatal("no such monitors:\n%s", qPrintable(log(u"xrandr"_s)));
    };
    QRect desktop;
    for (const Monitor& monitor : monitors)
        desktop |= monitor.area;
    QStringList arrangement;
    for (const Monitor& monitor : m_monitors)
        arrangement += {u"--output"_s, monitor.name, u"--off"_s};
    m_monitors = monitors;
    for (Monitor& monitor : m_monitors) {
        QRect& area = monitor.area;
        area.translate(-desktop.topLeft());
        const QString mode = u"%1x%2"_s.arg(area.width()).arg(area.height());
        xrandr({u"--addmode"_s, monitor.name, mode});
        arrangement += {u"--output"_s, monitor.name, u"--mode"_s,
                        mode,          u"--pos"_s,   u"%1x%2"_s.arg(area.x()).arg(area.y())};
    }
    xrandr(arrangement + QStringList{u"--output"_s, monitors.front().name, u"--primary"_s});
    // The driver says that they are connected, or not any more, only when it is asked.
    xrandr({u"--listmonitors"_s});
}

QRect Session::monitorArea(const QString& name) const
{
    for (const Monitor& monitor : m_monitors)
        if (monitor.name == name)
            return monitor.area;
    return m_monitors.front().area;
}

void Session::startBus()
{
    const QString socket = path(u"bus"_s);
    m_busAddress = u"unix:path="_s + socket;
    // The standard services can be activated, but nothing of the machine's own configuration is.
    // Other users may come in whom a test lets into its folder: some programs refuse to run as
    // root.
    const QString configuration = path(u"bus.conf"_s);
    write(configuration,
          ("<busconfig><type>session</type><listen>" + m_busAddress.toUtf8() +
           "</listen><auth>EXTERNAL</auth><standard_session_servicedirs/>"
           "<policy context=\"default\"><allow user=\"*\"/><allow send_destination=\"*\"/>"
           "<allow eavesdrop=\"true\"/><allow own=\"*\"/></policy></busconfig>"));
    m_environment << u"DBUS_SESSION_BUS_ADDRESS="_s + m_busAddress;
    launchBus();
}

void Session::launchBus()
{
    const QString configuration = u"--config-file="_s + path(u"bus.conf"_s);
    m_bus = start(u"bus"_s, u"dbus-daemon"_s, {configuration, u"--nofork"_s, u"--nopidfile"_s});
    if (!m_display->waitFor([&] { return QFileInfo::exists(path(u"bus"_s)); }))
        qFatal("the message bus did not start:\n%s", qPrintable(logs()));
}

void Session::restartBus()
{
    m_bus.reset();
    QFile::remove(path(u"bus"_s));
    launchBus();
}

void Session::restartWindowManager()
{
    m_compositor.reset();
    m_windowManager.reset();
    startWindowManager();
}

void Session::startWindowManager()
{
    const bool own = m_options.compositor && !m_options.picom;
    bool composited = own || m_options.picom;
    switch (m_options.windowManager) {
    case WindowManager::Absent:
        return;
    case WindowManager::Openbox:
        m_windowManager = start(u"openbox"_s, u"openbox"_s);
        composited = m_options.picom;
        break;
    case WindowManager::Marco:
        m_windowManager =
            start(u"marco"_s, u"marco"_s, {own ? u"--composite"_s : u"--no-composite"_s});
        break;
    case WindowManager::KWin:
        write(configPath(u"kwinrc"_s),
              own ? "[Compositing]\nEnabled=true\n[TabBox]\nHighlightWindows=false\n"
                  : "[Compositing]\nEnabled=false\n");
        m_windowManager = start(u"kwin_x11"_s, u"kwin_x11"_s);
        break;
    default:
        m_windowManager =
            start(u"xfwm4"_s, u"xfwm4"_s,
                  {own ? u"--compositor=on"_s : u"--compositor=off"_s, u"--vblank=off"_s});
    }
    if (!m_display->waitForWindowManager(patience(10000)))
        qFatal("the window manager did not start:\n%s", qPrintable(logs()));
    if (m_options.picom)
        m_compositor =
            start(u"picom"_s, u"picom"_s, {u"--config=/dev/null"_s, u"--backend=xrender"_s});
    if (!m_display->waitFor([&] { return m_display->hasCompositor() == composited; }))
        qFatal("compositing is not as wanted:\n%s", qPrintable(logs()));
}

} // namespace lumbrix::privatedesk
