// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "engine/PictureLoader.h"

#include <utility>
#include <vector>

#include "platform/Log.h"
#include "platform/StringLiterals.h"
#include "platform/Workspace.h"
#include "preview/NamedImage.h"
#include "preview/ScreenyView.h"

namespace lumbrix
{
namespace
{

/// An empty panel that is filled a moment later flickers; two frames are not seen as a delay.
constexpr platform::Seconds maxHold = 0.03;

} // namespace

PictureLoader::PictureLoader(const platform::Desktop& ports,
                             const std::vector<ScreenyViewPtr>& previews, CaptureQueue& queue,
                             PictureFeed& feed)
    : m_ports(ports), m_previews(previews), m_queue(queue), m_feed(feed)
{
}

PictureLoader::~PictureLoader() { m_ports.runLoop.cancelPreviousPerformRequests(this); }

void PictureLoader::loadMissing()
{
    m_waiting = 0;
    ++m_round;
    m_later.clear();
    for (const ScreenyViewPtr& preview : m_previews)
        if (preview->elementRef() && preview->image().isNull())
            load(preview);
    // The server does one thing after the other. A panel that it shows while it has pictures to
    // copy keeps it, and the compositor, from copying the others.
    for (const ScreenyViewPtr& preview : m_previews)
        preview->setHeld(true);
}

void PictureLoader::showWhenComplete()
{
    if (m_waiting == 0) {
        letGo();
        return;
    }
    platform::RunLoop& runLoop = m_ports.runLoop;
    runLoop.cancelPreviousPerformRequests(this);
    runLoop.performAfterDelay(this, maxHold, [this] {
        qCDebug(log::pictures, "the row shows with %d pictures missing", m_waiting);
        letGo();
    });
}

void PictureLoader::letGo()
{
    m_ports.runLoop.cancelPreviousPerformRequests(this);
    for (const ScreenyViewPtr& preview : m_previews) {
        // What is there now need not be painted later.
        m_queue.deliver();
        if (m_later.contains(preview.get()) && PictureFeed::bringUpToDate(*preview)) {
            m_later.erase(preview.get());
            m_feed.follow(preview);
        }
        preview->setHeld(false);
    }
    const auto captures = std::exchange(m_later, {});
    for (const ScreenyViewPtr& preview : m_previews)
        if (const auto capture = captures.find(preview.get()); capture != captures.end())
            capture->second();
}

void PictureLoader::load(const ScreenyViewPtr& preview)
{
    const SWElementPtr window = preview->elementRef();
    const KnownWindowPicture known = window->knownPicture(preview->pictureLimit());
    if (!known.picture.image.isNull() || known.isCurrent) {
        window->setScreenshot(known.picture);
        preview->setCapture(known.picture.image);
    }
    if (known.isCurrent) {
        loadIcon(*preview);
        m_feed.follow(preview);
        return;
    }
    const bool isAwaited = preview->image().isNull();
    if (isAwaited) {
        ++m_waiting;
        // One that is used again on the spot would show nothing, or its former window.
        preview->window()->orderOut();
    }
    const auto show = [this, isAwaited, round = m_round, window,
                       weak = preview->weak_from_this()](const CaptureQueue::Captured& captured) {
        // The panel may be gone, or be the preview of something else by now; the picture is then
        // nobody's.
        const ScreenyViewPtr shown = weak.lock();
        if (shown && shown->elementRef() == window) {
            PictureFeed::show(*shown, captured);
            loadIcon(*shown);
            m_feed.follow(shown);
        }
        if (isAwaited)
            this->arrived(round);
    };
    const auto capture = [this, window, limit = preview->pictureLimit(),
                          done = m_guard.ifAlive(show)] { m_queue.capture(window, {limit}, done); };
    // What has something to show is on the screen before the server is kept busy with copying.
    if (isAwaited)
        capture();
    else
        m_later[preview.get()] = capture;
}

void PictureLoader::arrived(int round)
{
    if (round == m_round && --m_waiting == 0)
        letGo();
}

void PictureLoader::loadIcon(ScreenyView& preview)
{
    if (!preview.elementRef() || !preview.image().isNull() || preview.hasIcon())
        return;
    const QString bundle = preview.elementRef()->bundle();
    auto& previews = m_iconWanted[bundle];
    previews.push_back(preview.weak_from_this());
    if (previews.size() > 1)
        return; // it is being read
    ++m_waiting;
    const int side = preview.iconSide();
    const auto read = m_guard.ifAlive([this, bundle, side, round = m_round](const QImage& icon) {
        setIcons(bundle,
                 icon.isNull() ? namedPixmap(u"anyApp"_s, {side, side}, 1).toImage() : icon);
        arrived(round);
    });
    // On a thread, as it reads files.
    m_ports.runLoop.detachThread(
        "window-icon", [bundle, side, read, &ports = m_ports](const platform::Thread&) {
            const QImage icon = ports.workspace.applicationIcon(bundle, side);
            ports.runLoop.performOnMainThread([read, icon] { read(icon); }, false);
        });
}

void PictureLoader::setIcons(const QString& bundle, const QImage& icon)
{
    const auto previews = m_iconWanted.extract(bundle);
    if (!previews)
        return;
    for (const std::weak_ptr<ScreenyView>& preview : previews.mapped()) {
        // It may show something else by now.
        const ScreenyViewPtr shown = preview.lock();
        if (shown && shown->elementRef() && shown->elementRef()->bundle() == bundle)
            shown->setIcon(icon);
    }
}

void PictureLoader::loadUnseen(const ScreenyViewPtr& preview)
{
    const SWElementPtr window = preview->elementRef();
    const auto show = [window,
                       weak = preview->weak_from_this()](const CaptureQueue::Captured& captured) {
        const ScreenyViewPtr shown = weak.lock();
        if (!shown || shown->elementRef() != window)
            return;
        window->setScreenshot(captured.picture);
        shown->setImage(captured.reduced);
    };
    m_queue.capture(window, {preview->pictureLimit()}, show);
}

} // namespace lumbrix
