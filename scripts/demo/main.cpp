// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Shows Lumbrix on a private virtual desktop with ordinary applications, and checks what there is
// to see. Its argument is the folder for the pictures. Exits with 0 only when everything was right.
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>
#include <QtCore/QHash>
#include <QtGui/QPainter>

#include <algorithm>
#include <chrono>
#include <csignal>
#include <cstdio>

#include "Colours.h"
#include "Dock.h"
#include "Lumbrix.h"
#include "Session.h"
#include "scripts/gallery/Hills.h"

using namespace lumbrix::privatedesk;
using namespace Qt::StringLiterals;

namespace
{

constexpr QSize screenSize(1440, 900);

/// Hills at dusk.
QImage wallpaper()
{
    QImage image(screenSize, QImage::Format_RGB32);
    QPainter painter(&image);
    painter.setRenderHint(QPainter::Antialiasing);
    QLinearGradient sky(0, 0, 0, screenSize.height());
    sky.setColorAt(0, QColor(38, 50, 94));
    sky.setColorAt(0.6, QColor(206, 122, 122));
    sky.setColorAt(1, QColor(246, 190, 132));
    painter.fillRect(image.rect(), sky);
    paintHills(painter);
    return image;
}

struct Client {
    xcb_window_t id;
    QByteArray title;
};

class Demonstration
{
public:
    explicit Demonstration(const QString& pictures) : m_pictures(pictures)
    {
        QDir().mkpath(pictures);
        m_session.display().setWallpaper(wallpaper());
    }

    bool run()
    {
        startApplications();
        m_lumbrix = startLumbrix(m_session, {}, [this] {
            park();
            moveToIcon(u"org.xfce.mousepad"_s);
        });
        park();
        m_display.waitFor([this] { return m_display.panels().empty(); }, patience(3000));
        hover();
        if (m_right)
            hoverPreview();
        if (m_right)
            clickPreview();
        leave();
        if (!m_right)
            std::fprintf(stderr, "%s", qPrintable(m_session.logs()));
        return m_right;
    }

private:
    using Clock = std::chrono::steady_clock;

    QString installEntry(const QString& identifier, const QByteArray& name, const QByteArray& icon,
                         const QByteArray& windowClass)
    {
        QString path = m_session.dataPath(u"applications/"_s + identifier + u".desktop"_s);
        m_session.write(path, "[Desktop Entry]\nType=Application\nName=" + name +
                                  "\nExec=" + windowClass.toLower() + "\nIcon=" + icon +
                                  "\nStartupWMClass=" + windowClass + '\n');
        return path;
    }

    void startTerminal(const QString& title, const QString& place, const QString& background,
                       const QString& script)
    {
        m_backgrounds.insert(title.toUtf8(), QColor(background));
        m_applications.push_back(m_session.start(
            u"xterm"_s, u"xterm"_s,
            {u"-T"_s, title, u"-geometry"_s, u"62x18"_s + place, u"-fa"_s, u"DejaVu Sans Mono"_s,
             u"-fs"_s, u"10"_s, u"-bg"_s, background, u"-fg"_s, u"#e8e8e8"_s, u"-e"_s, u"sh"_s,
             u"-c"_s, script + u"; exec sleep 3600"_s}));
    }

