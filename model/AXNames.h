// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The names by which the accessibility interface calls attributes, actions, roles and
// notifications.
#pragma once

#include <QtCore/QString>

namespace lumbrix::AX
{

// Attributes.
inline const QString Children = QStringLiteral("AXChildren");
inline const QString CloseButton = QStringLiteral("AXCloseButton");
inline const QString Description = QStringLiteral("AXDescription");
inline const QString Enabled = QStringLiteral("AXEnabled");
inline const QString Focused = QStringLiteral("AXFocused");
inline const QString FocusedApplication = QStringLiteral("AXFocusedApplication");
inline const QString FocusedUIElement = QStringLiteral("AXFocusedUIElement");
inline const QString FocusedWindow = QStringLiteral("AXFocusedWindow");
inline const QString Frontmost = QStringLiteral("AXFrontmost");
inline const QString Hidden = QStringLiteral("AXHidden");
inline const QString IsApplicationRunning = QStringLiteral("AXIsApplicationRunning");
inline const QString Minimized = QStringLiteral("AXMinimized");
inline const QString Parent = QStringLiteral("AXParent");
inline const QString Position = QStringLiteral("AXPosition");
inline const QString Role = QStringLiteral("AXRole");
inline const QString Rows = QStringLiteral("AXRows");
inline const QString SelectedChildren = QStringLiteral("AXSelectedChildren");
inline const QString Size = QStringLiteral("AXSize");
inline const QString Subrole = QStringLiteral("AXSubrole");
inline const QString Title = QStringLiteral("AXTitle");
inline const QString URL = QStringLiteral("AXURL");
inline const QString Window = QStringLiteral("AXWindow");
inline const QString Windows = QStringLiteral("AXWindows");

// Actions.
inline const QString Press = QStringLiteral("AXPress");
inline const QString Raise = QStringLiteral("AXRaise");

// Roles and subroles.
inline const QString ApplicationRole = QStringLiteral("AXApplication");
inline const QString WindowRole = QStringLiteral("AXWindow");
inline const QString DockItemRole = QStringLiteral("AXDockItem");
inline const QString ApplicationDockItem = QStringLiteral("AXApplicationDockItem");
inline const QString MinimizedWindowDockItem = QStringLiteral("AXMinimizedWindowDockItem");
inline const QString ProcessSwitcherList = QStringLiteral("AXProcessSwitcherList");
inline const QString StandardWindow = QStringLiteral("AXStandardWindow");
inline const QString Dialog = QStringLiteral("AXDialog");
inline const QString SystemDialog = QStringLiteral("AXSystemDialog");
inline const QString FloatingWindow = QStringLiteral("AXFloatingWindow");
inline const QString SystemFloatingWindow = QStringLiteral("AXSystemFloatingWindow");
inline const QString Unknown = QStringLiteral("AXUnknown");

// Notifications.
inline const QString WindowCreated = QStringLiteral("AXWindowCreated");
inline const QString UIElementDestroyed = QStringLiteral("AXUIElementDestroyed");
inline const QString SelectedChildrenChanged = QStringLiteral("AXSelectedChildrenChanged");
inline const QString MenuOpened = QStringLiteral("AXMenuOpened");
inline const QString FocusedUIElementChanged = QStringLiteral("AXFocusedUIElementChanged");

} // namespace lumbrix::AX
