// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The raw values of one client window's properties, and the snapshot derived from them. One table
// says which property sets which field.
#pragma once

#include <QtCore/QMargins>

#include <xcb/xcb.h>

#include <cstdint>
#include <optional>
#include <span>

#include "platform/linux/x11/Atoms.h"
#include "platform/linux/x11/TrackedWindow.h"

namespace lumbrix::platform::x11
{

/// Event thread only.
struct WindowRecord {
    xcb_window_t id = XCB_NONE;
    bool isGone = false;
    std::uint32_t dirty = ~0U; ///< what to fetch: bits of the property rows, and geometryBit

    xcb_window_t frame = XCB_NONE;
    QRect frameRect;  ///< with its X border, root pixels
    QRect clientRect; ///< inside the frame; used while `frame` is another window
    bool isMapped = false;

    std::optional<QString> netName;
    std::optional<QString> wmName;
    QString classInstance;
    QString className;
    std::optional<std::int32_t> pidProperty;
    std::optional<std::int32_t> clientPid; ///< of the client that made the window
    std::optional<WindowType> listedType;
    bool skipTaskbar = false;
    bool skipSwitcher = false;
    bool isModal = false;
    bool isHidden = false;
    bool isShaded = false;
    bool isFullscreen = false;
    bool isWmStateIconic = false;
    bool canDelete = false;
    bool canPing = false;
    int desktop = -1;
    bool isOnAllDesktops = false;
    xcb_window_t transientFor = XCB_NONE;
    std::optional<QRect> iconGeometry;
    std::uint64_t iconGeometrySerial = 0;
    std::int64_t iconGeometryTime = 0;
    std::optional<QMargins> clientDrawnExtents; ///< invisible: shadows and the like
    std::optional<QMargins> frameExtents;       ///< visible: title bar and borders
    std::optional<QMargins> partialStrut;
    std::optional<QMargins> plainStrut; ///< of the older property
    int resizeStep = 0;
    bool hasDockRows = false; ///< those rows have been fetched
    bool isResponding = true;

    bool isDock() const { return listedType == WindowType::Dock; }
    TrackedWindowPtr published;
};

/// A property as returned by the server; any part of it may be invalid.
struct PropertyValue {
    const xcb_get_property_reply_t* reply = nullptr;

    bool exists() const { return reply && reply->type != XCB_NONE; }
    std::span<const char> bytes() const;          ///< empty unless in format 8
    std::span<const std::uint32_t> longs() const; ///< empty unless in format 32
};

struct PropertyRow {
    AtomName atom;          ///< Count when `predefined` is set
    xcb_atom_t predefined;  ///< an atom every server has
    std::uint32_t maxLongs; ///< how much of it is fetched, in units of four bytes
    void (*apply)(WindowRecord&, const PropertyValue&, const Atoms&);
    bool isOfDocks = false; ///< fetched of docks only

    xcb_atom_t atomId(const Atoms& atoms) const { return predefined ? predefined : atoms[atom]; }
};

std::span<const PropertyRow> propertyRows();
/// Bit of the row in WindowRecord::dirty; 0 when no row wants this property.
std::uint32_t dirtyBitOf(xcb_atom_t property, const Atoms& atoms);
inline constexpr std::uint32_t geometryBit = 1U << 31;
/// The bits of the rows that are fetched of docks only.
std::uint32_t dockBits();
/// The row whose fetch shows that there is no process id.
std::uint32_t pidBit();

/// What the derivation must know about the window manager.
struct ManagerTraits {
    bool hasHiddenState = false; ///< it announces _NET_WM_STATE_HIDDEN
    int currentDesktop = 0;
    bool composesDecorations = false; ///< no window's pixmap has them
};

TrackedWindow snapshotOf(const WindowRecord& record, const ManagerTraits& manager);

/// What the numbers of _NET_WM_STRUT_PARTIAL or _NET_WM_STRUT say; null when they are too few.
std::optional<QMargins> strutIn(std::span<const std::uint32_t> numbers);
/// The list of a _NET_WM_WINDOW_TYPE property: the first entry that is known decides.
std::optional<WindowType> windowTypeOf(std::span<const std::uint32_t> types, const Atoms& atoms);

} // namespace lumbrix::platform::x11
