// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Which requests a process sends to the X server, and how often.
#pragma once

#include <QtCore/QByteArray>

#include <condition_variable>
#include <cstdint>
#include <map>
#include <mutex>
#include <string>
#include <thread>
#include <utility>
#include <xcb/record.h>
#include <xcb/xcb.h>

namespace lumbrix::bench
{

/// Counts the requests of all connections that a process has when this is made, until this goes.
/// It has two connections of its own, as the RECORD extension asks for, and a thread that reads.
/// The counted program sees nothing of it; the server does a little more for each request.
class RequestCounter
{
public:
    /// A core request's major opcode and 0, or an extension's major and minor opcode.
    using Opcode = std::pair<std::uint8_t, std::uint8_t>;
    struct Counts {
        std::map<Opcode, std::uint64_t> requests;
        std::uint64_t copiedPixels = 0; ///< of windows' pictures, through shared memory
    };

    /// The display's name, as in DISPLAY. Ends the program when the server cannot record or the
    /// process has no connection.
    RequestCounter(const QByteArray& display, int pid);
    ~RequestCounter();
    RequestCounter(const RequestCounter&) = delete;
    RequestCounter& operator=(const RequestCounter&) = delete;

    /// All that the server has handled when this is called. Any thread, as the next.
    Counts counts();
    /// From now on.
    void clear();

    // Of counts.
    static std::uint64_t total(const Counts& counts);
    /// Windows' pictures copied through shared memory.
    std::uint64_t copies(const Counts& counts) const;
    /// Pictures put into windows, through shared memory or not.
    std::uint64_t paints(const Counts& counts) const;
    /// Pictures that the server draws onto windows by itself, from windows' pixmaps.
    std::uint64_t drawings(const Counts& counts) const;
    /// "15 x MIT-SHM 4, 3 x core 72", the most frequent first.
    std::string describe(const Counts& counts) const;

private:
    void run(unsigned int request);
    /// Counts the requests of one batch.
    void read(std::uint32_t client, const std::uint8_t* data, std::size_t size);
    /// The control connection is recorded too: when its own request comes by, all that the server
    /// handled earlier has.
    void catchUp();
    static std::uint64_t countOf(const Counts& counts, std::uint8_t major, std::uint8_t minor);

    xcb_connection_t* m_control = nullptr;
    xcb_connection_t* m_data = nullptr;
    xcb_record_context_t m_context = 0;
    std::uint8_t m_sharedMemory = 0;                  ///< the extension's major opcode
    std::uint8_t m_render = 0;                        ///< the same
    std::map<std::uint8_t, std::string> m_extensions; ///< by major opcode
    std::uint64_t m_marksSent = 0;
    std::mutex m_mutex;
    std::condition_variable m_markSeen;
    Counts m_counts;               ///< guarded by m_mutex
    std::uint64_t m_marksSeen = 0; ///< guarded by m_mutex
    bool m_hasEnded = false;       ///< guarded by m_mutex
    std::thread m_thread;
};

} // namespace lumbrix::bench
