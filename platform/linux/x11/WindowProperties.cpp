// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "platform/linux/x11/WindowProperties.h"

#include "platform/linux/x11/PropertyText.h"

#include <algorithm>
#include <array>

namespace lumbrix::platform::x11
{
namespace
{

constexpr std::uint32_t iconicState = 3; // of WM_STATE
constexpr std::uint32_t hintLongs = 18;  // of WM_NORMAL_HINTS

QByteArrayView view(std::span<const char> bytes)
{
    return {bytes.data(), static_cast<qsizetype>(bytes.size())};
}

/// Other programs may write anything. Values are limited to the range of X11 coordinates, so that
/// sums cannot overflow.
int coordinate(std::uint32_t value) { return std::clamp(static_cast<int>(value), -0x8000, 0x7fff); }

int extent(std::uint32_t value) { return std::clamp(static_cast<int>(value), 0, 0xffff); }

std::optional<QMargins> marginsOf(const PropertyValue& value)
{
    const auto longs = value.longs();
    if (longs.size() < 4)
        return std::nullopt;
    constexpr int maxLength = 0x1000;
    return QMargins(std::min(extent(longs[0]), maxLength), std::min(extent(longs[2]), maxLength),
                    std::min(extent(longs[1]), maxLength), std::min(extent(longs[3]), maxLength));
}

void applyNetName(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    record.netName.reset();
    if (value.exists())
        record.netName = decodeText(view(value.bytes()), TextEncoding::Utf8);
}

void applyWmName(WindowRecord& record, const PropertyValue& value, const Atoms& atoms)
{
    record.wmName.reset();
    if (!value.exists())
        return;
    const TextEncoding encoding =
        value.reply->type == atoms[AtomName::Utf8String]     ? TextEncoding::Utf8
        : value.reply->type == atoms[AtomName::CompoundText] ? TextEncoding::CompoundText
                                                             : TextEncoding::Latin1;
    record.wmName = decodeText(view(value.bytes()), encoding);
}

void applyClass(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    const QByteArrayView bytes = view(value.bytes());
    const auto end = std::find(bytes.begin(), bytes.end(), '\0');
    const QByteArrayView rest =
        end == bytes.end() ? QByteArrayView() : bytes.sliced(end - bytes.begin() + 1);
    record.classInstance = decodeText(bytes, TextEncoding::Utf8);
    record.className = decodeText(rest, TextEncoding::Utf8);
}

void applyPid(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    const auto longs = value.longs();
    record.pidProperty.reset();
    if (!longs.empty() && longs[0] > 0 && longs[0] <= 0x7fffffff)
        record.pidProperty = static_cast<std::int32_t>(longs[0]);
}

void applyType(WindowRecord& record, const PropertyValue& value, const Atoms& atoms)
{
    record.listedType = windowTypeOf(value.longs(), atoms);
}

void applyState(WindowRecord& record, const PropertyValue& value, const Atoms& atoms)
{
    const auto longs = value.longs();
    const auto has = [&](AtomName name) {
        return std::find(longs.begin(), longs.end(), atoms[name]) != longs.end();
    };
    record.isHidden = has(AtomName::NetWmStateHidden);
    record.isShaded = has(AtomName::NetWmStateShaded);
    record.isFullscreen = has(AtomName::NetWmStateFullscreen);
    record.skipTaskbar = has(AtomName::NetWmStateSkipTaskbar);
    record.skipSwitcher = has(AtomName::KdeNetWmStateSkipSwitcher);
    record.isModal = has(AtomName::NetWmStateModal);
}

void applyWmState(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    const auto longs = value.longs();
    record.isWmStateIconic = !longs.empty() && longs[0] == iconicState;
}

void applyProtocols(WindowRecord& record, const PropertyValue& value, const Atoms& atoms)
{
    const auto longs = value.longs();
    const auto has = [&](AtomName name) {
        return std::find(longs.begin(), longs.end(), atoms[name]) != longs.end();
    };
    record.canDelete = has(AtomName::WmDeleteWindow);
    record.canPing = has(AtomName::NetWmPing);
}

void applyDesktop(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    const auto longs = value.longs();
    record.desktop = !longs.empty() && longs[0] < 0x10000 ? static_cast<int>(longs[0]) : -1;
    record.isOnAllDesktops = !longs.empty() && longs[0] == 0xFFFFFFFF;
}

void applyTransientFor(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    const auto longs = value.longs();
    record.transientFor = longs.empty() ? XCB_NONE : longs[0];
}

void applyIconGeometry(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    const auto longs = value.longs();
    record.iconGeometry.reset();
    if (longs.size() >= 4)
        record.iconGeometry =
            QRect(coordinate(longs[0]), coordinate(longs[1]), extent(longs[2]), extent(longs[3]));
}

void applyGtkExtents(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    record.clientDrawnExtents = marginsOf(value);
}

void applyFrameExtents(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    record.frameExtents = marginsOf(value);
}

void applyPartialStrut(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    record.partialStrut = strutIn(value.longs());
}

void applyStrut(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    record.plainStrut = strutIn(value.longs());
}

void applyNormalHints(WindowRecord& record, const PropertyValue& value, const Atoms&)
{
    constexpr std::uint32_t resizeIncrementIsSet = 1U << 6;
    const auto hints = value.longs();
    const bool hasStep = hints.size() == hintLongs && (hints[0] & resizeIncrementIsSet) != 0 &&
                         hints[9] == hints[10];
    record.resizeStep = hasStep ? extent(hints[9]) : 0;
}

constexpr std::uint32_t titleLongs = maxTitleLength; // four bytes each: the longest UTF-8
constexpr std::uint32_t listLongs = 64;
constexpr std::size_t pidRow = 3;
constexpr std::array rowTable{
    PropertyRow{AtomName::NetWmName, XCB_NONE, titleLongs, applyNetName},
    PropertyRow{AtomName::Count, XCB_ATOM_WM_NAME, titleLongs, applyWmName},
    PropertyRow{AtomName::Count, XCB_ATOM_WM_CLASS, 256, applyClass},
    PropertyRow{AtomName::NetWmPid, XCB_NONE, 1, applyPid},
    PropertyRow{AtomName::NetWmWindowType, XCB_NONE, listLongs, applyType},
    PropertyRow{AtomName::NetWmState, XCB_NONE, listLongs, applyState},
    PropertyRow{AtomName::WmState, XCB_NONE, 1, applyWmState},
    PropertyRow{AtomName::WmProtocols, XCB_NONE, listLongs, applyProtocols},
    PropertyRow{AtomName::NetWmDesktop, XCB_NONE, 1, applyDesktop},
    PropertyRow{AtomName::Count, XCB_ATOM_WM_TRANSIENT_FOR, 1, applyTransientFor},
    PropertyRow{AtomName::NetWmIconGeometry, XCB_NONE, 4, applyIconGeometry},
    PropertyRow{AtomName::GtkFrameExtents, XCB_NONE, 4, applyGtkExtents},
    PropertyRow{AtomName::NetFrameExtents, XCB_NONE, 4, applyFrameExtents},
    PropertyRow{AtomName::NetWmStrutPartial, XCB_NONE, 4, applyPartialStrut, true},
    PropertyRow{AtomName::NetWmStrut, XCB_NONE, 4, applyStrut, true},
    PropertyRow{AtomName::Count, XCB_ATOM_WM_NORMAL_HINTS, hintLongs, applyNormalHints, true},
};
static_assert(rowTable[pidRow].atom == AtomName::NetWmPid);
static_assert(rowTable.size() < 31);

QMargins withoutNegative(const QMargins& margins)
{
    return {std::max(0, margins.left()), std::max(0, margins.top()), std::max(0, margins.right()),
            std::max(0, margins.bottom())};
}

/// Of the frame; none of a shaded window, which shows nothing but its frame.
QMargins marginsAroundClient(const WindowRecord& record)
{
    if (record.frame == record.id || record.isShaded)
        return {};
    const QRect& client = record.clientRect;
    return {client.x(), client.y(), record.frameRect.width() - client.x() - client.width(),
            record.frameRect.height() - client.y() - client.height()};
}

/// The invisible part of the frame: shadows drawn by the client, or the wide invisible resize
/// borders of some window managers.
QMargins invisibleMargins(const WindowRecord& record)
{
    if (record.clientDrawnExtents)
        return *record.clientDrawnExtents;
    if (!record.frameExtents)
        return {};
    return withoutNegative(marginsAroundClient(record) - *record.frameExtents);
}

/// Some window managers give windows of other desktops, and shaded ones, the iconic state of
/// ICCCM; the extended hints then tell what is really minimised.
bool isIconic(const WindowRecord& record, const ManagerTraits& manager)
{
    if (manager.hasHiddenState)
        return record.isHidden && !(record.isShaded && !record.isWmStateIconic);
    const bool isElsewhere = record.desktop >= 0 && record.desktop != manager.currentDesktop;
    return record.isHidden || (record.isWmStateIconic && !record.isShaded && !isElsewhere);
}

} // namespace

std::span<const char> PropertyValue::bytes() const
{
    if (!exists() || reply->format != 8)
        return {};
    return {static_cast<const char*>(xcb_get_property_value(reply)),
            static_cast<std::size_t>(xcb_get_property_value_length(reply))};
}

std::span<const std::uint32_t> PropertyValue::longs() const
{
    if (!exists() || reply->format != 32)
        return {};
    return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply)),
            static_cast<std::size_t>(xcb_get_property_value_length(reply)) / 4};
}

