// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The small entry beside a row that has no room for all windows.
#pragma once

#include <QtCore/QRectF>
#include <QtCore/QSizeF>

#include <cstddef>
#include <memory>

#include "platform/Desktop.h"

namespace lumbrix
{

class DBOverlayWindow;
class KeyLabel;
class PreviewHost;
class ScreenyView;

/// Main thread. "+5 more"; a click has the host show those.
class MoreEntry
{
public:
    static constexpr QSizeF size{92, 30}; ///< points

    /// Both outlive it.
    MoreEntry(const platform::Desktop& ports, PreviewHost& host);
    ~MoreEntry();
    MoreEntry(const MoreEntry&) = delete;
    MoreEntry& operator=(const MoreEntry&) = delete;

    /// Tells of so many windows there (screen coordinates), in the style of that preview of the
    /// row; hides for none.
    void show(std::size_t count, const QRectF& frame, const ScreenyView& neighbour);
    void hide();
    /// Screen coordinates; empty while it is hidden.
    QRectF frame() const;
    QString text() const; ///< empty while it is hidden
    void click();

private:
    bool load();

    const platform::Desktop& m_ports;
    PreviewHost& m_host;
    std::unique_ptr<DBOverlayWindow> m_window; ///< null until first needed
    KeyLabel* m_label = nullptr;               ///< in it
};

} // namespace lumbrix
