// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures of what previews and windows look like on a real desktop, for the documents.
//
//   desktop_gallery FOLDER
//
// Writes FOLDER/hover.png and so on.
#include <QtCore/QCoreApplication>
#include <QtCore/QDateTime>
#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QTimeZone>
#include <QtGui/QPainter>

#include <cstdlib>
#include <iostream>
#include <utility>
#include <vector>

#include "Desk.h"
#include "Scene.h"

using namespace lumbrix::privatedesk;
using namespace Qt::StringLiterals;

namespace
{

/// The time zone where it is just past eight now, so that the whole day is still to come.
QTimeZone morning()
{
    const int hours = (8 - QDateTime::currentDateTimeUtc().time().hour() + 35) % 24 - 11;
    // Such a zone is named by what has to be added to its time.
    return QTimeZone(
        u"Etc/GMT%1%2"_s.arg(hours > 0 ? u"-"_s : u"+"_s).arg(std::abs(hours)).toLatin1());
}

/// Pictures side by side, in rows of so many, on white.
QImage sheetOf(const std::vector<QImage>& pictures, int columns)
{
    constexpr int gap = 8;
    QSize cell;
    for (const QImage& picture : pictures)
        cell = cell.expandedTo(picture.size());
    const int rows = (static_cast<int>(pictures.size()) + columns - 1) / columns;
    QImage sheet((cell.width() + gap) * columns + gap, (cell.height() + gap) * rows + gap,
                 QImage::Format_RGB32);
    sheet.fill(Qt::white);
    QPainter painter(&sheet);
    for (int i = 0; i < static_cast<int>(pictures.size()); ++i)
        painter.drawImage(gap + i % columns * (cell.width() + gap),
                          gap + i / columns * (cell.height() + gap),
                          pictures[static_cast<std::size_t>(i)]);
    return sheet;
}

/// Today's calendar: an event an hour.
QByteArray today()
{
    const char* const titles[] = {"Breakfast with Ada",
                                  "Planning",
                                  "Dentist",
                                  "Lunch",
                                  "Call about the very long contract of the new house by the sea",
                                  "Piano lesson",
                                  "Tea with Grace",
                                  "Choir"};
    const QByteArray day = QDateTime::currentDateTimeUtc()
                               .toTimeZone(morning())
                               .date()
                               .toString(u"yyyyMMdd"_s)
                               .toLatin1();
    const auto hour = [](int number) { return QByteArray::number(number).rightJustified(2, '0'); };
    QByteArray text = "BEGIN:VCALENDAR\r\nVERSION:2.0\r\nX-APPLE-CALENDAR-COLOR:#3465A4\r\n";
    int start = 9;
    for (const char* title : titles) {
        text += "BEGIN:VEVENT\r\nUID:" + hour(start) + "\r\nSUMMARY:" + title +
                "\r\nDTSTART:" + day + 'T' + hour(start) + "3000\r\nDTEND:" + day + 'T' +
                hour(start + 1) + "1500\r\nEND:VEVENT\r\n";
        ++start;
    }
    return text + "END:VCALENDAR\r\n";
}

/// The row and a preview of it in full size, and a player's.
void everyday(const QString& folder)
{
    Scene scene({1280, 800});
    Display& display = scene.display();
    scene.startLumbrix();
    const auto save = [&](const char* name, const QRect& area) {
        scene.settle();
        const QString path = folder + u'/' + QLatin1String(name) + u".png"_s;
        std::cout << qPrintable(path) << (scene.look(area).save(path) ? "\n" : " not written\n");
    };
    const QRect all(QPoint(), display.size());
    display.moveTo(scene.terminalIcon());
    scene.preview("Changes");
    save("hover", all);
    display.moveTo(scene.preview("System monitor"));
    scene.wait("the full size", [&] { return scene.isZoomed(); });
    save("preview-hovered", all);
    display.moveTo(scene.rest());
    scene.wait("no previews", [&] { return display.previews().empty(); });
    display.moveTo(scene.playerIcon());
    display.moveTo(scene.preview("Ann - First Song"));
    save("media-controls", display.previews().front().geometry.adjusted(-30, -30, 30, 80));
}

class Gallery
{
public:
    explicit Gallery(QString folder) : m_folder(std::move(folder))
    {
        // The calendars' time of day; everything else is the same at any time.
        const QString program = m_desk.session().path(u"lumbrix-in-the-morning"_s);
        m_desk.session().write(program, "#!/bin/sh\nTZ=" + morning().id() + " exec " +
                                            lumbrixBinary().toUtf8() + '\n');
        QFile::setPermissions(program, QFile::ReadOwner | QFile::WriteOwner | QFile::ExeOwner);
        qputenv("LUMBRIX_BINARY", program.toUtf8());
        m_desk.session().installApplication(m_calendar, u"Calendar"_s, u"Org.gnome.Calendar"_s,
                                            u"true"_s, Qt::magenta);
    }

