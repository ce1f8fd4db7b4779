// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "Display.h"
#include "platform/StringLiterals.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <poll.h>
#include <xcb/xtest.h>

namespace lumbrix::privatedesk
{

namespace
{

/// Of an ordinary mouse.
constexpr std::chrono::milliseconds reportInterval(8);

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T> using Reply = std::unique_ptr<T, Free>;

/// Sends a request, waits for its reply and drops any error: a window may go at any time.
template <class ReplyFunction, class Cookie>
auto answer(ReplyFunction reply, xcb_connection_t* connection, Cookie cookie)
{
    xcb_generic_error_t* error = nullptr;
    auto* result = reply(connection, cookie, &error);
    std::free(error);
    return Reply<std::remove_pointer_t<decltype(result)>>(result);
}

} // namespace

Display::Display(const QByteArray& name) : m_name(name)
{
    int screenNumber = 0;
    m_connection = xcb_connect(name.constData(), &screenNumber);
    if (xcb_connection_has_error(m_connection))
        qFatal("no X server at %s", name.constData());
    const xcb_screen_t* screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
    m_root = screen->root;
    const std::uint32_t events =
        XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_PROPERTY_CHANGE;
    xcb_change_window_attributes(m_connection, m_root, XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection);
}

Display::~Display() { xcb_disconnect(m_connection); }

bool Display::waitFor(const std::function<bool()>& condition, std::chrono::milliseconds timeout)
{
    using Clock = std::chrono::steady_clock;
    const auto deadline = Clock::now() + timeout;
    for (;;) {
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection))
            std::free(event);
        if (condition())
            return true;
        const auto left = std::chrono::ceil<std::chrono::milliseconds>(deadline - Clock::now());
        if (left.count() <= 0 || xcb_connection_has_error(m_connection))
            return false;
        xcb_flush(m_connection);
        pollfd waited{xcb_get_file_descriptor(m_connection), POLLIN, 0};
        poll(&waited, 1, static_cast<int>(std::min<long>(left.count(), 5)));
    }
}

xcb_atom_t Display::atom(const std::string& name)
{
    xcb_atom_t& known = m_atoms[name];
    if (known == XCB_ATOM_NONE) {
        const auto cookie =
            xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(name.size()), name.c_str());
        known = answer(xcb_intern_atom_reply, m_connection, cookie)->atom;
    }
    return known;
}

QByteArray Display::bytes(xcb_window_t window, const std::string& property)
{
    const auto cookie =
        xcb_get_property(m_connection, 0, window, atom(property), XCB_ATOM_ANY, 0, 1024 * 1024);
    const auto reply = answer(xcb_get_property_reply, m_connection, cookie);
    if (!reply)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply.get())),
            xcb_get_property_value_length(reply.get())};
}

std::vector<std::uint32_t> Display::numbers(xcb_window_t window, const std::string& property)
{
    const QByteArray raw = bytes(window, property);
    std::vector<std::uint32_t> result(static_cast<size_t>(raw.size()) / sizeof(std::uint32_t));
    if (!result.empty())
        std::memcpy(result.data(), raw.constData(), result.size() * sizeof(std::uint32_t));
    return result;
}

std::optional<QRect> Display::geometry(xcb_window_t window)
{
    const auto sizeCookie = xcb_get_geometry(m_connection, window);
    const auto placeCookie = xcb_translate_coordinates(m_connection, window, m_root, 0, 0);
    const auto size = answer(xcb_get_geometry_reply, m_connection, sizeCookie);
    const auto place = answer(xcb_translate_coordinates_reply, m_connection, placeCookie);
    if (!size || !place)
        return std::nullopt;
    return QRect(place->dst_x, place->dst_y, size->width, size->height);
}

QSize Display::size() { return geometry(m_root).value_or(QRect()).size(); }

bool Display::isMinimised(xcb_window_t window)
{
    const auto state = numbers(window, "WM_STATE");
    return !state.empty() && state.front() == 3;
}

xcb_window_t Display::activeWindow()
{
    const auto active = numbers(m_root, "_NET_ACTIVE_WINDOW");
    return active.empty() ? 0U : active.front();
}

