// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The Spaces badge of a preview.
#include "preview/ScreenyView.h"

#include <algorithm>

#include "model/EngineSettings.h"
#include "platform/StringLiterals.h"
#include "preview/BadgeView.h"
#include "preview/Cells.h"
#include "preview/InterfaceFile.h"
#include "preview/PanelBackground.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{
namespace
{

constexpr int lastSpace = 59;
constexpr std::int32_t blueStyle = 1;

/// Where a badge of one size lies: its side, and its distances from the right edge of what is
/// shown and from its top.
struct Place {
    int side;
    int right;
    int top;
};
constexpr std::array<Place, BadgeView::sizeCount> places{
    {{30, 3 + 37, 46}, {60, 3 + 67, 73}, {120, 3 + 127, 127}}};

/// The largest size up to the wanted one that takes at most half the height of what is shown and a
/// quarter of its area, or small.
std::int32_t fittingSize(std::int32_t wanted, QSize shown)
{
    // Far beyond any panel, where counting down would take long.
    std::int32_t size = std::min(wanted, 1000);
    float side = 30.0F * static_cast<float>(size) + 30.0F;
    while (side > 0.5F * static_cast<float>(shown.height())) {
        if (size == BadgeView::Medium)
            return BadgeView::Small;
        --size;
        side -= 30.0F;
    }
    while (size > BadgeView::Small && size <= BadgeView::Large) {
        const int place = places.at(static_cast<std::size_t>(size)).side;
        if (4 * place * place <= shown.width() * shown.height())
            break;
        --size;
    }
    return size;
}

/// Hidden, and belongs to the parent. Null when the interface file cannot be loaded.
BadgeView* loadBadge(QWidget& parent, const platform::Desktop& ports)
{
    std::unique_ptr<QWidget> loaded = loadInterface(ports, u"SpaceBadge"_s);
    auto* badge = qobject_cast<BadgeView*>(loaded.get());
    if (!badge || !badge->awakeFromNib())
        return nullptr;
    badge->setParent(&parent);
    static_cast<void>(loaded.release()); // the parent has it now
    return badge;
}

} // namespace

void ScreenyView::showSpaces()
{
    const EngineSettings& settings = m_host.settings();
    if (!m_elementRef || !settings.showSpaces)
        return;
    const int number = m_elementRef->getSpaceNumber();
    // Numbers that are all the same, and that of where the user is, say nothing and cost a part of
    // the pictures; in a small preview they cost too much.
    const bool isWanted = settings.alwaysShowSpaces || m_host.doSpacesTell();
    if (number < 1 || number > lastSpace || !isWanted || !m_background->isRoomy()) {
        hideSpaces();
        return;
    }
    if (!m_spaceView) {
        m_spaceView = loadBadge(*contentView(), m_ports);
        if (!m_spaceView)
            return;
        if (settings.spaceStyle == blueStyle)
            m_spaceView->badgeImage()->setImageName(u"SpaceBlue"_s);
    }
    const QRect shown = m_background->shownArea();
    const std::int32_t size = fittingSize(settings.spaceSize, shown.size());
    // A size that there is no badge for: a panel too low for the smallest, or a setting that this
    // version does not know. A badge that was up would lie where the panel, larger then, had it.
    if (size < BadgeView::Small || size > BadgeView::Large) {
        hideSpaces();
        return;
    }
    const Place& place = places.at(static_cast<std::size_t>(size));
    m_spaceView->show(number, static_cast<BadgeView::Size>(size),
                      {shown.x() + shown.width() - place.right, shown.y() + place.top - place.side,
                       place.side, place.side});
    m_spaceView->raise();
}

void ScreenyView::hideSpaces()
{
    if (m_spaceView)
        m_spaceView->hideAll();
}

} // namespace lumbrix
