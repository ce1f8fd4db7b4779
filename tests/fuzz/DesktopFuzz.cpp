// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Windows and panels that do what they like, and callers on the bus: what there is to hover then.

#include "platform/linux/accessibility/PlaceRequests.h"
#include "tests/fuzz/FuzzWindow.h"
#include "tests/platform/linux/AdapterFixture.h"

using namespace lumbrix;
using namespace platform;
using test::FuzzInput;
using test::require;

namespace
{

struct Host final : PreviewRequests::Host {
    PreviewRequests::Answer show(const ElementRef& item) override
    {
        shown = item;
        return PreviewRequests::Answer::Accepted;
    }
    void hide(const ElementRef&) override {}
    void mouseLeft(const ElementRef&) override {}
    void abandon(const ElementRef&) override {}
    ElementRef shown;
};

class World final : public test::AdapterFixture
{
public:
    World()
    {
        m_tracker.addListener(&m_requests);
        m_requests.setHost(&m_host);
    }

    void run(FuzzInput& input)
    {
        for (int i = 0; i < 40 && !input.atEnd(); ++i)
            step(input);
        m_loop.advance(0.1);
        look();
        for (const auto& window : m_tracker.windows())
            m_tracker.remove(window->id);
        if (m_host.shown)
            m_requests.rowEnded(m_host.shown);
        m_tracker.setCurrentDesktop(0);
        m_loop.advance(5);
        require(dockItems().empty(), "no items without docks");
    }

private:
    void TestBody() override {}

    void step(FuzzInput& input)
    {
        const auto id = static_cast<xcb_window_t>(1 + 2 * input.below(6));
        switch (input.below(8)) {
        case 0:
        case 1: {
            auto window = test::fuzzWindow(input, id);
            window.iconGeometrySerial = ++m_serial;
            if (m_tracker.window(id))
                m_tracker.change(id, [&](auto& known) { known = window; });
            else
                m_tracker.add(window);
            break;
        }
        case 2:
            m_tracker.remove(id);
            break;
        case 3:
            m_tracker.movePointer({input.number<std::int16_t>(), input.number<std::int16_t>()});
            m_tracker.press(1 + input.below(3));
            break;
        case 4:
            m_tracker.setActive(id);
            m_tracker.setCurrentDesktop(input.below(4));
            break;
        case 5: {
            const QString application = input.text();
            m_requests.showForApplication(application, place(input));
            break;
        }
        case 6: {
            std::vector<std::uint32_t> windows(static_cast<std::size_t>(input.below(20)), id);
            windows.push_back(input.number<std::uint8_t>());
            m_requests.showForWindows(windows, place(input));
            break;
        }
        default:
            m_loop.advance(input.below(32) / 100.0);
            look();
        }
    }

    static RequestedPlace place(FuzzInput& input)
    {
        RequestedPlace place;
        for (int* number : {&place.x, &place.y, &place.width, &place.height})
            *number = input.below(2) == 1 ? input.number<int>() : input.number<std::uint8_t>();
        place.edge =
            QStringList{u"bottom"_s, u"top"_s, u"left"_s, u"right"_s, u"side"_s}.at(input.below(5));
        return place;
    }

    void look()
    {
        std::vector<ElementRef> elements = dockItems();
        if (m_host.shown)
            elements.push_back(m_host.shown);
        for (const auto& window : m_tracker.windows())
            elements.push_back(X11Element::window(window->id));
        for (const ElementRef& element : elements) {
            for (const char* attribute : {"AXRole", "AXSubrole", "AXTitle", "AXPosition", "AXSize",
                                          "AXURL", "AXMinimized", "AXWindows", "AXParent"})
                read(element, attribute);
        }
    }

    Host m_host;
    std::uint64_t m_serial = 0;
    PlaceRequests m_requests{
        {m_loop, m_tracker, m_space, m_registry, m_entries, m_docks, [] { return QPoint(9, 9); }}};
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    static World world;
    FuzzInput input(data, size);
    world.run(input);
    return 0;
}
