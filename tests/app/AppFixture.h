// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "app/LumbrixController.h"
#include "app/preferences/PrefsController.h"
#include "engine/LXHandler.h"
#include "platform/StringLiterals.h"
#include "preview/MAWindow.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{

/// The program on the simulated desktop. It ends with the test, and leaves no key taken.
class AppFixture : public DesktopFixture
{
protected:
    ~AppFixture() override
    {
        if (m_isStarted)
            controller->applicationWillTerminate();
        EXPECT_TRUE(desk.eventTaps().keysHeld().empty());
        loop.shutdown();
        LXHandler::releaseSharedHandler();
    }

    /// As a user who has seen the welcome, and has none of the first settings.
    void haveUser()
    {
        for (const QString& stage : {u"firstRun"_s, u"badgeDockIconsFirstRun"_s})
            defaults.setBool(true, stage);
    }
    void start()
    {
        m_isStarted = controller->awakeFromNib();
        ASSERT_TRUE(m_isStarted);
        controller->applicationDidFinishLaunching();
        loop.runUntilIdle();
    }
    void leave() { DesktopFixture::leave(1); }
    static LXHandler& engine() { return LXHandler::sharedHandler(); }
    static std::size_t previews() { return engine().screenyViews().size(); }
    /// In the preferences, which are open.
    template <class Widget> static Widget* find(const QString& name)
    {
        return PrefsController::openWindow()->findChild<Widget*>(name);
    }

    SimulatedUserDefaults& defaults = desk.userDefaults();
    std::optional<LumbrixController> controller{std::in_place};
    bool m_isStarted = false;
};

} // namespace lumbrix::test
