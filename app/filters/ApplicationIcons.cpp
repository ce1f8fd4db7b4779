// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/filters/ApplicationIcons.h"

#include <QtCore/QStringList>
#include <QtGui/QGuiApplication>

#include <cmath>
#include <mutex>

#include "platform/Desktop.h"
#include "platform/RunLoop.h"
#include "platform/StringLiterals.h"
#include "platform/Workspace.h"
#include "preview/NamedImage.h"

namespace lumbrix
{

/// Shared with the thread, which may still be reading a file when the icons are destroyed.
struct ApplicationIcons::Queue {
    std::mutex mutex;
    QStringList wanted;                ///< guarded
    bool hasThread = false;            ///< guarded; it will look at `wanted` again
    ApplicationIcons* owner = nullptr; ///< main thread

    /// The next icon to read; empty when the thread must end.
    std::optional<QString> next()
    {
        const std::lock_guard lock(mutex);
        hasThread = !wanted.isEmpty();
        return hasThread ? std::optional(wanted.takeFirst()) : std::nullopt;
    }
    /// Returns true if the caller must start a thread.
    bool add(const QString& bundleIdentifier)
    {
        const std::lock_guard lock(mutex);
        wanted.append(bundleIdentifier);
        return !std::exchange(hasThread, true);
    }
    void clear()
    {
        const std::lock_guard lock(mutex);
        wanted.clear();
    }
};

ApplicationIcons::ApplicationIcons()
    : m_pixels(static_cast<int>(std::ceil(size * qGuiApp->devicePixelRatio()))),
      m_queue(std::make_shared<Queue>())
{
    m_queue->owner = this;
}

ApplicationIcons::~ApplicationIcons()
{
    m_queue->owner = nullptr;
    m_queue->clear();
}

QIcon ApplicationIcons::icon(const QString& bundleIdentifier)
{
    const auto known = m_icons.constFind(bundleIdentifier);
    if (known != m_icons.constEnd())
        return *known;
    QPixmap empty(size, size);
    empty.fill(Qt::transparent);
    QIcon icon = *m_icons.insert(bundleIdentifier, QIcon(empty));
    if (!m_queue->add(bundleIdentifier))
        return icon;
    const auto read = [queue = m_queue, pixels = m_pixels](const platform::Thread& self) {
        const platform::Desktop& desktop = platform::desktop();
        while (const auto identifier = self.isCancelled() ? std::nullopt : queue->next()) {
            const QImage picture = desktop.workspace.applicationIcon(*identifier, pixels);
            desktop.runLoop.performOnMainThread(
                [queue, identifier = *identifier, picture] {
                    if (queue->owner)
                        queue->owner->take(identifier, picture);
                },
                false);
        }
    };
    platform::desktop().runLoop.detachThread("application-icons", read);
    return icon;
}

void ApplicationIcons::take(const QString& bundleIdentifier, const QImage& picture)
{
    const qreal scale = qGuiApp->devicePixelRatio();
    QPixmap pixmap = picture.isNull() ? namedPixmap(u"anyApp"_s, {size, size}, scale)
                                      : QPixmap::fromImage(picture);
    pixmap.setDevicePixelRatio(scale);
    m_icons.insert(bundleIdentifier, QIcon(pixmap));
    Q_EMIT loaded(bundleIdentifier);
}

} // namespace lumbrix
