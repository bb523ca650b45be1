#include "tests/dialogs/datasetinfo/DataSetInfoFixture.h"
#include "tests/dialogs/support/DialogLifecycleTest.h"

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

INSTANTIATE_TEST_SUITE_P(DataSetInfo, DialogLifecycleTest, testing::Values(dataSetInfo()));

using DataSetInfoLifecycleTest = DataSetInfoFixture;

TEST_F(DataSetInfoLifecycleTest, MayBeMadeWithoutDataWithoutAFrameAndWithoutAPage)
{
    sample.session().clear();
    launchedAt(dataSetPage);
    EXPECT_EQ(labelled("numZonesLabel"), "0");
    delete &dialog();
    sample.session().removeAllPages();
    launchedAt(auxDataPage);
    EXPECT_TRUE(auxData().empty());
    EXPECT_EQ(choicesOf(owners).size(), 0u);
    delete &dialog();
}

TEST_F(DataSetInfoLifecycleTest, LeavesALoadDialogThatItHasOpened)
{
    launched();
    QPointer<QDialog> load;
    for (QWidget* const window : QApplication::topLevelWidgets())
        EXPECT_NE(window->objectName(), QStringLiteral("LoadVariables")) << "not before it is wanted";
    QTest::mouseClick(&child<QWidget>("loadVariablesPushButton"), Qt::LeftButton);
    for (QWidget* const window : QApplication::topLevelWidgets()) {
        if (window->objectName() == QStringLiteral("LoadVariables"))
            load = qobject_cast<QDialog*>(window);
    }
    ASSERT_TRUE(load);
    EXPECT_TRUE(load->isVisible());
    load->close();
    EXPECT_TRUE(dialog().isVisible());
}

} // namespace
} // namespace veldraw::tests
