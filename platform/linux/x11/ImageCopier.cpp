// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/ImageCopier.h"

#include "platform/linux/x11/Connection.h"

#include <xcb/shm.h>

#include <fcntl.h>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <bit>
#include <mutex>
#include <utility>
#include <vector>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::size_t granularity =
    std::size_t{256} * 1024; // windows of similar size share segments
/// Twice the largest screens; a window of the maximum size would take four gigabytes.
constexpr qint64 maxPixels = qint64{64} * 1024 * 1024;
constexpr std::size_t minIdleSegments = 2;
constexpr std::size_t maxIdleSegments = 8;

qint64 pixelsOf(QSize size) { return qint64{size.width()} * size.height(); }

QImage::Format formatOf(int depth)
{
    return depth == 32 ? QImage::Format_ARGB32_Premultiplied : QImage::Format_RGB32;
}

/// File descriptors travel over local sockets only; over others the attempt ends the connection.
bool isLocal(const Connection& connection)
{
    sockaddr_storage address{};
    socklen_t length = sizeof(address);
    return getsockname(xcb_get_file_descriptor(connection.get()),
                       reinterpret_cast<sockaddr*>(&address), &length) == 0 &&
           address.ss_family == AF_UNIX;
}

} // namespace

struct ImageCopier::Segment {
    std::uint32_t* pixels = nullptr;
    std::size_t size = 0;
    xcb_shm_seg_t id = XCB_NONE;
};

/// The segments. They live as long as an image uses them, perhaps longer than the connection.
class ImageCopier::Pool : public std::enable_shared_from_this<Pool>
{
public:
    explicit Pool(const Connection& connection) : m_connection(&connection) {}
    ~Pool() { releaseIdle(); }

    /// The segment is null if there is no memory. The lease is passed to the image's cleanup
    /// function.
    Segment take(std::size_t size)
    {
        {
            const std::lock_guard lock(m_mutex);
            auto best = m_idle.end();
            for (auto it = m_idle.begin(); it != m_idle.end(); ++it)
                if (it->size >= size && (best == m_idle.end() || it->size < best->size))
                    best = it;
            if (best != m_idle.end() && best->size / 4 <= size + granularity) {
                const Segment segment = *best;
                m_idle.erase(best);
                ++m_inUse;
                return segment;
            }
        }
        return make((size + granularity - 1) / granularity * granularity);
    }

    void give(const Segment& segment)
    {
        const std::lock_guard lock(m_mutex);
        m_idle.push_back(segment);
        --m_inUse;
        // Windows that are refreshed at the same time each need a second segment, and memory that
        // was used before is several times faster than new memory.
        const std::size_t limit = std::clamp(m_inUse, minIdleSegments, maxIdleSegments);
        while (!m_idle.empty() && (!m_connection || m_idle.size() > limit)) {
            release(m_idle.front());
            m_idle.erase(m_idle.begin());
        }
    }

    void releaseIdle()
    {
        const std::lock_guard lock(m_mutex);
        for (const Segment& segment : m_idle)
            release(segment);
        m_idle.clear();
        if (m_connection)
            m_connection->flush();
    }

    /// The connection is about to be closed, and with it the server's side of the segments.
    void close()
    {
        releaseIdle();
        const std::lock_guard lock(m_mutex);
        m_connection = nullptr;
    }

    QImage wrap(const Segment& segment, const QSize& size, QImage::Format format)
    {
        struct Lease {
            std::shared_ptr<Pool> pool;
            Segment segment;
        };
        return QImage(
            reinterpret_cast<uchar*>(segment.pixels), size.width(), size.height(),
            static_cast<qsizetype>(size.width()) * 4, format,
            [](void* lease) {
                const std::unique_ptr<Lease> owned(static_cast<Lease*>(lease));
                owned->pool->give(owned->segment);
            },
            new Lease{shared_from_this(), segment});
    }

