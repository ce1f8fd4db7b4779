// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// The attributes of each kind of element: one table per kind, used for both names and values.
#include "platform/linux/accessibility/X11Attributes.h"

#include <algorithm>

namespace lumbrix::platform
{

namespace
{

AXResult value(AXValue what) { return {AXError::Success, std::move(what)}; }

AXResult text(const char* what) { return value(QString::fromLatin1(what)); }

AXResult unsupported() { return {AXError::AttributeUnsupported}; }

AXResult elements(std::vector<ElementRef> what) { return value(std::move(what)); }

AXResult elementOrNone(const ElementRef& element)
{
    return element ? value(element) : AXResult{AXError::NoValue};
}

const char* subroleOf(const x11::TrackedWindow& window)
{
    switch (window.type) {
    case x11::WindowType::Dialog:
        return "AXDialog";
    case x11::WindowType::Utility:
    case x11::WindowType::Toolbar:
    case x11::WindowType::Splash:
        return "AXFloatingWindow";
    default:
        return window.skipTaskbar ? "AXSystemFloatingWindow" : "AXStandardWindow";
    }
}

using Self = X11Attributes;
using Nothing = X11Attributes::Nothing;
using Window = x11::TrackedWindow;
template <class Subject> using Attribute = X11Attributes::Attribute<Subject>;

constexpr bool settable = true;

AXResult roleOfApplication(const Self&, const Application&) { return text("AXApplication"); }

AXResult titleOfApplication(const Self&, const Application& application)
{
    return value(application.running.localizedName);
}

AXResult no(const Self&, const Application&) { return value(false); }

AXResult focusedWindow(const Self& self, const Application& application)
{
    const bool isActive = self.activePid() == application.running.pid;
    return elementOrNone(isActive ? X11Element::window(self.parts().tracker.activeWindow())
                                  : nullptr);
}

AXResult windowsOf(const Self& self, const Application& application)
{
    std::vector<ElementRef> result;
    bool anyResponds = false;
    // All applications are asked, so none looks through the windows of the others.
    for (const x11::TrackedWindowPtr& window : self.parts().tracker.windows(application.windows)) {
        result.push_back(X11Element::window(window->id));
        anyResponds = anyResponds || window->isResponding;
    }
    if (!result.empty() && !anyResponds)
        return {AXError::CannotComplete};
    return elements(std::move(result));
}

AXResult isActive(const Self& self, const Window& window)
{
    return value(self.parts().tracker.activeWindow() == window.id);
}

AXResult windowOfButton(const Self&, const Window& window)
{
    return value(X11Element::window(window.id));
}

AXResult dockList(const Self&, const DockItemView&) { return value(X11Element::dockList()); }

constexpr Attribute<Nothing> systemWideTable[] = {
    {u"AXRole", [](const Self&, const Nothing&) { return text("AXSystemWide"); }},
    {u"AXFocusedApplication",
     [](const Self& self, const Nothing&) {
         const std::int32_t pid = self.activePid();
         return elementOrNone(pid != 0 ? X11Element::application(pid) : nullptr);
     }},
};

constexpr Attribute<Application> applicationTable[] = {
    {u"AXRole", roleOfApplication},
    {u"AXTitle", titleOfApplication},
    {u"AXChildren", windowsOf},
    {u"AXWindows", windowsOf},
    {u"AXFocusedWindow", focusedWindow},
    {u"AXMainWindow", focusedWindow},
    {u"AXFrontmost",
     [](const Self& self, const Application& application) {
         return value(self.activePid() == application.running.pid);
     },
     settable},
    {u"AXHidden",
     [](const Self&, const Application& application) { return value(application.isHidden); },
     settable},
};

constexpr Attribute<Application> dockTable[] = {
    {u"AXRole", roleOfApplication},
    {u"AXTitle", titleOfApplication},
    {u"AXDescription",
     [](const Self& self, const Application&) { return value(self.parts().docks.nameOfDock(0)); }},
    {u"AXChildren",
     [](const Self& self, const Application&) {
         return elements(self.parts().docks.pid() != 0 ? std::vector{X11Element::dockList()}
                                                       : std::vector<ElementRef>());
     }},
    {u"AXWindows", [](const Self&, const Application&) { return elements({}); }},
    {u"AXFocusedUIElement",
     [](const Self& self, const Application&) {
         return value(self.parts().switcher.selection() ? X11Element::switcherList()
                                                        : X11Element::dockList());
     }},
    {u"AXFrontmost", no},
    {u"AXHidden", no},
};

constexpr Attribute<Window> windowTable[] = {
    {u"AXRole", [](const Self&, const Window&) { return text("AXWindow"); }},
    {u"AXSubrole", [](const Self&, const Window& window) { return text(subroleOf(window)); }},
    {u"AXTitle", [](const Self&, const Window& window) { return value(window.title); }},
    {u"AXParent",
     [](const Self& self, const Window& window) {
         return value(X11Element::application(self.parts().registry.ownerPidOf(window)));
     }},
    {u"AXChildren",
     [](const Self&, const Window& window) {
         return elements({X11Element::closeButton(window.id)});
     }},
    {u"AXPosition",
     [](const Self& self, const Window& window) {
         return value(self.parts().space.toPoints(window.bounds).topLeft());
     }},
    {u"AXSize",
     [](const Self& self, const Window& window) {
         return value(self.parts().space.toPoints(window.bounds).size());
     }},
    {u"AXMinimized", [](const Self&, const Window& window) { return value(window.isIconic); },
     settable},
    {u"AXFullScreen", [](const Self&, const Window& window) { return value(window.isFullscreen); }},
    {u"AXFrontmost", isActive, settable},
    {u"AXFocused", isActive, settable},
    {u"AXMain", isActive, settable},
    {u"AXCloseButton",
     [](const Self&, const Window& window) { return value(X11Element::closeButton(window.id)); }},
};

constexpr Attribute<Window> closeButtonTable[] = {
    {u"AXRole", [](const Self&, const Window&) { return text("AXButton"); }},
    {u"AXSubrole", [](const Self&, const Window&) { return text("AXCloseButton"); }},
    {u"AXParent", windowOfButton},
    {u"AXWindow", windowOfButton},
    {u"AXEnabled", [](const Self&, const Window& window) { return value(window.canDelete); }},
};

constexpr Attribute<Nothing> dockListTable[] = {
    {u"AXRole", [](const Self&, const Nothing&) { return text("AXList"); }},
    {u"AXParent",
     [](const Self& self, const Nothing&) {
         return value(X11Element::application(self.parts().docks.pid()));
     }},
    {u"AXChildren",
     [](const Self& self, const Nothing&) {
         std::vector<ElementRef> result;
         for (const DockItemId id : self.parts().docks.items())
             result.push_back(X11Element::dockItem(id));
         return elements(std::move(result));
     }},
    {u"AXSelectedChildren",
     [](const Self& self, const Nothing&) {
         const DockItemId selected = self.parts().docks.selectedItem();
         return elements(selected != 0 ? std::vector{X11Element::dockItem(selected)}
                                       : std::vector<ElementRef>());
     }},
};

/// Apart, as badges ask for it all the time, and nothing but the dock has to be asked.
constexpr Attribute<DockItemPlace> dockItemPlaceTable[] = {
    {u"AXRole", [](const Self&, const DockItemPlace&) { return text("AXDockItem"); }},
    {u"AXPosition",
     [](const Self& self, const DockItemPlace& place) {
         return value(self.parts().space.toPoints(place.rect).topLeft());
     }},
    {u"AXSize",
     [](const Self& self, const DockItemPlace& place) {
         return value(self.parts().space.toPoints(place.rect).size());
     }},
    {u"AXHidden", [](const Self&, const DockItemPlace& place) { return value(place.isHidden); }},
};

constexpr Attribute<DockItemView> dockItemTable[] = {
    {u"AXSubrole",
     [](const Self&, const DockItemView& item) {
         return text(item.isMinimizedWindow ? "AXMinimizedWindowDockItem"
                                            : "AXApplicationDockItem");
     }},
    {u"AXTitle", [](const Self&, const DockItemView& item) { return value(item.title); }},
    {u"AXDescription",
     [](const Self& self, const DockItemView& item) {
         return value(self.parts().docks.nameOfDock(item.id));
     }},
    {u"AXParent", dockList},
    // An item that reports whether its application runs counts as an application item.
    {u"AXIsApplicationRunning",
     [](const Self&, const DockItemView& item) {
         return item.isMinimizedWindow ? unsupported() : value(item.isRunning);
     }},
    {u"AXWindows",
     [](const Self&, const DockItemView& item) {
         if (!item.chosen)
             return unsupported();
         std::vector<ElementRef> result;
         std::ranges::transform(*item.chosen, std::back_inserter(result), X11Element::window);
         return elements(std::move(result));
     }},
    {u"AXURL",
     [](const Self&, const DockItemView& item) {
         return item.url.isEmpty() ? unsupported() : value(item.url);
     }},
    {u"AXOwner",
     [](const Self&, const DockItemView& item) {
         return item.pid == 0 ? unsupported() : value(X11Element::application(item.pid));
     }},
};

using Switcher = SwitcherModel::Selection;

constexpr Attribute<Switcher> switcherListTable[] = {
    {u"AXRole", [](const Self&, const Switcher&) { return text("AXList"); }},
    {u"AXSubrole", [](const Self&, const Switcher&) { return text("AXProcessSwitcherList"); }},
    {u"AXParent",
     [](const Self& self, const Switcher&) {
         return value(X11Element::application(self.parts().registry.dockPid()));
     }},
    // Nothing is known about the others.
    {u"AXChildren",
     [](const Self&, const Switcher& switcher) {
         return elements({X11Element::switcherEntry(switcher.pid, switcher.window)});
     }},
    {u"AXSelectedChildren",
     [](const Self&, const Switcher& switcher) {
         return elements({X11Element::switcherEntry(switcher.pid, switcher.window)});
     }},
};

/// An application in the switcher.
struct Entry {
    Application application;
    QRect list;
};

constexpr Attribute<Entry> switcherEntryTable[] = {
    {u"AXRole", [](const Self&, const Entry&) { return text("AXButton"); }},
    // The title on the dock, which may use another name for the application than its own.
    {u"AXTitle",
     [](const Self& self, const Entry& entry) {
         const RunningApplication& running = entry.application.running;
         for (const DockItemId id : self.parts().docks.items()) {
             const auto item = self.parts().docks.item(id);
             if (item && !item->isMinimizedWindow && item->url == running.bundleURL)
                 return value(item->title);
         }
         return value(running.localizedName);
     }},
    {u"AXURL",
     [](const Self&, const Entry& entry) { return value(entry.application.running.bundleURL); }},
    {u"AXOwner",
     [](const Self&, const Entry& entry) {
         return value(X11Element::application(entry.application.running.pid));
     }},
    {u"AXParent", [](const Self&, const Entry&) { return value(X11Element::switcherList()); }},
    // Its position in the list is not known for every switcher.
    {u"AXPosition",
     [](const Self& self, const Entry& entry) {
         return value(self.parts().space.toPoints(entry.list).topLeft());
     }},
    {u"AXSize",
     [](const Self& self, const Entry& entry) {
         return value(self.parts().space.toPoints(entry.list).size());
     }},
};

} // namespace

std::int32_t X11Attributes::activePid() const
{
    const x11::TrackedWindowPtr active = m.tracker.window(m.tracker.activeWindow());
    return active && isApplicationWindow(*active) ? m.registry.ownerPidOf(*active) : 0;
}

template <class Use> AXError X11Attributes::visitSwitcher(const X11Element& element, Use use) const
{
    const auto selection = m.switcher.selection();
    if (!selection)
        return AXError::InvalidUIElement;
    if (element.kind() == X11Element::Kind::SwitcherList) {
        use(switcherListTable, *selection);
        return AXError::Success;
    }
    const auto application =
        element.pid() != 0 ? m.registry.application(element.pid()) : std::nullopt;
    if (!application)
        return AXError::InvalidUIElement;
    use(switcherEntryTable, Entry{.application = *application, .list = selection->list});
    return AXError::Success;
}

template <class Use> AXError X11Attributes::visit(const ElementRef& reference, Use use) const
{
    using Kind = X11Element::Kind;
    const X11Element* element = X11Element::from(reference);
    if (!element)
        return AXError::IllegalArgument;
    switch (element->kind()) {
    case Kind::SystemWide:
        use(systemWideTable, Nothing());
        return AXError::Success;
    case Kind::Application: {
        const auto application = m.registry.application(element->pid());
        if (!application)
            return AXError::InvalidUIElement;
        if (element->pid() == m.registry.dockPid())
            use(dockTable, *application);
        else
            use(applicationTable, *application);
        return AXError::Success;
    }
    case Kind::DockList:
        if (m.docks.pid() == 0)
            return AXError::InvalidUIElement;
        use(dockListTable, Nothing());
        return AXError::Success;
    case Kind::DockItem: {
        const auto place = m.docks.placeOf(element->dockItemId());
        if (!place)
            return AXError::InvalidUIElement;
        if (use(dockItemPlaceTable, *place))
            return AXError::Success;
        const auto item = m.docks.item(element->dockItemId());
        if (!item)
            return AXError::InvalidUIElement;
        use(dockItemTable, *item);
        return AXError::Success;
    }
    case Kind::SwitcherList:
    case Kind::SwitcherEntry:
        return visitSwitcher(*element, use);
    case Kind::Window:
    case Kind::CloseButton:
        break;
    }
    const x11::TrackedWindowPtr window = m.tracker.window(element->windowId());
    if (!window || !isApplicationWindow(*window))
        return AXError::InvalidUIElement;
    if (!window->isResponding)
        return AXError::CannotComplete;
    if (element->kind() == Kind::Window)
        use(windowTable, *window);
    else
        use(closeButtonTable, *window);
    return AXError::Success;
}

AXResult X11Attributes::read(const ElementRef& element, const QString& name) const
{
    AXResult result = unsupported();
    const AXError error = visit(element, [&](const auto& table, const auto& subject) {
        for (const auto& attribute : table) {
            if (name == attribute.name) {
                result = attribute.read(*this, subject);
                return true;
            }
        }
        return false;
    });
    return error == AXError::Success ? result : AXResult{error};
}

AXNames X11Attributes::names(const ElementRef& element) const
{
    AXNames result;
    result.error = visit(element, [&](const auto& table, const auto& subject) {
        for (const auto& attribute : table) {
            // Some rows apply to some of the elements only.
            if (attribute.read(*this, subject).error != AXError::AttributeUnsupported)
                result.names.push_back(QString::fromUtf16(attribute.name));
        }
        return false;
    });
    return result;
}

AXResult X11Attributes::isSettable(const ElementRef& element, const QString& name) const
{
    AXResult result = unsupported();
    const AXError error = visit(element, [&](const auto& table, const auto& subject) {
        for (const auto& attribute : table)
            if (name == attribute.name &&
                attribute.read(*this, subject).error != AXError::AttributeUnsupported)
                result = value(attribute.isSettable);
        return false;
    });
    return error == AXError::Success ? result : AXResult{error};
}

} // namespace lumbrix::platform
