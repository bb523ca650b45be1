#include "kernel/style/CutStyleItem.h"

#include "kernel/frames/CutDefaults.h"
#include "kernel/operations/CutOperation.h"
#include "tests/support/StyleSession.h"

#include <gmock/gmock.h>
#include <limits>

namespace veldraw::tests {

using kernel::CutKind;
using kernel::StyleAddress;
using kernel::StyleNumber;
using testing::ElementsAre;

namespace {

class CutStyleItemTest : public testing::Test
{
protected:
    CutStyleItemTest()
    {
        for (CutKind const kind : {CutKind::Plane, CutKind::IsoSurface})
            sample.session().perform(kernel::AddCut(sample.frame().id, kernel::defaultCut(kind, sample.frame())));
        sample.takeEvents();
    }

    static StyleAddress at(std::vector<std::string> path, long long cut, kernel::UniqueId frame = 0)
    {
        path.insert(path.begin(), "Cut");
        return {path, frame, cut};
    }

    SetValueReturnCode_e set(std::vector<std::string> const& path, long long cut, double number)
    {
        return tree.set(at(path, cut), StyleNumber::ofReal(number));
    }

    StyleSession sample;
    kernel::StyleTree& tree = sample.tree();
};

} // namespace

TEST_F(CutStyleItemTest, EachNumberOfACutIsReadAndWritten)
{
    std::vector<std::vector<std::string>> const paths{{"Position"},    {"Normal", "X"}, {"Normal", "Y"},
                                                      {"Normal", "Z"}, {"Origin", "X"}, {"Origin", "Y"},
                                                      {"Origin", "Z"}};
    double number = 0.5;
    for (auto const& path : paths) {
        ASSERT_EQ(set(path, 1, number), SetValueReturnCode_Ok) << path.back();
        EXPECT_EQ(tree.get(at(path, 1)).value().real, number);
        EXPECT_EQ(set(path, 1, number), SetValueReturnCode_Duplicate);
        EXPECT_EQ(sample.session().history().undoName(), "Slice");
        number += 0.25;
    }
    EXPECT_FALSE(tree.hasPath({"Cut", "Normal", ""}));
    kernel::Cut const& cut = sample.frame().cuts[0];
    EXPECT_EQ(cut.position, 0.5);
    EXPECT_EQ(cut.normal, (std::array<double, 3>{0.75, 1.0, 1.25}));
    EXPECT_EQ(cut.origin, (std::array<double, 3>{1.5, 1.75, 2.0}));
}

TEST_F(CutStyleItemTest, ShowsAndHides)
{
    EXPECT_EQ(tree.get(at({"Show"}, 2)).value().whole, 1);
    EXPECT_EQ(set({"Show"}, 2, 0), SetValueReturnCode_Ok);
    EXPECT_THAT(sample.takeEvents(), ElementsAre("7 Cut, Show"));
    EXPECT_FALSE(sample.frame().cuts[1].isShown);
    EXPECT_TRUE(sample.frame().cuts[0].isShown);
    EXPECT_EQ(set({"Show"}, 2, 2), SetValueReturnCode_Refused);
    sample.session().undo();
    EXPECT_EQ(tree.get(at({"Show"}, 2)).value().whole, 1);
}

TEST_F(CutStyleItemTest, TellsTheVariableByItsNumber)
{
    kernel::DataSet const& dataSet = *sample.frame().dataSet;
    EXPECT_EQ(set({"Var"}, 2, 2), SetValueReturnCode_Ok);
    EXPECT_EQ(sample.frame().cuts[1].variable, dataSet.variable(2)->id);
    EXPECT_EQ(tree.get(at({"Var"}, 2)).value().whole, 2);
    EXPECT_EQ(tree.get(at({"Var"}, 1)).value().whole, 0) << "a plane has none";
    EXPECT_EQ(set({"Var"}, 2, 0), SetValueReturnCode_Refused);
    EXPECT_EQ(set({"Var"}, 2, dataSet.variableCount() + 1.0), SetValueReturnCode_Refused);
    sample.frame().dataSet.reset();
    EXPECT_EQ(set({"Var"}, 2, 1), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "The frame has no variables for Cut, Var.");
}

TEST_F(CutStyleItemTest, RefusesWhatIsNoCutAndNoPlace)
{
    for (long long const cut : {-1LL, 0LL, 3LL, 1LL << 40}) {
        EXPECT_FALSE(tree.get(at({"Position"}, cut))) << cut;
        EXPECT_EQ(set({"Position"}, cut, 1.0), SetValueReturnCode_Refused) << cut;
    }
    set({"Position"}, 3, 1.0);
    EXPECT_EQ(tree.lastError(), "Cut, Position takes the number of a slice from 1 to 2 as its one offset; 3 is none.");
    EXPECT_FALSE(tree.get(at({"Position"}, 1, 987654321)));
    EXPECT_EQ(set({"Position"}, 1, std::numeric_limits<double>::infinity()), SetValueReturnCode_Refused);
    set({"Normal", "X"}, 1, 2.0);
    set({"Normal", "Y"}, 1, 0.0);
    set({"Normal", "Z"}, 1, 0.0);
    EXPECT_EQ(set({"Normal", "X"}, 1, 0.0), SetValueReturnCode_Refused);
    EXPECT_EQ(tree.lastError(), "The normal of a plane needs a direction: it must not be 0.");
}

} // namespace veldraw::tests
