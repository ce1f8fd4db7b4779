// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The desktop half of the adapter on a fake tracker and virtual time, with a few desktop entries.
#pragma once

#include <QtCore/QTemporaryDir>
#include <QtDBus/QDBusConnection>

#include <map>
#include <ostream>

#include <gtest/gtest.h>

#include "platform/StringLiterals.h"
#include "platform/linux/accessibility/LinuxDockPreferences.h"
#include "platform/linux/accessibility/X11Accessibility.h"
#include "platform/linux/applications/LinuxWorkspace.h"
#include "tests/platform/linux/FakeTracker.h"
#include "tests/support/VirtualRunLoop.h"

inline void PrintTo(const QString& text, std::ostream* out) { *out << text.toStdString(); }

namespace lumbrix::test
{

inline constexpr std::int32_t ownPid = 77;
inline constexpr std::int32_t panelPid = 500;
inline constexpr xcb_window_t panelWindow = 0x5000;
inline const QRect panelBounds(0, 770, 1280, 30);

/// Writes an entry with these lines of its main group.
void writeEntry(const QString& folder, const QString& id, const QByteArray& lines);

class AdapterFixture : public testing::Test
{
protected:
    /// With the session's message bus, panels' buttons are read where they have to be.
    explicit AdapterFixture(const QDBusConnection* session = nullptr);

    FakeTracker::Window window(xcb_window_t id, const QString& instance, const QString& className,
                               std::optional<std::int32_t> pid, const QString& title = {}) const;
    void addDock(xcb_window_t id, const QString& name, std::int32_t pid, const QRect& bounds);
    void addPanel();
    std::optional<platform::Application> ownerOf(xcb_window_t id);
    platform::AXResult read(const platform::ElementRef& element, const char* attribute);
    QString text(const platform::ElementRef& element, const char* attribute);
    std::vector<platform::ElementRef> list(const platform::ElementRef& element,
                                           const char* attribute);
    std::vector<platform::ElementRef> dockItems();
    platform::ElementRef dockList();

    QTemporaryDir m_folder;
    VirtualRunLoop m_loop;
    FakeTracker m_tracker;
    std::map<std::int32_t, QString> m_programs; ///< by process id
    platform::x11::PointSpace m_space{1.0};
    platform::DesktopEntries m_entries;
    platform::ApplicationRegistry m_registry;
    platform::WindowRaiser m_raiser;
    QRect m_mainScreen{0, 0, 1280, 800};
    platform::SystemUIMode m_uiMode{m_tracker, [this] { return m_mainScreen; }};
    platform::LinuxWorkspace m_workspace;
    platform::DockModel m_docks;
    platform::SwitcherModel m_switcher{
        m_loop,
        m_tracker,
        m_registry,
        nullptr,
        [this](platform::x11::KeyHearing which) { m_hearing = which; },
        [this] { return m_canCount; }};
    platform::x11::KeyHearing m_hearing{};
    bool m_canCount = true;
    platform::LinuxDockPreferences m_dockPreferences{m_docks};
    platform::X11Accessibility m_accessibility;
};

} // namespace lumbrix::test
