// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include <QtCore/QTranslator>
#include <QtWidgets/QApplication>
#include <QtWidgets/QCheckBox>

#include <array>

#include "app/StatusMenu.h"
#include "app/Translations.h"
#include "app/filters/FilterLevelTitle.h"
#include "app/preferences/NoteLabel.h"
#include "preview/InterfaceFile.h"
#include "tests/support/DesktopFixture.h"

namespace lumbrix::test
{
namespace
{

class TranslationsTest : public DesktopFixture
{
protected:
    ~TranslationsTest() override { forget(); }

    static void forget() { qDeleteAll(qApp->findChildren<QTranslator*>()); }
    /// What a user with these languages reads: in the menu, a pane, and a text without a window.
    QStringList textsFor(const QStringList& languages)
    {
        forget();
        installTranslations(languages, {u"/no/such/folder"_s, QStringLiteral(CATALOGUE_FOLDER)});
        const StatusMenu menu;
        const auto pane = loadInterface(ports(), u"PreferencesAdvanced"_s, classes);
        return {menu.actions().constFirst()->text(),
                pane->findChild<QCheckBox*>(u"ignoreMinimized"_s)->text(), FilterLevel::title(0)};
    }

    static constexpr std::array classes{
        InterfaceClass{QLatin1String("NoteLabel"),
                       [](QWidget* parent) -> QWidget* { return new NoteLabel(parent); }}};
};

TEST_F(TranslationsTest, texts_areInTheFirstLanguageThatThereIs)
{
    const QStringList english{u"Turn previews off"_s, u"&Minimised windows"_s, u"Low"_s};
    const QStringList german{u"Vorschauen ausschalten"_s, u"&Minimierte Fenster"_s, u"Niedrig"_s};
    EXPECT_EQ(textsFor({u"de-AT"_s, u"de"_s}), german);
    EXPECT_EQ(textsFor({u"eo"_s, u"de_CH"_s, u"en"_s}), german);
    for (const QStringList& languages :
         {QStringList(), {u"C"_s}, {u"en-GB"_s, u"de"_s}, {u"eo"_s}, {u"eo"_s, u"../de"_s}})
        EXPECT_EQ(textsFor(languages), english) << qPrintable(languages.join(u' '));
}

} // namespace
} // namespace lumbrix::test