int Display::currentDesktop()
{
    const auto desktop = numbers(m_root, "_NET_CURRENT_DESKTOP");
    return desktop.empty() ? 0 : static_cast<int>(desktop.front());
}

bool Display::hasCompositor()
{
    const auto cookie = xcb_get_selection_owner(m_connection, atom("_NET_WM_CM_S0"));
    const auto reply = answer(xcb_get_selection_owner_reply, m_connection, cookie);
    return reply && reply->owner != XCB_WINDOW_NONE;
}

bool Display::waitForWindowManager(std::chrono::milliseconds timeout)
{
    const xcb_window_t window = xcb_generate_id(m_connection);
    const auto isListed = [&] {
        const auto listed = numbers(m_root, "_NET_CLIENT_LIST");
        return std::ranges::find(listed, window) != listed.end();
    };
    xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_root, 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
    xcb_map_window(m_connection, window);
    const bool isManaged = waitFor(isListed, timeout);
    xcb_destroy_window(m_connection, window);
    return isManaged && waitFor([&] { return !isListed(); }, timeout);
}

void Display::request(xcb_window_t window, const std::string& message,
                      const std::vector<std::uint32_t>& data)
{
    xcb_client_message_event_t event{};
    event.response_type = XCB_CLIENT_MESSAGE;
    event.format = 32;
    event.window = window;
    event.type = atom(message);
    std::copy_n(data.begin(), std::min<size_t>(data.size(), 5), event.data.data32);
    xcb_send_event(m_connection, 0, m_root,
                   XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                   reinterpret_cast<const char*>(&event));
    xcb_flush(m_connection);
}

std::vector<Panel> Display::panels() { return windowsOf("lumbrix", "Lumbrix"); }

