// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include "badges/WinNumberBadger.h"
#include "engine/CalPreview.h"
#include "engine/HoverDelays.h"
#include "engine/LXHandler.h"
#include "engine/SWObserver.h"
#include "model/AXNames.h"
#include "platform/InputState.h"
#include "platform/StringLiterals.h"
#include "preview/BadgeView.h"
#include "preview/KeyLabel.h"
#include "preview/MediaControls.h"
#include "preview/NumberLabel.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{

using platform::DockEdge;
using platform::ModifierFlag::command;
using platform::ModifierFlag::control;
using platform::ModifierFlag::option;

/// The engine with panels of its own on the simulated desktop, observing the Dock as the controller
/// has it do. Previews are 200 × 150, 10 points from the Dock; everything else is off, hovering
/// shows previews at once.
class EngineFixture : public DesktopFixture
{
protected:
    EngineFixture()
    {
        Companions companions;
        companions.hotKeyCenter = m_hotKeys;
        companions.calendarPreview = CalPreview::sharedPreview(ports());
        companions.helpBubble = m_bubble;
        companions.windowCountBadger = badges;
        companions.playerControls = std::make_shared<MediaControls>(ports());
        LXHandler::installCompanions(ports(), companions);
        EngineSettings& settings = engine().settings();
        settings.windowWidth = 200;
        settings.windowHeight = 150;
        settings.distanceFromDock = 10;
        settings.showInDock = 1;
        settings.showInTab = 1;
        engine().setApplicationDelegate(&delays);
        observeDock(&delays);
    }
    ~EngineFixture() override
    {
        loop.shutdown();
        m_dockObserver.reset();
        LXHandler::releaseSharedHandler();
    }

    static LXHandler& engine() { return LXHandler::sharedHandler(); }
    static EngineSettings& settings() { return engine().settings(); }
    void observeDock(platform::NotificationContext* context)
    {
        m_dockObserver =
            SWObserver::observerWithPid(desk.accessibility(), desk.dockPid(), handleAXNotification);
        const auto dock = desk.accessibility().createApplication(desk.dockPid());
        for (const QString& name :
             {AX::SelectedChildrenChanged, AX::MenuOpened, AX::FocusedUIElementChanged})
            m_dockObserver->observer().addNotification(dock, name, context);
        m_dockObserver->observer().addToRunLoop();
    }
    /// Adds an application and has the engine know its windows.
    Pid add(const QString& name, int windows)
    {
        const Pid pid = addApplication(name, windows);
        loop.runUntilIdle();
        return pid;
    }
    WindowID idOf(const QString& title)
    {
        const auto windows = desk.stacking();
        return *std::ranges::find_if(
            windows, [&](WindowID window) { return desk.window(window)->title == title; });
    }
    ScreenyView& preview(std::size_t index) { return *engine().screenyViews().at(index); }
    void movePointerTo(const ScreenyView& preview)
    {
        desk.movePointer(preview.window()->frame().center());
        loop.runUntilIdle();
    }
    /// Titles of the previews shown, in their order; one whose panel is not on screen in brackets.
    static QString shown()
    {
        QStringList titles;
        for (const ScreenyViewPtr& each : engine().screenyViews())
            titles << (each->window()->isFront() ? u"%1"_s : u"(%1)"_s).arg(each->titleString());
        return titles.join(u", "_s);
    }
    /// The numbers on the previews: "<Space>@<distance from the right edge>" and the fast key.
    static QString numbers()
    {
        QStringList numbers;
        for (const ScreenyViewPtr& each : engine().screenyViews()) {
            const BadgeView* badge = each->spaceView();
            if (badge && !badge->isHidden())
                numbers << u"%1@%2"_s.arg(badge->label(BadgeView::Small)->text())
                               .arg(each->contentView()->width() - badge->x());
            const auto* key = each->window()->findChild<KeyLabel*>(u"fastKeyButton"_s);
            if (!key->isHidden())
                numbers << key->text().mid(1);
        }
        return numbers.join(u' ');
    }
    int panelsOnScreen() const
    {
        int count = 0;
        for (const auto& list : {engine().screenyViews(), engine().row().cache().cacheArray()})
            count += static_cast<int>(std::count_if(list.begin(), list.end(), [](const auto& each) {
                return each->window()->isFront();
            }));
        return count;
    }
    bool isTapOn() const { return m_hotKeys->isTapOn; }
    bool isBubbleUp() const { return m_bubble->isUp; }
    /// Whether all that is left to come is the scan every 2.5 seconds. Lets time pass.
    bool isAtRest()
    {
        loop.advance(loop.timeUntilNextEvent().value_or(0));
        return loop.timeUntilNextEvent() == 2.5;
    }

    const std::shared_ptr<WinNumberBadger> badges = std::make_shared<WinNumberBadger>(ports());

    struct Delays final : HoverDelays {
        float displayDelay() const override { return delay; }
        std::int32_t dontDelayIfOpen() const override { return notIfOpen; }
        float delay = 0;
        std::int32_t notIfOpen = 0;
    } delays;

private:
    struct HotKeys final : HotKeyCenter {
        void registerHotKey(const std::shared_ptr<SGHotKey>&) override {}
        void unregisterHotKey(const std::shared_ptr<SGHotKey>&) override {}
        void toggleEventTap(bool on) override { isTapOn = on; }
        void rowChanged() override {}
        bool isTapOn = false;
    };
    struct Bubble final : HelpBubble {
        void setShouldBubbleWrap(bool) override {}
        void positionAndShowBubble(const std::vector<ScreenyViewPtr>&) override { isUp = true; }
        void hideBubble() override { isUp = false; }
        bool isUp = false;
    };

    const std::shared_ptr<HotKeys> m_hotKeys = std::make_shared<HotKeys>();
    const std::shared_ptr<Bubble> m_bubble = std::make_shared<Bubble>();
    std::unique_ptr<SWObserver> m_dockObserver;
};

} // namespace lumbrix::test