    std::atomic<bool> isUsable = true;
    std::atomic<bool> isPixmapUsable = true;

private:
    Segment make(std::size_t size)
    {
        const int fd = memfd_create("picture", MFD_CLOEXEC);
        if (fd < 0)
            return {};
        // Allocated now: a lack of memory is an error here and would be a fatal signal later.
        void* memory =
            posix_fallocate(fd, 0, static_cast<off_t>(size)) == 0
                ? mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_SHARED | MAP_POPULATE, fd, 0)
                : MAP_FAILED;
        if (memory == MAP_FAILED) {
            ::close(fd);
            return {};
        }
        const std::lock_guard lock(m_mutex);
        const Segment segment{static_cast<std::uint32_t*>(memory), size, m_connection->newId()};
        // The connection closes the descriptor once it is sent.
        xcb_shm_attach_fd(m_connection->get(), segment.id, fd, 0);
        ++m_inUse;
        return segment;
    }

    void release(const Segment& segment)
    {
        if (m_connection)
            xcb_shm_detach(m_connection->get(), segment.id);
        munmap(segment.pixels, segment.size);
    }

    std::mutex m_mutex;
    const Connection* m_connection; // guarded by m_mutex; null once closed
    std::size_t m_inUse = 0;        // guarded by m_mutex; segments that images hold
    std::vector<Segment> m_idle;    // guarded by m_mutex; the longest idle first
};

ImageCopier::ImageCopier(const Connection& connection)
    : m_connection(connection), m_sampler(connection)
{
    if (connection.extensions().shm.atLeast(1, 2) && isLocal(connection))
        m_pool = std::make_shared<Pool>(connection);
}

ImageCopier::~ImageCopier()
{
    if (m_pool)
        m_pool->close();
}

QImage ImageCopier::copy(xcb_drawable_t drawable, const QRect& rect, int depth)
{
    if (rect.isEmpty() || pixelsOf(rect.size()) > maxPixels || !isDepthReadable(depth))
        return {};
    const QImage::Format format = formatOf(depth);
    if (!m_pool || !m_pool->isUsable)
        return copyThroughSocket(drawable, rect, format);

    const std::size_t count = static_cast<std::size_t>(rect.width()) * rect.height();
    const Segment segment = m_pool->take(count * 4);
    if (!segment.pixels)
        return copyThroughSocket(drawable, rect, format);
    QImage image = m_pool->wrap(segment, rect.size(), format);
    const auto cookie = xcb_shm_get_image(
        m_connection.get(), drawable, static_cast<std::int16_t>(rect.x()),
        static_cast<std::int16_t>(rect.y()), static_cast<std::uint16_t>(rect.width()),
        static_cast<std::uint16_t>(rect.height()), ~0U, XCB_IMAGE_FORMAT_Z_PIXMAP, segment.id, 0);
    if (!m_connection.reply(xcb_shm_get_image_reply, cookie)) {
        image = copyThroughSocket(drawable, rect, format);
        if (!image.isNull()) // so it was the shared memory that failed: do not try again
            m_pool->isUsable = false;
        return image;
    }
    return image;
}

QImage ImageCopier::copySamples(xcb_drawable_t drawable, const QRect& rect, int depth, QSize size,
                                const std::function<void()>& beforeWaiting)
{
    if (rect.isEmpty() || size.isEmpty() || pixelsOf(size) > maxPixels || !isDepthReadable(depth) ||
        !m_sampler.canSample(depth))
        return {};
    QImage image;
    if (m_pool && m_pool->isUsable && m_pool->isPixmapUsable)
        image = samplesInMemory(drawable, rect, depth, size, beforeWaiting);
    return image.isNull() ? samplesCopied(drawable, rect, depth, size, beforeWaiting) : image;
}