    void startApplications()
    {
        m_terminal = installEntry(u"debian-xterm"_s, "Terminal", "utilities-terminal", "XTerm");
        m_session.addSettings("[org/xfce/mousepad/preferences/window]\npath-in-title=false\n"
                              "[org/xfce/mousepad/state/window]\nwidth=uint32 420\n"
                              "height=uint32 300\n");
        const QString editor = u"/usr/share/applications/org.xfce.mousepad.desktop"_s;
        m_dock = Dock::start(
            m_session, DockKind::Plank, Edge::Bottom,
            {m_terminal, editor,
             installEntry(u"calculator"_s, "Calculator", "accessories-calculator", "XCalc"),
             m_session.installApplication(u"clock"_s, u"Clock"_s, u"XClock"_s, u"xclock"_s,
                                          QColor(70, 130, 180))});

        startTerminal(u"Colours"_s, u"+40+40"_s, u"#20242c"_s,
                      u"i=0; while [ $i -lt 17 ]; do j=0; while [ $j -lt 15 ]; do "
                      u"printf '\\033[48;5;%dm    ' $((16 + i * 12 + j)); j=$((j + 1)); done; "
                      u"printf '\\033[0m\\n'; i=$((i + 1)); done"_s);
        startTerminal(
            u"Files"_s, u"+580+60"_s, u"#10302c"_s,
            u"printf '\\033[1;32muser@desktop\\033[0m:\\033[1;34m/usr\\033[0m$ ls -l\\n'; "
            u"ls -l --color=always /usr; "
            u"printf '\\033[42;30m  18 packages are up to date  \\033[0m\\n"
            u"\\033[43;30m  2 warnings  \\033[0m\\n'"_s);
        startTerminal(
            u"Clockwork"_s, u"+300+390"_s, u"#3a1c32"_s,
            u"n=0; while :; do printf '\\033[H\\033[2J\\033[1;33m  tick %d\\033[0m\\n\\n' $n; "
            u"i=0; while [ $i -lt 12 ]; do printf '\\033[4%dm%*s\\033[0m\\n' $((1 + i % 6)) "
            u"$((5 + (n * 7 + i * 11) % 50)) ''; i=$((i + 1)); done; n=$((n + 1)); "
            u"sleep 0.5; done"_s);
        for (const char* name : {"Shopping", "Letter"}) {
            const QString file = m_session.path(QString::fromLatin1(name) + u".txt"_s);
            m_session.write(file, QByteArray(name) + "\n========\n\n- bread and butter\n- apples\n"
                                                     "- two kinds of cheese\n- a good book\n");
            m_applications.push_back(
                m_session.start(u"mousepad"_s, u"mousepad"_s, {u"--disable-server"_s, file}));
        }
        m_applications.push_back(m_session.start(
            u"xclock"_s, u"xclock"_s, {u"-geometry"_s, u"200x200-40+40"_s, u"-update"_s, u"1"_s}));
        m_applications.push_back(
            m_session.start(u"xcalc"_s, u"xcalc"_s, {u"-geometry"_s, u"-40+320"_s}));
        const bool complete = m_display.waitFor(
            [this] {
                return clients("XTerm").size() == 3 && clients("Mousepad").size() == 2 &&
                       clients("XClock").size() == 1 && clients("XCalc").size() == 1;
            },
            patience(20000));
        check(complete, u"seven windows of four applications opened"_s);
        std::printf("0 desktop: 3 terminals, 2 editors, a clock and a calculator above Plank\n");
    }

    std::vector<Client> clients(const char* windowClass)
    {
        std::vector<Client> result;
        for (const xcb_window_t window : m_display.numbers(m_display.root(), "_NET_CLIENT_LIST"))
            if (m_display.bytes(window, "WM_CLASS").split('\0').contains(windowClass))
                result.push_back({window, title(window)});
        return result;
    }

    QByteArray title(xcb_window_t window)
    {
        const QByteArray name = m_display.bytes(window, "_NET_WM_NAME");
        return name.isEmpty() ? m_display.bytes(window, "WM_NAME") : name;
    }

    void check(bool right, const QString& what)
    {
        if (right)
            return;
        m_right = false;
        std::fprintf(stderr, "WRONG: not seen: %s\n", qPrintable(what));
    }

    void save(const QString& name)
    {
        const QString path = m_pictures + u'/' + name;
        check(m_display.picture().save(path), u"a picture written to "_s + path);
    }

    static long millisecondsSince(Clock::time_point start)
    {
        return std::chrono::duration_cast<std::chrono::milliseconds>(Clock::now() - start).count();
    }

    void park() { m_display.moveTo({screenSize.width() - 200, 700}); }

    void moveToIcon(const QString& entry)
    {
        const QString path =
            entry.startsWith(u'/') ? entry : u"/usr/share/applications/"_s + entry + u".desktop"_s;
        std::optional<QPoint> icon;
        m_display.waitFor(
            [&] {
                icon = m_dock->iconOf(path, XCB_WINDOW_NONE);
                return icon.has_value();
            },
            patience(5000));
        if (icon)
            m_display.moveTo(*icon);
    }

    /// Whether a preview shows its own terminal: the background it was started with.
    bool isPainted(const Panel& panel)
    {
        const QColor expected = m_backgrounds.value(panel.title);
        const QImage picture = m_display.picture(panel.geometry);
        int found = 0;
        for (int y = 0; y < picture.height(); ++y) {
            const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
            found += static_cast<int>(
                std::count_if(line, line + picture.width(),
                              [&expected](QRgb pixel) { return isAbout(pixel, expected, 5); }));
        }
        return found * 50 > picture.width() * picture.height();
    }

