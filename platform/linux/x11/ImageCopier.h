// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Copies pixels from the server into images, through shared memory where the server can.
#pragma once

#include <QtCore/QRect>
#include <QtGui/QImage>

#include <xcb/xcb.h>

#include <functional>
#include <memory>

#include "platform/linux/x11/PixelSampler.h"

namespace lumbrix::platform::x11
{

class Connection;

/// Any thread; many may copy at once. The memory of an image is a segment that the server writes
/// into directly; when the last copy of the image is dropped the segment waits for the next image,
/// so that steady copying neither allocates nor faults pages in. Images may outlive the copier.
class ImageCopier
{
public:
    explicit ImageCopier(const Connection& connection);
    ~ImageCopier();

    /// Null when the drawable is gone, `rect` is not inside it or has more than 64 megapixels, or
    /// its depth is not 24 or 32.
    /// Depth 24 gives RGB32 whose unused byte holds anything, which painting would take for
    /// opacity; depth 32 gives ARGB32_Premultiplied.
    QImage copy(xcb_drawable_t drawable, const QRect& rect, int depth);
    /// A picture of this size, made of pixels that are spread evenly over `rect`. Null as well
    /// where the server cannot.
    /// `beforeWaiting` may ask the server for more, which is answered together with this.
    QImage copySamples(xcb_drawable_t drawable, const QRect& rect, int depth, QSize size,
                       const std::function<void()>& beforeWaiting = {});
    const PixelSampler& sampler() const { return m_sampler; }
    /// Frees the memory of unused segments.
    void releaseIdle();

private:
    struct Segment;
    class Pool;
    /// Into a pixmap that lies in shared memory, or into one that is copied; null where that fails.
    QImage samplesInMemory(xcb_drawable_t drawable, const QRect& rect, int depth, QSize size,
                           const std::function<void()>& beforeWaiting);
    QImage samplesCopied(xcb_drawable_t drawable, const QRect& rect, int depth, QSize size,
                         const std::function<void()>& beforeWaiting);
    QImage copyThroughSocket(xcb_drawable_t drawable, const QRect& rect, QImage::Format format);
    bool isDepthReadable(int depth) const;

    const Connection& m_connection;
    const PixelSampler m_sampler;
    std::shared_ptr<Pool> m_pool; ///< null: no shared memory
};

} // namespace lumbrix::platform::x11