    void spaceNumbers()
    {
        const auto alpha = open(u"alpha"_s, 2);
        display().request(display().root(), "_NET_NUMBER_OF_DESKTOPS", {12, 0});
        std::vector<QImage> pictures;
        for (const char* style : {"0", "1"}) {
            for (const char* size : {"0", "1"}) {
                alpha->moveToDesktop(alpha->windows().back(), 0);
                start({{u"showSpaces"_s, u"1"_s},
                       {u"spaceStyle"_s, QLatin1String(style)},
                       {u"spaceSize"_s, QLatin1String(size)}});
                hover(*alpha, 2);
                m_desk.park();
                alpha->moveToDesktop(alpha->windows().back(), 11);
                pictures.push_back(hover(*alpha, 2));
            }
        }
        save("space-numbers", sheetOf(pictures, 2));
    }

    void windowCounts()
    {
        const auto alpha = open(u"alpha"_s, 3);
        const auto beta = open(u"beta"_s, 12);
        const auto gamma = open(u"gamma"_s, 1);
        std::vector<QImage> pictures;
        for (const char* colour : {"#0a53beff", "#b42828ff", "#b0a030ff"}) {
            start({{u"badgeDock"_s, u"1"_s},
                   {u"winBadgeColor"_s, u"@data(%1)"_s.arg(QLatin1String(colour))}});
            wait("counts", [this] { return display().badges().size() == 3; });
            settle();
            QRect area;
            for (const Panel& badge : display().badges())
                area |= badge.geometry;
            pictures.push_back(display().picture(area.adjusted(-60, -50, 30, 15)));
        }
        save("window-counts", sheetOf(pictures, 3));
    }

    void privateWindows()
    {
        const auto alpha = open(u"alpha"_s, 2);
        m_desk.stopLumbrix();
        m_desk.session().write(
            settingsPath(m_desk.session()),
            "[General]\nfirstRun=1\nbadgeDockIconsFirstRun=1\nshowInDock=1\n"
            "windowWidth=243\nwindowHeight=190\ndistanceFromDock=33\n"
            "previewStyle=1\nshowFastKeys=1\nshouldBubbleWrap=1\n[privateApplications]\nalpha=1\n");
        m_desk.startLumbrixAgain(*alpha);
        save("private", hover(*alpha, 2));
    }

    void calendars()
    {
        m_desk.session().write(m_desk.session().dataPath(u"lumbrix/calendars/Home.ics"_s), today());
        const auto calendar = open(m_calendar, 1);
        std::vector<QImage> pictures;
        for (const char* style : {"0", "1"}) {
            start({{u"previewStyle"_s, QLatin1String(style)}});
            pictures.push_back(hover(*calendar, 1));
        }
        save("calendar", sheetOf(pictures, 2));
    }

    /// Whether all was seen that the pictures are of.
    bool isComplete() const { return m_isComplete; }

private:
    Display& display() { return m_desk.display(); }

    std::unique_ptr<Application> open(const QString& identifier, int windows)
    {
        auto application = m_desk.launch(identifier);
        application->open(windows);
        settle(); // its icon comes with a bounce
        return application;
    }
    void start(const Settings& changed)
    {
        m_desk.stopLumbrix();
        m_desk.startLumbrix(changed);
    }
    void wait(const char* what, const std::function<bool()>& condition)
    {
        if (display().waitFor(condition, patience(10000)))
            return;
        std::cerr << "waited in vain for " << what << "\n";
        m_isComplete = false;
    }
    /// Until half a second has gone by without a change on the screen.
    void settle()
    {
        QImage last;
        while (display().waitFor([&] { return display().picture() != last; },
                                 std::chrono::milliseconds(500)))
            last = display().picture();
    }
    /// The previews of an application, and what is around them.
    QImage hover(const Application& application, std::size_t previews)
    {
        m_desk.park();
        wait("no previews", [this] { return display().previews().empty(); });
        m_desk.hover(application);
        wait("previews", [&] { return display().previews().size() == previews; });
        settle();
        QRect area;
        for (const Panel& panel : display().previews())
            area |= panel.geometry;
        return display().picture(area.adjusted(-30, -30, 30, 70));
    }
    void save(const QByteArray& name, const QImage& picture)
    {
        const QString path = m_folder + u'/' + QString::fromLatin1(name) + u".png"_s;
        std::cout << qPrintable(path) << (picture.save(path) ? "\n" : " not written\n");
    }

    const QString m_folder;
    bool m_isComplete = true;
    const QString m_calendar = u"org.gnome.Calendar"_s;
    Desk m_desk{{"gallery", DockKind::Plank, Edge::Bottom, {}}};
};

} // namespace

int main(int argc, char** argv)
{
    const QCoreApplication application(argc, argv);
    const QStringList arguments = QCoreApplication::arguments();
    if (arguments.size() != 2 || !QDir().mkpath(arguments.at(1))) {
        std::cerr << "usage: desktop_gallery FOLDER\n";
        return 2;
    }
    everyday(arguments.at(1));
    Gallery gallery(arguments.at(1));
    gallery.spaceNumbers();
    gallery.windowCounts();
    gallery.privateWindows();
    gallery.calendars();
    return gallery.isComplete() ? 0 : 1;
}
