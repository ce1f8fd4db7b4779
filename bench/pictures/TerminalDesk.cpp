// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "pictures/TerminalDesk.h"

#include <array>
#include <cstdlib>
#include <set>

#include "Lumbrix.h"
#include "platform/StringLiterals.h"
#include "platform/linux/x11/WindowPictures.h"
#include "platform/linux/x11/WindowTracker.h"
#include "platform/linux/x11/X11WindowServer.h"

namespace lumbrix::bench
{

using privatedesk::patience;

namespace
{

/// What listing a folder of many kinds of files looks like, in two columns; always the same.
QByteArray listing(int rows)
{
    const char* const words[] = {"report", "letter", "garden", "photo", "music",
                                 "winter", "recipe", "budget", "notes", "travel"};
    const char* const kinds[] = {"drwxr-xr-x 34 ",     "-rwxr-xr-x 32 .sh",  "lrwxrwxrwx 36 -link",
                                 "-rw-r--r-- 31 .zip", "-rw-r--r-- 35 .png", "-rw-r----- 0 .txt"};
    unsigned random = 1;
    const auto next = [&](unsigned below) {
        random = random * 1664525 + 1013904223;
        return (random >> 16) % below;
    };
    QByteArray text;
    for (int i = 0; i < rows * 2; ++i) {
        const QList<QByteArray> kind = QByteArray(kinds[next(6)]).split(' ');
        QByteArray name = words[next(10)];
        name += '-' + QByteArray(words[next(10)]) + QByteArray::number(next(100)) + kind[2];
        QByteArray line = kind[0] + " 1 user users " +
                          QByteArray::number(next(900000)).rightJustified(7) + " May " +
                          QByteArray::number(1 + next(28)).rightJustified(2) + " 0" +
                          QByteArray::number(next(10)) + ':' + QByteArray::number(10 + next(50)) +
                          "  \033[1;" + kind[1] + 'm' + name + "\033[0m";
        if (i % 2 == 0)
            line += QByteArray(28 - name.size(), ' ');
        else if (i + 1 < rows * 2)
            line += '\n';
        text += line;
    }
    return text;
}

std::size_t colourCount(const QImage& picture)
{
    std::set<QRgb> colours;
    for (int y = 0; y < picture.height(); ++y) {
        const auto* line = reinterpret_cast<const QRgb*>(picture.constScanLine(y));
        colours.insert(line, line + picture.width());
    }
    return colours.size();
}

} // namespace

TerminalDesk::TerminalDesk() : m_session({{1600, 1280}, privatedesk::WindowManager::Xfwm4, true})
{
    m_entry = m_session.installApplication(u"debian-xterm"_s, u"Terminal"_s, u"XTerm"_s, u"xterm"_s,
                                           Qt::darkCyan);
    m_dock = privatedesk::Dock::start(m_session, privatedesk::DockKind::Plank,
                                      privatedesk::Edge::Bottom, {m_entry});
    const QString text = m_session.path(u"listing"_s);
    m_session.write(text, listing(40));
    // Cells of 9 by 19 pixels: close to 1280 by 800 with the frame.
    m_terminal = m_session.start(
        u"xterm"_s, u"xterm"_s,
        {u"-geometry"_s, u"141x40+60+40"_s, u"-fa"_s, u"DejaVu Sans Mono"_s, u"-fs"_s, u"11"_s,
         u"-bg"_s, u"#1c2028"_s, u"-fg"_s, u"#e8e8e8"_s, u"-e"_s, u"sh"_s, u"-c"_s,
         u"cat '%1'; printf '\\033]2;complete\\007'; exec sleep 36000"_s.arg(text)});
    const bool isComplete = display().waitFor(
        [this] {
            for (const xcb_window_t each :
                 display().numbers(display().root(), "_NET_CLIENT_LIST")) {
                if (display().bytes(each, "_NET_WM_NAME") == "complete" ||
                    display().bytes(each, "WM_NAME") == "complete")
                    m_window = each;
            }
            return m_window != XCB_NONE;
        },
        patience(20000));
    if (!isComplete)
        qFatal("the terminal did not start:\n%s", qPrintable(m_session.logs()));

    platform::x11::X11CoreOptions options;
    options.displayName = display().name().toStdString();
    QString error;
    m_core = platform::x11::X11Core::create(
        m_runLoop, options, [] {}, error);
    if (!m_core)
        qFatal("%s", qPrintable(error));
    m_core->start();
}

TerminalDesk::~TerminalDesk() { m_core.reset(); }

platform::WindowServer& TerminalDesk::windowServer() { return m_core->windowServer(); }

std::uint64_t TerminalDesk::copyCount() { return m_core->pictures().copyCount(); }

void TerminalDesk::draw(QSize size)
{
    // Onto itself: damage, and nothing else.
    xcb_connection_t* connection = display().connection();
    const xcb_gcontext_t context = xcb_generate_id(connection);
    const std::array<std::uint32_t, 2> values{XCB_SUBWINDOW_MODE_INCLUDE_INFERIORS, 0};
    xcb_create_gc(connection, context, m_window, XCB_GC_SUBWINDOW_MODE | XCB_GC_GRAPHICS_EXPOSURES,
                  values.data());
    xcb_copy_area(connection, m_window, m_window, context, 0, 0, 0, 0,
                  static_cast<std::uint16_t>(size.width()),
                  static_cast<std::uint16_t>(size.height()));
    xcb_free_gc(connection, context);
    std::free(xcb_get_input_focus_reply(connection, xcb_get_input_focus(connection), nullptr));
}

QImage TerminalDesk::capture()
{
    QImage picture;
    display().waitFor(
        [&] {
            // Whole, and nothing is being drawn any more.
            const std::uint64_t before = copyCount();
            picture = windowServer().captureWindow(m_window, {});
            return !picture.isNull() && before > 0 && copyCount() == before && isOnScreen(picture);
        },
        patience(10000));
    return picture.convertToFormat(QImage::Format_RGB32);
}

bool TerminalDesk::isOnScreen(const QImage& picture)
{
    constexpr int corners = 8;
    const auto tracked = m_core->tracker().window(m_window);
    const auto inner = [](const QImage& all) {
        return all.copy(all.rect().adjusted(corners, corners, -corners, -corners))
            .convertToFormat(QImage::Format_RGB32);
    };
    return tracked && inner(picture) == inner(display().picture(tracked->bounds));
}

QImage TerminalDesk::preview()
{
    const QPoint away(display().size().width() - 60, display().size().height() / 3);
    const auto hover = [&] {
        std::optional<QPoint> icon;
        display().moveTo(away);
        display().waitFor(
            [&] {
                icon = m_dock->iconOf(m_entry, m_window);
                return icon.has_value();
            },
            patience(5000));
        if (icon)
            display().moveTo(*icon);
    };
    m_lumbrix = privatedesk::startLumbrix(m_session, {}, hover);
    // Painted, and the same at two looks.
    QImage last;
    display().waitFor(
        [&] {
            const auto panels = display().previews();
            if (panels.size() != 1)
                return false;
            const QImage now =
                display().picture(panels.front().geometry).convertToFormat(QImage::Format_RGB32);
            const bool isSteady = now == last;
            last = now;
            return isSteady && colourCount(now) > 500;
        },
        patience(5000));
    m_lumbrix.reset();
    return last;
}

} // namespace lumbrix::bench
