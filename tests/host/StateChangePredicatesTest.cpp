#include "platform/vdsdkuicommon/StateChangePredicates.h"

#include "tests/support/FakeStateChange.h"

#include <gtest/gtest.h>
#include <ostream>
#include <set>
#include <string>

namespace veldraw::tests {

using namespace veldraw::sdk::ui::common;

namespace {

/// A predicate and all that it is to be true for.
struct Row
{
    char const* name;
    bool (*predicate)(StateChangeEventInterface const&);
    std::set<int> kinds;
    std::set<std::string> styles; // top-level names of style changes
};

void PrintTo(Row const& row, std::ostream* out)
{
    *out << row.name;
}

} // namespace

class StateChangePredicates : public ::testing::TestWithParam<Row>
{
};

TEST_P(StateChangePredicates, AreTrueForTheirKindsAlone)
{
    Row const& row = GetParam();
    for (int kind = -1; kind <= 60; ++kind)
        EXPECT_EQ(row.predicate(FakeStateChange(kind)), row.kinds.count(kind) != 0) << "kind " << kind;
}

TEST_P(StateChangePredicates, AreTrueForTheirStylesAlone)
{
    Row const& row = GetParam();
    for (std::string const style :
         {"PlotType", "ActiveFieldMaps", "ActiveFieldZones", "FieldMap", "FieldLayers", "ActiveXYMaps",
          "ActiveLineMaps", "TwoDAxis", "ThreeDAxis", "Frame", "LineMap", "Interface", "plottype", ""})
        EXPECT_EQ(row.predicate(FakeStateChange(7, {style, "PlotType"})), row.styles.count(style) != 0) << style;
}

TEST_P(StateChangePredicates, LookAtTheStyleOfStyleChangesOnly)
{
    Row const& row = GetParam();
    for (std::string const& style : row.styles)
        EXPECT_FALSE(row.predicate(FakeStateChange(25, {style}))) << style;
}

INSTANTIATE_TEST_SUITE_P(
    All, StateChangePredicates,
    ::testing::Values(
        Row{"newActiveFrame", isNewActiveFrameStateChange, {10, 16, 24}, {}},
        Row{"plotType", isPlotTypeStateChange, {10, 12, 16, 24}, {"PlotType"}},
        Row{"zone", isZoneStateChange, {4, 5, 6, 18, 23}, {}},
        Row{"variable", isVariableStateChange, {1, 2, 3, 17, 21, 22}, {}},
        Row{"zoneOrActiveFrame", isZoneOrActiveFrameStateChange, {4, 5, 6, 10, 12, 16, 18, 23, 24}, {}},
        Row{"fieldStyle",
            isFieldStyleStateChange,
            {},
            {"ActiveFieldMaps", "ActiveFieldZones", "FieldMap", "FieldLayers"}},
        Row{"dataRelated", isDataRelatedStateChange, {0, 1, 2, 3, 4, 5, 6, 10, 12, 16, 17, 18, 21, 22, 23, 24}, {}},
        Row{"engine", engineStateChanged, {1, 2, 3, 4, 5, 6, 8, 9, 10, 12, 16, 17, 18, 21, 23, 24}, {"PlotType"}}),
    [](auto const& row) { return std::string(row.param.name); });

} // namespace veldraw::tests
