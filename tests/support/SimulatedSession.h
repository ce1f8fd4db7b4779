// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// What the simulated desktop knows of the program itself: its place among what starts at login, in
// the Dock and in the status bar.
#pragma once

#include <QtCore/QStringList>

#include <functional>
#include <utility>
#include <vector>

#include "platform/ApplicationBundle.h"
#include "platform/DesktopLook.h"
#include "platform/LoginItems.h"
#include "platform/PreviewRequests.h"
#include "platform/StatusBar.h"
#include "platform/StringLiterals.h"

namespace lumbrix::test
{

class SimulatedLoginItems final : public platform::LoginItems
{
public:
    void insert(const QString& path) override
    {
        if (!paths.contains(path))
            paths << path;
    }
    void remove(const QString& path) override
    {
        paths.removeIf([&](const QString& item) { return item.startsWith(path); });
    }
    QStringList paths;
};

class SimulatedBundle final : public platform::ApplicationBundle
{
public:
    QString path() const override { return u"/Applications/Lumbrix"_s; }
    QString shortVersionString() const override { return u"1.2.3"_s; }
    bool isInstalled() const override { return installed; }
    void setShowsInDock(bool on) override { showsInDockNextTime = on; }
    void transformToForegroundApplication() override { isForeground = true; }
    bool isShownByWindows() const override { return shownByWindows; }
    bool relaunch() override
    {
        relaunches += canRelaunch ? 1 : 0;
        return canRelaunch;
    }

    // For tests.
    bool showsInDockNextTime = false;
    bool isForeground = false;
    bool installed = true;
    bool shownByWindows = false;
    bool canRelaunch = true;
    int relaunches = 0;
};

/// Not there: the toolkit of the tests has no place for status items.
class SimulatedStatusBar final : public platform::StatusBar
{
public:
    bool isAvailable() const override { return false; }
    void setObserver(std::function<void()>) override {}
};

class SimulatedLook final : public platform::DesktopLook
{
public:
    std::optional<bool> isDark() override { return m_isDark; }
    void setObserver(std::function<void()> changed) override { m_changed = std::move(changed); }

    // For tests.
    void setDark(std::optional<bool> isDark)
    {
        m_isDark = isDark;
        if (m_changed)
            m_changed();
    }

private:
    std::optional<bool> m_isDark;
    std::function<void()> m_changed;
};

class SimulatedPreviewRequests final : public platform::PreviewRequests
{
public:
    void setHost(Host* host) override { m_host = host; }
    void rowEnded(const platform::ElementRef& item) override { ended.push_back(item); }

    // For tests.
    Host& host() { return *m_host; }
    std::vector<platform::ElementRef> ended;

private:
    Host* m_host = nullptr;
};

} // namespace lumbrix::test
