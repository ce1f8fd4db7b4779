// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/AboutWindow.h"

#include <QtWidgets/QDialogButtonBox>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>
#include <QtWidgets/QVBoxLayout>

#include "platform/ApplicationBundle.h"
#include "platform/Desktop.h"
#include "platform/StringLiterals.h"
#include "preview/NamedImage.h"

namespace lumbrix
{
namespace
{

constexpr QSize iconSize(96, 96);
constexpr int textWidth = 340;

} // namespace

/// Not a dialog: window managers keep dialogs above the program's other windows.
AboutWindow::AboutWindow()
    : QDialog(nullptr, Qt::Window | Qt::WindowTitleHint | Qt::WindowSystemMenuHint |
                           Qt::WindowMinimizeButtonHint | Qt::WindowCloseButtonHint)
{
    setWindowRole(u"about"_s);
    setWindowTitle(tr("About Lumbrix"));
    setAttribute(Qt::WA_QuitOnClose, false);

    auto* layout = new QVBoxLayout(this);
    constexpr int margin = 24;
    layout->setContentsMargins(margin, margin, margin, margin);
    layout->setSizeConstraint(QLayout::SetFixedSize);
    const auto addText = [&](const QString& text) {
        auto* label = new QLabel(text, this);
        label->setTextFormat(Qt::PlainText);
        label->setAlignment(Qt::AlignHCenter);
        label->setTextInteractionFlags(Qt::TextSelectableByMouse);
        layout->addWidget(label);
        return label;
    };

    auto* icon = new QLabel(this);
    icon->setPixmap(namedPixmap(u"lumbrix"_s, iconSize, devicePixelRatioF()));
    layout->addWidget(icon, 0, Qt::AlignHCenter);
    QLabel* name = addText(u"Lumbrix"_s);
    QFont large = name->font();
    large.setBold(true);
    large.setPointSizeF(large.pointSizeF() * 1.6);
    name->setFont(large);
    addText(tr("Version %1").arg(platform::desktop().applicationBundle.shortVersionString()));
    layout->addSpacing(margin / 2);
    QLabel* what = addText(tr("Rest the mouse on an application's icon in the Dock, and live "
                              "pictures of its windows appear beside it. Click one and that "
                              "window comes forward; its close button closes it."));
    what->setWordWrap(true);
    what->setFixedWidth(textWidth);
    layout->addSpacing(margin / 2);
    addText(tr("© 2026 The Lumbrix developers\nFree software under the MIT licence"));
    addText(tr("Bugs and thanks are welcome at\n%1").arg(QStringLiteral(LUMBRIX_BUGS)));
    layout->addSpacing(margin / 2);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    buttons->setCenterButtons(true);
    connect(buttons, &QDialogButtonBox::rejected, this, &AboutWindow::reject);
    layout->addWidget(buttons);
    buttons->button(QDialogButtonBox::Close)->setDefault(true);
    buttons->setFocus();
}

void AboutWindow::makeKeyAndOrderFront()
{
    showNormal();
    raise();
    activateWindow();
}

} // namespace lumbrix
