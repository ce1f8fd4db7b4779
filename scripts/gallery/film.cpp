// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A film of the program on a private desktop: its pictures one by one, and how long each is shown.
//
//   film FOLDER
//
// Writes FOLDER/0000.ppm and so on, and FOLDER/frames with "-d MILLISECONDS FILE" a line.
#include <QtCore/QCoreApplication>
#include <QtCore/QDir>

#include <cmath>
#include <fstream>
#include <iostream>

#include "Keys.h"
#include "Scene.h"

using namespace lumbrix::privatedesk;
using namespace Qt::StringLiterals;

namespace
{

using Seconds = std::chrono::duration<double>;
using Clock = std::chrono::steady_clock;

constexpr QSize screenSize(960, 600);
constexpr std::chrono::milliseconds frameTime(66);

/// Takes a picture whenever it is time for the next one; equal ones are one that is shown longer.
class Camera
{
public:
    Camera(Scene& scene, QString folder) : m_scene(scene), m_folder(std::move(folder))
    {
        m_list.open(QDir(m_folder).filePath(u"frames"_s).toStdString());
    }
    ~Camera() { keep(Clock::now()); }

    void look()
    {
        const auto now = Clock::now();
        if (now < m_next)
            return;
        m_next = now + frameTime;
        const QImage picture = m_scene.look();
        if (picture == m_last)
            return;
        keep(now);
        m_last = picture;
        m_since = now;
    }
    int frames() const { return m_frames; }

private:
    void keep(Clock::time_point until)
    {
        if (m_last.isNull())
            return;
        const QString name = u"%1.ppm"_s.arg(m_frames++, 4, 10, QLatin1Char('0'));
        m_last.save(QDir(m_folder).filePath(name));
        const auto shown = std::chrono::duration_cast<std::chrono::milliseconds>(until - m_since);
        m_list << "-d " << shown.count() << ' ' << name.toStdString() << '\n';
    }

    Scene& m_scene;
    const QString m_folder;
    std::ofstream m_list;
    QImage m_last;
    Clock::time_point m_since, m_next;
    int m_frames = 0;
};

class Film
{
public:
    explicit Film(const QString& folder) : m_camera(m_scene, folder)
    {
        m_scene.startLumbrix({{u"windowWidth"_s, u"190"_s}, {u"windowHeight"_s, u"150"_s}});
    }

    void make()
    {
        hold(0.6);
        hoverAndZoom();
        playAndPause();
        switchWindows();
        hold(1.2);
        std::cout << m_camera.frames() << " frames\n";
    }

private:
    Display& display() { return m_scene.display(); }

    void hold(double seconds)
    {
        const auto end = Clock::now() + Seconds(seconds);
        while (Clock::now() < end) {
            m_camera.look();
            display().waitFor([] { return false; }, std::chrono::milliseconds(8));
        }
    }
    /// As a hand moves: slowly at both ends, and not quite straight.
    void move(QPoint target, double seconds, double bow = 0)
    {
        const QPointF start = display().pointer();
        const QPointF way = target - start;
        display().moveAlong(
            [&](Seconds passed) {
                m_camera.look();
                const double t = std::min(1.0, passed.count() / seconds);
                const double s = t * t * t * (10 - 15 * t + 6 * t * t);
                const double aside = bow * std::sin(3.14159 * s);
                return start + way * s + QPointF(way.y(), -way.x()) * aside;
            },
            Seconds(seconds));
    }
    void until(const char* what, const std::function<bool()>& condition)
    {
        m_scene.wait(what, [&] {
            m_camera.look();
            return condition();
        });
    }

    void hoverAndZoom()
    {
        move(m_scene.terminalIcon(), 1.1, 0.08);
        until("three previews", [this] { return display().previews().size() == 3; });
        hold(1.0);
        // Aslant over the neighbours' icons to the far end of the row.
        move(m_scene.preview("System monitor") + QPoint(0, 30), 0.6, 0.06);
        hold(0.3);
        until("the full size", [this] { return m_scene.isZoomed(); });
        hold(1.3);
        move(m_scene.preview("Changes"), 0.7, 0.05);
        until("the full size", [this] { return m_scene.isZoomed(); });
        hold(1.3);
        display().click();
        hold(0.5);
        move(m_scene.rest() - QPoint(0, 40), 0.6);
        until("no previews", [this] { return display().previews().empty(); });
        hold(0.4);
    }
    void playAndPause()
    {
        move(m_scene.playerIcon(), 0.8, -0.06);
        until("the player's preview", [this] { return display().previews().size() == 1; });
        hold(0.8);
        const QRect panel = display().previews().front().geometry;
        // Its buttons come under the mouse: pause, then the next track.
        const QPoint pause(panel.x() + panel.width() / 2 + 6, panel.y() + panel.height() - 55);
        move(pause, 0.6, 0.05);
        hold(0.8);
        display().click();
        until("silence", [this] { return m_scene.player().state() == u"Paused"; });
        hold(0.8);
        display().click();
        until("music", [this] { return m_scene.player().state() == u"Playing"; });
        hold(0.3);
        move(pause + QPoint(30, 0), 0.4);
        const QString before = m_scene.player().title();
        display().click();
        until("the next track", [&] { return m_scene.player().title() != before; });
        hold(1.2);
        move(m_scene.rest(), 0.6);
        until("no previews", [this] { return display().previews().empty(); });
        hold(0.3);
    }
    void switchWindows()
    {
        display().holdKey(altKey);
        for (int i = 0; i < 2; ++i) {
            display().type({tabKey});
            hold(1.1);
        }
        display().letGoOfKey(altKey);
    }

    Scene m_scene{screenSize};
    Camera m_camera;
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    if (argc != 2 || !QDir().mkpath(QString::fromLocal8Bit(argv[1]))) {
        std::cerr << "usage: film FOLDER\n";
        return 2;
    }
    Film(QString::fromLocal8Bit(argv[1])).make();
    return 0;
}
