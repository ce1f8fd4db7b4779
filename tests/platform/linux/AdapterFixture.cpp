// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "tests/platform/linux/AdapterFixture.h"

#include "platform/linux/docks/PanelDock.h"
#include "tests/support/Files.h"

namespace lumbrix::test
{

using namespace platform;

void writeEntry(const QString& folder, const QString& id, const QByteArray& lines)
{
    writeFile(folder + u'/' + id + u".desktop"_s, "[Desktop Entry]\nType=Application\n" + lines);
}

AdapterFixture::AdapterFixture(const QDBusConnection* session)
    : m_entries({m_folder.path()}, {}, [this] { return m_loop.now(); }),
      m_registry(
          m_tracker, m_entries,
          [this](std::int32_t pid) {
              const auto it = m_programs.find(pid);
              return it == m_programs.end() ? ProcessNames()
                                            : ProcessNames{it->second, {it->second}};
          },
          {ownPid, u"lumbrix"_s}, [this] { return m_loop.now(); }),
      m_raiser(m_tracker, m_registry, [this] { return m_loop.now(); }),
      m_workspace(m_loop, m_tracker, m_registry, m_entries, m_raiser, m_uiMode),
      m_docks(m_loop, m_tracker, m_registry, m_entries,
              [this, session] {
                  DockModel::Providers providers;
                  providers.push_back(std::make_unique<PanelDock>(
                      m_loop, m_tracker, m_space,
                      session ? std::make_unique<AccessibleButtons>(m_loop, m_tracker, m_registry,
                                                                    *session)
                              : nullptr));
                  return providers;
              }()),
      m_accessibility(
          {m_loop, m_tracker, m_space, m_registry, m_workspace, m_raiser, m_docks, m_switcher})
{
    writeEntry(m_folder.path(), u"debian-term"_s, "Name=Term\nExec=term\n");
    writeEntry(m_folder.path(), u"org.example.Editor"_s, "Name=Editor\nExec=editor %U\n");
    m_loop.advance(5.0); // entries are looked for anew
    m_space.setScreens({QRect(0, 0, 1280, 800)});
    for (x11::WindowListener* listener : std::initializer_list<x11::WindowListener*>{
             m_accessibility.listenerBeforeRegistry(), &m_registry, &m_uiMode, &m_docks,
             &m_switcher, m_accessibility.listenerAfterRegistry()})
        m_tracker.addListener(listener);
    m_docks.start();
}

FakeTracker::Window AdapterFixture::window(xcb_window_t id, const QString& instance,
                                           const QString& className,
                                           std::optional<std::int32_t> pid,
                                           const QString& title) const
{
    FakeTracker::Window window;
    window.id = id;
    window.bounds = QRect(100, 100, 400, 300);
    window.title = title.isEmpty() ? className : title;
    window.classInstance = instance;
    window.className = className;
    window.pid = pid;
    window.desktop = 0;
    window.canDelete = true;
    return window;
}

void AdapterFixture::addDock(xcb_window_t id, const QString& name, std::int32_t pid,
                             const QRect& bounds)
{
    FakeTracker::Window dock = window(id, name, name.at(0).toUpper() + name.mid(1), pid);
    dock.type = x11::WindowType::Dock;
    dock.bounds = bounds;
    dock.desktop = -1;
    dock.strut = QMargins(0, 0, 0, 30);
    m_tracker.add(dock);
}

void AdapterFixture::addPanel()
{
    addDock(panelWindow, u"panel"_s, panelPid, panelBounds);
    m_loop.advance(0.1);
}

std::optional<Application> AdapterFixture::ownerOf(xcb_window_t id)
{
    const x11::TrackedWindowPtr window = m_tracker.window(id);
    return window ? m_registry.application(m_registry.ownerPidOf(*window)) : std::nullopt;
}

AXResult AdapterFixture::read(const ElementRef& element, const char* attribute)
{
    return m_accessibility.copyAttributeValue(element, QString::fromLatin1(attribute));
}

QString AdapterFixture::text(const ElementRef& element, const char* attribute)
{
    const AXResult result = read(element, attribute);
    const QString* value = result.as<QString>();
    return value ? *value : u"<%1>"_s.arg(static_cast<int>(result.error));
}

std::vector<ElementRef> AdapterFixture::list(const ElementRef& element, const char* attribute)
{
    const AXResult result = read(element, attribute);
    const auto* value = result.as<std::vector<ElementRef>>();
    return value ? *value : std::vector<ElementRef>();
}

ElementRef AdapterFixture::dockList()
{
    const auto children = list(m_accessibility.createApplication(m_docks.pid()), "AXChildren");
    return children.empty() ? nullptr : children.front();
}

std::vector<ElementRef> AdapterFixture::dockItems() { return list(dockList(), "AXChildren"); }

} // namespace lumbrix::test
