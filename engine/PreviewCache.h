// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Idle previews kept for reuse: loading one from its interface file is costly.
#pragma once

#include <QtCore/QString>

#include <vector>

#include "platform/Desktop.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{

/// Last in, first out. Main thread.
class PreviewCache
{
public:
    /// Both must outlive the cache.
    PreviewCache(const platform::Desktop& ports, PreviewHost& host) : m_ports(ports), m_host(host)
    {
    }

    /// A preview from the cache, otherwise a new one in the style of the settings; null when its
    /// interface file cannot be loaded.
    ScreenyViewPtr createScreenyView();
    ScreenyViewPtr getFromCache(); ///< null when empty
    void addToCache(const ScreenyViewPtr& preview) { m_cacheArray.push_back(preview); }
    /// Drops all and fills the cache with a few new previews in the current style.
    void clearCache();
    /// Removes the panels of all idle previews from the screen.
    void orderCacheOut();

    const std::vector<ScreenyViewPtr>& cacheArray() const { return m_cacheArray; }
    static QString interfaceFileForStyle(int previewStyle);

private:
    ScreenyViewPtr load();

    const platform::Desktop& m_ports;
    PreviewHost& m_host;
    std::vector<ScreenyViewPtr> m_cacheArray;
};

} // namespace lumbrix
