// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PixelSampler.h"

#include "platform/linux/x11/Connection.h"

namespace lumbrix::platform::x11
{
namespace
{

constexpr int fixedOne = 65536;

xcb_render_fixed_t step(int source, int target)
{
    return static_cast<xcb_render_fixed_t>(qint64{source} * fixedOne / target);
}

} // namespace

PixelSampler::PixelSampler(const Connection& connection) : m_connection(connection)
{
    if (!connection.extensions().render.atLeast(0, 6)) // the first with transformed pictures
        return;
    const auto formats = connection.reply(xcb_render_query_pict_formats_reply,
                                          xcb_render_query_pict_formats(connection.get()));
    if (!formats)
        return;
    // The same one for both sides, so the order of its colours does not matter.
    for (auto it = xcb_render_query_pict_formats_formats_iterator(formats.get()); it.rem;
         xcb_render_pictforminfo_next(&it)) {
        const xcb_render_pictforminfo_t& format = *it.data;
        if (format.type != XCB_RENDER_PICT_TYPE_DIRECT || format.direct.green_mask != 0xff)
            continue;
        if (format.depth == 24 && format.direct.alpha_mask == 0 && !m_opaque)
            m_opaque = format.id;
        if (format.depth == 32 && format.direct.alpha_mask == 0xff && !m_translucent)
            m_translucent = format.id;
    }
}

xcb_render_pictformat_t PixelSampler::formatOf(int depth) const
{
    return depth == 24 ? m_opaque : depth == 32 ? m_translucent : xcb_render_pictformat_t{XCB_NONE};
}

xcb_render_transform_t PixelSampler::transformTo(QSize size, const QRect& rect)
{
    return {step(rect.width(), size.width()),
            0,
            rect.x() * fixedOne,
            0,
            step(rect.height(), size.height()),
            rect.y() * fixedOne,
            0,
            0,
            fixedOne};
}

xcb_void_cookie_t PixelSampler::sample(xcb_drawable_t drawable, const QRect& rect, int depth,
                                       xcb_drawable_t target, QSize size) const
{
    xcb_connection_t* c = m_connection.get();
    const xcb_render_picture_t from = m_connection.newId();
    const xcb_render_picture_t to = m_connection.newId();
    xcb_render_create_picture(c, from, drawable, formatOf(depth), 0, nullptr);
    xcb_render_create_picture(c, to, target, formatOf(depth), 0, nullptr);
    xcb_render_set_picture_transform(c, from, transformTo(size, rect));
    const auto sampled = xcb_render_composite_checked(
        c, XCB_RENDER_PICT_OP_SRC, from, XCB_NONE, to, 0, 0, 0, 0, 0, 0,
        static_cast<std::uint16_t>(size.width()), static_cast<std::uint16_t>(size.height()));
    xcb_render_free_picture(c, to);
    xcb_render_free_picture(c, from);
    return sampled;
}

} // namespace lumbrix::platform::x11
