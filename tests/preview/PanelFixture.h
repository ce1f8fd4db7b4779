// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QtWidgets/QAbstractButton>

#include "preview/NamedImage.h"
#include "preview/ScreenyView.h"
#include "tests/preview/PanelHost.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{

/// Previews of windows of an application, on screen or about to be.
class PanelFixture : public DesktopFixture
{
protected:
    ScreenyViewPtr load(const QString& style = u"ScreenyView"_s)
    {
        ScreenyViewPtr preview = ScreenyView::load(ports(), style, host);
        host.previews.push_back(preview);
        preview->window()->setFrame({0, 20, 243, 190});
        return preview;
    }
    ScreenyViewPtr preview(const QRectF& frame, int space = 1,
                           const QString& style = u"ScreenyView"_s)
    {
        ScreenyViewPtr preview = load(style);
        const WindowID window = desk.addWindow(pid, {.title = u"A window"_s, .space = space});
        auto element = std::make_shared<SWElement>(ports(), desk.windowElement(window));
        element->setPid(pid);
        element->setWid(window);
        preview->setElementRef(element);
        preview->window()->setFrame(frame);
        return preview;
    }
    /// Whether the toolkit has it on the screen; to the panel it is in front while it is held.
    static bool isOnScreen(const QWidget& panel) { return panel.isVisible(); }

    PanelHost host;
    const Pid pid = desk.addApplication({u"Editor"_s});
};

/// A picture of one colour.
inline QImage picture(QSize size = {600, 400}, const QColor& colour = Qt::darkCyan)
{
    QImage image(size, QImage::Format_RGB32);
    image.fill(colour);
    return image;
}

/// One preview at a time, and what it does.
class Panel : public PanelFixture
{
protected:
    /// A preview of a window, tracked and on screen.
    ScreenyViewPtr show(bool closable = true)
    {
        ScreenyViewPtr preview = load();
        window = desk.addWindow(
            pid, {.title = u"A window"_s, .frame = {200, 100, 600, 400}, .isClosable = closable});
        element = std::make_shared<SWElement>(ports(), desk.windowElement(window));
        element->setPid(pid);
        element->setScreenshot({picture(), true});
        preview->setElementRef(element);
        preview->setImage(element->screenshot());
        preview->setTrackingRect();
        preview->orderFront();
        return preview;
    }
    static QWidget* part(const ScreenyViewPtr& preview, const char* name)
    {
        return preview->window()->findChild<QWidget*>(QString::fromLatin1(name));
    }
    /// The names of the control pictures that are shown.
    static QStringList controls(const ScreenyViewPtr& preview)
    {
        expectDrawings(*preview->window());
        QStringList names;
        for (const QAbstractButton* button :
             preview->contentView()->findChildren<QAbstractButton*>())
            if (button->objectName().isEmpty() && !button->isHidden())
                names += button->property("imageName").toString();
        return names;
    }
    /// That each drawing that a part names, to be drawn now or at some time, is there: one that is
    /// not leaves a hole, and nothing else reports it.
    static void expectDrawings(const QWidget& panel)
    {
        for (const QWidget* each : panel.findChildren<QWidget*>()) {
            for (const char* state :
                 {"imageName", "hoverImageName", "pressedImageName", "disabledImageName"}) {
                const QString name = each->property(state).toString();
                EXPECT_TRUE(name.isEmpty() || !namedImage(name).isNull()) << qPrintable(name);
            }
        }
    }
    /// What the workspace was told since the last time.
    void expectCommands(const char* what, const QStringList& expected)
    {
        loop.runUntilIdle();
        const auto commands =
            desk.with([](SimulatedState& state) { return std::exchange(state.commands, {}); });
        EXPECT_EQ(QStringList(commands.begin(), commands.end()).join(u"; "), expected.join(u"; "))
            << what;
    }

    WindowID window = 0; ///< of the preview shown last, as is the element
    SWElementPtr element;
    /// Raising a window ends with activating its application, and is done twice.
    const QStringList raised{u"activate %1 2"_s.arg(pid), u"activate %1 2"_s.arg(pid)};
};

} // namespace lumbrix::test
