// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The ports of the simulated desktop.
#pragma once

#include <QtCore/QVariant>

#include <atomic>

#include "platform/DockPreferences.h"
#include "platform/InputState.h"
#include "platform/UserDefaults.h"
#include "tests/support/SimulatedState.h"

namespace lumbrix::test
{

class SimulatedAccessibility final : public platform::Accessibility
{
public:
    explicit SimulatedAccessibility(SimulatedState& state) : m_state(state) {}

    bool apiEnabled() const override;
    void enableAPI() override;
    void openAPIPreferences() override { ++m_preferencesOpened; }
    bool tellsSwitcher() const override { return m_state.tellsSwitcher; }
    int preferencesOpened() const { return m_preferencesOpened; }
    void setMessagingTimeout(float seconds) override { m_timeout = seconds; }
    float messagingTimeout() const { return m_timeout; }
    platform::ElementRef createApplication(std::int32_t pid) override;
    platform::ElementRef createSystemWide() override;
    platform::AXNames copyAttributeNames(const platform::ElementRef& element) override;
    platform::AXResult copyAttributeValue(const platform::ElementRef& element,
                                          const QString& attribute) override;
    platform::AXResult isAttributeSettable(const platform::ElementRef& element,
                                           const QString& attribute) override;
    platform::AXError setAttributeValue(const platform::ElementRef& element,
                                        const QString& attribute,
                                        const platform::AXValue& value) override;
    platform::AXNames copyActionNames(const platform::ElementRef& element) override;
    platform::AXResult copyActionDescription(const platform::ElementRef& element,
                                             const QString& action) override;
    platform::AXError performAction(const platform::ElementRef& element,
                                    const QString& action) override;
    platform::AXResult copyElementAtPosition(float x, float y) override;
    std::optional<std::int32_t> pidOf(const platform::ElementRef& element) override;
    std::optional<WindowID> windowIDOf(const platform::ElementRef& element) override;
    std::unique_ptr<platform::AXObserver>
    createObserver(std::int32_t pid, platform::AXObserver::Callback callback) override;

private:
    /// The process that has the element now.
    Pid ownerOf(const SimulatedElement& element);
    /// Success, or why the element cannot be asked.
    platform::AXError stateOf(const SimulatedElement& element);
    platform::AXResult systemWideValue(const QString& attribute);
    platform::AXResult applicationValue(Pid pid, const QString& attribute);
    platform::AXResult windowValue(const SimulatedElement& element, const QString& attribute);
    platform::AXResult dockValue(const SimulatedElement& element, const QString& attribute);
    platform::AXResult switcherValue(const SimulatedElement& element, const QString& attribute);

    SimulatedState& m_state;
    std::atomic<float> m_timeout{0};
    int m_preferencesOpened = 0;
};

class SimulatedWindowServer final : public platform::WindowServer
{
public:
    explicit SimulatedWindowServer(SimulatedState& state) : m_state(state) {}

    platform::WindowList copyWindowInfo(platform::WindowListOption option) override;
    std::optional<QRectF> windowBounds(WindowID window) override;
    std::optional<int> windowWorkspace(WindowID window) override;
    bool isOnAllWorkspaces(WindowID window) override;
    std::vector<WindowID> workspaceWindowList(int workspace) override;
    QImage captureWindow(WindowID window, QSize limit) override;
    /// Only what was captured before and has not changed since.
    std::optional<QImage> pictureAtHand(WindowID window, QSize limit) override;
    std::vector<QRectF> screens() override;
    QPointF toolkitOffset(const QRectF&) override { return {}; }
    bool blendsTranslucency() override;
    QString unseenWindows() override { return m_unseenWindows; }
    void setUnseenWindows(const QString& text) { m_unseenWindows = text; }

private:
    QString m_unseenWindows;
    SimulatedState& m_state;
};

class SimulatedWorkspace final : public platform::Workspace
{
public:
    explicit SimulatedWorkspace(SimulatedState& state) : m_state(state) {}

