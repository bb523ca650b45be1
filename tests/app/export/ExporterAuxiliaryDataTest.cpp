#include "tests/app/support/AuxiliaryTexts.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <vtkCellType.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::Contains;
using ::testing::HasSubstr;
using ::testing::Not;

namespace {

std::shared_ptr<kernel::DataSet> sampleOf(TemporaryFolder const& folder, std::string const& extension)
{
    auto const mesh = unstructuredGrid(4, {{VTK_QUAD, {0, 1, 2, 3}}});
    addPointValues(*mesh, "p", {1, 2, 3, 4});
    auto const grid = structuredGrid(2, 2, 1);
    addPointValues(*grid, "p", {1, 2, 3, 4});
    bool const isMesh = extension == "vtu" || extension == "vtp";
    return isMesh ? import(writeXml(*mesh, folder.path("in.vtu"))).dataSet
                  : import(writeXml(*grid, folder.path("in.vts"))).dataSet;
}

// Items whose values could be taken for something else, and under names that mean something in a file.
void annotate(kernel::AuxiliaryData& data)
{
    for (auto const& [name, value] :
         std::vector<std::pair<char const*, char const*>>{{"Text", "two\nlines \"quoted\" & <tagged>, Strömung 流れ"},
                                                          {"Empty", ""},
                                                          {"Blank", " x "},
                                                          {"Zeros", "007"},
                                                          {"Whole", "9007199254740993"},
                                                          {"Number", "0.1"},
                                                          {"Small", "1e-30"},
                                                          {"Minus", "-0"},
                                                          {"Plus", "+1"},
                                                          {"Huge", "1e999"},
                                                          {"Nan", "nan"},
                                                          {"Trailing", "1.50"},
                                                          {"TimeValue", "7"},
                                                          {"ZoneName", "not this one"},
                                                          {"AuxiliaryData", "Zone"},
                                                          {"VariableNames", "q"}})
        ASSERT_TRUE(data.set(name, value, true));
}

} // namespace

TEST(ExportOfAuxiliaryData, BringsBackWhatIsRetainedInEveryVtkFormat)
{
    for (std::string const extension : {"vtm", "vts", "vtu", "vtp", "vti"}) {
        SCOPED_TRACE(extension);
        TemporaryFolder const folder;
        auto const data = sampleOf(folder, extension);
        data->zone(1)->name = "the zone";
        annotate(data->auxiliaryData());
        annotate(data->zone(1)->auxiliaryData);
        annotate(data->variable(4)->auxiliaryData);
        data->variable(1)->auxiliaryData.set("Unit", "m", true);
        std::string const path = folder.path("out." + extension);
        save(*data, path);
        for (app::Deferral const deferral : {app::Deferral::Always, app::Deferral::Never}) {
            auto const back = import(path, deferral).dataSet;
            EXPECT_EQ(allTextsOf(*back), allTextsOf(*data));
            EXPECT_EQ(back->zone(1)->name, "the zone");
            EXPECT_EQ(variableNames(*back), variableNames(*data));
            EXPECT_EQ(back->zone(1)->solutionTime, 0.0);
        }
    }
}

TEST(ExportOfAuxiliaryData, KeepsTheItemsOfSeveralZonesApart)
{
    TemporaryFolder const folder;
    auto const data = sampleOf(folder, "vts");
    auto const second = std::make_shared<kernel::Zone>(*data->zone(1));
    second->id = kernel::nextUniqueId();
    second->name = "second";
    data->addZone(second);
    data->zone(1)->auxiliaryData.set("Part", "hull", true);
    data->zone(2)->auxiliaryData.set("Part", "keel", true);
    data->auxiliaryData().set("Part", "ship", true);
    save(*data, folder.path("out.vtm"));
    EXPECT_EQ(allTextsOf(*import(folder.path("out.vtm")).dataSet), allTextsOf(*data));
    EXPECT_THAT(
        save(*data, folder.path("out.csv")),
        Contains(
            "Auxiliary data of zones and variables were left out: a table has a place for those of the data set only"));
    EXPECT_EQ(contentOf(folder.path("out_tables/out_1.csv")).substr(0, 13), "# Part: ship\n");
}

TEST(ExportOfAuxiliaryData, StandsAboveTheHeaderOfATable)
{
    for (std::string const extension : {"csv", "tsv"}) {
        TemporaryFolder const folder;
        auto const data = sampleOf(folder, "vts");
        annotate(data->auxiliaryData());
        data->variable(1)->name = "# X: 1";
        data->variable(2)->name = "7";
        std::string const path = folder.path("out." + extension);
        EXPECT_THAT(save(*data, path), Not(Contains(HasSubstr("uxiliary"))));
        auto const back = import(path).dataSet;
        EXPECT_EQ(textOf(back->auxiliaryData()), textOf(data->auxiliaryData()));
        EXPECT_EQ(variableNames(*back), "# X: 1,7,Z,p");
        EXPECT_EQ(valuesOf(*back, 1, "p"), "1 2 3 4");
        save(*back, folder.path("again." + extension));
        EXPECT_EQ(contentOf(folder.path("again." + extension)), contentOf(path));
    }
}

TEST(ExportOfAuxiliaryData, LeavesOutWhatIsNotRetained)
{
    TemporaryFolder const folder;
    auto const data = sampleOf(folder, "vts");
    for (kernel::AuxiliaryData* const owner :
         {&data->auxiliaryData(), &data->zone(1)->auxiliaryData, &data->variable(1)->auxiliaryData}) {
        owner->set("Kept", "1", true);
        owner->set("ForNow", "2", false);
    }
    for (std::string const name : {"out.vtm", "out.vts"}) {
        save(*data, folder.path(name));
        EXPECT_EQ(allTextsOf(*import(folder.path(name)).dataSet),
                  "data set: Kept=1\n" + data->zone(1)->name + ": Kept=1\nX: Kept=1\n");
    }
    data->zone(1)->auxiliaryData.remove("Kept");
    data->variable(1)->auxiliaryData.remove("Kept");
    EXPECT_THAT(save(*data, folder.path("out.csv")), Not(Contains(HasSubstr("uxiliary"))))
        << "nothing that is retained is lost";
    EXPECT_EQ(textOf(import(folder.path("out.csv")).dataSet->auxiliaryData()), "Kept=1");
}

TEST(ExportOfAuxiliaryData, GivesOtherProgramsNumbersAsNumbers)
{
    TemporaryFolder const folder;
    auto const data = sampleOf(folder, "vts");
    data->zone(1)->auxiliaryData.set("Mach", "0.8", true);
    data->auxiliaryData().set("Cycle", "12", true);
    save(*data, folder.path("out.vts"));
    EXPECT_THAT(contentOf(folder.path("out.vts")), HasSubstr("type=\"Float64\" Name=\"Mach\""));
    save(*data, folder.path("out.vtm"));
    EXPECT_THAT(
        contentOf(folder.path("out.vtm")),
        HasSubstr("<DataArray type=\"Int64\" Name=\"Cycle\" NumberOfTuples=\"1\" format=\"ascii\">12</DataArray>"));
}

} // namespace veldraw::tests
