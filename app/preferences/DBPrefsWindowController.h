// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A preferences window: a toolbar with one icon for each pane, of which one is shown at a time.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QPointer>
#include <QtCore/QStringList>
#include <QtWidgets/QWidget>

#include <memory>

#include "app/preferences/PrefsToolbar.h"
#include "app/preferences/ViewAnimation.h"

namespace lumbrix
{

/// Main thread. The window exists while it is on the screen: opening it is rare, and what it takes
/// is better given back.
class DBPrefsWindowController : public QObject
{
    Q_OBJECT

public:
    DBPrefsWindowController();
    ~DBPrefsWindowController() override;

    /// Makes the window and its panes, and shows the first pane, in the middle of the screen and in
    /// front of everything.
    void showWindow();
    /// The same, up to showing it.
    QWidget& loadWindow();
    /// Unknown identifiers, and the pane that is shown already, change nothing.
    void displayViewForIdentifier(const QString& identifier, bool animate);

    /// In the order of the toolbar. Empty while there is no window, as is what follows.
    const QStringList& toolbarIdentifiers() const { return m_toolbarIdentifiers; }
    const QHash<QString, QWidget*>& toolbarViews() const { return m_toolbarViews; }
    const QHash<QString, PrefsToolbarItem*>& getToolbarItems() const { return m_toolbarItems; }
    const QString& currentIdentifier() const { return m_currentIdentifier; }
    QWidget* window() const; ///< null while it is closed
    bool isAnimating() const { return m_viewAnimation.isRunning(); }

    /// Whether panes fade into one another.
    bool crossFade() const { return m_crossFade; }
    void setCrossFade(bool on) { m_crossFade = on; }
    /// Whether they do so slowly while the Shift key is held.
    bool shiftSlowsAnimation() const { return m_shiftSlowsAnimation; }
    void setShiftSlowsAnimation(bool on) { m_shiftSlowsAnimation = on; }

    /// The frame, with title bar and borders, of a window that shows this pane, with its top left
    /// corner where it is now. Toolkit coordinates. Only while there is a window.
    QRect frameForView(const QWidget& view) const;

protected:
    /// Adds the panes, by addView().
    virtual void setupToolbar() = 0;
    /// The pane's identifier is its label in English, and that is the name of its image too;
    /// `label` is the text that is shown.
    void addView(std::unique_ptr<QWidget> view, const QString& identifier, const QString& label);
    /// The panes are there, but not yet shown.
    virtual void windowWillShow() {}
    virtual void currentViewDidChange() {}
    /// The panes are about to go.
    virtual void windowWillClose() {}
    /// Gives up the window and the panes, if there are any. A derived class does so when it goes.
    void closeWindow();

private:
    class Window;

    void windowDidLoad();
    void layOutViews();
    void centerWindow();
    void displayNextView(int step);
    void setFrame(const QRect& frame);
    void crossFadeView(QWidget& oldView, QWidget& newView);
    void animationDidEnd();

    std::unique_ptr<Window> m_window;
    QStringList m_toolbarIdentifiers;
    QHash<QString, QWidget*> m_toolbarViews;          ///< children of the window
    QHash<QString, PrefsToolbarItem*> m_toolbarItems; ///< children of the window
    QString m_currentIdentifier;
    bool m_crossFade = true;
    bool m_shiftSlowsAnimation = false;
    ViewAnimation m_viewAnimation;
    QPointer<CrossFadeView> m_crossFadeView;
};

} // namespace lumbrix
