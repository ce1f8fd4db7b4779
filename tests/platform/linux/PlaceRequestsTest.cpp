// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/accessibility/PlaceRequests.h"
#include "tests/platform/linux/AdapterFixture.h"

namespace lumbrix::test
{

using namespace platform;

class PlaceRequestsTest : public AdapterFixture
{
protected:
    struct Host final : PreviewRequests::Host {
        PreviewRequests::Answer show(const ElementRef& item) override
        {
            shown.push_back(item);
            return answer;
        }
        void hide(const ElementRef&) override { ++hides; }
        void mouseLeft(const ElementRef& item) override { left.push_back(item); }
        void abandon(const ElementRef&) override { ++abandons; }
        PreviewRequests::Answer answer = PreviewRequests::Answer::Accepted;
        std::vector<ElementRef> shown, left;
        int hides = 0;
        int abandons = 0;
    };

    PlaceRequestsTest()
    {
        m_tracker.addListener(&requests);
        requests.setHost(&host);
        requests.setEnded([this] { ++ended; });
        m_tracker.add(window(1, u"editor"_s, u"Editor"_s, 302));
        m_tracker.add(window(3, u"bare"_s, u"Bare"_s, 303));
        m_tracker.add(window(5, u"editor"_s, u"Editor"_s, 302));
    }
    void movePointer(QPoint point)
    {
        m_tracker.movePointer(point);
        m_loop.runUntilIdle();
    }

    Host host;
    int ended = 0;
    const RequestedPlace place{100, 700, 60, 40, u"left"_s};
    PlaceRequests requests{{m_loop, m_tracker, m_space, m_registry, m_entries, m_docks,
                            [] { return QPoint(110, 710); }}};
};

// There is no dock at all here, and no window of one.
TEST_F(PlaceRequestsTest, item_canBeReadLikeADocks_untilItsRowEnds)
{
    m_space.setScreens({QRect(1280, 0, 1920, 1080), QRect(0, 0, 1280, 800)});
    ASSERT_FALSE(requests.showForApplication(u"org.example.Editor.desktop"_s, place));
    const ElementRef item = host.shown.at(0);
    EXPECT_EQ(*read(item, "AXPosition").as<QPointF>(), QPointF(-1180, 700));
    EXPECT_EQ(*read(item, "AXSize").as<QSizeF>(), QSizeF(60, 40));
    EXPECT_EQ(m_dockPreferences.orientation(item), DockEdge::Left);
    EXPECT_TRUE(*read(item, "AXIsApplicationRunning").as<bool>());
    EXPECT_EQ(text(item, "AXTitle"), u"Editor"_s);
    EXPECT_FALSE(read(item, "AXWindows").ok());
    EXPECT_TRUE(m_docks.items().empty()) << "and counts windows, and is pointed at";

    ASSERT_FALSE(requests.showForWindows({3, 1, 3}, place));
    EXPECT_EQ(list(host.shown.at(1), "AXWindows").size(), 2U);
    EXPECT_TRUE(elementsEqual(list(host.shown.at(1), "AXWindows").front(), X11Element::window(3)));
    requests.rowEnded(item);
    EXPECT_EQ(read(item, "AXRole").error, AXError::InvalidUIElement);
    EXPECT_EQ(ended, 0) << "the later row is another one's";
    requests.rowEnded(host.shown.at(1));
    EXPECT_EQ(ended, 1);
    // One without a desktop entry.
    ASSERT_FALSE(requests.showForApplication(u"Bare"_s, place));
    EXPECT_TRUE(read(host.shown.at(2), "AXURL").ok());

    host.answer = PreviewRequests::Answer::NothingToShow;
    EXPECT_EQ(requests.showForApplication(u"Bare"_s, place)->kind,
              RequestError::Kind::NothingToShow);
    EXPECT_EQ(read(host.shown.at(3), "AXRole").error, AXError::InvalidUIElement);
    host.answer = PreviewRequests::Answer::Disabled;
    EXPECT_EQ(requests.showForApplication(u"Bare"_s, place)->kind, RequestError::Kind::Disabled);
    requests.setHost(nullptr);
    EXPECT_EQ(requests.showForApplication(u"Bare"_s, place)->kind, RequestError::Kind::Disabled);
    requests.hide(); // of nobody
    EXPECT_EQ(host.hides, 0);
}

TEST_F(PlaceRequestsTest, pointer_thatLeavesTheRectangle_isToldOfTheLatestRowOnly)
{
    ASSERT_FALSE(requests.showForApplication(u"Bare"_s, place));
    movePointer({200, 700}); // it was there before it moved
    ASSERT_EQ(host.left.size(), 1U);
    movePointer({300, 700});
    EXPECT_EQ(host.left.size(), 1U);
    movePointer({159, 739});
    ASSERT_FALSE(requests.showForApplication(u"Bare"_s, {600, 700, 9, 9, u"top"_s}));
    movePointer({160, 739});
    EXPECT_EQ(host.left.size(), 1U);
    movePointer({604, 704});
    movePointer({0, 0});
    ASSERT_EQ(host.left.size(), 2U);
    EXPECT_TRUE(elementsEqual(host.left.back(), host.shown.back()));
    movePointer({604, 704});
    requests.rowEnded(host.shown.back());
    movePointer({0, 0});
    EXPECT_EQ(host.left.size(), 2U);
}

TEST_F(PlaceRequestsTest, nonsense_isRefusedInWords)
{
    const auto at = [](int x, int y, int width, int height, const char* edge = "left") {
        return RequestedPlace{x, y, width, height, QString::fromLatin1(edge)};
    };
    constexpr int most = std::numeric_limits<int>::max();
    for (const RequestedPlace& wrong :
         {at(0, 0, 0, 9), at(0, 0, 9, -9), at(1280, 0, 9, 9), at(-9, 0, 9, 9),
          at(most, most, most, most), at(9, 9, most, 9), at(9, 9, 9, 9, ""),
          at(9, 9, 9, 9, "Top")}) {
        const auto error = requests.showForApplication(u"Bare"_s, wrong);
        ASSERT_TRUE(error);
        EXPECT_EQ(error->kind, RequestError::Kind::InvalidArguments);
        EXPECT_FALSE(error->message.isEmpty());
        EXPECT_TRUE(requests.showForWindows({1}, wrong));
    }
    EXPECT_FALSE(requests.showForApplication(u"Bare"_s, at(1279, 799, 500, 500)))
        << "some of it is on a monitor";
    for (const QString& id : {u""_s, u".desktop"_s, u"nobody"_s})
        EXPECT_EQ(requests.showForApplication(id, place)->kind,
                  RequestError::Kind::InvalidArguments);
    EXPECT_EQ(requests.showForApplication(u"debian-term"_s, place)->kind,
              RequestError::Kind::NothingToShow);

    std::vector<std::uint32_t> many;
    for (xcb_window_t id = 101; id <= 131; id += 2) {
        m_tracker.add(window(id, u"editor"_s, u"Editor"_s, 302));
        many.push_back(id);
    }
    EXPECT_TRUE(requests.showForWindows(many, place)) << "16";
    many.pop_back();
    EXPECT_FALSE(requests.showForWindows(many, place));
    for (const std::vector<std::uint32_t>& wrong :
         {std::vector<std::uint32_t>(), {1, 99}, {0}, {panelWindow}})
        EXPECT_TRUE(requests.showForWindows(wrong, place));
}

} // namespace lumbrix::test
