// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The ports of the simulated desktop.
#pragma once

#include <QtCore/QVariant>

#include <algorithm>
#include <atomic>

#include "platform/DockPreferences.h"
#include "platform/InputState.h"
#include "platform/Privacy.h"
#include "platform/UserDefaults.h"
#include "tests/support/SimulatedState.h"

namespace lumbrix::test
{

/// Not final: a test derives from ForwardingAccessibility.
class SimulatedAccessibility : public platform::Accessibility
{
public:
    explicit SimulatedAccessibility(SimulatedState& state) : m_state(state) {}

    bool apiEnabled() const override { return m_state.locked()->isAccessibilityEnabled; }
    void enableAPI() override;
    void openAPIPreferences() override { ++preferencesOpened; }
    bool tellsSwitcher() const override { return m_state.tellsSwitcher; }
    void setMessagingTimeout(float seconds) override { messagingTimeout = seconds; }
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

    // For tests.
    int preferencesOpened = 0;
    std::atomic<float> messagingTimeout{0};

private:
    friend class ForwardingAccessibility;
    /// The attributes that an element has, in the order in which they are listed.
    using Attributes = std::vector<std::pair<QString, platform::AXResult>>;

    /// The process that has the element now.
    Pid ownerOf(const SimulatedElement& element);
    /// Success, or why the element cannot be asked.
    platform::AXError stateOf(const SimulatedElement& element);
    Attributes attributesOf(const SimulatedElement& element);
    Attributes applicationAttributes(Pid pid);
    Attributes windowAttributes(const SimulatedElement& element);
    Attributes dockAttributes(const SimulatedElement& element);
    Attributes switcherAttributes(const SimulatedElement& element);

    SimulatedState& m_state;
};

/// Not final: a test derives from ForwardingWindowServer.
class SimulatedWindowServer : public platform::WindowServer
{
public:
    explicit SimulatedWindowServer(SimulatedState& state) : m_state(state) {}

    platform::WindowList copyWindowInfo(platform::WindowListOption option) override;
    std::optional<QRectF> windowBounds(WindowID window) override;
    std::optional<int> windowWorkspace(WindowID window) override;
    bool isOnAllWorkspaces(WindowID window) override;
    int currentWorkspace() override { return m_state.locked()->currentSpace; }
    std::vector<WindowID> workspaceWindowList(int workspace) override;
    QImage captureWindow(WindowID window, QSize limit) override;
    /// Not exact: with more green in the first pixel.
    QImage captureMovingWindow(WindowID window, QSize limit) override;
    /// Where the state says so; nothing is seen of it but what is noted of the window.
    std::vector<bool>
    drawMovingWindows(const std::vector<platform::PictureDrawing>& drawings) override;
    platform::KnownPicture knownPicture(WindowID window, QSize limit) override;
    std::unique_ptr<platform::PictureSubscription>
    subscribeToPicture(WindowID window, std::function<void()> changed) override;
    std::vector<QRectF> screens() override { return m_state.locked()->screens; }
    QPointF toolkitOffset(const QRectF&) override { return {}; }
    bool blendsTranslucency() override { return m_state.locked()->blendsTranslucency; }
    int compositorsBegun() override { return m_state.locked()->compositorsBegun; }
    void takeKeyboard(std::uintptr_t) override { hasKeyboard = true; }
    void giveKeyboardBack(std::uintptr_t) override { hasKeyboard = false; }
    QString unseenWindows() override { return unseen; }

    // For tests.
    bool hasKeyboard = false; ///< one of the toolkit's windows
    QString unseen;

private:
    friend class ForwardingWindowServer;
    SimulatedState& m_state;
};

/// Private at first is what has the role of a password manager.
class SimulatedPrivacy final : public platform::Privacy
{
public:
    explicit SimulatedPrivacy(SimulatedState& state) : m_state(state) {}

    bool isPrivate(const QString& bundle) override
    {
        const auto state = m_state.locked();
        return m_choices.value(bundle, isPrivateAtFirst(bundle));
    }
    bool isPrivateAtFirst(const QString& bundle) override
    {
        const auto state = m_state.locked();
        return std::ranges::any_of(state->applications, [&](const SimulatedApplication& each) {
            return each.bundleIdentifier == bundle &&
                   each.role == platform::ApplicationRole::PasswordManager;
        });
    }
    void setChoices(const Choices& choices) override
    {
        const auto state = m_state.locked();
        m_choices = choices;
    }
    bool isAway() override { return m_isAway; }
    void setObserver(std::function<void()> changed) override { m_changed = std::move(changed); }

