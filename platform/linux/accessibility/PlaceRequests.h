// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Requests of other programs for rows of previews: checking them, and noticing when the pointer
// ends one.
#pragma once

#include <QtCore/QRect>
#include <QtCore/QString>

#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <vector>

#include "platform/MainThreadGuard.h"
#include "platform/PreviewRequests.h"
#include "platform/RunLoop.h"
#include "platform/linux/applications/ApplicationRegistry.h"
#include "platform/linux/applications/DesktopEntries.h"
#include "platform/linux/docks/DockModel.h"
#include "platform/linux/x11/PointSpace.h"

namespace lumbrix::platform
{

/// The requested place of a row, unchecked: it may contain anything.
struct RequestedPlace {
    int x = 0; ///< root pixels, as are the others
    int y = 0;
    int width = 0;
    int height = 0;
    QString edge; ///< of the screen: "bottom", "top", "left" or "right"
};

/// Why a request failed.
struct RequestError {
    enum class Kind { InvalidArguments, Disabled, NothingToShow };
    Kind kind = Kind::InvalidArguments;
    QString message; ///< for a developer, in English
};

/// Main thread, except for the listener's part, which runs on the event thread.
class PlaceRequests final : public PreviewRequests, public x11::WindowListener
{
public:
    struct Parts {
        RunLoop& runLoop;
        x11::WindowTracker& tracker;
        const x11::PointSpace& space;
        ApplicationRegistry& registry;
        DesktopEntries& entries;
        DockModel& docks;
        std::function<QPoint()> pointer; ///< current position, root pixels
    };
    static constexpr std::size_t maxWindows = 15; ///< the maximum in a row

    explicit PlaceRequests(Parts parts) : m(std::move(parts)) {}

    /// A requested row has ended. If another one replaces it, this is called before that request
    /// returns.
    void setEnded(std::function<void()> ended) { m_ended = std::move(ended); }

    // Null = the row is shown, instead of any other. Otherwise nothing has changed.
    std::optional<RequestError> showForApplication(const QString& entryId,
                                                   const RequestedPlace& place);
    std::optional<RequestError> showForWindows(const std::vector<std::uint32_t>& windows,
                                               const RequestedPlace& place);
    void hide();    ///< does nothing without a row
    void abandon(); ///< the caller has gone; does nothing without a row

    void setHost(Host* host) override { m_host = host; }
    void rowEnded(const ElementRef& item) override;

    void pointerMoved(QPoint point, xcb_window_t childOfRoot) override;

private:
    /// Returns what is wrong with it, or fills in the item's position and the edge.
    std::optional<RequestError> readPlace(const RequestedPlace& place, DockState& state) const;
    std::optional<RequestError> show(const std::shared_ptr<DockState>& state);
    void pointerLeft(DockItemId id);

    const Parts m;
    const MainThreadGuard m_guard;
    Host* m_host = nullptr;
    DockItemId m_current = 0; ///< 0 = there is no row
    std::function<void()> m_ended;

    std::mutex m_mutex;
    DockItemId m_watched = 0; // this and what follows guarded by m_mutex; 0 = none
    QRect m_place;
    bool m_isPointerOn = false;
};

} // namespace lumbrix::platform
