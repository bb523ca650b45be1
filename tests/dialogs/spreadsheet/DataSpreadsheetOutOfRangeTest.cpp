#include "host/MessageLog.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <cfloat>
#include <gmock/gmock.h>
#include <utility>

namespace veldraw::tests {
namespace {

/// Numbers that pass the editor of a cell and are too large for the type of its variable.
class DataSpreadsheetOutOfRangeTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetOutOfRangeTest()
    {
        stage.addZone("line", ZoneType_Ordered, 3, 1, 1);
        stage.fill(1, 1, FieldDataType_Int16, ValueLocation_Nodal, [](int, std::int64_t) { return 1.0; });
        stage.fill(1, 2, FieldDataType_Float, ValueLocation_Nodal, [](int, std::int64_t) { return 1.0; });
        stage.show();
        stage.session().history().clear();
        launched();
        table().setFocus();
    }
};

TEST_F(DataSpreadsheetOutOfRangeTest, AreRefusedWithTheLimitsInTheMessageLog)
{
    host::MessageLog::instance().clear();
    edit(1, 0, "40000");
    settle();
    EXPECT_THAT(messages.take(), testing::ElementsAre("error: Error while setting variable value"));
    EXPECT_EQ(stage.stored(1, 1, 1), 1.0);
    EXPECT_EQ(shown(1, 0), "1");
    EXPECT_FALSE(stage.session().history().canUndo());
    ASSERT_FALSE(host::MessageLog::instance().entries().empty());
    EXPECT_EQ(host::MessageLog::instance().entries().front().text,
              "The value 40000 cannot be stored: the variable has whole numbers from -32768 to 32767.");
    edit(1, 0, "32767");
    EXPECT_THAT(messages.take(), testing::IsEmpty());
    EXPECT_EQ(stage.stored(1, 1, 1), 32767.0);
}

TEST_F(DataSpreadsheetOutOfRangeTest, AreNotTheOnesThatAreRoundedToTheLargest)
{
    for (auto const& [text, number] :
         {std::pair<char const*, float>{"3.4028235e+38", FLT_MAX}, {"-3.4028235e+38", -FLT_MAX}}) {
        edit(1, 1, text);
        settle();
        EXPECT_THAT(messages.take(), testing::IsEmpty());
        EXPECT_EQ(stage.stored(1, 2, 1), number) << text;
    }
}

} // namespace
} // namespace veldraw::tests
