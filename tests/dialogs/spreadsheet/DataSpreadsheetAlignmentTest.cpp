#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <QImage>

namespace veldraw::tests {
namespace {

/// Where the text of a cell stands.
class DataSpreadsheetAlignmentTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetAlignmentTest()
    {
        stage.addZone("Line", ZoneType_Ordered, 5, 1, 1);
        stage.fillAll(1);
        stage.show();
        launched();
    }

    /// Distance of the leftmost and of the rightmost ink from the edges of a cell that is neither current nor selected.
    std::pair<int, int> margins(int row, int column)
    {
        QRect const cell = table().visualRect(adapter().index(row, column)).adjusted(1, 1, -1, -1);
        QImage const picture = table().viewport()->grab(cell).toImage();
        int first = picture.width();
        int last = -1;
        for (int x = 0; x < picture.width(); ++x)
            for (int y = 0; y < picture.height(); ++y)
                if (picture.pixelColor(x, y).lightness() < 128) {
                    first = std::min(first, x);
                    last = std::max(last, x);
                }
        return {first, picture.width() - 1 - last};
    }
};

TEST_F(DataSpreadsheetAlignmentTest, NumbersStandToTheRight)
{
    goTo(0, 0);
    table().clearSelection();
    for (int column = 0; column < 3; ++column) {
        auto const [left, right] = margins(3, column);
        EXPECT_LT(right, 8) << shown(3, column);
        EXPECT_GT(left, right) << shown(3, column);
    }
}

TEST_F(DataSpreadsheetAlignmentTest, AndStayThereWhileTheyAreEdited)
{
    goTo(0, 0);
    type("7");
    auto const* const editor = table().viewport()->findChild<QLineEdit*>();
    ASSERT_TRUE(editor);
    EXPECT_TRUE(editor->alignment().testFlag(Qt::AlignRight));
}

} // namespace
} // namespace veldraw::tests
