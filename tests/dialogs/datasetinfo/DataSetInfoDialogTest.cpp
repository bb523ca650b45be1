#include "dialogs/datasetinfo/DataSetInfoDialog.h"

#include "kernel/operations/SetPlotType.h"
#include "platform/vdsdkuicommon/HelpLauncher.h"
#include "tests/dialogs/datasetinfo/DataSetInfoFixture.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"

#include <QDialogButtonBox>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using sdk::ui::common::HelpLauncher;
using testing::ElementsAre;
using testing::IsEmpty;

using DataSetInfoDialogTest = DataSetInfoFixture;

/// The lines of a form's table that are about widgets of a tab, or of none.
std::vector<std::string> linesBelow(QWidget const& page, QDialog const& dialog)
{
    std::vector<std::string> lines;
    for (std::string const& line : formTable(dialog)) {
        QString const name = QString::fromStdString(line.substr(0, line.find(" | ")));
        if (!name.isEmpty() && page.findChild<QWidget*>(name))
            lines.push_back(line);
    }
    return lines;
}

TEST_F(DataSetInfoDialogTest, HasThreePagesOverAButtonBox)
{
    EXPECT_EQ(dialog().objectName(), QStringLiteral("DataSetInfo"));
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("Data Set Information"));
    EXPECT_FALSE(dialog().isModal());
    ASSERT_EQ(tabs().count(), 3);
    std::vector<std::string> pages;
    for (int page = 0; page < 3; ++page)
        pages.push_back(
            (tabs().widget(page)->objectName() + QStringLiteral(": ") + tabs().tabText(page)).toStdString());
    EXPECT_THAT(pages, ElementsAre("zoneVarInfoTab: Zone/Var Info", "dataSetTab: Data Set", "auxDataTab: Aux Data"));
    launched();
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttons().size(), 2);
}

TEST_F(DataSetInfoDialogTest, HasTheZoneAndVariablePageOfItsForm)
{
    // Before the bindings write into them the fields are empty; the labels that follow the zone are as for an ordered one.
    std::vector<std::string> names;
    for (std::string const& line : linesBelow(*tabs().widget(zoneVarPage), dialog()))
        names.push_back(line);
    EXPECT_THAT(
        names,
        ElementsAre(
            testing::StartsWith("zoneVarInfoScrollArea | "), testing::StartsWith("zoneVarInfoContents | "),
            "selectedZonesListLabel | QLabel | &Zone(s) |  | selectedZonesList",
            "selectedZonesList | QListView |  |  | ",
            "selectedVarsListLabel | QLabel | &Variable(s) |  | selectedVarsList",
            "selectedVarsList | QListView |  |  | ", "zoneNameLabel | QLabel | Z&one Name |  | zoneNameLineEdit",
            "zoneNameLineEdit | QLineEdit | Wing |  | ", "zoneTypeLabel | QLabel | Zone Type: |  | zoneTypeLineEdit",
            "zoneTypeLineEdit | QLineEdit | Ordered |  | ",
            "zoneIDimensionLabel | QLabel | IMax: |  | zoneIDimensionLineEdit",
            "zoneIDimensionLineEdit | QLineEdit | 3 |  | ",
            "zoneJDimensionLabel | QLabel | JMax: |  | zoneJDimensionLineEdit",
            "zoneJDimensionLineEdit | QLineEdit | 2 |  | ",
            "zoneKDimensionLabel | QLabel | KMax: |  | zoneKDimensionLineEdit",
            "zoneKDimensionLineEdit | QLineEdit | 1 |  | ",
            "zoneSolutionTimeLabel | QLabel | Solution Time: |  | zoneSolutionTimeLineEdit",
            "zoneSolutionTimeLineEdit | QLineEdit | 0 |  | ",
            "zoneStrandIDLabel | QLabel | Time Strand: |  | zoneStrandIDLineEdit",
            testing::StartsWith("zoneStrandIDLineEdit | QLineEdit | "),
            "varNameLabel | QLabel | V&ariable Name |  | varNameLineEdit", "varNameLineEdit | QLineEdit | X |  | ",
            "varTypeLabel | QLabel | Var Type: |  | varTypeLineEdit",
            testing::StartsWith("varTypeLineEdit | QLineEdit | "),
            "varLocationLabel | QLabel | Var Location: |  | varLocationLineEdit",
            "varLocationLineEdit | QLineEdit | Nodal |  | ",
            "varStatusLabel | QLabel | Var Status: |  | varStatusLineEdit",
            "varStatusLineEdit | QLineEdit | Passive |  | ",
            "varSelectedRangeLabel | QLabel | Var Range -- Selected Zone: |  | ",
            "varSelectedMinLabel | QLabel | Min: |  | varSelectedMinLineEdit",
            "varSelectedMinLineEdit | QLineEdit | N/A |  | ",
            "varSelectedMaxLabel | QLabel | Max: |  | varSelectedMaxLineEdit",
            "varSelectedMaxLineEdit | QLineEdit | N/A |  | ",
            "varActiveLabel | QLabel | Var Range -- Active Zones: |  | ",
            "varActiveMinLabel | QLabel | Min: |  | varActiveMinLineEdit",
            testing::StartsWith("varActiveMinLineEdit | QLineEdit | "),
            "varActiveMaxLabel | QLabel | Max: |  | varActiveMaxLineEdit",
            testing::StartsWith("varActiveMaxLineEdit | QLineEdit | "),
            "loadVariablesPushButton | QPushButton | &Load Variables... |  | "));
    EXPECT_EQ(child<QListView>("selectedZonesList").selectionMode(), QAbstractItemView::SingleSelection);
    EXPECT_EQ(child<QListView>("selectedVarsList").selectionMode(), QAbstractItemView::SingleSelection);
}