std::span<const PropertyRow> propertyRows() { return rowTable; }

std::uint32_t dirtyBitOf(xcb_atom_t property, const Atoms& atoms)
{
    for (std::size_t i = 0; i < rowTable.size(); ++i)
        if (rowTable[i].atomId(atoms) == property)
            return 1U << i;
    return 0;
}

std::uint32_t dockBits()
{
    std::uint32_t bits = 0;
    for (std::size_t i = 0; i < rowTable.size(); ++i)
        bits |= rowTable[i].isOfDocks ? 1U << i : 0;
    return bits;
}

std::uint32_t pidBit() { return 1U << pidRow; }

std::optional<QMargins> strutIn(std::span<const std::uint32_t> numbers)
{
    if (numbers.size() < 4)
        return std::nullopt;
    const auto side = [&](std::size_t i) {
        return static_cast<int>(std::min<std::uint32_t>(numbers[i], 0x7fff));
    };
    return QMargins(side(0), side(2), side(1), side(3));
}

std::optional<WindowType> windowTypeOf(std::span<const std::uint32_t> types, const Atoms& atoms)
{
    struct Row {
        AtomName name;
        WindowType type;
    };
    constexpr std::array rows{
        Row{AtomName::NetWmWindowTypeNormal, WindowType::Normal},
        Row{AtomName::NetWmWindowTypeDialog, WindowType::Dialog},
        Row{AtomName::NetWmWindowTypeUtility, WindowType::Utility},
        Row{AtomName::NetWmWindowTypeToolbar, WindowType::Toolbar},
        Row{AtomName::NetWmWindowTypeSplash, WindowType::Splash},
        Row{AtomName::NetWmWindowTypeDock, WindowType::Dock},
        Row{AtomName::NetWmWindowTypeDesktop, WindowType::Desktop},
        Row{AtomName::NetWmWindowTypeMenu, WindowType::Other},
        Row{AtomName::NetWmWindowTypeDropdownMenu, WindowType::Other},
        Row{AtomName::NetWmWindowTypePopupMenu, WindowType::Other},
        Row{AtomName::NetWmWindowTypeTooltip, WindowType::Other},
        Row{AtomName::NetWmWindowTypeNotification, WindowType::Other},
    };
    for (const std::uint32_t type : types) {
        for (const Row& row : rows)
            if (type == atoms[row.name])
                return row.type;
    }
    return std::nullopt;
}

