// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A film in a preview: whole pictures of it, in their place, below what lies on them.
#include "DesktopTest.h"

#include <set>

namespace lumbrix::privatedesk
{

class FilmTest : public DesktopTest
{
protected:
    int scale() const { return GetParam().session.scale; }
    QImage seen() { return display().picture(m_panel); }

    /// The film's frame that the part shows; none when it is not one frame, in its four bands. The
    /// part is of the client's whole height, from the panel's top left corner.
    std::optional<QRgb> frameIn(const QImage& panel, const QRect& part) const
    {
        constexpr int bands = 4;
        constexpr std::uint32_t step = 0x0f0b0d; // of the client's bands
        const int blurred = 3 * scale();
        std::optional<QRgb> frame;
        for (int y = part.top() + blurred; y <= part.bottom() - 5 * scale(); ++y) {
            const int inBand = (y - part.top()) * bands % part.height() / bands;
            const int band = (y - part.top()) * bands / part.height();
            if (inBand < blurred || inBand > part.height() / bands - blurred)
                continue;
            for (int x = part.left(); x <= part.right(); ++x) {
                const QRgb first =
                    (panel.pixel(x, y) - static_cast<std::uint32_t>(band) * step) & 0xffffffU;
                if (first != frame.value_or(first))
                    return std::nullopt;
                frame = first;
            }
        }
        return frame;
    }

    /// Waits until Plank's tooltip, which lies on the row for a moment, has been moved away.
    Result hasNoTooltip()
    {
        if (GetParam().dock != DockKind::Plank)
            return testing::AssertionSuccess();
        const QRect screen(QPoint(), display().size());
        return waitUntil([&] {
            const auto popups = display().windowsOf("plank", "Plank");
            return popups.size() == 1 && !screen.intersects(popups.front().geometry);
        });
    }

    /// Waits for some frames, each of which has to be whole, and all else as it was.
    Result showsFrames(const QRect& part, const std::function<bool(const QImage&)>& isElseAsBefore)
    {
        std::set<QRgb> frames;
        int torn = 0;
        const auto isWhole = [&] {
            const QImage panel = seen();
            const auto frame = frameIn(panel, part);
            if (frame)
                frames.insert(*frame);
            return frame && isElseAsBefore(panel);
        };
        const Result shown = waitUntil([&] {
            // A look may fall between two paintings, of which the next one makes it whole.
            if (!isWhole() && !waitUntil(isWhole, 100)) {
                ++torn;
                savePicture("torn");
            }
            return frames.size() >= 8;
        });
        if (shown && torn == 0)
            return testing::AssertionSuccess();
        return testing::AssertionFailure() << frames.size() << " frames, " << torn << " torn";
    }

    QRect m_panel; ///< on the screen
};

INSTANTIATE_TEST_SUITE_P(, FilmTest, testing::Values(plank(), enlarged(Edge::Left), tint2()),
                         deskName);

TEST_P(FilmTest, film_isSeenFrameByFrame_belowWhatLiesOnIt)
{
    desk().stopLumbrix();
    desk().startLumbrix({{u"zoomWindows"_s, u"0"_s}});
    Application& alpha = launch(u"alpha"_s);
    const QColor colour = Qt::cyan;
    // Not below the row, which lets some of it through.
    const QPoint corner = GetParam().edge == Edge::Left ? QPoint(1100, 30) : QPoint(60, 30);
    const AppWindow window = alpha.open("film", colour, {{800, 500}, corner});
    ASSERT_TRUE(hoverShows(alpha));
    ASSERT_TRUE(hasNoTooltip());
    m_panel = preview("film")->geometry;
    const QImage still = seen();
    const QRect client = pixelsOf(still, [&](QRgb pixel) {
                             return pixel == colour.rgb() || pixel == lowerColour(colour).rgb();
                         }).box;
    ASSERT_GT(client.height(), m_panel.height() / 2);
    // The window's frame is a part of the picture, too.
    const int frame = 6 * scale();
    const QRect around = client.adjusted(-frame, -client.top(), frame, frame);
    const auto outside = [&](const QImage& panel) {
        QImage rest = panel;
        for (int y = std::max(0, around.top()); y <= around.bottom(); ++y)
            for (int x = around.left(); x <= around.right(); ++x)
                rest.setPixel(x, y, 0);
        return rest;
    };

    alpha.startAnimating(window, 30);
    const int margin = 5 * scale();
    const QRect free = client.adjusted(margin, 0, -margin, 0);
    // A screen that shows the film was composed after the tooltip had gone.
    QImage first;
    ASSERT_TRUE(waitUntil([&] {
        first = seen();
        return frameIn(first, free).has_value();
    }));
    EXPECT_TRUE(
        showsFrames(free, [&](const QImage& panel) { return outside(panel) == outside(first); }));

    // The pointer's ring and the close button stay as they are while it goes on.
    moveToPreview("film");
    const QRect button(closeButton * scale() - QPoint(4, 4) * scale(), QSize(8, 8) * scale());
    const QPoint ring(client.right() + 2 * (scale() - 1), client.center().y());
    QImage hovered;
    ASSERT_TRUE(waitUntil([&] {
        hovered = seen();
        return hovered.copy(button) != still.copy(button) &&
               hovered.pixel(ring) != still.pixel(ring);
    }));
    savePicture("hovered");
    const QRect beside = client.adjusted(30 * scale(), 0, -margin, 0);
    EXPECT_TRUE(showsFrames(beside, [&](const QImage& panel) {
        return panel.copy(button) == hovered.copy(button) &&
               panel.pixel(ring) == hovered.pixel(ring);
    }));
    alpha.stopAnimating(window);
    EXPECT_TRUE(shows(alpha));
    desk().stopLumbrix();
    desk().startLumbrix();
}

} // namespace lumbrix::privatedesk
