// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The application that the desktop tests command: plain windows in known colours. Its only argument
// is its identifier, "alpha", which makes the window class "Alpha". One command a line on standard
// input, one answer a line on standard output:
//   open WIDTH HEIGHT X Y COLOUR TITLE   answers "opened INDEX WINDOW"
//   animate INDEX FRAMESPERSECOND        answers "frames COUNT", drawn since the last such command
//   keys                                 answers "keys KEYCODE...", pressed and released in turn
//   destroy INDEX | title INDEX TITLE | colour INDEX COLOUR | sync   answer "ok"
// Colours are decimal RGB numbers, titles are raw bytes in hexadecimal. A window that is asked to
// close is destroyed and reported as "close INDEX".

#include <algorithm>
#include <array>
#include <cctype>
#include <chrono>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <iostream>
#include <map>
#include <poll.h>
#include <sstream>
#include <string>
#include <unistd.h>
#include <xcb/xcb.h>

namespace
{

struct Window {
    xcb_window_t id;
    std::uint32_t colour;
    std::uint16_t width;
    std::uint16_t height;
};

using Clock = std::chrono::steady_clock;

struct Animation {
    Clock::duration interval;
    Clock::time_point due;
    std::uint32_t frame = 0;
};

/// All windows draw at the same moments, as programs do that follow the screen. Drawn each by
/// itself they would be composed each by itself, more often or less from one moment to the next.
Clock::time_point nextBeat(Clock::time_point time, Clock::duration interval)
{
    return time + interval - time.time_since_epoch() % interval;
}

std::uint32_t lowerColour(std::uint32_t colour) { return (colour >> 1) & 0x7f7f7fU; }

class Client
{
public:
    explicit Client(const std::string& identifier) : m_instance(identifier), m_class(identifier)
    {
        m_class[0] = static_cast<char>(std::toupper(static_cast<unsigned char>(m_class[0])));
        m_connection = xcb_connect(nullptr, nullptr);
        if (xcb_connection_has_error(m_connection))
            std::exit(1);
        m_screen = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data;
        m_context = xcb_generate_id(m_connection);
        xcb_create_gc(m_connection, m_context, m_screen->root, 0, nullptr);
    }