TrackedWindow snapshotOf(const WindowRecord& record, const ManagerTraits& manager)
{
    TrackedWindow window;
    window.id = record.id;
    window.frame = record.frame;
    window.frameBounds = record.frameRect;
    const QMargins invisible = invisibleMargins(record);
    if (manager.composesDecorations)
        window.decorations = withoutNegative(marginsAroundClient(record) - invisible);
    window.bounds = record.frameRect.marginsRemoved(invisible + window.decorations);
    if (window.bounds.isEmpty()) {
        window.bounds = record.frameRect;
        window.decorations = {};
    }
    window.title = record.netName ? *record.netName : record.wmName.value_or(QString());
    window.classInstance = record.classInstance;
    window.className = record.className;
    window.pid = record.pidProperty ? record.pidProperty : record.clientPid;
    window.transientFor = record.transientFor;
    window.type =
        record.listedType.value_or(record.transientFor ? WindowType::Dialog : WindowType::Normal);
    window.skipTaskbar = record.skipTaskbar;
    window.skipSwitcher = record.skipSwitcher;
    window.isModal = record.isModal;
    window.isIconic = isIconic(record, manager);
    window.isFullscreen = record.isFullscreen;
    window.isMapped = record.isMapped;
    window.canDelete = record.canDelete;
    window.desktop = record.desktop;
    window.isOnAllDesktops = record.isOnAllDesktops;
    window.iconGeometry = record.iconGeometry;
    window.iconGeometrySerial = record.iconGeometrySerial;
    window.iconGeometryTime = record.iconGeometryTime;
    if (record.isDock()) {
        window.strut = record.partialStrut ? record.partialStrut : record.plainStrut;
        window.resizeStep = record.resizeStep;
    }
    window.isResponding = record.isResponding;
    return window;
}

} // namespace lumbrix::platform::x11
