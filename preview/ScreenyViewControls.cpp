// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The mouse on a preview, and the buttons that come up under it.
#include "preview/ScreenyView.h"

#include <algorithm>
#include <utility>

#include "model/EngineSettings.h"
#include "platform/InputState.h"
#include "platform/StringLiterals.h"
#include "preview/ImageButton.h"
#include "preview/PanelBackground.h"
#include "preview/PictureButton.h"
#include "preview/PreviewHost.h"

namespace lumbrix
{
namespace
{

constexpr std::uint32_t leftButtonOnly = 1;
/// From this panel width on the control buttons have their full size.
constexpr qreal largeControlsWidth = 180;

} // namespace

void ScreenyView::mouseEntered()
{
    if (!m_elementRef)
        return;
    m_host.mouseEntered(*this);
    if (m_ports.inputState.pressedMouseButtons() == leftButtonOnly) {
        // Something is being dragged onto the window. Nothing comes up under it, so the engine's
        // checks find the preview not hovered and say again and again that the mouse is inside.
        if (m_hover != Hover::Dragging) {
            setHover(Hover::Dragging);
            activateWindow();
        }
        return;
    }
    if (m_host.settings().hideClose) {
        // Unseen, yet in its place: a click there is none on the picture.
        m_closeButton->setEnabled(false);
        m_closeButton->setAlpha(0.0);
    } else {
        m_closeButton->setEnabled(m_elementRef->isClosable());
    }
    setHover(Hover::Inside);
    showZoom(true);
    hideButtons();
    updateButtons();
    m_closeButton->update();
}

void ScreenyView::mouseExited()
{
    endHover();
    m_host.mouseExited();
}

void ScreenyView::endHover()
{
    cancelZoomWatcher();
    setHover(Hover::Outside);
    hideZoom();
    hideButtons();
    m_closeButton->update();
}

void ScreenyView::setHover(Hover hover)
{
    if (std::exchange(m_hover, hover) != hover)
        m_host.hotKeyCenter().rowChanged();
    m_closeButton->setVisible(isHovered());
    m_background->setHovered(isHovered());
    m_image->setHighlighted(isHovered());
}

void ScreenyView::setCloseButtonEnabled(bool enabled) { m_closeButton->setEnabled(enabled); }

bool ScreenyView::isCloseButtonEnabled() const { return m_closeButton->isEnabled(); }

QRectF ScreenyView::closeButtonFrame() const { return frameOf(*m_closeButton); }

void ScreenyView::clickCloseButton() { m_closeButton->click(); }

void ScreenyView::clickImage() { m_image->click(); }

bool ScreenyView::clickControlAt(QPointF point)
{
    if (!m_buttonsInitialized)
        return false;
    const auto hit = std::find_if(m_controls.begin(), m_controls.end(), [&](ImageButton* button) {
        return !button->isHidden() && frameOf(*button).contains(point);
    });
    if (hit == m_controls.end())
        return false;
    (*hit)->click();
    return true;
}

QRectF ScreenyView::frameOf(const QWidget& part) const
{
    const QRectF geometry = part.geometry();
    return {geometry.x(), m_background->height() - geometry.y() - geometry.height(),
            geometry.width(), geometry.height()};
}

bool ScreenyView::areButtonsShown() const
{
    return m_buttonsInitialized &&
           std::any_of(m_controls.begin(), m_controls.end(),
                       [](const ImageButton* button) { return !button->isHidden(); });
}

void ScreenyView::updateButtons()
{
    if (!m_elementRef || !isHovered())
        return;
    const bool areWanted =
        !m_host.settings().hideControls && m_host.playerControls().isReachable(*this);
    if (areWanted == areButtonsShown())
        return;
    if (!areWanted) {
        hideButtons();
        return;
    }
    // What could be reached only since the preview was made has no kind yet.
    if (!hasControls())
        setAppFlags(m_elementRef->runningApplicationForWindow());
    if (!hasControls())
        return;
    createButtons();
    placeButtons();
    showButtons();
}

ImageButton* ScreenyView::createButton(const QString& image, const QString& alternate,
                                       void (PlayerControls::*action)(ScreenyView&))
{
    auto* button = new ImageButton(m_background);
    button->setGeometry(0, 0, 30, 30);
    button->hide();
    button->setImageName(image);
    button->setPressedImageName(alternate);
    connect(button, &QAbstractButton::clicked, this,
            [this, action] { (m_host.playerControls().*action)(*this); });
    return button;
}

void ScreenyView::createButtons()
{
    if (m_buttonsInitialized)
        return;
    m_controls = {
        createButton(u"skipLeft"_s, u"skipLeftAlt"_s, &PlayerControls::skipLeft),
        createButton(u"skipRight"_s, u"skipRightAlt"_s, &PlayerControls::skipRight),
        createButton(u"play"_s, u"playAlt"_s, &PlayerControls::play),
        createButton(u"mailGet"_s, u"mailGetAlt"_s, &PlayerControls::getMail),
        createButton(u"playPause"_s, u"playPauseAlt"_s, &PlayerControls::playPause),
    };
    m_buttonsInitialized = true;
}

void ScreenyView::placeButtons()
{
    const qreal width = m_window->frame().width();
    const bool large = width >= largeControlsWidth;
    const qreal centre = width * 0.5 - (large ? 9 : 4);
    const int step = large ? 30 : 20;
    const int size = large ? 30 : 20;
    const int bottom = large ? 40 : 30;
    const auto place = [&](ControlIndex index, int shift) {
        m_controls[index]->setGeometry(qRound(centre) + shift,
                                       m_background->height() - bottom - size, size, size);
    };
    place(SkipLeft, -step);
    place(SkipRight, step);
    for (const ControlIndex index : {Play, GetMail, PlayPause})
        place(index, 0);
}

void ScreenyView::showButtons()
{
    if (m_iTunes) {
        const PlayerState state = m_host.playerControls().playerState(*this);
        if (state != PlayerState::Unknown)
            setPlayState(state == PlayerState::Playing);
        m_controls[SkipLeft]->show();
        m_controls[SkipRight]->show();
    } else if (m_Mail) {
        m_controls[GetMail]->show();
    } else if (m_VLC) {
        m_controls[SkipLeft]->show();
        m_controls[SkipRight]->show();
        m_controls[PlayPause]->show();
    } else if (m_QuickTime) {
        m_controls[PlayPause]->show();
    }
}

void ScreenyView::hideButtons()
{
    if (!m_buttonsInitialized)
        return;
    // None is ever shown that does not belong to the application.
    for (ImageButton* button : m_controls)
        button->hide();
}

void ScreenyView::removeButtons()
{
    if (!m_buttonsInitialized)
        return;
    for (ImageButton*& button : m_controls) {
        button->hide();
        // One of them may be the button whose click led here.
        std::exchange(button, nullptr)->deleteLater();
    }
    m_buttonsInitialized = false;
}

void ScreenyView::setPlayState(bool playing)
{
    m_isPlaying = playing;
    if (!m_buttonsInitialized)
        return;
    ImageButton* button = m_controls[Play];
    button->setImageName(playing ? u"pause"_s : u"play"_s);
    button->setPressedImageName(playing ? u"pauseAlt"_s : u"playAlt"_s);
    button->show();
}

} // namespace lumbrix
