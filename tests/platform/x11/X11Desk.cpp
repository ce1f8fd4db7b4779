// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "X11Desk.h"

#include <cstdlib>

namespace lumbrix::platform::x11
{

void Recorder::note(std::atomic<int>& count, const TrackedWindowPtr& before,
                    const TrackedWindowPtr& after)
{
    const std::lock_guard lock(m_mutex);
    TrackedWindowPtr& known = m_known[(before ? before : after)->id];
    if ((known && known != before) || (before && after && *before == *after))
        isConsistent = false;
    known = after;
    ++count;
}

Session& sharedSession(const SessionOptions& options)
{
    static std::map<std::pair<WindowManager, bool>, std::unique_ptr<Session>> sessions;
    auto& session = sessions[{options.windowManager, options.compositor}];
    if (!session)
        session = std::make_unique<Session>(options);
    return *session;
}

X11Desk::X11Desk(Session& session) : m_session(session)
{
    X11CoreOptions coreOptions;
    coreOptions.displayName = display().name().toStdString();
    // The wheel over the bare desktop, for one, has other desktops shown.
    display().request(display().root(), "_NET_CURRENT_DESKTOP", {0, 0});
    display().waitFor([this] { return display().currentDesktop() == 0; });
    QString error;
    m_core = X11Core::create(
        m_runLoop, coreOptions, [this] { m_isConnectionLost = true; }, error);
    if (!m_core)
        qFatal("%s", qPrintable(error));
    m_core->tracker().addListener(&m_recorder);
    m_core->start();
}

X11Desk::~X11Desk()
{
    m_core.reset();
    EXPECT_TRUE(m_recorder.isConsistent);
}

bool X11Desk::waitFor(const std::function<bool()>& condition)
{
    return display().waitFor(condition);
}

TrackedWindowPtr X11Desk::waitForWindow(xcb_window_t id,
                                        const std::function<bool(const TrackedWindow&)>& condition)
{
    TrackedWindowPtr window;
    const bool holds = waitFor([&] {
        window = tracker().window(id);
        return window && condition(*window);
    });
    EXPECT_TRUE(holds);
    return window;
}

std::optional<WindowInfo> X11Desk::info(xcb_window_t id)
{
    for (const WindowInfo& entry : core().windowServer().copyWindowInfo(WindowListOption::All))
        if (entry.number == id)
            return entry;
    return std::nullopt;
}

bool X11Desk::waitForColour(const AppWindow& window, const QColor& colour)
{
    return waitFor([&] { return capturedColour(window).rgb() == colour.rgb(); });
}

QColor X11Desk::capturedColour(const AppWindow& window)
{
    const QImage picture = pictures().capture(window.id);
    // A title bar takes less than a tenth of the window's height.
    return picture.isNull() ? QColor()
                            : picture.pixelColor(picture.width() / 2, picture.height() / 4);
}

RawWindow::RawWindow(Session& session, const QRect& rect, bool isOverrideRedirect)
    : m_display(session.display()),
      m_connection(xcb_connect(m_display.name().constData(), nullptr)),
      m_id(xcb_generate_id(m_connection))
{
    const std::uint32_t values[] = {0xffffff, isOverrideRedirect ? 1U : 0U};
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, m_id, m_display.root(),
                      static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
                      static_cast<std::uint16_t>(rect.width()),
                      static_cast<std::uint16_t>(rect.height()), 0, XCB_WINDOW_CLASS_INPUT_OUTPUT,
                      XCB_COPY_FROM_PARENT, XCB_CW_BACK_PIXEL | XCB_CW_OVERRIDE_REDIRECT, values);
    sync();
}

void RawWindow::setBytes(const char* property, const char* type, const QByteArray& bytes)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_id, m_display.atom(property),
                        m_display.atom(type), 8, static_cast<std::uint32_t>(bytes.size()),
                        bytes.constData());
    sync();
}

void RawWindow::queueNumbers(const char* property, const char* type,
                             const std::vector<std::uint32_t>& numbers)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_id, m_display.atom(property),
                        m_display.atom(type), 32, static_cast<std::uint32_t>(numbers.size()),
                        numbers.data());
}

void RawWindow::own(const char* selection)
{
    xcb_set_selection_owner(m_connection, m_id, m_display.atom(selection), XCB_CURRENT_TIME);
    sync();
}

void RawWindow::fill(const QRect& rect, const QColor& colour)
{
    const xcb_gcontext_t context = xcb_generate_id(m_connection);
    const std::uint32_t pixel = colour.rgb() & 0xffffffU;
    xcb_create_gc(m_connection, context, m_id, XCB_GC_FOREGROUND, &pixel);
    const xcb_rectangle_t area{
        static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
        static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height())};
    xcb_poly_fill_rectangle(m_connection, m_id, context, 1, &area);
    xcb_free_gc(m_connection, context);
    sync();
}

void RawWindow::sync()
{
    std::free(xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
}

} // namespace lumbrix::platform::x11