TEST_F(DataSetInfoDialogTest, HasTheDataSetPageOfItsForm)
{
    sample.dataSet().setTitle("Flow");
    EXPECT_THAT(
        linesBelow(*tabs().widget(dataSetPage), dialog()),
        ElementsAre("label | QLabel | &Data set title: |  | dataSetTitleLineEdit",
                    "dataSetTitleLineEdit | QLineEdit | Flow |  | ",
                    "label_2 | QLabel | Files or directories: |  | dataFilesTextEdit",
                    "dataFilesTextEdit | QTextEdit |  |  | ", "label_3 | QLabel | Num &zones: |  | numZonesLabel",
                    "numZonesLabel | QLabel | 3 |  | ", "label_11 | QLabel | &Locked by: |  | lockedByLabel",
                    "lockedByLabel | QLabel | none |  | ", "label_5 | QLabel | Num &vars: |  | numVarsLabel",
                    "numVarsLabel | QLabel | 4 |  | ", "label_7 | QLabel | Total &elements: |  | totalElementsLabel",
                    "totalElementsLabel | QLabel | 6 |  | ", "label_9 | QLabel | Total &points: |  | totalPointsLabel",
                    "totalPointsLabel | QLabel | 18 |  | "));
}

TEST_F(DataSetInfoDialogTest, HasTheAuxiliaryDataPageOfItsForm)
{
    EXPECT_THAT(linesBelow(*tabs().widget(auxDataPage), dialog()),
                ElementsAre("auxDataLocationLabel | QLabel | &Show Auxiliary Data for: |  | auxDataLocationComboBox",
                            "auxDataLocationComboBox | QComboBox |  |  | ",
                            "zoneAuxDataSelectedZoneComboBox | QComboBox |  |  | ",
                            "auxDataTableView | QTableView |  |  | "));
    EXPECT_FALSE(table().property("showDropIndicator").toBool());
}

TEST_F(DataSetInfoDialogTest, CanBeWalkedByTabInTheOrderOfItsWidgets)
{
    launched();
    EXPECT_THAT(tabOrder(dialog()),
                ElementsAre("dataSetInfoTabWidget", "selectedZonesList", "selectedVarsList", "zoneNameLineEdit",
                            "zoneTypeLineEdit", "zoneIDimensionLineEdit", "zoneJDimensionLineEdit",
                            "zoneKDimensionLineEdit", "zoneSolutionTimeLineEdit", "zoneStrandIDLineEdit",
                            "varNameLineEdit", "varTypeLineEdit", "varLocationLineEdit", "varStatusLineEdit",
                            "varSelectedMinLineEdit", "varSelectedMaxLineEdit", "varActiveMinLineEdit",
                            "varActiveMaxLineEdit", "loadVariablesPushButton", "dataSetTitleLineEdit",
                            "dataFilesTextEdit", kinds, owners, "auxDataTableView", "[Close]", "[Help]"));
}