std::vector<Panel> Display::windowsOf(const QByteArray& instance, const QByteArray& windowClass)
{
    const QByteArray wanted = instance + '\0' + windowClass + '\0';
    std::vector<Panel> result;
    const auto tree =
        answer(xcb_query_tree_reply, m_connection, xcb_query_tree(m_connection, m_root));
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    const int count = xcb_query_tree_children_length(tree.get());
    std::vector<xcb_get_window_attributes_cookie_t> attributes;
    std::vector<xcb_get_property_cookie_t> classes;
    for (int i = 0; i < count; ++i) {
        attributes.push_back(xcb_get_window_attributes(m_connection, children[i]));
        classes.push_back(xcb_get_property(m_connection, 0, children[i], XCB_ATOM_WM_CLASS,
                                           XCB_ATOM_STRING, 0, 64));
    }
    for (int i = 0; i < count; ++i) {
        const auto seen = answer(xcb_get_window_attributes_reply, m_connection, attributes[i]);
        const auto name = answer(xcb_get_property_reply, m_connection, classes[i]);
        if (!seen || !name || seen->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        const QByteArray value(static_cast<const char*>(xcb_get_property_value(name.get())),
                               xcb_get_property_value_length(name.get()));
        const auto area = geometry(children[i]);
        if (value != wanted || !area)
            continue;
        result.push_back({children[i], QString::fromUtf8(bytes(children[i], "WM_WINDOW_ROLE")),
                          bytes(children[i], "_NET_WM_NAME"), *area, seen->override_redirect != 0});
    }
    return result;
}

std::vector<Panel> Display::managedWindows()
{
    std::vector<Panel> result;
    for (const xcb_window_t window : numbers(m_root, "_NET_CLIENT_LIST")) {
        const auto area = geometry(window);
        if (area && bytes(window, "WM_CLASS") == QByteArray("lumbrix\0Lumbrix\0", 16))
            result.push_back({window, QString::fromUtf8(bytes(window, "WM_WINDOW_ROLE")),
                              bytes(window, "_NET_WM_NAME"), *area, false});
    }
    return result;
}

std::vector<Panel> Display::panels(const QString& role)
{
    std::vector<Panel> result = panels();
    std::erase_if(result, [&role](const Panel& panel) { return panel.role != role; });
    std::sort(result.begin(), result.end(), [](const Panel& a, const Panel& b) {
        return std::pair(a.geometry.y(), a.geometry.x()) <
               std::pair(b.geometry.y(), b.geometry.x());
    });
    return result;
}

std::vector<Panel> Display::previews() { return panels(u"preview"_s); }

std::vector<Panel> Display::badges() { return panels(u"window-count"_s); }

std::optional<QRect> Display::dockArea()
{
    for (const xcb_window_t window : numbers(m_root, "_NET_CLIENT_LIST")) {
        const auto types = numbers(window, "_NET_WM_WINDOW_TYPE");
        const auto area = geometry(window);
        // Panels open tiny and off the screen before they take their place.
        if (!types.empty() && types.front() == atom("_NET_WM_WINDOW_TYPE_DOCK") && area &&
            std::max(area->width(), area->height()) > 100)
            return area;
    }
    return std::nullopt;
}

bool Display::hasMenu()
{
    const auto tree =
        answer(xcb_query_tree_reply, m_connection, xcb_query_tree(m_connection, m_root));
    const xcb_window_t* children = xcb_query_tree_children(tree.get());
    for (int i = 0; i < xcb_query_tree_children_length(tree.get()); ++i) {
        const auto seen = answer(xcb_get_window_attributes_reply, m_connection,
                                 xcb_get_window_attributes(m_connection, children[i]));
        if (!seen || seen->map_state != XCB_MAP_STATE_VIEWABLE)
            continue;
        for (const std::uint32_t type : numbers(children[i], "_NET_WM_WINDOW_TYPE"))
            if (type == atom("_NET_WM_WINDOW_TYPE_POPUP_MENU"))
                return true;
    }
    return false;
}

QImage Display::picture(const QRect& area)
{
    const QRect inside = area.intersected(QRect(QPoint(), size()));
    if (inside.isEmpty())
        return {};
    const auto cookie = xcb_get_image(
        m_connection, XCB_IMAGE_FORMAT_Z_PIXMAP, m_root, static_cast<std::int16_t>(inside.x()),
        static_cast<std::int16_t>(inside.y()), static_cast<std::uint16_t>(inside.width()),
        static_cast<std::uint16_t>(inside.height()), ~0U);
    const auto reply = answer(xcb_get_image_reply, m_connection, cookie);
    if (!reply)
        return {};
    return QImage(xcb_get_image_data(reply.get()), inside.width(), inside.height(),
                  QImage::Format_RGB32)
        .copy();
}

void Display::setWallpaper(const QImage& image)
{
    // On a connection of its own that keeps its resources, as wallpaper programs do it, so that
    // the pixmap outlives the painter.
    xcb_connection_t* painter = xcb_connect(m_name.constData(), nullptr);
    xcb_set_close_down_mode(painter, XCB_CLOSE_DOWN_RETAIN_PERMANENT);
    const QSize size = this->size();
    const QImage rgb = image.scaled(size).convertToFormat(QImage::Format_RGB32);
    const xcb_pixmap_t pixmap = xcb_generate_id(painter);
    const xcb_gcontext_t context = xcb_generate_id(painter);
    xcb_create_pixmap(painter, 24, pixmap, m_root, static_cast<std::uint16_t>(size.width()),
                      static_cast<std::uint16_t>(size.height()));
    xcb_create_gc(painter, context, pixmap, 0, nullptr);
    constexpr int band = 32; // keeps each request below the server's limit
    for (int y = 0; y < rgb.height(); y += band) {
        const int rows = std::min(band, rgb.height() - y);
        xcb_put_image(painter, XCB_IMAGE_FORMAT_Z_PIXMAP, pixmap, context,
                      static_cast<std::uint16_t>(rgb.width()), static_cast<std::uint16_t>(rows), 0,
                      static_cast<std::int16_t>(y), 0, 24,
                      static_cast<std::uint32_t>(rows * rgb.bytesPerLine()), rgb.constScanLine(y));
    }
    for (const char* name : {"_XROOTPMAP_ID", "ESETROOT_PMAP_ID"})
        xcb_change_property(painter, XCB_PROP_MODE_REPLACE, m_root, atom(name), XCB_ATOM_PIXMAP, 32,
                            1, &pixmap);
    xcb_change_window_attributes(painter, m_root, XCB_CW_BACK_PIXMAP, &pixmap);
    xcb_clear_area(painter, 0, m_root, 0, 0, 0, 0);
    answer(xcb_get_input_focus_reply, painter, xcb_get_input_focus(painter));
    xcb_disconnect(painter);
}

void Display::setResources(const QByteArray& text)
{
    xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, m_root, XCB_ATOM_RESOURCE_MANAGER,
                        XCB_ATOM_STRING, 8, static_cast<std::uint32_t>(text.size()),
                        text.constData());
    xcb_flush(m_connection);
}

