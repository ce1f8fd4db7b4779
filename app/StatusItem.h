// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The program's item in the status bar: a picture with a menu.
#pragma once

#include <QtCore/QObject>
#include <QtCore/QString>

#include <memory>

class QMenu;
class QSystemTrayIcon;

namespace lumbrix
{

/// Main thread. It is on the screen while there is a status bar; one that comes later gets it too.
class StatusItem final : public QObject
{
    Q_OBJECT

public:
    /// Opens on a click with any button, and is drawn by the status bar where that can.
    explicit StatusItem(std::unique_ptr<QMenu> menu);
    ~StatusItem() override;

    QMenu& menu() { return *m_menu; }
    /// Pictures of the program, by name: the usual one, and the one while the menu is open.
    void setImages(const QString& image, const QString& alternateImage);
    void setToolTip(const QString& text);
    const QString& image() const { return m_image; } ///< as last set

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    void statusBarChanged();
    void clicked();
    void updateIcon();

    const std::unique_ptr<QMenu> m_menu;
    QString m_image;
    QString m_alternateImage;
    QString m_toolTip;
    bool m_isHighlighted = false;
    std::unique_ptr<QSystemTrayIcon> m_icon; ///< null until there was a status bar
};

} // namespace lumbrix
