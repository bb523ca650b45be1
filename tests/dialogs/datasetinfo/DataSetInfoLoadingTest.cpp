#include "kernel/operations/RenameZone.h"
#include "kernel/operations/SetPlotType.h"
#include "platform/vdtoolbox/AuxData.h"
#include "tests/dialogs/datasetinfo/CountingLoaders.h"
#include "tests/dialogs/datasetinfo/DataSetInfoFixture.h"
#include "tests/support/FakeStateChange.h"
#include "tests/support/KernelSpy.h"

#include <QComboBox>
#include <QDialog>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

/// The window over zones of which nothing is loaded, neither values nor, in the last ones, dimensions.
class DataSetInfoLoadingTest : public DataSetInfoFixture
{
protected:
    DataSetInfoLoadingTest()
    {
        for (auto const& zone : sample.dataSet().zones()) {
            for (kernel::Field& field : zone->fields)
                deferred.defer(field, zone->pointCount());
        }
        deferred.append(sample.dataSet(), "Late", 5, 4, 3);
        deferred.append(sample.dataSet(), "Later", 50, 1, 1);
        FakeStateChange(StateChange_ZonesAdded).send();
    }

    void walkThrough(std::string const& list)
    {
        auto& view = child<QListView>(list);
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_Home);
        for (int row = 0; row < view.model()->rowCount(); ++row) {
            IdleDispatcher::flush();
            QCoreApplication::processEvents();
            QTest::keyClick(&view, Qt::Key_Down);
        }
    }
    void renameInList(std::string const& list)
    {
        auto& view = child<QListView>(list);
        view.setFocus();
        QTest::keyClick(&view, Qt::Key_F2);
        if (auto* const editor = view.viewport()->findChild<QLineEdit*>()) {
            QTest::keyClicks(editor, QStringLiteral("Renamed"));
            QTest::keyClick(editor, Qt::Key_Return);
        }
        IdleDispatcher::flush();
    }
    void useTheZoneVarPage()
    {
        goTo(zoneVarPage);
        for (char const* const list : {"selectedZonesList", "selectedVarsList", "selectedZonesList"}) {
            walkThrough(list);
            renameInList(list);
        }
        enter("zoneNameLineEdit", "Typed");
        enter("varNameLineEdit", "Typed");
    }
    void useTheOtherPages()
    {
        goTo(dataSetPage);
        enter(titleField, "Typed");
        goTo(auxDataPage);
        for (int kind = 0; kind < 7; ++kind) {
            choose(kinds, kind);
            for (int owner = 0; owner < child<QComboBox>(owners).count(); ++owner) {
                if (child<QWidget>(owners).isEnabled())
                    choose(owners, owner);
            }
            QCoreApplication::processEvents();
        }
    }

    DeferredZones deferred;
};

TEST_F(DataSetInfoLoadingTest, LoadsNothingWhateverIsDoneInTheWindow)
{
    for (PlotType_e const type : {PlotType_Cartesian2D, PlotType_XYLine, PlotType_Cartesian3D}) {
        showAs(type);
        int const before = deferred.timesLoaded(); // what the plot itself wants
        launched();
        useTheZoneVarPage();
        useTheOtherPages();
        EXPECT_EQ(deferred.timesLoaded(), before) << "plot type " << type;
    }
    EXPECT_EQ(deferred.timesLoaded(), 0);
}

TEST_F(DataSetInfoLoadingTest, LoadsNothingWhateverTheKernelTells)
{
    launched();
    for (int const page : {zoneVarPage, dataSetPage, auxDataPage}) {
        goTo(page);
        for (int kind = 0; kind <= 60; ++kind) {
            if (kind == StateChange_KernelGoesDown)
                continue;
            FakeStateChange(kind).send();
            FakeStateChange(StateChange_Style, {"PlotType"}).send();
            IdleDispatcher::flush();
            QCoreApplication::processEvents();
        }
    }
    EXPECT_EQ(deferred.timesLoaded(), 0);
    EXPECT_EQ(labelled("totalPointsLabel"), "Not Loaded");
}

TEST_F(DataSetInfoLoadingTest, RefillsOnceAfterAStormOnAnyPage)
{
    for (int const page : {zoneVarPage, dataSetPage, auxDataPage}) {
        launchedAt(page);
        KernelSpy spy;
        FakeStateChange(StateChange_ZonesAdded).send();
        IdleDispatcher::flush();
        int const metricsOfOne = spy.count("VelUtilZoneGetMetrics");
        int const importsOfOne = spy.count("VelUtilImportGetLoaderInstrCount");
        spy.reset();
        for (int event = 0; event < 1000; ++event)
            FakeStateChange(StateChange_ZonesAdded).send();
        IdleDispatcher::flush();
        EXPECT_EQ(spy.count("VelUtilZoneGetMetrics"), metricsOfOne) << "page " << page;
        EXPECT_EQ(spy.count("VelUtilImportGetLoaderInstrCount"), importsOfOne) << "page " << page;
        EXPECT_EQ(importsOfOne, 1) << "page " << page;
    }
}

TEST_F(DataSetInfoLoadingTest, LoadsWhatTheUserLoadsByItsButton)
{
    launched();
    clickRowOf("selectedZonesList", 0);
    QTest::mouseClick(&child<QWidget>("loadVariablesPushButton"), Qt::LeftButton);
    auto* const load = mainWindow->findChild<QDialog*>(QStringLiteral("LoadVariables"));
    ASSERT_TRUE(load && load->isVisible());
    EXPECT_EQ(deferred.timesLoaded(), 0);
    auto* const list = load->findChild<QListView*>(QStringLiteral("LoadVariables_Variables_listView"));
    clickRowOf(*list, 0);
    IdleDispatcher::flush();
    for (QPushButton* const button : load->findChildren<QPushButton*>()) {
        if (button->text() == QStringLiteral("&Load"))
            QTest::mouseClick(button, Qt::LeftButton);
    }
    EXPECT_EQ(deferred.timesLoaded(), 1);
    EXPECT_TRUE(sample.dataSet().field(1, 1)->isLoaded());
    load->close();
}

} // namespace
} // namespace veldraw::tests
