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

/// Main thread. Shown while there is a status bar, including one that starts later.
class StatusItem final : public QObject
{
    Q_OBJECT

public:
    /// The menu opens on a click with any button. The status bar draws it if it can.
    explicit StatusItem(std::unique_ptr<QMenu> menu);
    ~StatusItem() override;

    QMenu& menu() { return *m_menu; }
    /// Names of the program's pictures: the normal one, and the one shown while the menu is open.
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
    std::unique_ptr<QSystemTrayIcon> m_icon; ///< null until there has been a status bar
};

} // namespace lumbrix
