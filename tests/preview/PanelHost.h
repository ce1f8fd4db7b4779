// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtCore/QStringList>

#include <utility>
#include <vector>

#include "model/EngineSettings.h"
#include "platform/StringLiterals.h"
#include "preview/HotKeyCenter.h"
#include "preview/PreviewHost.h"
#include "preview/ScreenyView.h"

namespace lumbrix::test
{

/// An engine, its hot keys and players, that write down what previews ask for.
class PanelHost final : public PreviewHost, private HotKeyCenter, private PlayerControls
{
public:
    EngineSettings settingsMirror;
    std::vector<ScreenyViewPtr> previews;
    std::vector<ScreenyViewPtr> cache;
    std::vector<std::shared_ptr<SGHotKey>> hotKeys; ///< registered now
    PlayerState state = PlayerState::Unknown;
    bool hasPlayer = true;
    bool doTheyTell = true;       ///< the numbers of Spaces
    ScreenyView* meant = nullptr; ///< by any click; null: the preview that is clicked
    QStringList log;

    const EngineSettings& settings() const override { return settingsMirror; }
    void mouseEntered(ScreenyView&) override {}
    void mouseExited() override { log += u"mouseExited"_s; }
    void wheelTurned(ScreenyView&, int steps) override { log += u"wheel %1"_s.arg(steps); }
    ScreenyView& meantBy(ScreenyView& clicked) override { return meant ? *meant : clicked; }
    void removeAllScreenViews() override
    {
        for (const ScreenyViewPtr& preview : std::exchange(previews, {}))
            preview->rebirth();
    }
    void showMore() override { log += u"more"_s; }
    const std::vector<ScreenyViewPtr>& screenyViews() const override { return previews; }
    int indexOfScreenyView(const ScreenyView& preview) const override
    {
        for (std::size_t i = 0; i < previews.size(); ++i)
            if (previews[i].get() == &preview)
                return static_cast<int>(i);
        return -1;
    }
    bool doSpacesTell() const override { return doTheyTell; }
    void addToCache(const ScreenyViewPtr& preview) override { cache.push_back(preview); }
    HotKeyCenter& hotKeyCenter() override { return *this; }
    PlayerControls& playerControls() override { return *this; }

private:
    void registerHotKey(const std::shared_ptr<SGHotKey>& key) override { hotKeys.push_back(key); }
    void unregisterHotKey(const std::shared_ptr<SGHotKey>& key) override
    {
        std::erase(hotKeys, key);
    }
    void toggleEventTap(bool) override {}
    void rowChanged() override {}
    void setAppFlags(ScreenyView&, const std::optional<platform::RunningApplication>&) override {}
    bool isReachable(const ScreenyView&) override { return hasPlayer; }
    PlayerState playerState(const ScreenyView&) override { return state; }
    std::optional<QString> currentTrack(const ScreenyView&) override { return std::nullopt; }
    QImage artwork(const ScreenyView&) override { return {}; }
    void skipLeft(ScreenyView&) override { log += u"skipLeft"_s; }
    void skipRight(ScreenyView&) override { log += u"skipRight"_s; }
    void play(ScreenyView& preview) override
    {
        log += u"play"_s;
        preview.setPlayState(!preview.isPlaying());
    }
    void getMail(ScreenyView&) override { log += u"getMail"_s; }
    void playPause(ScreenyView&) override { log += u"playPause"_s; }
};

} // namespace lumbrix::test
