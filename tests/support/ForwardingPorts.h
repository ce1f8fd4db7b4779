// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Ports that hand every call on. A test derives from one and overrides the call that is to fail, to
// take long or to see its window vanish.
#pragma once

#include "platform/Accessibility.h"
#include "platform/WindowServer.h"
#include "platform/Workspace.h"

namespace lumbrix::test
{

class ForwardingAccessibility : public platform::Accessibility
{
public:
    explicit ForwardingAccessibility(platform::Accessibility& target) : m_target(target) {}

    bool apiEnabled() const override { return m_target.apiEnabled(); }
    void enableAPI() override { m_target.enableAPI(); }
    void openAPIPreferences() override { m_target.openAPIPreferences(); }
    bool tellsSwitcher() const override { return m_target.tellsSwitcher(); }
    void setMessagingTimeout(float seconds) override { m_target.setMessagingTimeout(seconds); }
    platform::ElementRef createApplication(std::int32_t pid) override
    {
        return m_target.createApplication(pid);
    }
    platform::ElementRef createSystemWide() override { return m_target.createSystemWide(); }
    platform::AXResult copyAttributeValue(const platform::ElementRef& element,
                                          const QString& attribute) override
    {
        return m_target.copyAttributeValue(element, attribute);
    }
    platform::AXNames copyAttributeNames(const platform::ElementRef& element) override
    {
        return m_target.copyAttributeNames(element);
    }
    platform::AXResult isAttributeSettable(const platform::ElementRef& element,
                                           const QString& attribute) override
    {
        return m_target.isAttributeSettable(element, attribute);
    }
    platform::AXNames copyActionNames(const platform::ElementRef& element) override
    {
        return m_target.copyActionNames(element);
    }
    platform::AXResult copyActionDescription(const platform::ElementRef& element,
                                             const QString& action) override
    {
        return m_target.copyActionDescription(element, action);
    }
    platform::AXError setAttributeValue(const platform::ElementRef& element,
                                        const QString& attribute,
                                        const platform::AXValue& value) override
    {
        return m_target.setAttributeValue(element, attribute, value);
    }
    platform::AXError performAction(const platform::ElementRef& element,
                                    const QString& action) override
    {
        return m_target.performAction(element, action);
    }
    platform::AXResult copyElementAtPosition(float x, float y) override
    {
        return m_target.copyElementAtPosition(x, y);
    }
    std::optional<std::int32_t> pidOf(const platform::ElementRef& element) override
    {
        return m_target.pidOf(element);
    }
    std::optional<platform::WindowID> windowIDOf(const platform::ElementRef& element) override
    {
        return m_target.windowIDOf(element);
    }
    std::unique_ptr<platform::AXObserver>
    createObserver(std::int32_t pid, platform::AXObserver::Callback callback) override
    {
        return m_target.createObserver(pid, std::move(callback));
    }

private:
    platform::Accessibility& m_target;
};

class ForwardingWindowServer : public platform::WindowServer
{
public:
    explicit ForwardingWindowServer(platform::WindowServer& target) : m_target(target) {}

    platform::WindowList copyWindowInfo(platform::WindowListOption option) override
    {
        return m_target.copyWindowInfo(option);
    }
    std::optional<QRectF> windowBounds(platform::WindowID window) override
    {
        return m_target.windowBounds(window);
    }
    std::optional<int> windowWorkspace(platform::WindowID window) override
    {
        return m_target.windowWorkspace(window);
    }
    bool isOnAllWorkspaces(platform::WindowID window) override
    {
        return m_target.isOnAllWorkspaces(window);
    }
    std::vector<platform::WindowID> workspaceWindowList(int workspace) override
    {
        return m_target.workspaceWindowList(workspace);
    }
    QImage captureWindow(platform::WindowID window, QSize limit) override
    {
        return m_target.captureWindow(window, limit);
    }
    std::optional<QImage> pictureAtHand(platform::WindowID window, QSize limit) override
    {
        return m_target.pictureAtHand(window, limit);
    }
    std::vector<QRectF> screens() override { return m_target.screens(); }
    QPointF toolkitOffset(const QRectF& bounds) override { return m_target.toolkitOffset(bounds); }
    bool blendsTranslucency() override { return m_target.blendsTranslucency(); }

private:
    platform::WindowServer& m_target;
};

} // namespace lumbrix::test
