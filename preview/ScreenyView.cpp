// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/ScreenyView.h"

#include <algorithm>

#include "model/EngineSettings.h"
#include "platform/InputState.h"
#include "platform/KeyboardLayout.h"
#include "platform/StringLiterals.h"
#include "platform/Workspace.h"
#include "preview/BadgeView.h"
#include "preview/DisplayText.h"
#include "preview/ImageButton.h"
#include "preview/InterfaceFile.h"
#include "preview/KeyLabel.h"
#include "preview/NamedImage.h"
#include "preview/PanelBackground.h"
#include "preview/PictureButton.h"
#include "preview/PictureView.h"
#include "preview/PreviewHost.h"
#include "preview/TitleLabel.h"

namespace lumbrix
{
namespace
{

// Widened on purpose: the pause is the single-precision value.
constexpr platform::Seconds zoomActivationPause = 0.05f;
constexpr std::int64_t commandKey = 0x100;
constexpr std::uint32_t hideOthersFlags =
    platform::ModifierFlag::option | platform::ModifierFlag::command;

void hideOthers(std::int32_t pid, platform::Workspace& workspace)
{
    for (const platform::RunningApplication& application : workspace.runningApplications())
        if (application.pid != pid)
            workspace.hide(application.pid);
}

/// Starting a player that runs already brings its main window forward. By its bundle, as its
/// executable may be an interpreter that other programs share.
void launchAgain(std::int32_t pid, platform::Workspace& workspace)
{
    if (const auto application = workspace.runningApplication(pid))
        workspace.launchApplicationAtURL(application->bundleURL,
                                         platform::LaunchOption::withoutAddingToRecents |
                                             platform::LaunchOption::async |
                                             platform::LaunchOption::allowingClassicStartup);
}

} // namespace

ScreenyView::ScreenyView(const platform::Desktop& ports, PreviewHost& host)
    : m_ports(ports), m_host(host)
{
}

ScreenyView::~ScreenyView()
{
    cancelZoomWatcher();
    invalidateTimer();
}

ScreenyViewPtr ScreenyView::load(const platform::Desktop& ports, const QString& interfaceFile,
                                 PreviewHost& host)
{
    ScreenyViewPtr preview(new ScreenyView(ports, host));
    return preview->loadWindow(interfaceFile) ? preview : nullptr;
}

bool ScreenyView::loadWindow(const QString& interfaceFile)
{
    std::unique_ptr<QWidget> loaded = loadInterface(m_ports, interfaceFile);
    if (!qobject_cast<MAWindow*>(loaded.get()))
        return false;
    m_window.reset(static_cast<MAWindow*>(loaded.release()));
    m_background = m_window->findChild<PanelBackground*>(u"background"_s);
    m_image = m_window->findChild<PictureButton*>(u"image"_s);
    m_title = m_window->findChild<TitleLabel*>(u"title"_s);
    m_titleLabel = m_window->findChild<TitleLabel*>(u"titleLabel"_s);
    m_closeButton = m_window->findChild<ImageButton*>(u"closeButton"_s);
    m_fastKeyButton = m_window->findChild<KeyLabel*>(u"fastKeyButton"_s);
    TitleLabel* title = m_title ? m_title : m_titleLabel;
    if (!m_background || !m_image || !title || !m_closeButton || !m_fastKeyButton)
        return false;

    // A widget's hidden state is only told by isHidden() once it was set.
    m_closeButton->hide();
    m_fastKeyButton->hide();
    m_image->show();
    title->show();
    m_background->setParts({m_image, title, m_fastKeyButton, m_closeButton});
    m_window->setContent(m_background);
    m_window->setShapeSource([this] { return m_background->outlinePath(); });
    connect(m_background, &PanelBackground::outlinePathChanged, m_window.get(),
            &MAWindow::updateShape);
    connect(m_window.get(), &MAWindow::shapedChanged, m_background, &PanelBackground::setShaped);

    connectParts();
    return true;
}

void ScreenyView::connectParts()
{
    const auto activate = [this] { m_host.meantBy(*this).activateWindow(); };
    connect(m_image, &QAbstractButton::clicked, this, activate);
    // Where there is no body the number lies on the picture.
    connect(m_image, &PictureButton::pictureRectChanged, this, [this] {
        if (m_spaceView && !m_spaceView->isHidden())
            showSpaces();
    });
    // The whole panel stands for the window, not just its picture.
    connect(m_background, &PanelBackground::clicked, this, activate);
    connect(m_background, &PanelBackground::middleClicked, this, [this] {
        if (!m_host.settings().keepOnMiddleClick)
            m_host.meantBy(*this).closeWindow();
    });
    connect(m_background, &PanelBackground::wheelTurned, this,
            [this](int notches) { m_host.wheelTurned(*this, notches); });
    connect(m_fastKeyButton, &QAbstractButton::clicked, this, &ScreenyView::activateWindow);
    connect(m_closeButton, &QAbstractButton::clicked, this, &ScreenyView::closeWindow);
}

void ScreenyView::setElementRef(SWElementPtr element) { m_elementRef = std::move(element); }

void ScreenyView::setImage(const QImage& image) { m_image->setImage(image); }

void ScreenyView::setCapture(const QImage& capture)
{
    setImage(capture.isNull() && m_iTunes ? namedImage(u"noMusic"_s) : capture);
}

void ScreenyView::setIcon(const QImage& icon) { m_image->setIcon(icon); }

bool ScreenyView::hasIcon() const { return !m_image->icon().isNull(); }

int ScreenyView::iconSide() const { return m_image->iconSide(); }

QSize ScreenyView::pictureLimit() const { return m_image->pixels(); }

const QImage& ScreenyView::image() const { return m_image->image(); }

void ScreenyView::setTitleString(const QString& title)
{
    m_titleString = title;
    TitleLabel* label = titleShown();
    label->setText(title);
    m_background->arrange();
    // In the title of a window the toolkit takes this for its mark of unsaved changes.
    m_window->setWindowTitle(QString(label->text()).replace(u"[*]"_s, u"[*][*]"_s));
}

const QString& ScreenyView::shownTitle() const { return titleShown()->text(); }

void ScreenyView::setTitleAlike(qsizetype characters) { titleShown()->setAlike(characters); }

void ScreenyView::setAppFlags(const std::optional<platform::RunningApplication>& application)
{
    m_host.playerControls().setAppFlags(*this, application);
}

void ScreenyView::clearAppFlags()
{
    m_VLC = false;
    m_iCal = false;
    m_QuickTime = false;
    m_Mail = false;
    m_iTunes = false;
    m_setByTab = false;
    m_BusyCal = false;
}

QWidget* ScreenyView::contentView() const { return m_background; }

void ScreenyView::orderFront() { m_window->orderFrontRegardless(); }

void ScreenyView::setShortcut()
{
    if (!m_elementRef)
        return;
    HotKeyCenter& center = m_host.hotKeyCenter();
    center.unregisterHotKey(m_fastKey);
    if (!m_host.settings().showFastKeys) {
        m_background->setKeyWanted(false);
        return;
    }
    const int index = m_host.indexOfScreenyView(*this);
    if (index > 9)
        return;
    const int digit = (index + 1) % 10;
    m_fastKey = std::make_shared<SGHotKey>();
    m_fastKey->identifier = QString::number(digit);
    m_fastKey->keyCombo = {SWElement::keyCodeForNumberKey(digit), commandKey};
    m_fastKey->action = [weak = weak_from_this()] {
        if (const ScreenyViewPtr self = weak.lock())
            self->m_fastKeyButton->click();
    };
    center.registerHotKey(m_fastKey);
    const QString sign = m_ports.keyboardLayout.signOfModifier(platform::ModifierFlag::command);
    m_fastKeyButton->setText((sign.isEmpty() ? QString(QChar(0x2318)) : sign) +
                             QString::number(digit));
    m_background->setKeyWanted(true);
}

void ScreenyView::removeShortcut() { m_host.hotKeyCenter().unregisterHotKey(m_fastKey); }

const QColor& ScreenyView::bubbleColor() const { return m_background->bubbleColor(); }

void ScreenyView::setMarked(bool marked) { m_background->setMarked(marked); }

bool ScreenyView::isMarked() const { return m_background->isMarked(); }

void ScreenyView::setTrackingRect()
{
    if (m_setByTab) {
        // The engine's watch tells: a mouse that only rests where the panel comes up hovers
        // nothing.
        m_window->clearTracking();
        return;
    }
    m_window->setTracking([this] { mouseEntered(); }, [this] { mouseExited(); });
}

void ScreenyView::removeTrackingRect() { m_window->clearTracking(); }

void ScreenyView::dismissWithoutRebirth()
{
    m_window->orderOut();
    m_image->setImage({});
    hideSpaces();
}

void ScreenyView::rebirth()
{
    // A watcher of this life must not show the zoom in the next.
    endZoom();
    removeTrackingRect();
    removeShortcut();
    if (m_elementRef)
        m_elementRef->setScreenshot({});
    m_elementRef.reset();
    delete m_iCalView;
    m_calURL.clear();
    setHover(Hover::Outside);
    m_closeButton->setEnabled(true);
    m_closeButton->setAlpha(1.0);
    setMarked(false);
    removeButtons();
    clearAppFlags();
    hideSpaces();
    if (m_title)
        m_title->show();
    if (m_titleLabel)
        m_titleLabel->show();
    m_image->show();
    m_image->setIcon({});
    m_background->setKeyWanted(false);
    setTitleAlike(0);
    m_host.addToCache(shared_from_this());
}

void ScreenyView::dismiss()
{
    dismissWithoutRebirth();
    rebirth();
}

void ScreenyView::activateWindow()
{
    if (!m_elementRef) {
        platform::Workspace& workspace = m_ports.workspace;
        if (m_iCal && !workspace.launchApplication(m_BusyCal ? u"BusyCal"_s : u"iCal"_s) &&
            !m_calURL.isEmpty())
            workspace.launchApplicationAtURL(m_calURL, platform::LaunchOption::async);
        return;
    }
    // Closing all previews, below, may drop the last reference to this one.
    const ScreenyViewPtr self = shared_from_this();
    const SWElementPtr element = m_elementRef;
    m_ports.runLoop.detachThread("raise", [element](const platform::Thread&) { element->raise(); });
    if ((m_ports.inputState.modifierFlags() & hideOthersFlags) == hideOthersFlags)
        hideOthers(element->pid(), m_ports.workspace);
    if (m_iTunes)
        launchAgain(element->pid(), m_ports.workspace);
    // A number key may have picked this one while the mouse is on another, whose zoom would cover
    // the window.
    const auto shown = m_host.screenyViews();
    const bool isZoomShown = std::ranges::any_of(shown, [](const ScreenyViewPtr& each) {
        return each->m_zoomWindow && each->m_zoomWindow->isFront();
    });
    // The window needs a moment to come forward; without it the zoom would uncover what was before.
    if (m_host.settings().zoomWindows && isZoomShown)
        m_ports.runLoop.sleep(zoomActivationPause);
    for (const ScreenyViewPtr& each : shown)
        each->endZoom();
    if (m_host.settings().closeOnClick)
        m_host.removeAllScreenViews();
}

void ScreenyView::closeWindow()
{
    if (!m_elementRef)
        return;
    hideZoom();
    m_ports.runLoop.detachThread(
        "close", [element = m_elementRef](const platform::Thread&) { element->closeWindow(); });
}

void ScreenyView::prepareForCal()
{
    if (m_elementRef)
        m_elementRef->setScreenshot({});
    m_image->setImage({});
    hideSpaces();
    if (m_title)
        m_title->hide();
    if (m_titleLabel)
        m_titleLabel->hide();
    setTitleString({});
    m_image->hide();
}

QWidget* ScreenyView::setUpCalView()
{
    delete m_iCalView;
    m_iCalView = new QWidget(m_background);
    m_iCalView->setGeometry(m_background->rect());
    m_closeButton->raise();
    m_iCalView->show();
    return m_iCalView;
}

} // namespace lumbrix
