// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// One connection to the X server. A request may fail at any time because a window vanished: every
// failure is a null reply, and nothing here ends the program.
#pragma once

#include <QtCore/QString>

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <memory>
#include <string>

namespace lumbrix::platform::x11
{

struct FreeDeleter {
    void operator()(void* memory) const { std::free(memory); }
};
/// A reply or an event allocated by libxcb.
template <class T> using Reply = std::unique_ptr<T, FreeDeleter>;
using Event = Reply<xcb_generic_event_t>;

struct Extension {
    bool present = false;
    std::uint8_t majorOpcode = 0;
    std::uint8_t firstEvent = 0;
    std::uint32_t majorVersion = 0;
    std::uint32_t minorVersion = 0;

    bool atLeast(std::uint32_t major, std::uint32_t minor) const
    {
        return present &&
               (majorVersion > major || (majorVersion == major && minorVersion >= minor));
    }
};

struct Extensions {
    Extension composite, damage, xfixes, xinput;   // required
    Extension shape, shm, randr, resource, render; // optional
};

/// Any thread may send requests and wait for their replies. Events are read by one thread only, and
/// on a connection whose events are waited for in poll() no other thread may send anything: libxcb
/// would read events from the socket while writing, and poll() would not report them.
class Connection
{
public:
    /// An empty `displayName` means the display of the environment. Null if there is no server or
    /// it lacks a required extension; `error` is then a message for the user.
    static std::unique_ptr<Connection> open(const std::string& displayName, QString& error);
    ~Connection();
    Connection(const Connection&) = delete;
    Connection& operator=(const Connection&) = delete;

    xcb_connection_t* get() const { return m_connection; }
    const xcb_screen_t& screen() const { return *m_screen; }
    xcb_window_t root() const { return m_screen->root; }
    int screenNumber() const { return m_screenNumber; }
    const Extensions& extensions() const { return m_extensions; }

    /// Whether the server is gone; every request then fails.
    bool isBroken() const { return xcb_connection_has_error(m_connection) != 0; }
    void flush() const { xcb_flush(m_connection); }
    /// The bits that all resource ids of one client share.
    std::uint32_t clientOf(std::uint32_t resource) const
    {
        return resource & ~xcb_get_setup(m_connection)->resource_id_mask;
    }
    std::uint32_t newId() const { return xcb_generate_id(m_connection); }
    /// Whether an id is in the range of this connection's resources.
    bool isOwn(std::uint32_t id) const
    {
        const xcb_setup_t& setup = *xcb_get_setup(m_connection);
        return (id & ~setup.resource_id_mask) == setup.resource_id_base;
    }

    /// Waits for the reply of a request; null if the request failed.
    template <class R, class Cookie>
    Reply<R> reply(R* (*wait)(xcb_connection_t*, Cookie, xcb_generic_error_t**),
                   Cookie cookie) const
    {
        xcb_generic_error_t* error = nullptr;
        Reply<R> answer(wait(m_connection, cookie, &error));
        std::free(error);
        return answer;
    }
    /// Whether a checked request without a reply succeeded; a round trip.
    bool succeeded(xcb_void_cookie_t cookie) const
    {
        return !Event(
            reinterpret_cast<xcb_generic_event_t*>(xcb_request_check(m_connection, cookie)));
    }

    /// Discards what nothing reads: the errors of unchecked requests, on a connection without an
    /// event thread.
    void discardEvents() const;

private:
    Connection(xcb_connection_t* connection, int screenNumber);
    QString queryExtensions();

    xcb_connection_t* const m_connection;
    const int m_screenNumber;
    const xcb_screen_t* m_screen = nullptr;
    Extensions m_extensions;
};

} // namespace lumbrix::platform::x11
