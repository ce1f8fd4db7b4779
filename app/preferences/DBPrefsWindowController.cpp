// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/preferences/DBPrefsWindowController.h"

#include <QtGui/QCloseEvent>
#include <QtGui/QGuiApplication>
#include <QtGui/QScreen>
#include <QtGui/QShortcut>
#include <QtWidgets/QLayout>

#include <algorithm>

#include "platform/Desktop.h"
#include "platform/InputState.h"
#include "platform/StringLiterals.h"

namespace lumbrix
{
namespace
{
constexpr platform::Seconds animationDuration = 0.25;
constexpr platform::Seconds slowAnimationDuration = 1.25;
} // namespace

/// Holds the toolbar above the subview with the panes. Has a title bar with close and minimise
/// buttons, and a fixed size.
class DBPrefsWindowController::Window final : public QWidget
{
public:
    explicit Window(DBPrefsWindowController& controller)
        : QWidget(nullptr, Qt::Window | Qt::CustomizeWindowHint | Qt::WindowTitleHint |
                               Qt::WindowSystemMenuHint | Qt::WindowMinimizeButtonHint |
                               Qt::WindowCloseButtonHint),
          toolbar(this), contentSubview(this), m_controller(controller)
    {
        setWindowRole(u"preferences"_s);
        setObjectName(u"preferences"_s);
    }

    PrefsToolbar toolbar;
    QWidget contentSubview;

protected:
    void resizeEvent(QResizeEvent*) override
    {
        const int top = toolbar.sizeHint().height();
        toolbar.setGeometry(0, 0, width(), top);
        contentSubview.setGeometry(0, top, width(), std::max(0, height() - top));
    }
    void closeEvent(QCloseEvent* event) override
    {
        event->accept();
        m_controller.m_viewAnimation.finish();
        // Later, because the window must not be destroyed inside its own event handler.
        platform::desktop().runLoop.performAfterDelay(
            &m_controller, 0, [&controller = m_controller] { controller.closeWindow(); });
    }

private:
    DBPrefsWindowController& m_controller;
};

DBPrefsWindowController::DBPrefsWindowController() = default;

DBPrefsWindowController::~DBPrefsWindowController()
{
    platform::desktop().runLoop.cancelPreviousPerformRequests(this);
}

QWidget* DBPrefsWindowController::window() const { return m_window.get(); }

void DBPrefsWindowController::showWindow()
{
    // The window may have just been closed, with its destruction pending.
    platform::desktop().runLoop.cancelPreviousPerformRequests(this);
    m_viewAnimation.finish();
    if (m_window && !m_window->isVisible())
        closeWindow();
    loadWindow();
    m_window->showNormal();
    m_window->raise();
    m_window->activateWindow();
}

QWidget& DBPrefsWindowController::loadWindow()
{
    if (!m_window) {
        windowDidLoad();
        setupToolbar();
        Q_ASSERT_X(!m_toolbarIdentifiers.isEmpty(), Q_FUNC_INFO,
                   "No items were added to the toolbar in -setupToolbar.");
        layOutViews();
        windowWillShow();
    }
    if (!m_toolbarIdentifiers.isEmpty())
        displayViewForIdentifier(m_toolbarIdentifiers.first(), false);
    centerWindow();
    return *m_window;
}

void DBPrefsWindowController::windowDidLoad()
{
    m_window = std::make_unique<Window>(*this);
    connect(&m_window->toolbar, &PrefsToolbar::chosen, this,
            [this](const QString& identifier) { displayViewForIdentifier(identifier, true); });
    const auto addShortcut = [this](const QKeySequence& keys, auto action) {
        auto* shortcut = new QShortcut(keys, m_window.get());
        connect(shortcut, &QShortcut::activated, this, action);
    };
    for (const QKeySequence& keys :
         {QKeySequence(Qt::CTRL | Qt::Key_W), QKeySequence(Qt::Key_Escape)})
        addShortcut(keys, [this] { m_window->close(); });
    for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_PageDown})
        addShortcut(Qt::CTRL | key, [this] { displayNextView(1); });
    addShortcut(Qt::CTRL | Qt::SHIFT | Qt::Key_Backtab, [this] { displayNextView(-1); });
    addShortcut(Qt::CTRL | Qt::Key_PageUp, [this] { displayNextView(-1); });
}

void DBPrefsWindowController::closeWindow()
{
    if (!m_window)
        return;
    m_viewAnimation.finish();
    windowWillClose();
    m_toolbarIdentifiers.clear();
    m_toolbarViews.clear();
    m_toolbarItems.clear();
    m_currentIdentifier.clear();
    m_window.reset();
}

