// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "support/RequestCounter.h"

#include <QtCore/QtGlobal>

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <utility>
#include <vector>
#include <xcb/render.h>
#include <xcb/shm.h>

#include "support/ServerFigures.h"

namespace lumbrix::bench
{

namespace
{

constexpr std::uint8_t firstExtension = 128;
constexpr std::uint8_t fromClient = 1; ///< categories of what was recorded
constexpr std::uint8_t endOfData = 5;

struct Free {
    void operator()(void* reply) const { std::free(reply); }
};
template <class T> using Reply = std::unique_ptr<T, Free>;

std::map<std::uint8_t, std::string> extensionsOf(xcb_connection_t* connection)
{
    std::map<std::uint8_t, std::string> result;
    const Reply<xcb_list_extensions_reply_t> list(
        xcb_list_extensions_reply(connection, xcb_list_extensions(connection), nullptr));
    if (!list)
        return result;
    for (auto it = xcb_list_extensions_names_iterator(list.get()); it.rem != 0; xcb_str_next(&it)) {
        const std::string name(xcb_str_name(it.data),
                               static_cast<std::size_t>(xcb_str_name_length(it.data)));
        const Reply<xcb_query_extension_reply_t> found(xcb_query_extension_reply(
            connection,
            xcb_query_extension(connection, static_cast<std::uint16_t>(name.size()), name.c_str()),
            nullptr));
        if (found && found->present)
            result[found->major_opcode] = name;
    }
    return result;
}

std::uint32_t baseOf(xcb_connection_t* connection)
{
    return xcb_get_setup(connection)->resource_id_base;
}

} // namespace

RequestCounter::RequestCounter(const QByteArray& display, int pid)
    : m_control(xcb_connect(display.constData(), nullptr)),
      m_data(xcb_connect(display.constData(), nullptr))
{
    const auto* record = xcb_get_extension_data(m_control, &xcb_record_id);
    if (xcb_connection_has_error(m_control) || xcb_connection_has_error(m_data) || !record ||
        !record->present)
        qFatal("no X server with the RECORD extension at %s", display.constData());
    xcb_get_extension_data(m_data, &xcb_record_id);
    std::vector<xcb_record_client_spec_t> clients = clientsOf(m_control, pid);
    if (clients.empty())
        qFatal("process %d is not connected to the X server", pid);
    clients.push_back(baseOf(m_control));
    m_extensions = extensionsOf(m_control);
    const auto majorOf = [this](xcb_extension_t& extension) {
        const auto* data = xcb_get_extension_data(m_control, &extension);
        return data && data->present ? data->major_opcode : std::uint8_t{0};
    };
    m_sharedMemory = majorOf(xcb_shm_id);
    m_render = majorOf(xcb_render_id);

    xcb_record_range_t all{};
    all.core_requests = {1, firstExtension - 1};
    all.ext_requests = {{firstExtension, 255}, {0, 0xffff}};
    m_context = xcb_generate_id(m_control);
    xcb_generic_error_t* error = xcb_request_check(
        m_control, xcb_record_create_context_checked(m_control, m_context, 0,
                                                     static_cast<std::uint32_t>(clients.size()), 1,
                                                     clients.data(), &all));
    if (error)
        qFatal("the X server does not record: error %d", error->error_code);
    const auto cookie = xcb_record_enable_context(m_data, m_context);
    xcb_flush(m_data);
    m_thread = std::thread([this, cookie] { run(cookie.sequence); });
}

RequestCounter::~RequestCounter()
{
    xcb_record_disable_context(m_control, m_context);
    xcb_flush(m_control);
    m_thread.join();
    xcb_disconnect(m_data);
    xcb_disconnect(m_control);
}

void RequestCounter::run(unsigned int request)
{
    // One request with as many replies as there is something to tell.
    for (;;) {
        const Reply<xcb_record_enable_context_reply_t> reply(
            xcb_record_enable_context_reply(m_data, {request}, nullptr));
        if (!reply || reply->category == endOfData)
            break;
        if (reply->category == fromClient)
            read(reply->xid_base, xcb_record_enable_context_data(reply.get()),
                 static_cast<std::size_t>(xcb_record_enable_context_data_length(reply.get())));
    }
    const std::lock_guard lock(m_mutex);
    m_hasEnded = true;
    m_markSeen.notify_all();
}

void RequestCounter::read(std::uint32_t client, const std::uint8_t* data, std::size_t size)
{
    const std::lock_guard lock(m_mutex);
    for (std::size_t at = 0; at + 4 <= size;) {
        const std::uint8_t major = data[at];
        const std::uint8_t minor = major < firstExtension ? 0 : data[at + 1];
        std::uint16_t units = 0;
        std::memcpy(&units, data + at + 2, sizeof(units));
        std::uint32_t length = units;
        // A long request has its length in a field of its own.
        if (units == 0 && at + 8 <= size)
            std::memcpy(&length, data + at + 4, sizeof(length));
        if (length == 0)
            break;
        const std::size_t start = std::exchange(at, at + std::size_t{length} * 4);
        if (client != baseOf(m_control)) {
            ++m_counts.requests[{major, minor}];
            const auto addPixels = [&](auto request) {
                std::memcpy(&request, data + start, sizeof(request));
                m_counts.copiedPixels += std::uint64_t{request.width} * request.height;
            };
            const bool isCopy = major == m_sharedMemory && at <= size;
            if (isCopy && minor == XCB_SHM_GET_IMAGE)
                addPixels(xcb_shm_get_image_request_t{});
            else if (isCopy && minor == XCB_SHM_CREATE_PIXMAP)
                addPixels(xcb_shm_create_pixmap_request_t{});
        } else if (major == XCB_NO_OPERATION) {
            ++m_marksSeen;
            m_markSeen.notify_all();
        }
    }
}

void RequestCounter::catchUp()
{
    xcb_no_operation(m_control);
    // The server sends what it recorded when it has something to send to others, too.
    std::free(xcb_get_input_focus_reply(m_control, xcb_get_input_focus(m_control), nullptr));
    const auto mark = ++m_marksSent;
    std::unique_lock lock(m_mutex);
    m_markSeen.wait(lock, [&] { return m_marksSeen >= mark || m_hasEnded; });
}

RequestCounter::Counts RequestCounter::counts()
{
    catchUp();
    const std::lock_guard lock(m_mutex);
    return m_counts;
}

void RequestCounter::clear()
{
    catchUp();
    const std::lock_guard lock(m_mutex);
    m_counts = {};
}

std::uint64_t RequestCounter::total(const Counts& counts)
{
    std::uint64_t sum = 0;
    for (const auto& [opcode, count] : counts.requests)
        sum += count;
    return sum;
}

std::uint64_t RequestCounter::countOf(const Counts& counts, std::uint8_t major, std::uint8_t minor)
{
    const auto found = counts.requests.find({major, minor});
    return found == counts.requests.end() ? 0 : found->second;
}

std::uint64_t RequestCounter::copies(const Counts& counts) const
{
    // What is picked out of a film goes into a pixmap that lies in shared memory.
    return countOf(counts, m_sharedMemory, XCB_SHM_GET_IMAGE) +
           countOf(counts, m_sharedMemory, XCB_SHM_CREATE_PIXMAP);
}

std::uint64_t RequestCounter::paints(const Counts& counts) const
{
    return countOf(counts, m_sharedMemory, XCB_SHM_PUT_IMAGE) + countOf(counts, XCB_PUT_IMAGE, 0);
}

std::uint64_t RequestCounter::drawings(const Counts& counts) const
{
    // Each is kept within the part of the preview that shows nothing else; nothing else is.
    return countOf(counts, m_render, XCB_RENDER_SET_PICTURE_CLIP_RECTANGLES);
}

std::string RequestCounter::describe(const Counts& counts) const
{
    std::vector<std::pair<Opcode, std::uint64_t>> sorted(counts.requests.begin(),
                                                         counts.requests.end());
    std::ranges::sort(sorted, std::ranges::greater(), &decltype(sorted)::value_type::second);
    std::string text;
    for (const auto& [opcode, count] : sorted) {
        const auto extension = m_extensions.find(opcode.first);
        text += (text.empty() ? "" : ", ") + std::to_string(count) + " x " +
                (extension == m_extensions.end()
                     ? "core " + std::to_string(opcode.first)
                     : extension->second + ' ' + std::to_string(opcode.second));
    }
    return text;
}

} // namespace lumbrix::bench
