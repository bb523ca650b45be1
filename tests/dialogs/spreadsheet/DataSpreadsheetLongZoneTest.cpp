#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"
#include "tests/support/KernelSpy.h"

#include <QScrollBar>

#include <gmock/gmock.h>
#include <sys/mman.h>

namespace veldraw::tests {
namespace {

constexpr std::int64_t manyRows = 3000000000;

/// A line of three thousand million floats in memory of which no page has been touched, as a sparse file gives it.
class DataSpreadsheetLongZoneTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetLongZoneTest()
    {
        stage.addZone("Line", ZoneType_Ordered, manyRows, 1, 1);
        std::size_t const bytes = static_cast<std::size_t>(manyRows) * sizeof(float);
        void* const memory =
            mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
        std::shared_ptr<void> const owner(memory, [bytes](void* pages) { munmap(pages, bytes); });
        stage.dataSet().zone(1)->fields[0] = kernel::Field(std::make_shared<kernel::ShareGroup>(kernel::Buffer::adopt(
                                                               FieldDataType_Float, manyRows, memory, 1, owner)),
                                                           ValueLocation_Nodal);
        stage.show();
        launched();
        table().setFocus();
    }

    unsigned long long currentRow() { return adapter().tableRow(table().currentIndex().row()); }
    std::string currentRowName()
    {
        return adapter().headerData(table().currentIndex().row(), Qt::Vertical).toString().toStdString();
    }
};

TEST_F(DataSpreadsheetLongZoneTest, IsEditedInItsLastRowAndTakenBack)
{
    QTest::keyClick(&table(), Qt::Key_End, Qt::ControlModifier);
    QTest::keyClick(&table(), Qt::Key_Home);
    settle();
    EXPECT_EQ(currentRow(), static_cast<unsigned long long>(manyRows - 1));
    EXPECT_EQ(currentRowName(), "3000000000");
    type("2.5");
    pressInEditor(Qt::Key_Return);
    EXPECT_EQ(stage.stored(1, 1, manyRows - 1), 2.5);
    EXPECT_EQ(stage.stored(1, 1, manyRows - 2), 0.0);
    EXPECT_EQ(shown(table().currentIndex().row(), 0), "2.5");
    stage.session().undo();
    settle();
    EXPECT_EQ(shown(table().currentIndex().row(), 0), "0");
    QTest::keyClick(&table(), Qt::Key_Home, Qt::ControlModifier);
    settle();
    EXPECT_EQ(currentRowName(), "1");
}

TEST_F(DataSpreadsheetLongZoneTest, CostsNoMoreReadsThanCellsAreSeenToScroll)
{
    auto& bar = widget<QScrollBar>("Row_ScrollBar");
    ASSERT_TRUE(bar.isVisible());
    bar.setSliderPosition(bar.maximum() / 3);
    settle();
    KernelSpy spy;
    for (auto const step : {QAbstractSlider::SliderSingleStepAdd, QAbstractSlider::SliderPageStepAdd,
                            QAbstractSlider::SliderPageStepSub, QAbstractSlider::SliderToMaximum}) {
        spy.reset();
        bar.triggerAction(step);
        settle();
        EXPECT_GT(spy.count("VelUtilDataValueGetByZoneVar"), 0);
        EXPECT_LE(spy.count("VelUtilDataValueGetByZoneVar"), visibleCells());
    }
}

} // namespace
} // namespace veldraw::tests
