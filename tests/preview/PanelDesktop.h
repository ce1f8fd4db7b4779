// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The little of a desktop that preview panels ask for, and an engine that records what they tell
// it.
#pragma once

#include <QtCore/QStringList>

#include <map>
#include <utility>
#include <vector>

#include "model/EngineSettings.h"
#include "platform/Accessibility.h"
#include "platform/Desktop.h"
#include "platform/DockPreferences.h"
#include "platform/InputState.h"
#include "platform/RunLoop.h"
#include "platform/UserDefaults.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"
#include "preview/HotKeyCenter.h"
#include "preview/PreviewHost.h"
#include "preview/ScreenyView.h"

namespace lumbrix::test
{

/// A window, or a part of one, with its attributes.
struct PanelElement : platform::AXElement {
    std::map<QString, platform::AXValue> attributes;
    bool isEqual(const AXElement& other) const override { return this == &other; }
};

/// Panels ask nothing of these two.
struct NoDefaults final : platform::UserDefaults {
    std::int64_t integerForKey(const QString&) const override { return 0; }
    float floatForKey(const QString&) const override { return 0; }
    bool boolForKey(const QString&) const override { return false; }
    std::optional<QVariantMap> dictionaryForKey(const QString&) const override { return {}; }
    std::optional<QStringList> arrayForKey(const QString&) const override { return {}; }
    std::optional<QByteArray> dataForKey(const QString&) const override { return {}; }
    void setInteger(std::int64_t, const QString&) override {}
    void setFloat(float, const QString&) override {}
    void setBool(bool, const QString&) override {}
    void setDictionary(const QVariantMap&, const QString&) override {}
    void setArray(const QStringList&, const QString&) override {}
    void setData(const QByteArray&, const QString&) override {}
    void removeObjectForKey(const QString&) override {}
    bool synchronize() override { return true; }
};
struct NoDock final : platform::DockPreferences {
    void synchronize() override {}
    std::optional<QString> orientation() override { return std::nullopt; }
    std::optional<int> magnification() override { return std::nullopt; }
    std::optional<int> autohide() override { return std::nullopt; }
};

/// One screen of 1440 by 900 whose top left is at (100, 50) in the toolkit.
class PanelDesktop final : private platform::Accessibility,
                           private platform::WindowServer,
                           private platform::InputState,
                           private platform::Workspace
{
public:
    explicit PanelDesktop(platform::RunLoop& runLoop)
        : m_desktop{runLoop, *this, *this, *this, *this, m_defaults, m_dock}, m_scope(m_desktop)
    {
    }

    /// A window of process 42 at (200, 100), 600 by 400, in accessibility coordinates.
    static std::shared_ptr<PanelElement> window(bool closable = true)
    {
        auto button = std::make_shared<PanelElement>();
        button->attributes[QStringLiteral("AXEnabled")] = true;
        auto window = std::make_shared<PanelElement>();
        window->attributes[QStringLiteral("AXPosition")] = QPointF(200, 100);
        window->attributes[QStringLiteral("AXSize")] = QSizeF(600, 400);
        if (closable)
            window->attributes[QStringLiteral("AXCloseButton")] = platform::ElementRef(button);
        return window;
    }

    QPointF mouse;
    std::uint32_t buttons = 0;
    std::uint32_t modifiers = 0;
    bool blends = true;
    QSizeF screen{1440, 900};
    QPointF origin{100, 50};
    std::vector<platform::RunningApplication> applications;
    QStringList log; ///< what was done to windows and applications, in order

private:
    // Accessibility
    bool apiEnabled() const override { return true; }
    void setMessagingTimeout(float) override {}
    platform::ElementRef createApplication(std::int32_t) override
    {
        return std::make_shared<PanelElement>();
    }
    platform::ElementRef createSystemWide() override { return nullptr; }
    platform::AXResult copyAttributeValue(const platform::ElementRef& element,
                                          const QString& attribute) override
    {
        const auto* known = dynamic_cast<const PanelElement*>(element.get());
        if (!known)
            return {platform::AXError::InvalidUIElement};
        const auto found = known->attributes.find(attribute);
        if (found == known->attributes.end())
            return {platform::AXError::NoValue};
        return {platform::AXError::Success, found->second};
    }
    platform::AXError setAttributeValue(const platform::ElementRef&, const QString&,
                                        const platform::AXValue&) override
    {
        return platform::AXError::Success;
    }
    platform::AXError performAction(const platform::ElementRef&, const QString& action) override
    {
        log += action;
        return platform::AXError::Success;
    }
    platform::AXResult copyElementAtPosition(float, float) override { return {}; }
    std::optional<std::int32_t> pidOf(const platform::ElementRef&) override { return 42; }
    std::optional<platform::WindowID> windowIDOf(const platform::ElementRef&) override
    {
        return std::nullopt;
    }
    std::unique_ptr<platform::AXObserver> createObserver(std::int32_t,
                                                         platform::AXObserver::Callback) override
    {
        return nullptr;
    }

    // WindowServer
    platform::WindowList copyWindowInfo(platform::WindowListOption) override { return {}; }
    std::optional<QRectF> windowBounds(platform::WindowID) override { return std::nullopt; }
    std::optional<int> windowWorkspace(platform::WindowID) override { return std::nullopt; }
    std::vector<platform::WindowID> workspaceWindowList(int) override { return {}; }
    QImage captureWindow(platform::WindowID) override { return {}; }
    std::vector<QRectF> screens() override { return {QRectF(QPointF(), screen)}; }
    QPointF toolkitOrigin() override { return origin; }
    bool blendsTranslucency() override { return blends; }

    // InputState
    QPointF mouseLocation() override { return mouse; }
    std::uint32_t pressedMouseButtons() override { return buttons; }
    std::uint32_t modifierFlags() override { return modifiers; }

    // Workspace
    std::vector<platform::RunningApplication> runningApplications() override
    {
        return applications;
    }
    std::vector<std::int32_t> launchedApplications() override { return {}; }
    std::optional<platform::RunningApplication> runningApplication(std::int32_t pid) override
    {
        for (const platform::RunningApplication& application : applications) {
            if (application.pid == pid)
                return application;
        }
        return std::nullopt;
    }
    QString ownBundleIdentifier() override { return QStringLiteral("lumbrix"); }
    bool isHidden(std::int32_t) override { return false; }
    void hide(std::int32_t pid) override { log += QStringLiteral("hide %1").arg(pid); }
    void activate(std::int32_t, std::uint32_t) override {}
    void terminate(std::int32_t) override {}
    bool launchApplication(const QString& name) override
    {
        log += QStringLiteral("launch %1").arg(name);
        return true;
    }
    bool launchApplicationAtURL(const QUrl& url, std::uint32_t options) override
    {
        log += QStringLiteral("launch %1 %2").arg(url.toString()).arg(options, 0, 16);
        return true;
    }
    std::unique_ptr<platform::WorkspaceSubscription> observe(platform::WorkspaceNotification,
                                                             Observer) override
    {
        return nullptr;
    }

    NoDefaults m_defaults;
    NoDock m_dock;
    const platform::Desktop m_desktop;
    const platform::DesktopScope m_scope;
};

/// An engine, its hot keys, badges and players, that write down what previews ask for.
class PanelHost final : public PreviewHost,
                        private HotKeyCenter,
                        private SpacesBadge,
                        private PlayerControls
{
public:
    EngineSettings settingsMirror;
    std::vector<ScreenyViewPtr> previews;
    std::vector<ScreenyViewPtr> cache;
    std::vector<std::shared_ptr<SGHotKey>> hotKeys; ///< registered now
    QString state = QStringLiteral("unknown");
    QStringList log;

    const EngineSettings& settings() const override { return settingsMirror; }
    void mouseExited() override { log += QStringLiteral("mouseExited"); }
    void removeAllScreenViews() override
    {
        for (const ScreenyViewPtr& preview : std::exchange(previews, {}))
            preview->rebirth();
    }
    int indexOfScreenyView(const ScreenyView& preview) const override
    {
        for (std::size_t i = 0; i < previews.size(); ++i) {
            if (previews[i].get() == &preview)
                return static_cast<int>(i);
        }
        return -1;
    }
    void addToCache(const ScreenyViewPtr& preview) override { cache.push_back(preview); }
    HotKeyCenter& hotKeyCenter() override { return *this; }
    SpacesBadge& spacesBadge() override { return *this; }
    PlayerControls& playerControls() override { return *this; }

private:
    void registerHotKey(const std::shared_ptr<SGHotKey>& key) override { hotKeys.push_back(key); }
    void unregisterHotKey(const std::shared_ptr<SGHotKey>& key) override
    {
        std::erase(hotKeys, key);
    }
    void toggleEventTap(bool) override {}
    void showSpaces(ScreenyView&) override { log += QStringLiteral("showSpaces"); }
    void hide(ScreenyView&) override {}
    void setAppFlags(ScreenyView&, const std::optional<platform::RunningApplication>&) override {}
    QString playerState() override { return state; }
    std::optional<QString> currentTrack() override { return std::nullopt; }
    QImage artwork() override { return {}; }
    void skipLeft(ScreenyView&) override { log += QStringLiteral("skipLeft"); }
    void skipRight(ScreenyView&) override { log += QStringLiteral("skipRight"); }
    void play(ScreenyView& preview) override
    {
        log += QStringLiteral("play");
        preview.setPlayState(!preview.isPlaying());
    }
    void getMail(ScreenyView&) override { log += QStringLiteral("getMail"); }
    void playPause(ScreenyView&) override { log += QStringLiteral("playPause"); }
};

} // namespace lumbrix::test
