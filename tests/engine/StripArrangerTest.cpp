// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Where the row goes while the icon it stands for is still moving.

#include "tests/engine/EngineFixture.h"

namespace lumbrix::test
{
namespace
{

class StripArrangerTest : public EngineFixture
{
protected:
    /// Has the Dock move its first icon every 0.02 seconds, so many times.
    void slideIcon(int steps)
    {
        loop.detachThread("dock", [this, steps](const platform::Thread& self) {
            for (int i = 0; i < steps && !self.isCancelled(); ++i) {
                loop.sleep(0.02);
                desk.with(
                    [](SimulatedState& state) { state.dockItems.front().frame.translate(0.5, 0); });
            }
        });
    }
};

TEST_F(StripArrangerTest, iconThatMoves_isWaitedFor_whereItMayMove_butNotForEver)
{
    add(u"Notes"_s, 1);
    const struct {
        std::optional<int> magnification;
        std::optional<int> autohide;
        int steps;
        double waited;
    } cases[] = {{1, 0, 10, 0.24}, {std::nullopt, 1, 10, 0.24},
                 {1, 1, 0, 0.03},  {2, std::nullopt, 10, 0},
                 {0, 2, 10, 0},    {0, 1, 2000, 29 * 0.03}};
    for (const auto& [magnification, autohide, steps, waited] : cases) {
        SCOPED_TRACE(testing::Message()
                     << magnification.value_or(-1) << " " << autohide.value_or(-1) << " " << steps);
        desk.setDockFlags(magnification, autohide);
        const double start = loop.now();
        slideIcon(steps);
        hover(u"Notes"_s);
        ASSERT_EQ(shown(), u"Notes 1"_s);
        EXPECT_NEAR(loop.now() - start, waited, 1e-6);
        EXPECT_EQ(preview(0).window()->frame().center().x(),
                  desk.dockItemFrame(u"Notes"_s).center().x() - 6);
        leave();
        loop.advance(1);
        desk.setDockOrientation(u"bottom"_s); // puts the icon back
    }
}

} // namespace
} // namespace lumbrix::test
