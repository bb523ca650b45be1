#include "dialogs/models/PremappedListModel.h"

#include "dialogs/models/EnumerationLabels.h"
#include "tests/dialogs/models/ListLog.h"
#include "tests/dialogs/models/Rows.h"

#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;
using Angles = PremappedListModel<ThetaMode_e>;
using Points = PremappedListModel<PtSelection_e>;

/// The text of the exception that a call throws for a row that there isn't; "" if it throws none.
template <typename Call>
std::string refusalOf(Call const& call)
{
    try {
        call();
    } catch (std::out_of_range const& refusal) {
        return refusal.what();
    }
    return std::string();
}

TEST(PremappedListModel, OffersATableInItsOrder)
{
    Angles const angles(thetaModeLabels);
    EXPECT_EQ(angles.size(), 2);
    EXPECT_EQ(rows(angles), "0=Degrees | 1=Radians");
}

TEST(PremappedListModel, CopiesItsEntries)
{
    Angles::Entry table[] = {{"Full circle", ThetaMode_Radians}, {"Degrees", ThetaMode_Degrees}};
    Angles const angles(table, 2);
    table[0] = {"changed", ThetaMode_Degrees};
    EXPECT_EQ(rows(angles), "1=Full circle | 0=Degrees");
}

TEST(PremappedListModel, TakesAsManyEntriesAsItIsTold)
{
    Angles::Entry const table[] = {{"Degrees", ThetaMode_Degrees}, {"Radians", ThetaMode_Radians}};
    EXPECT_EQ(rows(Angles(table, 1)), "0=Degrees");
}

TEST(PremappedListModel, IsEmptyWithoutReadingATableOfNoEntries)
{
    Angles const none(nullptr, 0);
    EXPECT_EQ(none.size(), 0);
    EXPECT_EQ(none.indexOf(ThetaMode_Degrees), -1);
    EXPECT_EQ(refusalOf([&] { (void)none.get(0); }), "invalid vector subscript");
}

TEST(PremappedListModel, FindsTheRowOfAValue)
{
    Points const points(ptSelectionLabels);
    EXPECT_EQ(points.indexOf(PtSelection_NearestN), 0);
    EXPECT_EQ(points.indexOf(PtSelection_Octant), 1);
    EXPECT_EQ(points.indexOf(PtSelection_All), 2);
}

TEST(PremappedListModel, HasNoRowForAValueThatIsNotInTheTable)
{
    Points::Entry const table[] = {{"All", PtSelection_All}};
    EXPECT_EQ(Points(table, 1).indexOf(PtSelection_Octant), -1);
}

TEST(PremappedListModel, FindsTheFirstOfTwoEntriesWithOneValue)
{
    Points::Entry const table[] = {{"All", PtSelection_All}, {"Octant", PtSelection_Octant}, {"8", PtSelection_Octant}};
    EXPECT_EQ(Points(table, 3).indexOf(PtSelection_Octant), 1);
}

TEST(PremappedListModel, RefusesRowsThatThereAreNot)
{
    Points const points(ptSelectionLabels);
    for (int const row : {3, 4, -1, std::numeric_limits<int>::max(), std::numeric_limits<int>::min()}) {
        EXPECT_EQ(refusalOf([&] { (void)points.get(row); }), "invalid vector subscript") << row;
        EXPECT_EQ(refusalOf([&] { (void)points.getStr(row); }), "invalid vector subscript") << row;
        EXPECT_EQ(refusalOf([&] { (void)points.getStrForEdit(row); }), "invalid vector subscript") << row;
    }
}

TEST(PremappedListModel, CanBeNeitherEditedNorChanged)
{
    Points points(ptSelectionLabels);
    ListLog told(points);
    EXPECT_FALSE(points.isEditable());
    EXPECT_FALSE(points.setEditedItem("Some", 0));
    points.set(PtSelection_All, 0);
    EXPECT_FALSE(points.isHeader(0));
    EXPECT_EQ(points.getStrForEdit(1), "Octant");
    EXPECT_EQ(rows(points), "1=Nearest N | 2=Octant | 0=All");
    EXPECT_EQ(told.take(), "");
}

TEST(EnumerationLabels, AreWhatPeopleReadInTheOrderInWhichTheyReadIt)
{
    EXPECT_EQ(rows(PremappedListModel<AuxDataLocation_e>(auxDataLocationLabels)),
              "0=Zone | 1=Data set | 2=Frame | 3=Variable | 4=Line map | 5=Page | 6=Layout");
    EXPECT_EQ(rows(PremappedListModel<BoundaryCondition_e>(boundaryConditionLabels)),
              "0=Fixed | 1=First Order | 2=Second Order");
    EXPECT_EQ(rows(PremappedListModel<Drift_e>(driftLabels)), "1=Linear | 0=None | 2=Quadratic");
    EXPECT_EQ(rows(PremappedListModel<FourierPlotDisplayType_e>(fourierPlotDisplayTypeLabels)),
              "0=In corner of source frame | 1=Tile with existing frames");
    EXPECT_EQ(rows(PremappedListModel<IJKPlanes_e>(ijkPlanesLabels)), "0=I | 1=J | 2=K");
    EXPECT_EQ(rows(PremappedListModel<NumberFormat_e>(numberFormatLabels)),
              "0=Integer | 1=Float | 2=Exponent | 3=Best Float");
    EXPECT_EQ(rows(PremappedListModel<PtSelection_e>(ptSelectionLabels)), "1=Nearest N | 2=Octant | 0=All");
    EXPECT_EQ(rows(PremappedListModel<ThetaMode_e>(thetaModeLabels)), "0=Degrees | 1=Radians");
    EXPECT_EQ(rows(PremappedListModel<ValueLocation_e>(valueLocationLabels)), "0=Cell center | 1=Node");
    EXPECT_EQ(rows(PremappedListModel<WindowFunction_e>(windowFunctionLabels)),
              "0=Rectangular | 1=Triangular | 2=Hann | 3=Hamming");
}

} // namespace
} // namespace veldraw::tests
