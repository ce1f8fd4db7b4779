// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "preview/IgnoredAccessible.h"

#include <QtGui/QAccessible>
#include <QtWidgets/QAccessibleWidget>
#include <QtWidgets/QWidget>
namespace lumbrix
{
namespace
{

class IgnoredAccessible final : public QAccessibleWidget
{
public:
    explicit IgnoredAccessible(QWidget* widget) : QAccessibleWidget(widget, QAccessible::NoRole) {}

    QAccessible::State state() const override
    {
        QAccessible::State state;
        state.invisible = true;
        return state;
    }
    int childCount() const override { return 0; }
    QAccessibleInterface* child(int) const override { return nullptr; }
    QAccessibleInterface* childAt(int, int) const override { return nullptr; }
    QString text(QAccessible::Text) const override { return {}; }
};

QAccessibleInterface* makeIgnored(const QString&, QObject* object)
{
    auto* widget = qobject_cast<QWidget*>(object);
    if (!widget)
        return nullptr; // not handled here
    for (const QWidget* each : {widget, widget->window()})
        if (each->property("accessibilityIsIgnored").toBool())
            return new IgnoredAccessible(widget);
    return nullptr;
}

} // namespace

void ignorePanelsInAccessibility()
{
    // Installing one twice has no effect.
    QAccessible::installFactory(makeIgnored);
}

} // namespace lumbrix