TEST_F(DataSetInfoDialogTest, TranslatesTheTextsOfItsForm)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Data Set Information>"));
    for (char const* const text :
         {"Data Set Information", "Zone/Var Info", "Data Set", "Aux Data", "&Zone(s)", "&Variable(s)", "Z&one Name",
          "V&ariable Name", "Var Status:", "&Load Variables...", "&Data set title:", "Files or directories:",
          "Num &zones:", "&Locked by:", "Num &vars:", "Total &elements:", "Total &points:", "10000000000",
          "&Show Auxiliary Data for:"})
        EXPECT_EQ(translator.asked.count(std::string("DataSetInfo: ") + text), 1u) << text;
}

TEST_F(DataSetInfoDialogTest, LetsTextsThatCanOnlyBeReadLookPlain)
{
    launched();
    int plain = 0;
    for (QLineEdit const* const field : tabs().widget(zoneVarPage)->findChildren<QLineEdit*>()) {
        bool const isName = field->objectName() == QStringLiteral("zoneNameLineEdit") ||
                            field->objectName() == QStringLiteral("varNameLineEdit");
        EXPECT_EQ(field->palette().color(QPalette::Base) == QColor(Qt::transparent), !isName)
            << field->objectName().toStdString();
        EXPECT_EQ(field->isReadOnly(), !isName) << field->objectName().toStdString();
        EXPECT_EQ(field->hasFrame(), isName) << field->objectName().toStdString();
        plain += isName ? 0 : 1;
    }
    EXPECT_EQ(plain, 13);
    EXPECT_NE(child<QLineEdit>(titleField).palette().color(QPalette::Base), QColor(Qt::transparent));
}

TEST_F(DataSetInfoDialogTest, ReachesEachFieldByItsLetter)
{
    launchedAt(dataSetPage);
    for (auto const& [letter, name] : std::vector<std::pair<Qt::Key, std::string>>{{Qt::Key_D, titleField},
                                                                                   {Qt::Key_Z, "numZonesLabel"},
                                                                                   {Qt::Key_L, "lockedByLabel"},
                                                                                   {Qt::Key_V, "numVarsLabel"},
                                                                                   {Qt::Key_E, "totalElementsLabel"},
                                                                                   {Qt::Key_P, "totalPointsLabel"}}) {
        QTest::keyClick(&dialog(), letter, Qt::AltModifier);
        EXPECT_TRUE(child<QWidget>(name).hasFocus()) << name;
    }
    goTo(auxDataPage);
    QTest::keyClick(&dialog(), Qt::Key_S, Qt::AltModifier);
    EXPECT_TRUE(child<QWidget>(kinds).hasFocus());
}

TEST_F(DataSetInfoDialogTest, ReopensOnThePageThatWasCurrent)
{
    launchedAt(auxDataPage);
    clickClose();
    dialog().launch();
    EXPECT_EQ(tabs().currentIndex(), auxDataPage);
    goTo(dataSetPage);
    QTest::keyClick(&dialog(), Qt::Key_Escape);
    dialog().launch();
    EXPECT_EQ(tabs().currentIndex(), dataSetPage);
}

TEST_F(DataSetInfoDialogTest, BeginsAnewOnThePageThatWasCurrent)
{
    launchedAt(dataSetPage);
    startAnew();
    EXPECT_EQ(tabs().currentIndex(), dataSetPage);
}

TEST_F(DataSetInfoDialogTest, OpensTheHelpTopicOfThePage)
{
    std::vector<std::string> topics;
    HelpLauncher::install([&](std::string const& topic) { topics.push_back(topic); });
    launched();
    for (int const page : {dataSetPage, auxDataPage, zoneVarPage, auxDataPage}) {
        goTo(page);
        QTest::keyClick(&dialog(), Qt::Key_F1);
    }
    QTest::mouseClick(buttonBox().button(QDialogButtonBox::Help), Qt::LeftButton);
    HelpLauncher::install(HelpLauncher::Opener());
    EXPECT_THAT(topics, ElementsAre("data_set_info_data_set.html", "data_set_info_aux_data.html",
                                    "data_set_info_zone_variable_info.html", "data_set_info_aux_data.html",
                                    "data_set_info_aux_data.html"));
}

TEST_F(DataSetInfoDialogTest, OpensTheHelpTopicOfThePageThatItBeginsWith)
{
    launchedAt(auxDataPage);
    startAnew();
    std::vector<std::string> topics;
    HelpLauncher::install([&](std::string const& topic) { topics.push_back(topic); });
    QTest::keyClick(&dialog(), Qt::Key_F1);
    HelpLauncher::install(HelpLauncher::Opener());
    EXPECT_THAT(topics, ElementsAre("data_set_info_aux_data.html"));
}

