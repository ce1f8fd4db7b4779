// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Holds Safari's open tabs. Not implemented yet: the scanner ends at once, and nothing reads the
// list.
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
    /// The fields are not defined until there is a scanner that fills them.
    using Tab = QVariant;

    /// The one instance, created on first use; its scanner thread belongs to the run loop of that
    /// first call.
    static SafariPreview& sharedPreview(platform::RunLoop& runLoop);
    /// Destroys the instance. The run loop of its scanner must have been shut down before.
    static void releaseSharedPreview();

    SafariPreview() = default;
    SafariPreview(const SafariPreview&) = delete;
    SafariPreview& operator=(const SafariPreview&) = delete;

    std::vector<Tab> tabsArray() const;
    void addObject(const Tab& tab);
    void insertObject(const Tab& tab, std::size_t index); ///< clamped to the size
    void removeObject(const Tab& tab);                    ///< removes every equal tab

private:
    void setUp(platform::RunLoop& runLoop);
    void tabScannerThread(const platform::Thread& self);

    mutable std::mutex m_lock; ///< guards the tabs
    std::vector<Tab> m_tabs;
};

} // namespace lumbrix
