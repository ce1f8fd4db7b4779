// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The icons of applications, read on a thread so that no icon file, whatever is in it, can block
// the user interface.
#pragma once

#include <QtCore/QHash>
#include <QtCore/QObject>
#include <QtGui/QIcon>

#include <memory>

namespace lumbrix
{

/// Main thread.
class ApplicationIcons final : public QObject
{
    Q_OBJECT

public:
    static constexpr int size = 32; ///< points, width and height

    ApplicationIcons();
    ~ApplicationIcons() override;

    /// The application's icon. An empty picture of that size until the icon has been read; a
    /// generic one for an application without an icon.
    QIcon icon(const QString& bundleIdentifier);

Q_SIGNALS:
    void loaded(const QString& bundleIdentifier);

private:
    struct Queue;

    void take(const QString& bundleIdentifier, const QImage& picture);

    const int m_pixels;
    QHash<QString, QIcon> m_icons;
    const std::shared_ptr<Queue> m_queue;
};

} // namespace lumbrix
