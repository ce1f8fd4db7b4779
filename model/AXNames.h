// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The accessibility interface's names of attributes, actions, roles and notifications.
#pragma once

#include <QtCore/QString>

#include "platform/StringLiterals.h"

namespace lumbrix::AX
{

// Attributes.
inline const QString Children = u"AXChildren"_s;
inline const QString CloseButton = u"AXCloseButton"_s;
inline const QString Description = u"AXDescription"_s;
inline const QString Enabled = u"AXEnabled"_s;
inline const QString Focused = u"AXFocused"_s;
inline const QString FocusedApplication = u"AXFocusedApplication"_s;
inline const QString FocusedUIElement = u"AXFocusedUIElement"_s;
inline const QString FocusedWindow = u"AXFocusedWindow"_s;
inline const QString Frontmost = u"AXFrontmost"_s;
inline const QString Hidden = u"AXHidden"_s;
inline const QString IsApplicationRunning = u"AXIsApplicationRunning"_s;
inline const QString Minimized = u"AXMinimized"_s;
inline const QString Owner = u"AXOwner"_s; // of a Dock item: the application it stands for
inline const QString Parent = u"AXParent"_s;
inline const QString Position = u"AXPosition"_s;
inline const QString Role = u"AXRole"_s;
inline const QString Rows = u"AXRows"_s;
inline const QString SelectedChildren = u"AXSelectedChildren"_s;
inline const QString Size = u"AXSize"_s;
inline const QString Subrole = u"AXSubrole"_s;
inline const QString Title = u"AXTitle"_s;
inline const QString URL = u"AXURL"_s;
inline const QString Window = u"AXWindow"_s;
inline const QString Windows = u"AXWindows"_s;

// Actions.
inline const QString Press = u"AXPress"_s;
inline const QString Raise = u"AXRaise"_s;

// Roles and subroles.
inline const QString ApplicationRole = u"AXApplication"_s;
inline const QString WindowRole = u"AXWindow"_s;
inline const QString DockItemRole = u"AXDockItem"_s;
inline const QString ApplicationDockItem = u"AXApplicationDockItem"_s;
inline const QString MinimizedWindowDockItem = u"AXMinimizedWindowDockItem"_s;
inline const QString ProcessSwitcherList = u"AXProcessSwitcherList"_s;
inline const QString StandardWindow = u"AXStandardWindow"_s;
inline const QString Dialog = u"AXDialog"_s;
inline const QString SystemDialog = u"AXSystemDialog"_s;
inline const QString FloatingWindow = u"AXFloatingWindow"_s;
inline const QString SystemFloatingWindow = u"AXSystemFloatingWindow"_s;
inline const QString Unknown = u"AXUnknown"_s;

// Notifications.
inline const QString WindowCreated = u"AXWindowCreated"_s;
inline const QString UIElementDestroyed = u"AXUIElementDestroyed"_s;
inline const QString SelectedChildrenChanged = u"AXSelectedChildrenChanged"_s;
inline const QString MenuOpened = u"AXMenuOpened"_s;
inline const QString FocusedUIElementChanged = u"AXFocusedUIElementChanged"_s;

} // namespace lumbrix::AX
