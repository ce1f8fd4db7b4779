// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The accessibility port on an X11 desktop: applications, their windows, the dock and its items.
// Reads use cached data, so none waits for another program.
#pragma once

#include <memory>

#include "platform/RunLoop.h"
#include "platform/linux/accessibility/ObserverHub.h"
#include "platform/linux/accessibility/X11Attributes.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "platform/linux/applications/WindowRaiser.h"

namespace lumbrix::platform
{

/// Created on the main thread before the event thread starts. An application must be announced
/// before its first window, and its end after that of its last window. So this listens twice: after
/// the registry for new windows, and before it for closed ones. A window whose owner changes (a
/// start window that becomes a document's) is reported as closed for the former application and as
/// new for the other.
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

    /// The X server tells every client everything, so access always exists.
    bool apiEnabled() const override { return true; }
    void enableAPI() override;
    void openAPIPreferences() override;
    void setMessagingTimeout(float) override {} // reads never wait for an application

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
    /// The only action of elements of this kind; null if there is none.
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
