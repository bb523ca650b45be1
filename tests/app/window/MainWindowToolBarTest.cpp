#include "app/window/NumberChooser.h"
#include "kernel/data/DimensionsLoader.h"
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QLabel>
#include <QTest>
#include <QToolBar>
#include <QToolButton>

namespace veldraw::tests {

namespace {

class FiveTetrahedra : public kernel::DimensionsLoader
{
public:
    kernel::ZoneDimensions load(kernel::Progress&) override { return {8, 5, 0, nullptr}; }
};

class ToolBarTest : public WindowTest
{
protected:
    QToolButton& button(char const* actionName)
    {
        auto* const bar = window->findChild<QToolBar*>(QStringLiteral("mainToolBar"));
        return *qobject_cast<QToolButton*>(bar->widgetForAction(&action(actionName)));
    }

    app::NumberChooser& contour() { return *window->findChild<app::NumberChooser*>(QStringLiteral("contourChooser")); }
};

} // namespace

TEST_F(ToolBarTest, AClickChoosesThePlotType)
{
    openFlow();
    showWindow();
    QTest::mouseClick(&button("plotTypeLineAction"), Qt::LeftButton);
    settle();
    EXPECT_EQ(PlotType_XYLine, session.activeFrame()->plotType);
    EXPECT_TRUE(button("plotTypeLineAction").isChecked());
    EXPECT_FALSE(button("plotType2DAction").isChecked());
}

TEST_F(ToolBarTest, TheContourBoxChoosesTheVariable)
{
    openFlow();
    showWindow();
    EXPECT_EQ(QStringLiteral("3: P"), contour().currentText());
    contour().setFocus();
    QTest::keyClick(&contour(), Qt::Key_Up);
    settle();
    EXPECT_EQ(2, session.activeFrame()->variableNumber('C'));
}

TEST_F(ToolBarTest, TheContourBoxIsThereForContoursOnly)
{
    showWindow();
    EXPECT_FALSE(contour().isEnabled());
    openFlow();
    EXPECT_TRUE(contour().isEnabled());
    session.perform(kernel::SetPlotOption(session.activeFrame()->id, &kernel::Frame::showContour, false));
    settle();
    EXPECT_FALSE(contour().isEnabled());
}

TEST_F(ToolBarTest, TheContourBoxFollowsDeletionAndUndo)
{
    openFlow();
    showWindow();
    session.perform(kernel::DeleteVariables(*session.activeDataSet(), {2}));
    settle();
    EXPECT_EQ(2, contour().count());
    session.undo();
    settle();
    EXPECT_EQ(3, contour().count());
}

TEST_F(ToolBarTest, EveryButtonSaysWhatItDoes)
{
    showWindow();
    for (QToolButton* tool : window->findChild<QToolBar*>(QStringLiteral("mainToolBar"))->findChildren<QToolButton*>())
        if (tool->defaultAction()) {
            EXPECT_FALSE(tool->toolTip().isEmpty()) << tool->text().toStdString();
        }
}

TEST_F(ToolBarTest, EveryButtonHasAPicture)
{
    showWindow();
    for (QAction* tool : window->findChild<QToolBar*>(QStringLiteral("mainToolBar"))->actions()) {
        if (tool->isSeparator() || tool->icon().isNull())
            continue;
        QImage const picture = tool->icon().pixmap(22, 22).toImage();
        bool isDrawn = false;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                isDrawn = isDrawn || qAlpha(picture.pixel(x, y)) > 128;
        EXPECT_TRUE(isDrawn) << tool->text().toStdString();
    }
}

TEST_F(ToolBarTest, TheStatusBarTellsTheSizeOfTheData)
{
    showWindow();
    auto* const status = window->findChild<QLabel*>(QStringLiteral("dataSetStatus"));
    EXPECT_EQ(QStringLiteral("No data"), status->text());
    openFlow();
    // 12 + 4 points, 6 + 1 cells, three doubles a slot.
    EXPECT_EQ(QString::fromUtf8("2 zones  ·  16 points  ·  7 cells  ·  384 bytes"), status->text());
}

TEST_F(ToolBarTest, TheStatusBarTellsNoSizeThatIsInAFileStill)
{
    showWindow();
    auto const waiting = std::make_shared<kernel::Zone>("waiting", ZoneType_FETetra, -1, -1, -1);
    waiting->dimensionsLoader = std::make_shared<FiveTetrahedra>();
    auto const dataSet = makeFlow();
    dataSet->addZone(waiting);
    openFrames({{"flow", dataSet}});
    auto const* const status = window->findChild<QLabel*>(QStringLiteral("dataSetStatus"));
    EXPECT_EQ(QString::fromUtf8("3 zones  ·  size not loaded  ·  384 bytes"), status->text());
    ASSERT_TRUE(session.perform(kernel::LoadDimensions(*dataSet, 3)));
    settle();
    EXPECT_EQ(QString::fromUtf8("3 zones  ·  24 points  ·  12 cells  ·  384 bytes"), status->text());
}

} // namespace veldraw::tests