void DBPrefsWindowController::addView(std::unique_ptr<QWidget> view, const QString& identifier,
                                      const QString& label)
{
    Q_ASSERT_X(view, Q_FUNC_INFO,
               "Attempted to add a nil view when calling -addView:label:image:.");
    if (!view)
        return;
    view->setParent(&m_window->contentSubview);
    view->hide();
    m_toolbarIdentifiers.append(identifier);
    m_toolbarViews.insert(identifier, view.release());
    m_toolbarItems.insert(identifier, m_window->toolbar.addItem(identifier, label, identifier));
}

/// All panes get the width of the widest one, so that only the window's height changes.
void DBPrefsWindowController::layOutViews()
{
    int width = m_window->toolbar.sizeHint().width();
    for (const QWidget* view : std::as_const(m_toolbarViews))
        width = std::max(width, view->sizeHint().width());
    for (QWidget* view : std::as_const(m_toolbarViews)) {
        const int height =
            view->hasHeightForWidth() ? view->heightForWidth(width) : view->sizeHint().height();
        view->resize(width, height);
    }
}

/// A little above the middle, where it looks like the middle.
void DBPrefsWindowController::centerWindow()
{
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    const QSize room = screen.size() - m_window->frameGeometry().size();
    m_window->move(screen.topLeft() +
                   QPoint(std::max(0, room.width() / 2), std::max(0, room.height() * 2 / 5)));
}

void DBPrefsWindowController::displayViewForIdentifier(const QString& identifier, bool animate)
{
    QWidget* newView = m_toolbarViews.value(identifier);
    if (!newView || identifier == m_currentIdentifier)
        return;
    m_viewAnimation.finish();
    PrefsToolbarItem& item = *m_toolbarItems.value(identifier);
    item.setChecked(true);
    m_window->setWindowTitle(titleForLabel(item.label()));

    QWidget* oldView = m_toolbarViews.value(m_currentIdentifier);
    const bool isFocusSet = m_window->focusWidget() != nullptr;
    m_currentIdentifier = identifier;
    if (oldView && animate && m_crossFade) {
        crossFadeView(*oldView, *newView);
    } else {
        newView->show();
        if (oldView)
            oldView->hide();
        setFrame(frameForView(*newView));
    }
    // The widget that had the focus is hidden now, or is another item.
    if (isFocusSet)
        item.setFocus(Qt::OtherFocusReason);
    currentViewDidChange();
}

void DBPrefsWindowController::displayNextView(int step)
{
    const auto count = m_toolbarIdentifiers.size();
    const auto index = m_toolbarIdentifiers.indexOf(m_currentIdentifier) + step;
    const QString& next = m_toolbarIdentifiers.at((index + count) % count);
    m_toolbarItems.value(next)->setFocus(Qt::TabFocusReason);
    displayViewForIdentifier(next, true);
}

QRect DBPrefsWindowController::frameForView(const QWidget& view) const
{
    const QRect frame = m_window->frameGeometry();
    const QSize nonContent(frame.width() - m_window->width(),
                           frame.height() - m_window->height() +
                               m_window->toolbar.sizeHint().height());
    return {frame.topLeft(), view.size() + nonContent};
}

/// Set only the size: setting the current position too could move the window if its borders are not
/// known exactly.
void DBPrefsWindowController::setFrame(const QRect& frame)
{
    const QSize borders = m_window->frameGeometry().size() - m_window->size();
    m_window->setFixedSize(frame.size() - borders);
}

void DBPrefsWindowController::crossFadeView(QWidget& oldView, QWidget& newView)
{
    const bool isSlow = m_shiftSlowsAnimation && (platform::desktop().inputState.modifierFlags() &
                                                  platform::ModifierFlag::shift);
    m_crossFadeView = new CrossFadeView(oldView.grab(), newView.grab(), &m_window->contentSubview);
    m_crossFadeView->resize(oldView.size().expandedTo(newView.size()));
    m_crossFadeView->show();
    oldView.hide();
    // Below the fading view, so that it gets mouse and key events at once.
    newView.show();
    newView.stackUnder(m_crossFadeView);

    const QRect from(m_window->frameGeometry());
    const QSize change = frameForView(newView).size() - from.size();
    m_viewAnimation.start(
        isSlow ? slowAnimationDuration : animationDuration,
        [this, from, change](double progress) {
            setFrame({from.topLeft(), from.size() + change * progress});
            m_crossFadeView->setProgress(progress);
        },
        [this] { animationDidEnd(); });
}

void DBPrefsWindowController::animationDidEnd() { delete m_crossFadeView; }

} // namespace lumbrix
