#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/LoadVariables.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// The table over two lines and a block whose values are loaded on demand; no frame shows any of them.
class ShownTableValuesTest : public SpreadsheetDriver
{
protected:
    ShownTableValuesTest()
    {
        stage.addZone("Line", ZoneType_Ordered, 4, 1, 1);
        stage.addZone("Other", ZoneType_Ordered, 4, 1, 1);
        stage.addZone("Block", ZoneType_Ordered, 3, 3, 2);
        for (int zone = 1; zone <= 3; ++zone) {
            for (int variable = 1; variable <= 3; ++variable)
                stage.defer(zone, variable, 10.0 * zone + variable);
        }
        stage.show();
        kernel::Frame& frame = *stage.frame();
        frame.axes2D = {};
        frame.axes3D = {};
        frame.vector = {};
        frame.contourVariable = 0;
        frame.lineMaps.clear();
        launched();
    }

    void showZone(int zone)
    {
        Choices::spreadsheetZone()->setValue(zone);
        settle();
    }

    /// Loads everything, has all of it unloaded that is spare, and tells what is left.
    std::vector<std::string> leftWhenMemoryIsShort()
    {
        kernel::Session& session = stage.session();
        EXPECT_TRUE(session.perform(kernel::LoadVariables(stage.dataSet(), {1, 2, 3}, {1, 2, 3})));
        std::int64_t const limit = session.loadedValues().limit();
        session.loadedValues().setLimit(0);
        session.loadedValues().setLimit(limit);
        std::vector<std::string> left;
        for (int zone = 1; zone <= 3; ++zone) {
            for (int variable = 1; variable <= 3; ++variable) {
                if (stage.dataSet().field(zone, variable)->isLoaded())
                    left.push_back(stage.dataSet().zone(zone)->name + " " + stage.dataSet().variable(variable)->name);
            }
        }
        return left;
    }

    static constexpr char notLoaded[] =
        "error: The value 7 was not set: the values of its variable are not loaded any more.";
};

TEST_F(ShownTableValuesTest, StayInMemoryWhileOthersAreUnloaded)
{
    EXPECT_THAT(leftWhenMemoryIsShort(), ElementsAre("Line P", "Line T", "Line V"));
    settle();
    EXPECT_EQ(shown(3, 2), "13");
    showZone(2);
    EXPECT_THAT(leftWhenMemoryIsShort(), ElementsAre("Other P", "Other T", "Other V"));
}

TEST_F(ShownTableValuesTest, AreThoseOfOneVariableInABlock)
{
    Choices::spreadsheetVariable()->setValue(2);
    showZone(3);
    EXPECT_THAT(leftWhenMemoryIsShort(), ElementsAre("Block T"));
}

TEST_F(ShownTableValuesTest, AreNoneWhileTheDialogIsClosed)
{
    dialog().close();
    settle();
    EXPECT_THAT(leftWhenMemoryIsShort(), IsEmpty());
    dialog().launch();
    settle();
    EXPECT_THAT(leftWhenMemoryIsShort(), ElementsAre("Line P", "Line T", "Line V"));
    delete &dialog();
    EXPECT_THAT(leftWhenMemoryIsShort(), IsEmpty());
}

TEST_F(ShownTableValuesTest, AreNoneWhileAFrameWithoutDataIsActive)
{
    stage.hide();
    settle();
    EXPECT_THAT(leftWhenMemoryIsShort(), IsEmpty());
    stage.show();
    settle();
    EXPECT_THAT(leftWhenMemoryIsShort(), ElementsAre("Line P", "Line T", "Line V"));
}

TEST_F(ShownTableValuesTest, AreMissedByATextThatWasTypedBeforeTheyWereUnloaded)
{
    ASSERT_TRUE(stage.session().perform(kernel::LoadVariables(stage.dataSet(), {1}, {1, 2, 3})));
    settle();
    table().setFocus();
    goTo(2, 1);
    type("7");
    stage.dataSet().zone(1)->fields[1].group()->unload();
    ASSERT_TRUE(stage.session().perform(kernel::DeleteVariables(stage.dataSet(), {1})));
    pressInEditor(Qt::Key_Return);
    EXPECT_THAT(messages.take(), ElementsAre(notLoaded));
    EXPECT_FALSE(stage.dataSet().field(1, 1)->isLoaded());
}

} // namespace
} // namespace veldraw::tests