QImage ImageCopier::samplesInMemory(xcb_drawable_t drawable, const QRect& rect, int depth,
                                    QSize size, const std::function<void()>& beforeWaiting)
{
    const Segment segment = m_pool->take(static_cast<std::size_t>(pixelsOf(size)) * 4);
    if (!segment.pixels)
        return {};
    QImage image = m_pool->wrap(segment, size, formatOf(depth));
    xcb_connection_t* c = m_connection.get();
    const xcb_pixmap_t target = m_connection.newId();
    const auto created = xcb_shm_create_pixmap_checked(
        c, target, m_connection.root(), static_cast<std::uint16_t>(size.width()),
        static_cast<std::uint16_t>(size.height()), static_cast<std::uint8_t>(depth), segment.id, 0);
    const auto sampled = m_sampler.sample(drawable, rect, depth, target, size);
    xcb_free_pixmap(c, target);
    if (beforeWaiting)
        beforeWaiting();
    // Both are taken, or the failure of one would wait for ever to be asked for.
    const bool isCreated = m_connection.succeeded(created);
    const bool isSampled = m_connection.succeeded(sampled);
    if (!isCreated)
        m_pool->isPixmapUsable = false; // servers that draw elsewhere than in memory have none
    return isSampled ? image : QImage();
}

QImage ImageCopier::samplesCopied(xcb_drawable_t drawable, const QRect& rect, int depth, QSize size,
                                  const std::function<void()>& beforeWaiting)
{
    xcb_connection_t* c = m_connection.get();
    const xcb_pixmap_t target = m_connection.newId();
    xcb_create_pixmap(c, static_cast<std::uint8_t>(depth), target, m_connection.root(),
                      static_cast<std::uint16_t>(size.width()),
                      static_cast<std::uint16_t>(size.height()));
    const auto sampled = m_sampler.sample(drawable, rect, depth, target, size);
    if (beforeWaiting)
        beforeWaiting();
    const QImage image = copy(target, QRect({}, size), depth);
    xcb_free_pixmap(c, target);
    return m_connection.succeeded(sampled) ? image : QImage();
}

void ImageCopier::releaseIdle()
{
    if (m_pool)
        m_pool->releaseIdle();
}

QImage ImageCopier::copyThroughSocket(xcb_drawable_t drawable, const QRect& rect,
                                      QImage::Format format)
{
    const auto cookie = xcb_get_image(
        m_connection.get(), XCB_IMAGE_FORMAT_Z_PIXMAP, drawable,
        static_cast<std::int16_t>(rect.x()), static_cast<std::int16_t>(rect.y()),
        static_cast<std::uint16_t>(rect.width()), static_cast<std::uint16_t>(rect.height()), ~0U);
    auto reply = m_connection.reply(xcb_get_image_reply, cookie);
    const std::size_t count = static_cast<std::size_t>(rect.width()) * rect.height();
    if (!reply || static_cast<std::size_t>(xcb_get_image_data_length(reply.get())) < count * 4)
        return {};
    std::uint8_t* pixels = xcb_get_image_data(reply.get()); // before the reply is handed over
    return QImage(
        pixels, rect.width(), rect.height(), static_cast<qsizetype>(rect.width()) * 4, format,
        [](void* memory) { std::free(memory); }, reply.release());
}

/// Four bytes a pixel in this machine's order: anything else is long extinct.
bool ImageCopier::isDepthReadable(int depth) const
{
    const xcb_setup_t* setup = xcb_get_setup(m_connection.get());
    const bool isServerLittle = setup->image_byte_order == XCB_IMAGE_ORDER_LSB_FIRST;
    if ((depth != 24 && depth != 32) ||
        isServerLittle != (std::endian::native == std::endian::little))
        return false;
    for (auto it = xcb_setup_pixmap_formats_iterator(setup); it.rem; xcb_format_next(&it))
        if (it.data->depth == depth)
            return it.data->bits_per_pixel == 32;
    return false;
}

} // namespace lumbrix::platform::x11
