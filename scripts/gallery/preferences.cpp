// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

// Pictures of all panes of the preferences, to look at.
//
//   preferences_gallery [--dark] [--stay] [--catalogues FOLDER] FOLDER
//
// Writes FOLDER/preferences-<pane>-light.png and so on, and the sheet of the Filters pane; --stay
// then leaves the window open. With the folder of the catalogues, in the user's language.

#include <QtCore/QCommandLineParser>
#include <QtCore/QDir>
#include <QtCore/QLocale>
#include <QtWidgets/QApplication>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QStyle>
#include <QtWidgets/QStyleFactory>

#include "app/HotKeyIdentifiers.h"
#include "app/LumbrixController.h"
#include "app/Translations.h"
#include "app/filters/IgnoreTable.h"
#include "app/preferences/ColorWell.h"
#include "app/preferences/PrefsController.h"
#include "engine/LXHandler.h"
#include "model/SGKeyCombo.h"
#include "platform/qt/QtRunLoop.h"
#include "tests/support/SimulatedDesktop.h"

using namespace lumbrix;
using namespace Qt::StringLiterals;

namespace
{

void writeSettings(platform::UserDefaults& defaults)
{
    for (const char* flag : {"firstRun", "badgeDockIconsFirstRun"})
        defaults.setBool(true, QLatin1String(flag));
    for (const char* on :
         {"startAtLogin", "showInDock", "showInTab", "keepOnTheWay", "shouldShowCal",
          "showFastKeys", "zoomWindows", "showSpaces", "badgeDock", "shouldBubbleWrap",
          "dontDelayIfOpen", "tempDisableFilters"})
        defaults.setInteger(1, QLatin1String(on));
    for (const auto& [key, value] : {std::pair{"windowWidth", 243.0F},
                                     {"windowHeight", 190.0F},
                                     {"distanceFromDock", 33.0F},
                                     {"displayDelay", 0.4F}})
        defaults.setFloat(value, QLatin1String(key));
    defaults.setInteger(1, u"previewStyle"_s);
    defaults.setInteger(3, u"badgePosition"_s);
    defaults.setInteger(1, u"tempDisableFiltersKeycode"_s);
    defaults.setDictionary({{u"All applications"_s, 2},
                            {u"org.example.Editor"_s, 0},
                            {u"org.example.Video Player"_s, 3}},
                           u"filters"_s);
    defaults.setDictionary(SGKeyCombo{35, 0x1800}.plistRepresentation(),
                           HotKeyIdentifier::EnableDisable);
    defaults.setDictionary(SGKeyCombo{4, 0x900}.plistRepresentation(),
                           HotKeyIdentifier::HideAllPreviews);
}

} // namespace

int main(int argc, char* argv[])
{
    QApplication application(argc, argv);
    QCommandLineParser parser;
    parser.addOption({u"dark"_s, {}});
    parser.addOption({u"stay"_s, {}});
    parser.addOption({u"catalogues"_s, {}, u"folder"_s});
    parser.process(application);
    installTranslations(QLocale::system().uiLanguages(), parser.values(u"catalogues"_s));
    const bool isDark = parser.isSet(u"dark"_s);
    if (parser.positionalArguments().isEmpty())
        return 2;
    QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setApplicationVersion(QStringLiteral(LUMBRIX_VERSION));

    platform::QtRunLoop runLoop;
    test::SimulatedDesktop desk(runLoop);
    const platform::Desktop ports = desk.ports();
    const platform::DesktopScope scope(ports);
    for (const auto& [name, colour] :
         {std::pair{u"Editor"_s, QColor(38, 130, 120)}, {u"Video Player"_s, QColor(200, 90, 30)}}) {
        test::SimulatedApplication example;
        example.name = name;
        example.iconColor = colour;
        desk.addApplication(example);
    }
    desk.keyboardLayout().choose({{35, u"p"_s}, {4, u"h"_s}});
    desk.eventTaps().take({4, SGKeyCombo{4, 0x900}.modifierMask()});
    writeSettings(desk.userDefaults());
    desk.look().setDark(isDark);
    int status = 0;
    {
        LumbrixController controller;
        if (!controller.awakeFromNib())
            return 1;
        controller.applicationDidFinishLaunching();
        controller.showPreferences();
        PrefsController& preferences = PrefsController::sharedPrefsWindowController();
        if (auto* well = preferences.window()->findChild<ColorWell*>(); !well->color().isValid())
            well->setColor(QColor(28, 113, 216));
        const auto save = [&](const QString& what, QWidget& window) {
            // What is taken, and icons, are known in the next passes of the loop.
            for (int pass = 0; pass < 3; ++pass)
                QApplication::processEvents(QEventLoop::AllEvents, 20);
            const QString file = u"%1-%2.png"_s.arg(what, isDark ? u"dark"_s : u"light"_s);
            window.grab().save(QDir(parser.positionalArguments().first()).filePath(file));
        };
        const auto identifiers = preferences.toolbarIdentifiers();
        for (const QString& identifier : identifiers) {
            preferences.displayViewForIdentifier(identifier, false);
            preferences.refresh();
            save(u"preferences-"_s + QString(identifier).toLower().replace(u' ', u'-'),
                 *preferences.window());
        }
        preferences.displayViewForIdentifier(u"Filters"_s, false);
        auto& table = *preferences.window()->findChild<IgnoreTable*>();
        table.addButtonPressed();
        table.applications().setCurrentIndex(table.applications().findText(u"Video Player"_s));
        table.filterLevels().setCurrentIndex(2);
        save(u"filter-sheet"_s, table.addFilterWindow());
        table.cancelFilter();
        if (parser.isSet(u"stay"_s))
            status = QApplication::exec();
        controller.applicationWillTerminate();
    }
    runLoop.shutdown();
    LXHandler::releaseSharedHandler();
    return status;
}
