// SPDX-FileCopyrightText: 2026 The Lumbrix developers
// SPDX-License-Identifier: MIT

#include "app/filters/IgnoreTable.h"

#include <QtTest/QTest>
#include <QtWidgets/QAbstractButton>
#include <QtWidgets/QCheckBox>
#include <QtWidgets/QComboBox>
#include <QtWidgets/QDialog>
#include <QtWidgets/QTableView>

#include "app/filters/FilterLevelTitle.h"
#include "preview/InterfaceFile.h"
#include "tests/app/AppFixture.h"

namespace lumbrix::test
{
namespace
{

/// The pane in a window, with an engine whose previews show.
class IgnoreTableTest : public AppFixture
{
protected:
    IgnoreTableTest()
    {
        haveUser();
        defaults.setInteger(1, u"showInDock"_s);
        defaults.setInteger(200, u"windowWidth"_s);
        defaults.setInteger(150, u"windowHeight"_s);
    }
    ~IgnoreTableTest() override { m_pane.reset(); }

    void start(const std::optional<QVariantMap>& filters = std::nullopt)
    {
        if (filters)
            defaults.setDictionary(*filters, u"filters"_s);
        AppFixture::start();
        m_pane = loadInterface(ports(), u"PreferencesFilters"_s);
        ASSERT_TRUE(m_pane);
        m_pane->show();
        table = new IgnoreTable(*m_pane);
        loop.runUntilIdle();
    }
    QVariantMap stored() { return defaults.dictionaryForKey(u"filters"_s).value_or(QVariantMap()); }

    /// "name: level" of each row.
    QString shown()
    {
        QStringList rows;
        for (int i = 0; i < table->rows().numberOfRows(); ++i)
            rows << table->rows().objectValue(u"application"_s, i) + u": "_s +
                        table->rows().objectValue(u"filter"_s, i);
        return rows.join(u", "_s);
    }
    static QStringList items(const QComboBox& popUp)
    {
        QStringList items;
        for (int i = 0; i < popUp.count(); ++i)
            items << popUp.itemText(i);
        return items;
    }
    /// Chooses an item as a person does, which tells the table.
    static void choose(QComboBox& popUp, const QString& item)
    {
        popUp.setCurrentIndex(popUp.findText(item));
        Q_EMIT popUp.activated(popUp.currentIndex());
    }
    void press(const char* button)
    {
        table->addFilterWindow().findChild<QAbstractButton*>(QString::fromLatin1(button))->click();
    }
    bool isSheetUp() { return table->addFilterWindow().isVisible(); }
    static QColor colourOf(const QIcon& icon)
    {
        return icon.pixmap(32, 32).toImage().pixelColor(16, 16);
    }

