// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/PictureDrawer.h"

#include "platform/linux/x11/PixelSampler.h"

#include <xcb/damage.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>
#include <vector>

namespace lumbrix::platform::x11
{
namespace
{

constexpr int translucentDepth = 32;
constexpr int opaqueDepth = 24;
constexpr int maxIgnored = 100;

std::uint16_t unsigned16(int number) { return static_cast<std::uint16_t>(number); }
std::int16_t signed16(int number) { return static_cast<std::int16_t>(number); }

/// As the server has it: of sixteen bits each, multiplied by the opacity.
xcb_render_color_t colourOf(const QColor& colour)
{
    const auto part = [&colour](float each) {
        return unsigned16(qRound(each * colour.alphaF() * 0xffff));
    };
    return {part(colour.redF()), part(colour.greenF()), part(colour.blueF()), part(1)};
}

/// Waits for the server.
bool hasSucceeded(xcb_connection_t* connection, xcb_void_cookie_t cookie)
{
    xcb_generic_error_t* error = xcb_request_check(connection, cookie);
    const bool isGood = !error;
    std::free(error);
    return isGood;
}

std::vector<xcb_rectangle_t> rectanglesOf(const QRegion& region)
{
    std::vector<xcb_rectangle_t> list;
    list.reserve(static_cast<std::size_t>(region.rectCount()));
    for (const QRect& rect : region)
        list.push_back({signed16(rect.x()), signed16(rect.y()), unsigned16(rect.width()),
                        unsigned16(rect.height())});
    return list;
}

} // namespace

PictureDrawer::PictureDrawer(const PixelSampler& formats, xcb_connection_t* connection,
                             xcb_window_t root, State& state)
    : m_formats(formats), m_connection(connection), m_root(root), m_state(state)
{
    if (m_state.isPrepared)
        return;
    m_state.isPrepared = true;
    const auto asked =
        xcb_damage_query_version(connection, XCB_DAMAGE_MAJOR_VERSION, XCB_DAMAGE_MINOR_VERSION);
    xcb_discard_reply(connection, asked.sequence);
}

PictureDrawer::~PictureDrawer()
{
    release(m_samples);
    release(m_halved);
    // With any answer the failures before it are not expected any more. They are in a list that
    // would grow without one, and is searched with each that is added.
    if (m_state.ignored > maxIgnored) {
        m_state.ignored = 0;
        xcb_discard_reply(m_connection, xcb_get_input_focus(m_connection).sequence);
    }
    xcb_flush(m_connection);
}

void PictureDrawer::ignoreFailure(xcb_void_cookie_t cookie)
{
    ++m_state.ignored;
    xcb_discard_reply(m_connection, cookie.sequence);
}

xcb_render_picture_t PictureDrawer::scratch(Scratch& scratch, QSize size) const
{
    if (scratch.size == scratch.size.expandedTo(size))
        return scratch.picture;
    release(scratch);
    scratch.size = scratch.size.expandedTo(size);
    scratch.pixmap = xcb_generate_id(m_connection);
    scratch.picture = xcb_generate_id(m_connection);
    // With opacity, whatever the drawn window has: servers scale such pictures fastest.
    xcb_create_pixmap(m_connection, translucentDepth, scratch.pixmap, m_root,
                      unsigned16(scratch.size.width()), unsigned16(scratch.size.height()));
    xcb_render_create_picture(m_connection, scratch.picture, scratch.pixmap,
                              m_formats.formatOf(translucentDepth), 0, nullptr);
    constexpr std::string_view filter = "bilinear";
    xcb_render_set_picture_filter(m_connection, scratch.picture, unsigned16(filter.size()),
                                  filter.data(), 0, nullptr);
    return scratch.picture;
}

void PictureDrawer::release(const Scratch& scratch) const
{
    if (!scratch.picture)
        return;
    xcb_render_free_picture(m_connection, scratch.picture);
    xcb_free_pixmap(m_connection, scratch.pixmap);
}

void PictureDrawer::shrink(xcb_render_picture_t from, QSize size, xcb_render_picture_t to,
                           QPoint place, QSize target) const
{
    xcb_render_set_picture_transform(m_connection, from,
                                     PixelSampler::transformTo(target, QRect({}, size)));
    xcb_render_composite(m_connection, XCB_RENDER_PICT_OP_SRC, from, XCB_NONE, to, 0, 0, 0, 0,
                         signed16(place.x()), signed16(place.y()), unsigned16(target.width()),
                         unsigned16(target.height()));
}

bool PictureDrawer::draw(xcb_pixmap_t pixmap, int depth, const QRect& part, QSize samples,
                         const PictureSurface& surface)
{
    const auto format = m_formats.formatOf(depth);
    const auto ontoFormat =
        m_formats.formatOf(surface.isTranslucent ? translucentDepth : opaqueDepth);
    if (!format || !ontoFormat || !m_formats.canSample(translucentDepth))
        return false;
    xcb_connection_t* c = m_connection;
    const xcb_render_picture_t sampled = scratch(m_samples, samples);
    const xcb_render_picture_t from = xcb_generate_id(c);
    const auto created = xcb_render_create_picture_checked(c, from, pixmap, format, 0, nullptr);
    ignoreFailure(xcb_render_set_picture_transform_checked(
        c, from, PixelSampler::transformTo(samples, part)));
    ignoreFailure(xcb_render_composite_checked(c, XCB_RENDER_PICT_OP_SRC, from, XCB_NONE, sampled,
                                               0, 0, 0, 0, 0, 0, unsigned16(samples.width()),
                                               unsigned16(samples.height())));
    ignoreFailure(xcb_render_free_picture_checked(c, from));

    // The smooth filter takes two pixels each way into account: more than two for each are halved
    // before, so that none is lost.
    const QSize size = surface.picture.size();
    const QSize twice = (size * 2).boundedTo(samples);
    xcb_render_picture_t last = sampled;
    if (twice != samples) {
        last = scratch(m_halved, twice);
        shrink(sampled, samples, last, {}, twice);
    }
    const xcb_render_picture_t onto = xcb_generate_id(c);
    const auto taken = xcb_render_create_picture_checked(
        c, onto, static_cast<xcb_drawable_t>(surface.toolkitWindow), ontoFormat, 0, nullptr);
    const auto clip = rectanglesOf(surface.free);
    xcb_render_set_picture_clip_rectangles(c, onto, 0, 0, static_cast<std::uint32_t>(clip.size()),
                                           clip.data());
    shrink(last, twice, onto, surface.picture.topLeft(), size);
    if (const auto shaded = rectanglesOf(surface.shaded); !shaded.empty())
        xcb_render_fill_rectangles(c, XCB_RENDER_PICT_OP_OVER, onto, colourOf(surface.shade),
                                   static_cast<std::uint32_t>(shaded.size()), shaded.data());
    xcb_render_free_picture(c, onto);
    if (m_state.isProven) {
        ignoreFailure(created);
        ignoreFailure(taken);
        return true;
    }
    // Both are taken, or the failure of one would wait for ever to be asked for.
    const bool isCreated = hasSucceeded(c, created);
    const bool isTaken = hasSucceeded(c, taken);
    m_state.isProven = isCreated && isTaken;
    return m_state.isProven;
}

} // namespace lumbrix::platform::x11
