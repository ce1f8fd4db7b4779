// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Shows preview panels of every style to look at.
//
//   panel_gallery [--shaped] [--hover] [--marked] [--controls] [--keys] [--size WxH]
//                 [--columns N] [--wallpaper FILE] [--caption TEXT] PICTURE...
//
// The pictures are dealt out in turn. The panels stay until the program is ended.

#include <QtCore/QCommandLineParser>
#include <QtGui/QScreen>
#include <QtWidgets/QApplication>
#include <QtWidgets/QLabel>

#include <array>

#include "platform/qt/QtRunLoop.h"
#include "tests/preview/PanelHost.h"
#include "tests/support/SimulatedDesktop.h"

using namespace lumbrix;
using namespace Qt::StringLiterals;

namespace
{

const std::array styles{"ScreenyView",     "ScreenyViewBlack", "ScreenyViewBorderless",
                        "ScreenyViewBlue", "ScreenyViewRed",   "ScreenyViewGreen"};

void showWallpaper(QLabel& label, const QString& file, QSize screen)
{
    label.setWindowFlags(Qt::Window | Qt::BypassWindowManagerHint);
    label.setPixmap(QPixmap(file).scaled(screen, Qt::IgnoreAspectRatio, Qt::SmoothTransformation));
    // A window of the screen's full size makes compositors stop compositing.
    label.setGeometry(QRect(QPoint(), screen - QSize(1, 1)));
    label.show();
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    const auto flag = [&parser](const char* name) {
        parser.addOption(QCommandLineOption(QString::fromLatin1(name)));
    };
    const auto value = [&parser](const char* name, const char* preset) {
        parser.addOption(QCommandLineOption(QString::fromLatin1(name), {}, u"value"_s,
                                            QString::fromLatin1(preset)));
    };
    flag("shaped");
    flag("hover");
    flag("marked");
    flag("controls");
    flag("keys");
    value("size", "243x190");
    value("columns", "3");
    value("wallpaper", "");
    value("caption", "");
    parser.process(application);
    const auto isSet = [&parser](const char* name) {
        return parser.isSet(QString::fromLatin1(name));
    };
    const auto given = [&parser](const char* name) {
        return parser.value(QString::fromLatin1(name));
    };

    platform::QtRunLoop runLoop;
    test::SimulatedDesktop desk(runLoop);
    const platform::Desktop ports = desk.ports();
    const platform::DesktopScope scope(ports);
    const QSize screen = QGuiApplication::primaryScreen()->size();
    desk.with([&](test::SimulatedState& state) {
        state.screens = {QRectF(QPointF(), screen)};
        state.blendsTranslucency = !isSet("shaped");
    });
    const test::Pid pid = desk.addApplication({u"Editor"_s});
    test::PanelHost host;
    host.settingsMirror.showFastKeys = isSet("keys");

    QLabel wallpaper;
    if (!given("wallpaper").isEmpty())
        showWallpaper(wallpaper, given("wallpaper"), screen);

    const QStringList size = given("size").split(QLatin1Char('x'));
    const QSizeF panel(size.value(0).toDouble(), size.value(1).toDouble());
    const int columns = given("columns").toInt();
    const QStringList pictures = parser.positionalArguments();
    for (std::size_t i = 0; i < styles.size(); ++i) {
        const ScreenyViewPtr preview =
            ScreenyView::load(ports, QString::fromLatin1(styles.at(i)), host);
        if (!preview)
            return 1;
        const int n = static_cast<int>(i);
        const QString picture = pictures.isEmpty() ? QString() : pictures.at(n % pictures.size());
        host.previews.push_back(preview);
        test::SimulatedWindow window{picture};
        window.isClosable = n != 1;
        preview->setElementRef(
            std::make_shared<SWElement>(ports, desk.windowElement(desk.addWindow(pid, window))));
        preview->setImage(QImage(picture));
        preview->setTitleString(given("caption").isEmpty() ? picture.section(QLatin1Char('/'), -1)
                                                           : given("caption"));
        preview->setITunes(isSet("controls"));
        host.state = n % 2 ? PlayerState::Playing : PlayerState::Stopped;
        const int row = n / columns;
        preview->window()->setFrame(
            QRectF(QPointF(30 + (n % columns) * panel.width(),
                           screen.height() - 20 - (row + 1) * (panel.height() + 10)),
                   panel));
        preview->setTrackingRect();
        preview->setShortcut();
        preview->setMarked(isSet("marked"));
        preview->orderFront();
        if (isSet("hover"))
            preview->mouseEntered();
    }
    return QApplication::exec();
}
