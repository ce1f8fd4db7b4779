// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The accessibility port on an X11 desktop: applications, their windows, the dock and its items,
// answered from what is known already, so that no read waits for another program.
#pragma once

#include <memory>

#include "platform/RunLoop.h"
#include "platform/linux/accessibility/ObserverHub.h"
#include "platform/linux/accessibility/X11Attributes.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/applications/WindowRaiser.h"

namespace lumbrix::platform
{

/// Made on the main thread before the event thread starts. An application is announced before its
/// first window and its end after that of its last one, so it listens twice: behind the registry
/// for new windows, before it for the ends of windows. A window that comes to say something else of
/// its owner (a start window that becomes a document's) ends for the one and begins for the other.
class X11Accessibility final : public Accessibility
{
public:
    struct Parts {
        RunLoop& runLoop;
        x11::WindowTracker& tracker;
        const x11::PointSpace& space;
        ApplicationRegistry& registry;
        LinuxWorkspace& workspace;
        WindowRaiser& raiser;
        DockModel& docks;
        SwitcherModel& switcher;
    };

    explicit X11Accessibility(const Parts& parts);
    ~X11Accessibility() override;

    /// The server tells everything to every client.
    bool apiEnabled() const override { return true; }
    void enableAPI() override;
    void openAPIPreferences() override;
    void setMessagingTimeout(float) override {} // nothing here waits for an application

    bool tellsSwitcher() const override { return m.switcher.canRead(); }

    ElementRef createApplication(std::int32_t pid) override;
    ElementRef createSystemWide() override;

    AXNames copyAttributeNames(const ElementRef& element) override;
    AXResult copyAttributeValue(const ElementRef& element, const QString& attribute) override;
    AXResult isAttributeSettable(const ElementRef& element, const QString& attribute) override;
    AXError setAttributeValue(const ElementRef& element, const QString& attribute,
                              const AXValue& value) override;
    AXNames copyActionNames(const ElementRef& element) override;
    AXResult copyActionDescription(const ElementRef& element, const QString& action) override;
    AXError performAction(const ElementRef& element, const QString& action) override;
    AXResult copyElementAtPosition(float x, float y) override;

    std::optional<std::int32_t> pidOf(const ElementRef& element) override;
    std::optional<WindowID> windowIDOf(const ElementRef& element) override;

    std::unique_ptr<AXObserver> createObserver(std::int32_t pid,
                                               AXObserver::Callback callback) override;

    x11::WindowListener* listenerBeforeRegistry() { return &m_removals; }
    x11::WindowListener* listenerAfterRegistry() { return &m_additions; }

private:
    struct Additions final : x11::WindowListener {
        explicit Additions(X11Accessibility& accessibility) : owner(accessibility) {}
        void windowAdded(const x11::TrackedWindowPtr& window) override;
        void windowChanged(const x11::TrackedWindowPtr& before,
                           const x11::TrackedWindowPtr& after) override;
        X11Accessibility& owner;
    };
    struct Removals final : x11::WindowListener {
        explicit Removals(X11Accessibility& accessibility) : owner(accessibility) {}
        void windowChanged(const x11::TrackedWindowPtr& before,
                           const x11::TrackedWindowPtr& after) override;
        void windowRemoved(const x11::TrackedWindowPtr& last) override;
        X11Accessibility& owner;
    };

    struct Action {
        const char16_t* name;
        const char* description;
        void (*perform)(const Parts& parts, xcb_window_t window);
    };
    /// The one thing that can be done with elements of this kind; null when there is none.
    static const Action* actionOf(X11Element::Kind kind);

    AXError setApplicationAttribute(std::int32_t pid, const QString& attribute,
                                    const AXValue& value);
    AXError setWindowAttribute(xcb_window_t id, const QString& attribute, const AXValue& value);

    void post(std::int32_t pid, const ElementRef& element, const char* notification);

    const Parts m;
    const X11Attributes m_attributes;
    Additions m_additions{*this};
    Removals m_removals{*this};
    const std::shared_ptr<ObserverHub> m_hub = std::make_shared<ObserverHub>();
};

} // namespace lumbrix::platform
