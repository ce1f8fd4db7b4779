// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Holds the tabs that Safari has open. They are not looked for yet: the scanner ends at once, and
// nobody reads the list.
#pragma once

#include <QtCore/QVariant>

#include <cstddef>
#include <mutex>
#include <vector>

namespace lumbrix::platform
{
class RunLoop;
class Thread;
} // namespace lumbrix::platform

namespace lumbrix
{

/// Any thread: the scanner writes, the main thread reads copies.
class SafariPreview
{
public:
    /// What one record holds is open until a scanner fills them.
    using Tab = QVariant;

    /// The one instance, made on first use, with its scanner thread in the run loop given then.
    static SafariPreview& sharedPreview(platform::RunLoop& runLoop);
    /// Ends it. The run loop that ran its scanner has been shut down before.
    static void releaseSharedPreview();

    SafariPreview() = default;
    SafariPreview(const SafariPreview&) = delete;
    SafariPreview& operator=(const SafariPreview&) = delete;

    std::vector<Tab> tabsArray() const;
    void addObject(const Tab& tab);
    void insertObject(const Tab& tab, std::size_t index); ///< at most at the end
    void removeObject(const Tab& tab);                    ///< every equal one

private:
    void setUp(platform::RunLoop& runLoop);
    void tabScannerThread(const platform::Thread& self);

    mutable std::mutex m_lock; ///< guards the tabs
    std::vector<Tab> m_tabs;
};

} // namespace lumbrix
