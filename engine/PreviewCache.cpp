// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PreviewCache.h"

#include "model/EngineSettings.h"
#include "platform/StringLiterals.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{
namespace
{
constexpr int readyPreviews = 6;
} // namespace

ScreenyViewPtr PreviewCache::createScreenyView()
{
    ScreenyViewPtr preview = getFromCache();
    return preview ? preview : load();
}

ScreenyViewPtr PreviewCache::getFromCache()
{
    if (m_cacheArray.empty())
        return nullptr;
    ScreenyViewPtr preview = m_cacheArray.back();
    m_cacheArray.pop_back();
    return preview;
}

void PreviewCache::clearCache()
{
    m_cacheArray.clear();
    std::vector<ScreenyViewPtr> fresh;
    for (int i = 0; i < readyPreviews; ++i)
        if (ScreenyViewPtr preview = load())
            fresh.push_back(std::move(preview));
    for (const ScreenyViewPtr& preview : fresh)
        preview->dismiss(); // this returns it to the cache
}

void PreviewCache::orderCacheOut()
{
    for (const ScreenyViewPtr& preview : m_cacheArray)
        preview->dismissWithoutRebirth();
}

QString PreviewCache::interfaceFileForStyle(int previewStyle)
{
    switch (previewStyle) {
    case 0:
        return u"ScreenyView"_s;
    case 2:
        return u"ScreenyViewBorderless"_s;
    case 3:
        return u"ScreenyViewBlue"_s;
    case 4:
        return u"ScreenyViewRed"_s;
    case 5:
        return u"ScreenyViewGreen"_s;
    default:
        return u"ScreenyViewBlack"_s;
    }
}

ScreenyViewPtr PreviewCache::load()
{
    return ScreenyView::load(m_ports, interfaceFileForStyle(m_host.settings().previewStyle),
                             m_host);
}

} // namespace lumbrix
