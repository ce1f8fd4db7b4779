// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/KeyboardPanel.h"

#include <QtGui/QAccessible>
#include <QtGui/QGuiApplication>
#include <QtGui/QKeyEvent>
#include <QtGui/QWindow>
#include <QtWidgets/QAccessibleWidget>

#include <utility>

#include "platform/StringLiterals.h"
#include "platform/WindowServer.h"

namespace lumbrix
{
namespace
{

constexpr auto entryName = "keyboardEntry";

class Entry final : public QAccessibleWidget
{
public:
    explicit Entry(QWidget* widget) : QAccessibleWidget(widget, QAccessible::ListItem) {}

    QAccessible::State state() const override
    {
        QAccessible::State state = QAccessibleWidget::state();
        state.selectable = true;
        state.selected = state.focused;
        return state;
    }
};

QAccessibleInterface* makeAccessible(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget)
        return nullptr;
    if (qobject_cast<KeyboardPanel*>(widget))
        return new QAccessibleWidget(widget, QAccessible::List);
    return widget->objectName() == QLatin1String(entryName) ? new Entry(widget) : nullptr;
}

} // namespace

KeyboardPanel::KeyboardPanel(const platform::Desktop& ports)
    : QWidget(nullptr, Qt::Tool | Qt::FramelessWindowHint | Qt::BypassWindowManagerHint |
                           Qt::NoDropShadowWindowHint),
      m_ports(ports)
{
    QAccessible::installFactory(makeAccessible); // no effect when it is there
    setAttribute(Qt::WA_ShowWithoutActivating);
    setAttribute(Qt::WA_QuitOnClose, false);
    setWindowRole(u"keyboard"_s);
    // Beside the screen: it has to be mapped to have the keyboard, and shows nothing.
    setGeometry(-10, -10, 1, 1);
}

KeyboardPanel::~KeyboardPanel() { end(); }

void KeyboardPanel::begin(const QString& name)
{
    setAccessibleName(name);
    setWindowTitle(name);
    show();
    m_ports.windowServer.takeKeyboard(internalWinId());
    m_isUp = true;
}

void KeyboardPanel::end()
{
    if (!std::exchange(m_isUp, false))
        return;
    m_ports.windowServer.giveKeyboardBack(internalWinId());
    hide();
    for (QWidget* entry : std::exchange(m_entries, {}))
        entry->deleteLater(); // one of them may be what got the key that led here
}

void KeyboardPanel::setEntries(const QStringList& texts, int chosen)
{
    const auto count = static_cast<std::size_t>(texts.size());
    while (m_entries.size() > count) {
        m_entries.back()->deleteLater();
        m_entries.pop_back();
    }
    while (m_entries.size() < count) {
        auto* entry = new QWidget(this);
        entry->setObjectName(QLatin1String(entryName));
        entry->setFocusPolicy(Qt::StrongFocus);
        entry->show();
        m_entries.push_back(entry);
    }
    for (std::size_t i = 0; i < count; ++i)
        m_entries[i]->setAccessibleName(texts[static_cast<qsizetype>(i)]);
    // Told to assistive tools by the toolkit, once this window has the keyboard.
    if (chosen >= 0 && chosen < texts.size())
        m_entries[static_cast<std::size_t>(chosen)]->setFocus();
}

bool KeyboardPanel::focusNextPrevChild(bool next)
{
    Q_EMIT moved(next ? 1 : -1);
    return true;
}

void KeyboardPanel::keyPressEvent(QKeyEvent* event)
{
    event->accept();
    switch (event->key()) {
    case Qt::Key_Left:
    case Qt::Key_Up:
        Q_EMIT moved(-1);
        break;
    case Qt::Key_Right:
    case Qt::Key_Down:
        Q_EMIT moved(1);
        break;
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Space:
        Q_EMIT raised();
        break;
    case Qt::Key_Delete:
        Q_EMIT closed();
        break;
    case Qt::Key_Escape:
        Q_EMIT left();
        break;
    default:
        break;
    }
}

void KeyboardPanel::changeEvent(QEvent* event)
{
    QWidget::changeEvent(event);
    if (event->type() != QEvent::ActivationChange || !m_isUp)
        return;
    // Panels have no use for the keyboard; where no window manager knows, they may be given it all
    // the same as they come up.
    const QWindow* now = QGuiApplication::focusWindow();
    if (!isActiveWindow() && (!now || !now->flags().testFlag(Qt::WindowDoesNotAcceptFocus)))
        Q_EMIT left();
}

} // namespace lumbrix