    // For tests; main thread.
    void setAway(bool isAway)
    {
        m_isAway = isAway;
        if (m_changed)
            m_changed();
    }

private:
    SimulatedState& m_state;
    Choices m_choices; ///< under the lock of the state
    std::atomic<bool> m_isAway{false};
    std::function<void()> m_changed;
};

class SimulatedInputState final : public platform::InputState
{
public:
    explicit SimulatedInputState(SimulatedState& state) : m_state(state) {}

    QPointF mouseLocation() override { return m_state.locked()->pointer; }
    std::vector<platform::MousePlace> mouseTrail() override;
    std::uint32_t pressedMouseButtons() override { return m_state.locked()->buttons; }
    std::uint32_t leftMouseDowns() override { return m_state.locked()->leftMouseDowns; }
    std::uint32_t modifierFlags() override { return m_state.locked()->modifiers; }

private:
    SimulatedState& m_state;
};

/// Reads see the Dock's values of the last synchronize().
class SimulatedDockPreferences final : public platform::DockPreferences
{
public:
    explicit SimulatedDockPreferences(SimulatedState& state) : m_state(state) {}

    void synchronize() override
    {
        const auto state = m_state.locked();
        m_orientation = state->dockEdge;
        m_magnification = state->dockMagnification;
        m_autohide = state->dockAutohide;
    }
    std::optional<platform::DockEdge> orientation(const platform::ElementRef&) override
    {
        return m_orientation;
    }
    std::optional<int> magnification(const platform::ElementRef&) override
    {
        return m_magnification;
    }
    std::optional<int> autohide(const platform::ElementRef&) override { return m_autohide; }
    bool tellsFinalPlaces() override { return areFinal; }
    std::vector<platform::DockDisplay> ownDisplays(const platform::ElementRef&) override
    {
        return displays;
    }
    bool countsWindows(const platform::ElementRef&) override { return hasCounts; }

    // For tests.
    bool areFinal = false;
    bool hasCounts = false;
    std::vector<platform::DockDisplay> displays;

private:
    SimulatedState& m_state;
    std::optional<platform::DockEdge> m_orientation;
    std::optional<int> m_magnification;
    std::optional<int> m_autohide;
};

class SimulatedUserDefaults final : public platform::UserDefaults
{
public:
    std::int64_t integerForKey(const QString& key) const override
    {
        return read<qint64>(key).value_or(read<bool>(key).value_or(false) ? 1 : 0);
    }
    float floatForKey(const QString& key) const override
    {
        return read<float>(key).value_or(static_cast<float>(integerForKey(key)));
    }
    bool boolForKey(const QString& key) const override { return integerForKey(key) != 0; }
    std::optional<QVariantMap> dictionaryForKey(const QString& key) const override
    {
        return read<QVariantMap>(key);
    }
    std::optional<QStringList> arrayForKey(const QString& key) const override
    {
        return read<QStringList>(key);
    }
    std::optional<QByteArray> dataForKey(const QString& key) const override
    {
        return read<QByteArray>(key);
    }
    void setInteger(std::int64_t value, const QString& key) override { write(key, qint64(value)); }
    void setFloat(float value, const QString& key) override { write(key, value); }
    void setBool(bool value, const QString& key) override { write(key, value); }
    void setDictionary(const QVariantMap& value, const QString& key) override { write(key, value); }
    void setArray(const QStringList& value, const QString& key) override { write(key, value); }
    void setData(const QByteArray& value, const QString& key) override { write(key, value); }
    void removeObjectForKey(const QString& key) override
    {
        m_values.remove(key);
        m_hasUnsavedChanges = true;
    }
    bool synchronize() override
    {
        m_hasUnsavedChanges = false;
        return true;
    }

    // For tests.
    bool contains(const QString& key) const { return m_values.contains(key); }
    bool hasUnsavedChanges() const { return m_hasUnsavedChanges; }

private:
    void write(const QString& key, const QVariant& value)
    {
        m_values.insert(key, value);
        m_hasUnsavedChanges = true;
    }
    template <class T> std::optional<T> read(const QString& key) const
    {
        const QVariant value = m_values.value(key);
        return value.metaType() == QMetaType::fromType<T>() ? std::optional(value.value<T>())
                                                            : std::nullopt;
    }

    QVariantMap m_values;
    bool m_hasUnsavedChanges = false;
};

} // namespace lumbrix::test
