// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/SafariPreview.h"

#include <algorithm>
#include <memory>

#include "platform/RunLoop.h"

namespace lumbrix
{
namespace
{
std::mutex sharedLock;
std::unique_ptr<SafariPreview> sharedInstance;
} // namespace

SafariPreview& SafariPreview::sharedPreview(platform::RunLoop& runLoop)
{
    const std::lock_guard lock(sharedLock);
    if (!sharedInstance) {
        sharedInstance = std::make_unique<SafariPreview>();
        sharedInstance->setUp(runLoop);
    }
    return *sharedInstance;
}

void SafariPreview::releaseSharedPreview()
{
    const std::lock_guard lock(sharedLock);
    sharedInstance.reset();
}

void SafariPreview::setUp(platform::RunLoop& runLoop)
{
    runLoop.detachThread("tab-scanner",
                         [this](const platform::Thread& self) { tabScannerThread(self); });
}

void SafariPreview::tabScannerThread(const platform::Thread&) {}

std::vector<SafariPreview::Tab> SafariPreview::tabsArray() const
{
    const std::lock_guard lock(m_lock);
    return m_tabs;
}

void SafariPreview::addObject(const Tab& tab)
{
    const std::lock_guard lock(m_lock);
    m_tabs.push_back(tab);
}

void SafariPreview::insertObject(const Tab& tab, std::size_t index)
{
    const std::lock_guard lock(m_lock);
    const auto position = static_cast<std::ptrdiff_t>(std::min(index, m_tabs.size()));
    m_tabs.insert(m_tabs.begin() + position, tab);
}

void SafariPreview::removeObject(const Tab& tab)
{
    const std::lock_guard lock(m_lock);
    std::erase(m_tabs, tab);
}

} // namespace lumbrix
