// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Trees of elements that programs tell of, from the walk through them to the items on a dock.

#include <deque>

#include "platform/StringLiterals.h"
#include "platform/linux/docks/IconGeometry.h"
#include "platform/linux/docks/PanelWalk.h"
#include "tests/fuzz/FuzzWindow.h"

using namespace lumbrix;
using namespace platform;
using test::FuzzInput;
using test::require;

namespace
{

/// Answers in any order, and as the input says.
class Tree final : public AccessibleTree
{
public:
    explicit Tree(FuzzInput& input) : m_input(input) {}

    void childrenOf(const AccessibleRef& element, std::size_t maximum,
                    Then<std::optional<Refs>> then) override
    {
        answer([this, bus = element.bus, maximum, then = std::move(then)] {
            const int kind = m_input.below(9);
            Refs refs(std::min<std::size_t>(kind == 8 ? 300 : kind, maximum));
            for (AccessibleRef& ref : refs)
                ref = {bus, QString::number(m_input.number<std::uint16_t>())};
            then(kind == 7 ? std::nullopt : std::optional(refs));
        });
    }
    void roleOf(const AccessibleRef&, Then<std::optional<std::uint32_t>> then) override
    {
        answer([this, then = std::move(then)] {
            static constexpr std::array<std::uint32_t, 6> roles{39, 62, 43, 7, 44, 0};
            const int kind = m_input.below(7);
            then(kind == 6 ? std::nullopt : std::optional(roles[static_cast<std::size_t>(kind)]));
        });
    }
    void nameOf(const AccessibleRef&, Then<std::optional<QString>> then) override
    {
        answer([this, then = std::move(then)] { then(m_input.text()); });
    }
    void extentsOf(const AccessibleRef&, Then<std::optional<QRect>> then) override
    {
        answer([this, then = std::move(then)] {
            const int kind = m_input.below(4);
            then(kind == 0   ? std::optional(QRect(0, 770, 1280, 30))
                 : kind == 1 ? std::optional(QRect(m_input.below(256) * 5, 771, 100, 29))
                 : kind == 2 ? std::optional(test::fuzzRect(m_input).translated(0x10000, -0x10000))
                             : std::nullopt);
        });
    }

    void run()
    {
        for (int answers = 0; !m_answers.empty(); ++answers) {
            require(answers < 10'000, "there is an end");
            require(m_answers.size() <= 32, "the program is asked little by little");
            const auto at = m_answers.begin() + m_input.below(static_cast<int>(m_answers.size()));
            const auto next = std::move(*at);
            m_answers.erase(at);
            next();
        }
    }

private:
    void answer(std::function<void()> call) { m_answers.push_back(std::move(call)); }

    FuzzInput& m_input;
    std::deque<std::function<void()>> m_answers;
};

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size)
{
    FuzzInput input(data, size);
    std::vector<ButtonWindow> windows;
    for (int i = input.below(6); i > 0; --i)
        windows.push_back({static_cast<xcb_window_t>(i), input.text(), input.below(3),
                           QStringList{input.text()}, input.below(2) == 1});
    const QRect dock(0, 770, 1280, 30);
    Tree tree(input);
    int dones = 0;
    PanelWalk walk(tree, u":1.1"_s, {{1, 1, dock}, {2, 2, test::fuzzRect(input)}}, {},
                   [&](const PanelWalk::Result& result) {
                       ++dones;
                       for (const auto& [id, buttons] : result.panels) {
                           const ButtonWindows matched = matchButtons(buttons, windows, {});
                           std::vector<PlacedWindow> placed;
                           for (const auto& [button, ids] : matchButtons(buttons, windows, matched))
                               for (const xcb_window_t window : ids)
                                   placed.push_back({window, buttons.front().place});
                           require(placed.size() <= windows.size(), "a window has one button");
                           require(deriveItems(placed, dock, DockEdge::Bottom, {}).size() <= 1,
                                   "one place is one item");
                       }
                   });
    walk.start();
    tree.run();
    require(dones == 1, "it ends once");
    return 0;
}