    void hover()
    {
        std::vector<QByteArray> expected;
        for (const Client& client : clients("XTerm"))
            expected.push_back(client.title);
        const xcb_window_t active = m_display.activeWindow();
        moveToIcon(m_terminal);
        const auto arrived = Clock::now();
        const bool painted = m_display.waitFor(
            [&] {
                const auto previews = m_display.previews();
                return previews.size() == expected.size() &&
                       std::ranges::all_of(previews,
                                           [this](const Panel& panel) { return isPainted(panel); });
            },
            patience(5000));
        const long time = millisecondsSince(arrived);
        std::vector<QByteArray> titles;
        for (const Panel& panel : m_display.previews())
            titles.push_back(panel.title);
        check(painted, u"three painted previews"_s);
        check(std::is_permutation(titles.begin(), titles.end(), expected.begin(), expected.end()),
              u"the titles of the three terminals"_s);
        check(m_display.activeWindow() == active, u"the focus where it was"_s);
        save(u"1-hover.png"_s);
        std::printf(
            "1 hover: %zu previews of the terminal's %zu windows, the last one painted %ld ms "
            "after the mouse arrived\n",
            titles.size(), expected.size(), time);
    }

    void hoverPreview()
    {
        m_chosen = m_display.previews().at(1);
        const QRect corner(m_chosen.geometry.topLeft(), QSize(28, 28));
        const QImage before = m_display.picture(corner);
        m_display.moveTo(m_chosen.geometry.center());
        const auto arrived = Clock::now();
        const bool zoomed = m_display.waitFor(
            [this] {
                return std::ranges::any_of(
                    m_display.panels(), [](const Panel& panel) { return panel.role == u"zoom"_s; });
            },
            patience(3000));
        const long time = millisecondsSince(arrived);
        check(zoomed, u"the zoomed view of the window"_s);
        const bool closable =
            m_display.waitFor([&] { return m_display.picture(corner) != before; }, patience(1000));
        check(closable, u"the close button in the preview's corner"_s);
        save(u"2-preview-hovered.png"_s);
        std::printf(
            "2 preview hovered: close button and, %ld ms after the mouse arrived, the zoomed "
            "view of \"%s\"\n",
            time, m_chosen.title.constData());
    }

    void clickPreview()
    {
        const auto windows = clients("XTerm");
        const auto window = std::ranges::find(windows, m_chosen.title, &Client::title);
        const auto clicked = Clock::now();
        m_display.click();
        const bool active = m_display.waitFor(
            [&] { return window != windows.end() && m_display.activeWindow() == window->id; },
            patience(3000));
        const long time = millisecondsSince(clicked);
        check(active, u"the clicked window active"_s);
        save(u"3-clicked.png"_s);
        std::printf("3 preview clicked: \"%s\" is the active window %ld ms after the click\n",
                    m_chosen.title.constData(), time);
    }

    void leave()
    {
        park();
        const auto left = Clock::now();
        check(m_display.waitFor([this] { return m_display.panels().empty(); }, patience(3000)),
              u"no preview after the mouse left"_s);
        const long time = millisecondsSince(left);
        save(u"4-left.png"_s);
        std::printf("4 mouse left: the last preview went %ld ms later\n", time);
        m_lumbrix->signal(SIGTERM);
        check(m_lumbrix->waitForExit(patience(3000)) == 0, u"Lumbrix ended with status 0"_s);
    }

    QString m_pictures;
    Session m_session{{screenSize, WindowManager::Xfwm4, true}};
    Display& m_display = m_session.display();
    std::unique_ptr<Dock> m_dock;
    std::vector<std::unique_ptr<Process>> m_applications;
    std::unique_ptr<Process> m_lumbrix;
    QString m_terminal;
    QHash<QByteArray, QColor> m_backgrounds; ///< of the terminals, by title
    Panel m_chosen;
    bool m_right = true;
};

} // namespace

int main(int argc, char** argv)
{
    std::signal(SIGPIPE, SIG_IGN);
    std::setvbuf(stdout, nullptr, _IOLBF, 0);
    const QCoreApplication application(argc, argv);
    if (argc != 2) {
        std::fprintf(stderr, "usage: lumbrix_demo FOLDER\n");
        return 2;
    }
    const QString folder = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    const bool right = Demonstration(folder).run();
    std::printf(right ? "All as it should be; the pictures are in %s\n"
                      : "Something was wrong; the pictures are in %s\n",
                qPrintable(folder));
    return right ? 0 : 1;
}
