// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The controller of one preview: a small panel with the picture of one window, its title, a close
// button, and what goes with it.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QPointer>
#include <QtCore/QString>
#include <QtCore/QUrl>
#include <QtGui/QImage>

#include <array>
#include <memory>
#include <optional>

#include "model/SWElement.h"
#include "platform/Desktop.h"
#include "platform/RunLoop.h"
#include "platform/WindowServer.h"
#include "preview/HotKeyCenter.h"
#include "preview/MAWindow.h"

namespace lumbrix
{

class BadgeView;
class ImageButton;
class KeyLabel;
class PanelBackground;
class PictureButton;
class PictureView;
class PlayerControls;
class PreviewHost;
class TitleLabel;
class ScreenyView;
using ScreenyViewPtr = std::shared_ptr<ScreenyView>;

/// Main thread. Reusable: rebirth() returns it to the engine's cache in an idle state, in which
/// element() is null and its actions do nothing.
class ScreenyView : public QObject, public std::enable_shared_from_this<ScreenyView>
{
    Q_OBJECT

public:
    /// Loads the named interface file ("ScreenyView", "ScreenyViewBlack" ...). The ports and
    /// the host outlive the preview. Null when the file cannot be loaded.
    static ScreenyViewPtr load(const platform::Desktop& ports, const QString& interfaceFile,
                               PreviewHost& host);
    ~ScreenyView() override;

    // Filling.
    void setElementRef(SWElementPtr element);
    const SWElementPtr& elementRef() const { return m_elementRef; }
    /// Shows a picture in the image button; a null image clears it. The picture that is shown
    /// already costs nothing.
    void setImage(const QImage& image);
    const QImage& image() const;
    /// Shows what was captured of the window; where there is nothing, a player shows a note
    /// instead.
    void setCapture(const QImage& capture);
    /// Where pictures of the window may be drawn past the toolkit. Null while that would not look
    /// the same: then they are to be set.
    std::optional<platform::PictureSurface> pictureSurface() const;
    /// One was drawn there, so image() is older than what is seen, until another is set.
    void noteDrawnPicture();
    /// What stands for a window of which there is no picture: its application's icon, fitted into
    /// a square of iconSide() pixels. Shown while there is no picture, until the preview goes.
    void setIcon(const QImage& icon);
    bool hasIcon() const;
    int iconSide() const;
    /// The size in pixels that pictures are reduced to. Right once the panel has its frame.
    QSize pictureLimit() const;
    /// Whether painting waits for the picture; ends when the preview goes.
    void setHeld(bool held) { m_window->setHeld(held); }
    bool isHeld() const { return m_window->isHeld(); }
    void setTitleString(const QString& title);
    QString titleString() const { return m_titleString; }
    /// The same as one line of plain text.
    const QString& shownTitle() const;
    /// How many of its first characters another title of the row begins with, too.
    void setTitleAlike(qsizetype characters);
    void setAppFlags(const std::optional<platform::RunningApplication>& application);

    // Showing.
    MAWindow* window() const { return m_window.get(); }
    /// Fills the panel; badges and the like are made its children.
    QWidget* contentView() const;
    void orderFront();
    void setShortcut();
    void removeShortcut();
    /// The number of the window's Space in a badge, while the setting is on and it has one.
    void showSpaces();
    void hideSpaces();
    /// Of the shape behind a row of this style.
    const QColor& bubbleColor() const;
    const KeyLabel& keyLabel() const { return *m_fastKeyButton; }
    BadgeView* spaceView() const { return m_spaceView; } ///< null until first needed
    /// Tells it from the others of its row: it shows the window that the hovered button stands for.
    void setMarked(bool marked);
    bool isMarked() const;
    void setTrackingRect();
    void removeTrackingRect();

    // Ending.
    void dismissWithoutRebirth();
    void rebirth();
    void dismiss();

    // The mouse; also called by the engine from its own hit tests. While something is dragged over
    // the preview, entering activates the window, once until the mouse exits.
    void mouseEntered();
    void mouseExited();
    /// Ends what mouseEntered() began, when that is no leaving: something else was chosen.
    void endHover();
    /// It has entered and not exited, with or without a drag.
    bool isMouseInside() const { return m_hover != Hover::Outside; }
    /// Inside without a drag: what comes up under the mouse is there.
    bool isHovered() const { return m_hover == Hover::Inside; }

    // Controls. Frames are relative to the panel, origin at its bottom left.
    void setCloseButtonEnabled(bool enabled);
    bool isCloseButtonEnabled() const;
    QRectF closeButtonFrame() const;
    void clickCloseButton(); ///< nothing while it is disabled
    void clickImage();
    /// Clicks the first of skipLeft, skipRight, play, getMail and playPause that is shown and
    /// contains the point (relative to the panel); whether one was clicked.
    bool clickControlAt(QPointF point);
    /// Shows the buttons of media players and mail while the mouse is inside and there is somebody
    /// to obey them, else hides them. Those that are shown stay as they are.
    void updateButtons();

