// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A preferences window: a toolbar with one icon for each pane. One pane is shown at a time.
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

/// Main thread. The window exists only while it is on the screen: it is rarely opened, so its
/// memory is freed.
class DBPrefsWindowController : public QObject
{
    Q_OBJECT

public:
    DBPrefsWindowController();
    ~DBPrefsWindowController() override;

    /// Creates the window and its panes and shows the first pane, centred on the screen and in
    /// front of everything.
    void showWindow();
    /// Like showWindow(), but does not show the window.
    QWidget& loadWindow();
    /// Does nothing for an unknown identifier and for the pane that is already shown.
    void displayViewForIdentifier(const QString& identifier, bool animate);

    /// In the order of the toolbar. These are all empty while there is no window.
    const QStringList& toolbarIdentifiers() const { return m_toolbarIdentifiers; }
    const QHash<QString, QWidget*>& toolbarViews() const { return m_toolbarViews; }
    const QHash<QString, PrefsToolbarItem*>& getToolbarItems() const { return m_toolbarItems; }
    const QString& currentIdentifier() const { return m_currentIdentifier; }
    QWidget* window() const; ///< null while it is closed
    bool isAnimating() const { return m_viewAnimation.isRunning(); }

    /// Whether panes fade into one another.
    bool crossFade() const { return m_crossFade; }
    void setCrossFade(bool on) { m_crossFade = on; }
    /// Whether holding the Shift key slows the fade.
    bool shiftSlowsAnimation() const { return m_shiftSlowsAnimation; }
    void setShiftSlowsAnimation(bool on) { m_shiftSlowsAnimation = on; }

    /// The frame, with title bar and borders, that the window needs for this pane; its top left
    /// corner stays where it is. Toolkit coordinates. Only while there is a window.
    QRect frameForView(const QWidget& view) const;

protected:
    /// Must add the panes, by addView().
    virtual void setupToolbar() = 0;
    /// The identifier is the English label and also the name of the pane's image; `label` is the
    /// text shown.
    void addView(std::unique_ptr<QWidget> view, const QString& identifier, const QString& label);
    /// Called when the panes have been added but are not shown yet.
    virtual void windowWillShow() {}
    virtual void currentViewDidChange() {}
    /// The window's title while the pane with this label is shown.
    virtual QString titleForLabel(const QString& label) const { return label; }
    /// Called before the panes are destroyed.
    virtual void windowWillClose() {}
    /// Destroys the window and the panes, if they exist. A derived class must call it in its
    /// destructor.
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