QPoint Display::pointer()
{
    const auto reply =
        answer(xcb_query_pointer_reply, m_connection, xcb_query_pointer(m_connection, m_root));
    return reply ? QPoint(reply->root_x, reply->root_y) : QPoint();
}

void Display::moveTo(QPoint target)
{
    const QPoint start = pointer();
    constexpr int steps = 8;
    for (int i = 1; i <= steps; ++i) {
        const QPoint at = start + (target - start) * i / steps;
        fake(XCB_MOTION_NOTIFY, 0, at);
        waitFor([] { return false; }, reportInterval);
    }
}

std::chrono::milliseconds
Display::moveAlong(const std::function<QPointF(std::chrono::duration<double>)>& path,
                   std::chrono::duration<double> time)
{
    using Clock = std::chrono::steady_clock;
    const auto start = Clock::now();
    auto last = start;
    Clock::duration longest{};
    QPoint place = pointer();
    for (std::chrono::duration<double> passed{}; passed < time;) {
        waitFor([] { return false; }, reportInterval);
        const auto now = Clock::now();
        longest = std::max(longest, now - std::exchange(last, now));
        passed = std::min<std::chrono::duration<double>>(now - start, time);
        const QPoint at = path(passed).toPoint();
        if (std::exchange(place, at) != at) // one that stands still reports nothing
            fake(XCB_MOTION_NOTIFY, 0, at);
    }
    return std::chrono::duration_cast<std::chrono::milliseconds>(longest);
}

void Display::fake(std::uint8_t type, int detail, QPoint at)
{
    xcb_test_fake_input(m_connection, type, static_cast<std::uint8_t>(detail), XCB_CURRENT_TIME,
                        m_root, static_cast<std::int16_t>(at.x()),
                        static_cast<std::int16_t>(at.y()), 0);
    xcb_flush(m_connection);
}

void Display::press(int button) { fake(XCB_BUTTON_PRESS, button); }

void Display::release(int button) { fake(XCB_BUTTON_RELEASE, button); }

void Display::click(int button)
{
    press(button);
    release(button);
}

void Display::type(const std::vector<std::uint8_t>& keys)
{
    for (const std::uint8_t key : keys)
        holdKey(key);
    std::for_each(keys.rbegin(), keys.rend(), [this](std::uint8_t key) { letGoOfKey(key); });
}

void Display::holdKey(std::uint8_t key) { fake(XCB_KEY_PRESS, key); }

void Display::letGoOfKey(std::uint8_t key) { fake(XCB_KEY_RELEASE, key); }

bool Display::takeKey(std::uint8_t key, std::uint16_t modifiers)
{
    const Reply<xcb_generic_error_t> error(xcb_request_check(
        m_connection, xcb_grab_key_checked(m_connection, 0, m_root, modifiers, key,
                                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC)));
    return !error;
}

void Display::giveKeyBack(std::uint8_t key, std::uint16_t modifiers)
{
    std::free(xcb_request_check(m_connection,
                                xcb_ungrab_key_checked(m_connection, key, m_root, modifiers)));
}

xcb_window_t Display::focus()
{
    const auto reply =
        answer(xcb_get_input_focus_reply, m_connection, xcb_get_input_focus(m_connection));
    return reply ? reply->focus : XCB_WINDOW_NONE + 0U;
}

} // namespace lumbrix::privatedesk