    IgnoreTable* table = nullptr; ///< the pane's

private:
    std::unique_ptr<QWidget> m_pane;
};

const QStringList ordinaryLevels{u"Low"_s, u"Medium"_s, u"High"_s, u"Block all"_s};

TEST_F(IgnoreTableTest, rows_followTheDictionary)
{
    desk.addApplication({.name = u"Editor"_s, .iconColor = Qt::red});
    start(QVariantMap{{u"org.example.Editor"_s, 3},
                      {u"All applications"_s, 0},
                      {u"gone <b>"_s, u"no level"_s},
                      {u"com.apple.finder"_s, 4}});
    const FilterRows& rows = table->rows();
    EXPECT_EQ(shown(), u"All applications: Low, unknown: TotalFinder, unknown: High, "
                       u"Editor: Block all"_s);
    EXPECT_EQ(rows.getRowBundle(3), u"org.example.Editor"_s);
    EXPECT_EQ(rows.objectValue(u"other"_s, 0), QString());
    EXPECT_EQ(rows.columnCount(), 2);
    EXPECT_EQ(rows.index(3, 1).data(), u"Block all: no window"_s) << "what that leaves, too";
    const auto toolTip = [&](int row) {
        return rows.data(rows.index(row, 0), Qt::ToolTipRole).toString();
    };
    EXPECT_EQ(toolTip(3), u"org.example.Editor"_s);
    EXPECT_EQ(toolTip(2), u"<qt>gone &lt;b&gt;</qt>"_s) << "markup of others is shown as it is";

    const auto icon = [&](int row) {
        return rows.data(rows.index(row, 0), Qt::DecorationRole).value<QIcon>();
    };
    EXPECT_EQ(colourOf(icon(3)).alpha(), 0) << "is read on a thread";
    icon(1);
    loop.runUntilIdle();
    EXPECT_EQ(colourOf(icon(3)), QColor(Qt::red));
    EXPECT_GT(colourOf(icon(1)).alpha(), 0) << "has none of its own";
}

TEST_F(IgnoreTableTest, newUser_hasTheDefaultUntilItIsDeleted)
{
    start();
    EXPECT_EQ(IgnoreTable::getFiltersDictionary(), (QVariantMap{{u"All applications"_s, 2}}));
    EXPECT_EQ(shown(), u"All applications: High"_s);
    auto* remove = table->tableView().window()->findChild<QAbstractButton*>(u"deleteButton"_s);
    EXPECT_FALSE(remove->isEnabled());
    table->deleteButtonPressed();
    EXPECT_EQ(shown(), u"All applications: High"_s) << "no row is selected";

    table->tableView().selectRow(0);
    EXPECT_TRUE(remove->isEnabled());
    remove->click();
    EXPECT_EQ(shown(), QString());
    EXPECT_TRUE(defaults.contains(u"filters"_s));
    EXPECT_EQ(stored(), QVariantMap());
    EXPECT_FALSE(defaults.hasUnsavedChanges());
}

TEST_F(IgnoreTableTest, add_offersApplicationsOfTheDockOrAll)
{
    const Pid editor = addApplication(u"Editor"_s);
    desk.changeApplication(editor, [](auto& app) { app.iconColor = Qt::green; });
    desk.addApplication({.name = u"Helper"_s, .isRegular = false});
    start();
    table->addButtonPressed();
    ASSERT_TRUE(isSheetUp());
    EXPECT_FALSE(items(table->applications()).contains(u"Helper"_s));
    EXPECT_EQ(items(table->applications()).first(), u"All applications"_s);
    EXPECT_GT(
        colourOf(table->applications().itemIcon(0)).alpha() +
            table->applications().itemIcon(0).pixmap(32, 32).toImage().pixelColor(8, 8).alpha(),
        0);
    const int item = table->applications().findText(u"Editor"_s);
    ASSERT_GT(item, 0);
    EXPECT_EQ(table->applications().itemData(item, Qt::ToolTipRole), u"org.example.Editor"_s);
    loop.runUntilIdle();
    EXPECT_EQ(colourOf(table->applications().itemIcon(item)), QColor(Qt::green));
    EXPECT_EQ(items(table->filterLevels()), ordinaryLevels);
    press("cancelButton");
    EXPECT_FALSE(isSheetUp());
    EXPECT_EQ(stored(), (QVariantMap{{u"All applications"_s, 2}}));

    engine().settings().showOthersInDockIcon = 1;
    table->addButtonPressed();
    EXPECT_TRUE(items(table->applications()).contains(u"Helper"_s));
}

TEST_F(IgnoreTableTest, ok_withNothingChosen_storesNothing)
{
    addApplication(u"Editor"_s);
    start(QVariantMap{{u"org.example.Editor"_s, 4}});
    table->addButtonPressed();
    choose(table->applications(), u"Editor"_s);
    table->filterLevels().setCurrentIndex(-1);
    press("okButton");
    EXPECT_FALSE(isSheetUp());
    table->addButtonPressed();
    table->applications().setCurrentIndex(-1);
    press("okButton");
    table->itemClicked(0); // its level is none of those offered
    EXPECT_EQ(table->filterLevels().currentIndex(), -1);
    press("okButton");
    EXPECT_EQ(stored(), (QVariantMap{{u"org.example.Editor"_s, 4}}));
}

TEST_F(IgnoreTableTest, totalFinder_isOfferedForTheFinderAlone)
{
    desk.addApplication({.name = u"Finder"_s, .bundleIdentifier = u"com.apple.finder"_s});
    addApplication(u"Editor"_s);
    start();
    table->addButtonPressed();
    choose(table->applications(), u"Finder"_s);
    EXPECT_EQ(items(table->filterLevels()), ordinaryLevels + QStringList(u"TotalFinder"_s));
    choose(table->filterLevels(), u"TotalFinder"_s);
    choose(table->applications(), u"Editor"_s);
    EXPECT_EQ(items(table->filterLevels()), ordinaryLevels);
    choose(table->applications(), u"Finder"_s);
    choose(table->filterLevels(), u"TotalFinder"_s);
    press("okButton");
    EXPECT_EQ(stored(), (QVariantMap{{u"All applications"_s, 2}, {u"com.apple.finder"_s, 4}}));
    // As with Medium, palettes stay: users were told of High.
    EXPECT_TRUE(FilterLevel::description(FilterLevel::totalFinder)
                    .startsWith(FilterLevel::description(FilterLevel::medium).chopped(1)));
}

TEST_F(IgnoreTableTest, blockAll_takesPreviewsOffTheScreenAtOnceAndDeletingBringsThemBack)
{
    addApplication(u"Editor"_s, 2);
    addApplication(u"Player"_s, 1);
    start();
    hover(u"Editor"_s);
    for (const QString& application : {u"Player"_s, u"Editor"_s}) { // the other one's row stays
        table->addButtonPressed();
        choose(table->applications(), application);
        choose(table->filterLevels(), u"Block all"_s);
        EXPECT_EQ(previews(), 2U);
        EXPECT_TRUE(engine().screenyViews().front()->window()->isFront());
        press("okButton");
    }
    EXPECT_EQ(previews(), 0U);
    EXPECT_EQ(stored().value(u"org.example.Editor"_s), 3);
    EXPECT_FALSE(defaults.hasUnsavedChanges());
    EXPECT_EQ(table->tableView().currentIndex().row(), 1) << "the new filter is selected";
    loop.advance(3);
    EXPECT_EQ(previews(), 0U);

    table->deleteButtonPressed();
    loop.advance(1.1);
    EXPECT_EQ(previews(), 2U) << "the mouse is still on the icon";
}

TEST_F(IgnoreTableTest, privateBox_tellsWhatHoldsAndStoresWhatDiffersFromTheStart)
{
    const Pid vault = addApplication(u"Vault"_s);
    desk.changeApplication(
        vault, [](auto& app) { app.role = platform::ApplicationRole::PasswordManager; });
    addApplication(u"Editor"_s);
    defaults.setDictionary({{u"org.example.Gone"_s, 1}}, u"privateApplications"_s);
    start();
    EXPECT_EQ(shown(), u"All applications: High, unknown: High, private"_s);
    const auto add = [&](const QString& application, bool isAtFirst, bool isPrivate) {
        table->addButtonPressed();
        EXPECT_FALSE(table->privateBox().isEnabled()) << "the default is not private";
        choose(table->applications(), application);
        EXPECT_EQ(table->privateBox().isChecked(), isAtFirst);
        choose(table->filterLevels(), u"High"_s);
        table->privateBox().setChecked(isPrivate);
        press("okButton");
    };
    const auto stored = [&] {
        return defaults.dictionaryForKey(u"privateApplications"_s).value_or(QVariantMap());
    };
    add(u"Editor"_s, false, true);
    add(u"Vault"_s, true, false);
    EXPECT_EQ(shown(), u"All applications: High, Editor: High, private, Vault: High, "
                       u"unknown: High, private"_s);
    EXPECT_EQ(stored(), (QVariantMap{{u"org.example.Editor"_s, 1},
                                     {u"org.example.Gone"_s, 1},
                                     {u"org.example.Vault"_s, 0}}));
    add(u"Vault"_s, false, true);
    EXPECT_FALSE(stored().contains(u"org.example.Vault"_s));
    for (const int row : {3, 1}) {
        table->tableView().selectRow(row);
        table->deleteButtonPressed();
    }
    EXPECT_FALSE(defaults.contains(u"privateApplications"_s));
    EXPECT_FALSE(desk.privacy().isPrivate(u"org.example.Editor"_s));
}

TEST_F(IgnoreTableTest, keysAndDoubleClicks_openTheSheet)
{
    addApplication(u"Editor"_s);
    start(QVariantMap{{u"org.example.Editor"_s, 1}});
    QTableView& view = table->tableView();
    QTest::keyClick(&view, Qt::Key_Insert);
    EXPECT_TRUE(isSheetUp());
    EXPECT_EQ(table->applications().currentText(), u"All applications"_s);
    table->itemClicked(0);
    EXPECT_EQ(table->applications().currentText(), u"All applications"_s) << "it is up already";
    QTest::keyClick(&table->addFilterWindow(), Qt::Key_Escape);
    EXPECT_FALSE(isSheetUp());

    const QRect row = view.visualRect(view.model()->index(0, 1));
    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, row.center());
    ASSERT_TRUE(isSheetUp());
    EXPECT_EQ(items(table->applications()), QStringList(u"Editor"_s));
    EXPECT_EQ(table->filterLevels().currentText(), u"Medium"_s);
    choose(table->filterLevels(), u"Low"_s);
    QTest::keyClick(&table->addFilterWindow(), Qt::Key_Return);
    EXPECT_EQ(stored(), (QVariantMap{{u"org.example.Editor"_s, 0}}));

    QTest::mouseDClick(view.viewport(), Qt::LeftButton, {}, row.bottomLeft() + QPoint(20, 40));
    EXPECT_EQ(table->applications().count(), 2) << "beside the rows it adds one";
    press("cancelButton");
    QTest::keyClick(&view, Qt::Key_Return);
    EXPECT_EQ(table->applications().count(), 1);
    press("cancelButton");
    QTest::keyClick(&view, Qt::Key_Delete);
    EXPECT_EQ(shown(), QString());
}

} // namespace
} // namespace lumbrix::test