    std::vector<platform::RunningApplication> runningApplications() override;
    std::vector<std::int32_t> launchedApplications() override;
    std::optional<platform::RunningApplication> runningApplication(std::int32_t pid) override;
    platform::ApplicationRole roleOfApplication(const QUrl& bundleURL) override;
    QString ownBundleIdentifier() override;
    QString applicationName(const QString& bundleIdentifier) override;
    /// One colour all over, as the application has it.
    QImage applicationIcon(const QString& bundleIdentifier, int pixels) override;
    bool isHidden(std::int32_t pid) override;
    void hide(std::int32_t pid) override;
    void activate(std::int32_t pid, std::uint32_t options) override;
    void terminate(std::int32_t pid) override;
    bool launchApplication(const QString& name) override;
    bool launchApplicationAtURL(const QUrl& url, std::uint32_t options) override;
    std::uint32_t systemUIMode() override;
    std::unique_ptr<platform::WorkspaceSubscription>
    observe(platform::WorkspaceNotification notification, Observer observer) override;

private:
    /// Running or installed; the lock is held.
    const SimulatedApplication* known(const QString& bundleIdentifier) const;
    bool launchOrActivate(const std::function<bool(const SimulatedApplication&)>& isWanted);

    SimulatedState& m_state;
};

class SimulatedInputState final : public platform::InputState
{
public:
    explicit SimulatedInputState(SimulatedState& state) : m_state(state) {}

    QPointF mouseLocation() override;
    std::uint32_t pressedMouseButtons() override;
    std::uint32_t modifierFlags() override;

private:
    SimulatedState& m_state;
};

/// Reads see the Dock's values of the last synchronize().
class SimulatedDockPreferences final : public platform::DockPreferences
{
public:
    explicit SimulatedDockPreferences(SimulatedState& state) : m_state(state) {}

    void synchronize() override;
    std::optional<QString> orientation(const platform::ElementRef&) override
    {
        return m_orientation;
    }
    std::optional<int> magnification(const platform::ElementRef&) override
    {
        return m_magnification;
    }
    std::optional<int> autohide(const platform::ElementRef&) override { return m_autohide; }
    bool tellsFinalPlaces() override { return m_tellsFinalPlaces; }
    void setTellsFinalPlaces(bool on) { m_tellsFinalPlaces = on; }
    std::vector<platform::DockDisplay> ownDisplays(const platform::ElementRef&) override
    {
        return m_ownDisplays;
    }
    void setOwnDisplays(std::vector<platform::DockDisplay> displays)
    {
        m_ownDisplays = std::move(displays);
    }

private:
    SimulatedState& m_state;
    std::optional<QString> m_orientation;
    std::optional<int> m_magnification;
    std::optional<int> m_autohide;
    bool m_tellsFinalPlaces = false;
    std::vector<platform::DockDisplay> m_ownDisplays;
};

class SimulatedUserDefaults final : public platform::UserDefaults
{
public:
    std::int64_t integerForKey(const QString& key) const override;
    float floatForKey(const QString& key) const override;
    bool boolForKey(const QString& key) const override;
    std::optional<QVariantMap> dictionaryForKey(const QString& key) const override;
    std::optional<QStringList> arrayForKey(const QString& key) const override;
    std::optional<QByteArray> dataForKey(const QString& key) const override;
    void setInteger(std::int64_t value, const QString& key) override;
    void setFloat(float value, const QString& key) override;
    void setBool(bool value, const QString& key) override;
    void setDictionary(const QVariantMap& value, const QString& key) override;
    void setArray(const QStringList& value, const QString& key) override;
    void setData(const QByteArray& value, const QString& key) override;
    void removeObjectForKey(const QString& key) override;
    bool synchronize() override;

    // For tests.
    bool contains(const QString& key) const { return m_values.contains(key); }
    int synchronizeCount() const { return m_synchronizeCount; }
    bool hasUnsavedChanges() const { return m_hasUnsavedChanges; }
    void setWritable(bool writable) { m_isWritable = writable; }

private:
    void write(const QString& key, const QVariant& value);
    template <class T> std::optional<T> read(const QString& key) const;

    QVariantMap m_values;
    int m_synchronizeCount = 0;
    bool m_hasUnsavedChanges = false;
    bool m_isWritable = true;
};

} // namespace lumbrix::test