TEST_F(DataSetInfoDialogTest, IsForDataThatAreShownInAPlot)
{
    launched();
    EXPECT_TRUE(isEnabled("selectedZonesList"));
    showAs(PlotType_Sketch);
    EXPECT_FALSE(isEnabled("selectedZonesList"));
    EXPECT_FALSE(isEnabled(titleField));
    showAs(PlotType_XYLine);
    EXPECT_TRUE(isEnabled("selectedZonesList"));
    EXPECT_TRUE(isEnabled(titleField));
}

TEST_F(DataSetInfoDialogTest, FitsIntoTheScreenWithALargeFontToo)
{
    QFont large = dialog().font();
    large.setPointSizeF(2.0 * large.pointSizeF());
    dialog().setFont(large);
    QSize const size = launched().size();
    EXPECT_LE(size.height(), dialog().screen()->availableSize().height());
    EXPECT_TRUE(dialog().rect().contains(buttonBox().geometry()));
    EXPECT_GT(dialog().sizeHint().height(), size.height()) << "else this shows nothing";
}

TEST_F(DataSetInfoDialogTest, ScrollsItsFirstPageWhereTheWindowIsLowAndFollowsTheFocus)
{
    launched();
    auto const& page = child<QScrollArea>("zoneVarInfoScrollArea");
    dialog().resize(dialog().sizeHint());
    QCoreApplication::processEvents();
    EXPECT_FALSE(page.verticalScrollBar()->isVisible());
    EXPECT_FALSE(page.horizontalScrollBar()->isVisible());
    dialog().resize(dialog().width(), 400);
    QCoreApplication::processEvents();
    EXPECT_EQ(dialog().height(), 400);
    EXPECT_TRUE(page.verticalScrollBar()->isVisible());
    EXPECT_FALSE(page.horizontalScrollBar()->isVisible());
    EXPECT_TRUE(child<QWidget>("varActiveMaxLineEdit").visibleRegion().isEmpty());
    for (char const* const name : {"varActiveMaxLineEdit", "zoneNameLineEdit"}) {
        auto& field = child<QWidget>(name);
        field.setFocus();
        EXPECT_EQ(field.visibleRegion().boundingRect(), field.rect()) << name;
    }
    int const top = page.verticalScrollBar()->value();
    QTest::mousePress(child<QListView>("selectedVarsList").viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
    EXPECT_EQ(page.verticalScrollBar()->value(), top) << "nothing moves away under the mouse";
    QTest::mouseRelease(child<QListView>("selectedVarsList").viewport(), Qt::LeftButton, Qt::NoModifier, QPoint(5, 5));
}

TEST_F(DataSetInfoDialogTest, KeepsRoomForTheNamesInItsListsWhenItIsNarrow)
{
    launched();
    dialog().resize(10, dialog().height());
    QCoreApplication::processEvents();
    for (char const* const name : {"selectedZonesList", "selectedVarsList"})
        EXPECT_GE(child<QWidget>(name).width(), 110) << name;
    EXPECT_LT(dialog().width(), dialog().sizeHint().width() - 200);
}

TEST_F(DataSetInfoDialogTest, FitsIntoASmallScreenAndGrowsByItsListsAndTexts)
{
    QSize const first = launched().size();
    QSize const screen = dialog().screen()->availableSize();
    EXPECT_LE(first.width(), screen.width());
    EXPECT_LE(first.height(), screen.height());
    dialog().resize(dialog().sizeHint());
    QCoreApplication::processEvents();
    QSize const list = child<QListView>("selectedZonesList").size();
    QSize const field = child<QLineEdit>("zoneNameLineEdit").size();
    dialog().resize(dialog().size() + QSize(200, 200));
    QCoreApplication::processEvents();
    EXPECT_GT(child<QListView>("selectedZonesList").height(), list.height() + 50);
    EXPECT_GT(child<QLineEdit>("zoneNameLineEdit").width(), field.width() + 20);
    EXPECT_EQ(child<QLineEdit>("zoneNameLineEdit").height(), field.height());
    EXPECT_THAT(messages.take(), IsEmpty());
}

} // namespace
} // namespace veldraw::tests
