// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/Alert.h"

#include <QtCore/QCoreApplication>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QGridLayout>
#include <QtWidgets/QHBoxLayout>
#include <QtWidgets/QLabel>
#include <QtWidgets/QPushButton>

#include "platform/StringLiterals.h"
#include "preview/NamedImage.h"

namespace lumbrix
{
namespace
{

constexpr int textWidth = 420;
constexpr int margin = 20;
constexpr QSize iconSize(64, 64);

QLabel* makeText(const QString& text, QWidget* parent)
{
    auto* label = new QLabel(text, parent);
    label->setTextFormat(Qt::PlainText);
    label->setWordWrap(true);
    label->setFixedWidth(textWidth);
    label->setTextInteractionFlags(Qt::TextSelectableByMouse);
    return label;
}

} // namespace

/// The panel's result code is the answer.
class AlertPanel final : public QDialog
{
public:
    AlertPanel(const QString& title, const QString& text, const QStringList& buttons);

    void showSuppressionButton(const QString& text);
    void reject() override { done(m_lastAnswer); }

private:
    QGridLayout* m_layout;
    int m_lastAnswer = Alert::firstButtonReturn;
};

AlertPanel::AlertPanel(const QString& title, const QString& text, const QStringList& buttons)
    : m_layout(new QGridLayout(this))
{
    setObjectName(u"alert"_s);
    setWindowRole(u"alert"_s);
    setWindowTitle(u"Lumbrix"_s);
    setAttribute(Qt::WA_QuitOnClose, false);

    auto* icon = new QLabel(this);
    icon->setPixmap(namedPixmap(u"lumbrix"_s, iconSize, devicePixelRatioF()));
    QLabel* message = makeText(title, this);
    message->setObjectName(u"messageText"_s);
    QFont bold = message->font();
    bold.setBold(true);
    message->setFont(bold);
    QLabel* informative = makeText(text, this);
    informative->setObjectName(u"informativeText"_s);

    // The first button, the default one, is at the end of the row.
    auto* row = new QHBoxLayout;
    row->setSpacing(margin / 2);
    row->addStretch();
    for (int i = 0; i < buttons.size(); ++i) {
        auto* button = new QPushButton(buttons[i], this);
        m_lastAnswer = Alert::firstButtonReturn + i;
        button->setDefault(i == 0);
        connect(button, &QPushButton::clicked, this,
                [this, answer = m_lastAnswer] { done(answer); });
        row->insertWidget(1, button);
    }

    m_layout->setContentsMargins(margin, margin, margin, margin);
    m_layout->setHorizontalSpacing(margin);
    m_layout->setVerticalSpacing(margin / 2);
    m_layout->addWidget(icon, 0, 0, 3, 1, Qt::AlignTop);
    m_layout->addWidget(message, 0, 1);
    m_layout->addWidget(informative, 1, 1);
    m_layout->addLayout(row, 3, 0, 1, 2);
    m_layout->setSizeConstraint(QLayout::SetFixedSize);
}

void AlertPanel::showSuppressionButton(const QString& text)
{
    const QString usual = QCoreApplication::translate("Alert", "Do not show this message again");
    m_layout->addWidget(new QCheckBox(text.isNull() ? usual : text, this), 2, 1);
}

Alert::Alert(const QString& title, const QString& text, const QStringList& buttons)
    : m_panel(std::make_unique<AlertPanel>(title, text, buttons))
{
}

Alert::~Alert() = default;

void Alert::showSuppressionButton(const QString& text) { m_panel->showSuppressionButton(text); }

int Alert::runModal()
{
    m_panel->setModal(true);
    return m_panel->exec();
}

void Alert::beginSheetModalForWindow(QWidget& window, std::function<void(int)> didEnd)
{
    AlertPanel* panel = m_panel.release(); // the window owns it from here on
    panel->setParent(&window, Qt::Dialog);
    panel->setAttribute(Qt::WA_DeleteOnClose);
    if (didEnd)
        QObject::connect(panel, &QDialog::finished, panel, std::move(didEnd));
    panel->open();
}

} // namespace lumbrix
