// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// A file dragged by the hand from one window of a real file manager into another, which is to be
// had by its preview alone.
#include "DesktopTest.h"

#include <QtCore/QDir>
#include <QtCore/QFile>
#include <QtCore/QStandardPaths>

namespace lumbrix::privatedesk
{

class DragTest : public DesktopTest
{
protected:
    xcb_window_t open(const QString& folder)
    {
        m_programs.push_back(
            desk().session().start(u"pcmanfm"_s, u"pcmanfm"_s, {u"--new-win"_s, folder}));
        const QByteArray title = QFileInfo(folder).fileName().toUtf8();
        xcb_window_t window = XCB_NONE;
        EXPECT_TRUE(waitUntil([&] { return (window = windowCalled(title)) != XCB_NONE; }, 10000));
        return window;
    }
    xcb_window_t windowCalled(const QByteArray& title)
    {
        for (const std::uint32_t id : display().numbers(display().root(), "_NET_CLIENT_LIST"))
            if (display().bytes(id, "_NET_WM_NAME") == title)
                return id;
        return XCB_NONE;
    }
    /// Where something of that colour is in the window.
    std::optional<QPoint> find(xcb_window_t window, const QColor& colour)
    {
        const auto area = display().geometry(window);
        if (!area)
            return std::nullopt;
        const QImage picture = display().picture(*area & QRect(QPoint(), display().size()));
        const QRect found = pixelsOf(picture, [&](QRgb each) { return each == colour.rgb(); }).box;
        return found.width() < 20 ? std::nullopt : std::optional(area->topLeft() + found.center());
    }
    std::optional<QPoint> icon()
    {
        return desk().dock().iconOf(u"/usr/share/applications/pcmanfm.desktop"_s, XCB_NONE);
    }
    void endPrograms()
    {
        for (auto& program : m_programs)
            program->stop();
        m_programs.clear();
    }

private:
    std::vector<std::unique_ptr<Process>> m_programs;
};

/// Of its own: after a drag over it, the dock does not show its tooltip as it did before.
DeskOptions ownDesk()
{
    DeskOptions options = plank();
    options.name += "_drag";
    return options;
}

INSTANTIATE_TEST_SUITE_P(, DragTest, testing::Values(ownDesk()), deskName);

TEST_P(DragTest, file_ofAFileManager_isDroppedIntoAWindowByWayOfItsPreview)
{
    if (QStandardPaths::findExecutable(u"pcmanfm"_s).isEmpty())
        GTEST_SKIP() << "pcmanfm is not installed";
    const QString from = desk().session().path(u"drag/source"_s);
    const QString to = desk().session().path(u"drag/target"_s);
    ASSERT_TRUE(QDir().mkpath(from) && QDir().mkpath(to));
    QImage card(128, 128, QImage::Format_RGB32);
    card.fill(Qt::magenta);
    ASSERT_TRUE(card.save(from + u"/card.png"_s));
    const xcb_window_t target = open(to);
    const xcb_window_t source = open(from);
    display().request(target, "WM_CHANGE_STATE", {3});
    ASSERT_TRUE(waitUntil([&] { return display().isMinimised(target); }));
    std::optional<QPoint> file;
    ASSERT_TRUE(waitUntil([&] { return (file = find(source, Qt::magenta)).has_value(); }, 10000));
    std::optional<QPoint> item;
    ASSERT_TRUE(waitUntil([&] { return (item = icon()).has_value(); }, 10000));

    display().moveTo(*file);
    display().press();
    display().moveTo(*item);
    ASSERT_TRUE(waitUntil([&] { return preview("target") && preview("source"); }));
    savePicture("row");
    moveToPreview("target");
    EXPECT_TRUE(waitUntil([&] { return !display().isMinimised(target); }));
    EXPECT_TRUE(waitUntil([&] { return display().activeWindow() == target; }));
    display().moveTo(display().geometry(target).value_or(QRect()).center());
    EXPECT_TRUE(showsNothing());
    savePicture("drop");
    display().release();
    EXPECT_TRUE(waitUntil([&] { return QFile::exists(to + u"/card.png"_s); }));
    endPrograms();
}

} // namespace lumbrix::privatedesk