    // Actions.
    void activateWindow();
    void closeWindow();

    // Zoom.
    void showZoom(bool arm);
    void hideZoom();
    MAWindow* zoomWindow() const { return m_zoomWindow.get(); }
    bool isZoomed() const { return m_zoomWindow != nullptr; }
    /// Also one that is still to come, until the mouse enters again.
    void endZoom();
    /// Shows the window's whole screenshot in the zoomed view, where there are both.
    void updateZoom();

    // What the window belongs to.
    bool iTunes() const { return m_iTunes; }
    void setITunes(bool on) { m_iTunes = on; }
    bool Mail() const { return m_Mail; }
    void setMail(bool on) { m_Mail = on; }
    bool QuickTime() const { return m_QuickTime; }
    void setQuickTime(bool on) { m_QuickTime = on; }
    bool VLC() const { return m_VLC; }
    void setVLC(bool on) { m_VLC = on; }
    bool iCal() const { return m_iCal; }
    void setICal(bool on) { m_iCal = on; }
    bool BusyCal() const { return m_BusyCal; }
    void setBusyCal(bool on) { m_BusyCal = on; }
    bool setByTab() const { return m_setByTab; }
    void setSetByTab(bool on) { m_setByTab = on; }
    void clearAppFlags();
    /// Shows the play (stopped) or the pause (playing) picture on `play` and un-hides it.
    void setPlayState(bool playing);
    /// As last set by setPlayState: what a click on `play` has to toggle.
    bool isPlaying() const { return m_isPlaying; }

    // A preview of today's events in place of a window.
    /// Started by a click when no window is known and no application of the usual name is there.
    void setCalURL(const QUrl& application) { m_calURL = application; }
    /// Clears and hides what shows a window: picture, title and badge.
    void prepareForCal();
    /// An empty container that covers the panel, until rebirth. Replaces the former one.
    QWidget* setUpCalView();
    QWidget* iCalView() const { return m_iCalView; }

private:
    enum class Hover { Outside, Dragging, Inside };
    enum ControlIndex { SkipLeft, SkipRight, Play, GetMail, PlayPause, ControlCount };

    ScreenyView(const platform::Desktop& ports, PreviewHost& host);
    bool loadWindow(const QString& interfaceFile);
    TitleLabel* titleShown() const { return m_title ? m_title : m_titleLabel; }
    void connectParts();
    /// With what follows from it: the close button, and the look of the panel.
    void setHover(Hover hover);

    // Controls of media players and mail.
    bool hasControls() const { return m_iTunes || m_Mail || m_VLC || m_QuickTime; }
    bool areButtonsShown() const;
    void createButtons();
    ImageButton* createButton(const QString& image, const QString& alternate,
                              void (PlayerControls::*action)(ScreenyView&));
    void placeButtons();
    void showButtons();
    void hideButtons();
    void removeButtons();
    QRectF frameOf(const QWidget& part) const;

    // Zoom.
    void armZoom();
    void cancelZoomWatcher();
    void showZoomWindow();
    /// Has the zoomed view show a picture that was not reduced, as soon as there is one.
    void grabWhole();
    void setTimer();
    void invalidateTimer();

    const platform::Desktop& m_ports;
    PreviewHost& m_host;
    SWElementPtr m_elementRef;
    QString m_titleString;

    std::unique_ptr<MAWindow> m_window;
    // Parts of the window; of the two titles a style has one, the other is null.
    PanelBackground* m_background = nullptr;
    PictureButton* m_image = nullptr;
    TitleLabel* m_title = nullptr;
    TitleLabel* m_titleLabel = nullptr;
    ImageButton* m_closeButton = nullptr;
    KeyLabel* m_fastKeyButton = nullptr;
    QPointer<QWidget> m_iCalView;
    BadgeView* m_spaceView = nullptr;                    ///< in the window too
    std::array<ImageButton*, ControlCount> m_controls{}; ///< null unless m_buttonsInitialized
    bool m_buttonsInitialized = false;
    Hover m_hover = Hover::Outside;

    std::shared_ptr<SGHotKey> m_fastKey;

    std::unique_ptr<MAWindow> m_zoomWindow;
    PictureView* m_zoomImageView = nullptr;
    platform::TimerPtr m_zoomUpdateTimer;
    platform::ThreadPtr m_mouseCheckerThread;
    std::shared_ptr<bool> m_zoomWatch; ///< true while m_mouseCheckerThread may show the zoom

    bool m_iTunes = false;
    bool m_Mail = false;
    bool m_QuickTime = false;
    bool m_VLC = false;
    bool m_iCal = false;
    bool m_BusyCal = false;
    bool m_setByTab = false;
    bool m_isPlaying = false;
    QUrl m_calURL;
};

} // namespace lumbrix