    void run()
    {
        std::array<pollfd, 2> waited{pollfd{STDIN_FILENO, POLLIN, 0},
                                     pollfd{xcb_get_file_descriptor(m_connection), POLLIN, 0}};
        for (;;) {
            while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
                handle(*event);
                std::free(event);
            }
            animate();
            xcb_flush(m_connection);
            poll(waited.data(), waited.size(), timeout());
            if (xcb_connection_has_error(m_connection))
                return;
            if ((waited[0].revents & (POLLIN | POLLHUP)) != 0 && !readCommands())
                return;
        }
    }

private:
    xcb_atom_t atom(const char* name)
    {
        xcb_atom_t& known = m_atoms[name];
        if (known == XCB_ATOM_NONE) {
            auto* reply = xcb_intern_atom_reply(
                m_connection,
                xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)),
                                name),
                nullptr);
            if (!reply)
                std::exit(1);
            known = reply->atom;
            std::free(reply);
        }
        return known;
    }

    void set(xcb_window_t window, xcb_atom_t name, xcb_atom_t type, std::uint8_t format,
             std::size_t count, const void* data)
    {
        xcb_change_property(m_connection, XCB_PROP_MODE_REPLACE, window, name, type, format,
                            static_cast<std::uint32_t>(count), data);
    }

    void setTitle(xcb_window_t window, const std::string& title)
    {
        set(window, atom("_NET_WM_NAME"), atom("UTF8_STRING"), 8, title.size(), title.data());
        set(window, XCB_ATOM_WM_NAME, XCB_ATOM_STRING, 8, std::min<std::size_t>(title.size(), 1000),
            title.data());
    }

    int open(std::uint16_t width, std::uint16_t height, std::int16_t x, std::int16_t y,
             std::uint32_t colour, const std::string& title)
    {
        const xcb_window_t window = xcb_generate_id(m_connection);
        const std::array<std::uint32_t, 2> values{
            colour, XCB_EVENT_MASK_EXPOSURE | XCB_EVENT_MASK_STRUCTURE_NOTIFY |
                        XCB_EVENT_MASK_KEY_PRESS | XCB_EVENT_MASK_KEY_RELEASE};
        xcb_create_window(m_connection, XCB_COPY_FROM_PARENT, window, m_screen->root, x, y, width,
                          height, 0, XCB_WINDOW_CLASS_INPUT_OUTPUT, m_screen->root_visual,
                          XCB_CW_BACK_PIXEL | XCB_CW_EVENT_MASK, values.data());
        const std::string name = m_instance + '\0' + m_class + '\0';
        set(window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 8, name.size(), name.data());
        const auto pid = static_cast<std::uint32_t>(getpid());
        set(window, atom("_NET_WM_PID"), XCB_ATOM_CARDINAL, 32, 1, &pid);
        std::array<char, 256> host{};
        gethostname(host.data(), host.size() - 1);
        set(window, XCB_ATOM_WM_CLIENT_MACHINE, XCB_ATOM_STRING, 8, std::strlen(host.data()),
            host.data());
        const std::array<xcb_atom_t, 2> protocols{atom("WM_DELETE_WINDOW"), atom("_NET_WM_PING")};
        set(window, atom("WM_PROTOCOLS"), XCB_ATOM_ATOM, 32, protocols.size(), protocols.data());
        // WM_NORMAL_HINTS: the position is the user's own, so window managers keep it.
        const std::array<std::uint32_t, 18> hints{1U | 4U, static_cast<std::uint32_t>(x),
                                                  static_cast<std::uint32_t>(y), width, height};
        set(window, XCB_ATOM_WM_NORMAL_HINTS, XCB_ATOM_WM_SIZE_HINTS, 32, hints.size(),
            hints.data());
        setTitle(window, title);
        xcb_map_window(m_connection, window);
        m_windows[m_next] = {window, colour, width, height};
        return m_next++;
    }

    void paint(const Window& window)
    {
        const auto half = static_cast<std::uint16_t>(window.height / 2);
        fill(window, window.colour, 0, half);
        fill(window, lowerColour(window.colour), half,
             static_cast<std::uint16_t>(window.height - half));
    }

    void fill(const Window& window, std::uint32_t colour, std::uint16_t y, std::uint16_t height)
    {
        xcb_change_gc(m_connection, m_context, XCB_GC_FOREGROUND, &colour);
        const xcb_rectangle_t area{0, static_cast<std::int16_t>(y), window.width, height};
        xcb_poly_fill_rectangle(m_connection, window.id, m_context, 1, &area);
    }

    /// Milliseconds until there is something to do by itself; -1 for never.
    int timeout() const
    {
        int result = -1;
        for (const auto& [index, animation] : m_animations) {
            const auto left =
                std::chrono::ceil<std::chrono::milliseconds>(animation.due - Clock::now());
            const int wait = std::max(0, static_cast<int>(left.count()));
            result = result < 0 ? wait : std::min(result, wait);
        }
        return result;
    }

    /// Draws the frames that are due. Those that came too late are left out, as a player would.
    void animate()
    {
        const auto now = Clock::now();
        bool hasDrawn = false;
        for (auto& [index, animation] : m_animations) {
            const auto window = m_windows.find(index);
            if (window == m_windows.end() || animation.due > now)
                continue;
            paintFrame(window->second, ++animation.frame);
            animation.due = nextBeat(now, animation.interval);
            hasDrawn = true;
        }
        // A frame counts once it is on the screen.
        if (hasDrawn)
            waitForServer();
    }

    void waitForServer()
    {
        std::free(
            xcb_get_input_focus_reply(m_connection, xcb_get_input_focus(m_connection), nullptr));
    }

    /// Every pixel is another one than in the frame before.
    void paintFrame(const Window& window, std::uint32_t frame)
    {
        constexpr int bands = 4;
        const int height = (window.height + bands - 1) / bands;
        for (int band = 0; band < bands; ++band)
            fill(window,
                 (frame * 0x050709U + static_cast<std::uint32_t>(band) * 0x0f0b0dU) & 0xffffffU,
                 static_cast<std::uint16_t>(band * height), static_cast<std::uint16_t>(height));
    }

    void destroy(int index)
    {
        m_animations.erase(index);
        const auto found = m_windows.find(index);
        if (found == m_windows.end())
            return;
        xcb_destroy_window(m_connection, found->second.id);
        m_windows.erase(found);
    }

    /// Null for what is none of ours, or gone.
    std::pair<const int, Window>* find(xcb_window_t id)
    {
        const auto found = std::find_if(m_windows.begin(), m_windows.end(),
                                        [id](const auto& each) { return each.second.id == id; });
        return found == m_windows.end() ? nullptr : &*found;
    }

    void handle(const xcb_generic_event_t& event)
    {
        switch (event.response_type & 0x7f) {
        case XCB_EXPOSE: {
            const auto& expose = reinterpret_cast<const xcb_expose_event_t&>(event);
            if (const auto* exposed = find(expose.window); exposed && expose.count == 0)
                paint(exposed->second);
            break;
        }
        case XCB_CONFIGURE_NOTIFY: {
            const auto& change = reinterpret_cast<const xcb_configure_notify_event_t&>(event);
            if (auto* changed = find(change.window)) {
                changed->second.width = change.width;
                changed->second.height = change.height;
                paint(changed->second);
            }
            break;
        }
        case XCB_KEY_PRESS:
        case XCB_KEY_RELEASE:
            m_keys +=
                ' ' + std::to_string(reinterpret_cast<const xcb_key_press_event_t&>(event).detail);
            break;
        case XCB_CLIENT_MESSAGE:
            handleMessage(reinterpret_cast<const xcb_client_message_event_t&>(event));
            break;
        default:
            break;
        }
    }

    void handleMessage(const xcb_client_message_event_t& message)
    {
        if (message.type != atom("WM_PROTOCOLS"))
            return;
        if (message.data.data32[0] == atom("_NET_WM_PING")) {
            xcb_client_message_event_t reply = message;
            reply.window = m_screen->root;
            xcb_send_event(m_connection, 0, m_screen->root,
                           XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY |
                               XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                           reinterpret_cast<const char*>(&reply));
            return;
        }
        if (message.data.data32[0] != atom("WM_DELETE_WINDOW"))
            return;
        if (const auto* closed = find(message.window)) {
            std::cout << "close " << closed->first << std::endl;
            destroy(closed->first);
        }
    }

    bool readCommands()
    {
        std::array<char, 65536> buffer{};
        const ssize_t n = read(STDIN_FILENO, buffer.data(), buffer.size());
        if (n <= 0)
            return false;
        m_input.append(buffer.data(), static_cast<std::size_t>(n));
        for (std::size_t end; (end = m_input.find('\n')) != std::string::npos;) {
            const std::string answer = command(m_input.substr(0, end));
            m_input.erase(0, end + 1);
            // What was asked for is on the screen before the answer is out.
            waitForServer();
            std::cout << answer << std::endl;
        }
        return true;
    }

    static std::string fromHex(const std::string& hex)
    {
        std::string result;
        for (std::size_t i = 0; i + 1 < hex.size(); i += 2)
            result += static_cast<char>(std::stoi(hex.substr(i, 2), nullptr, 16));
        return result;
    }

    std::string command(const std::string& line)
    {
        std::istringstream in(line);
        std::string verb;
        in >> verb;
        if (verb == "open") {
            int width = 0;
            int height = 0;
            int x = 0;
            int y = 0;
            std::uint32_t colour = 0;
            std::string title;
            in >> width >> height >> x >> y >> colour >> title;
            const int index = open(static_cast<std::uint16_t>(width),
                                   static_cast<std::uint16_t>(height), static_cast<std::int16_t>(x),
                                   static_cast<std::int16_t>(y), colour, fromHex(title));
            return "opened " + std::to_string(index) + ' ' + std::to_string(m_windows[index].id);
        }
        if (verb == "keys") {
            // What the server has sent is read, so that nothing seen goes untold.
            waitForServer();
            while (xcb_generic_event_t* event = xcb_poll_for_queued_event(m_connection)) {
                handle(*event);
                std::free(event);
            }
            return "keys" + m_keys;
        }
        int index = 0;
        in >> index;
        if (verb == "destroy") {
            destroy(index);
        } else if (const auto found = m_windows.find(index); found != m_windows.end()) {
            if (verb == "title") {
                std::string title;
                in >> title;
                setTitle(found->second.id, fromHex(title));
            } else if (verb == "colour") {
                in >> found->second.colour;
                xcb_change_window_attributes(m_connection, found->second.id, XCB_CW_BACK_PIXEL,
                                             &found->second.colour);
                paint(found->second);
            } else if (verb == "animate") {
                int framesPerSecond = 0;
                in >> framesPerSecond;
                const std::uint32_t drawn = m_animations[index].frame;
                m_animations.erase(index);
                const auto interval =
                    std::chrono::duration_cast<Clock::duration>(std::chrono::seconds(1)) /
                    std::max(framesPerSecond, 1);
                if (framesPerSecond > 0)
                    m_animations[index] = {interval, nextBeat(Clock::now(), interval)};
                else
                    paint(found->second);
                return "frames " + std::to_string(drawn);
            }
        }
        return "ok";
    }

    std::string m_instance;
    std::string m_class;
    xcb_connection_t* m_connection = nullptr;
    xcb_screen_t* m_screen = nullptr;
    xcb_gcontext_t m_context = 0;
    std::map<std::string, xcb_atom_t> m_atoms;
    std::map<int, Window> m_windows;
    std::map<int, Animation> m_animations; ///< by window
    int m_next = 0;
    std::string m_keys;
    std::string m_input;
};

} // namespace

int main(int argc, char** argv)
{
    if (argc != 2 || argv[1][0] == '\0') {
        std::cerr << "usage: desk_client IDENTIFIER\n";
        return 2;
    }
    Client(argv[1]).run();
    return 0;
}
