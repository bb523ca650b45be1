#include "app/import/formats/vtkxml/PieceList.h"

#include "kernel/data/Blanking.h"
#include "tests/app/support/DamagedFiles.h"
#include "tests/app/support/FileHelpers.h"

#include <vtkImageData.h>
#include <vtkImageDataToPointSet.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkRTAnalyticSource.h>
#include <vtkThreshold.h>
#include <vtkXMLPImageDataWriter.h>
#include <vtkXMLPStructuredGridWriter.h>
#include <vtkXMLPUnstructuredGridWriter.h>

#include <filesystem>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>
#include <tuple>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

constexpr int writtenPieces = 3;

// A value at each point of a box, as VTK computes it.
vtkSmartPointer<vtkRTAnalyticSource> wavelet()
{
    auto source = vtkSmartPointer<vtkRTAnalyticSource>::New();
    source->SetWholeExtent(-9, 9, -8, 8, -7, 7);
    return source;
}

template <typename Writer>
std::string writeInPieces(vtkAlgorithm& source, std::string const& path, int ghostLevel)
{
    vtkNew<Writer> writer;
    writer->SetInputConnection(source.GetOutputPort());
    writer->SetFileName(path.c_str());
    writer->SetNumberOfPieces(writtenPieces);
    writer->SetStartPiece(0);
    writer->SetEndPiece(writtenPieces - 1);
    writer->SetGhostLevel(ghostLevel);
    writer->Write();
    return path;
}

std::string writeImage(std::string const& path, int ghostLevel)
{
    return writeInPieces<vtkXMLPImageDataWriter>(*wavelet(), path, ghostLevel);
}

std::string writeBlock(std::string const& path)
{
    vtkNew<vtkImageDataToPointSet> filter;
    filter->SetInputConnection(wavelet()->GetOutputPort());
    return writeInPieces<vtkXMLPStructuredGridWriter>(*filter, path, 0);
}

std::string writeMesh(std::string const& path)
{
    vtkNew<vtkThreshold> filter;
    filter->SetInputConnection(wavelet()->GetOutputPort());
    filter->SetLowerThreshold(0.0);
    filter->SetUpperThreshold(1000.0);
    return writeInPieces<vtkXMLPUnstructuredGridWriter>(*filter, path, 1);
}

using Place = std::tuple<double, double, double>;

std::map<Place, double> expectedValues()
{
    auto const source = wavelet();
    source->Update();
    vtkImageData& image = *source->GetOutput();
    std::map<Place, double> values;
    for (vtkIdType point = 0; point < image.GetNumberOfPoints(); ++point) {
        double const* const at = image.GetPoint(point);
        values[{at[0], at[1], at[2]}] = image.GetPointData()->GetScalars()->GetComponent(point, 0);
    }
    return values;
}

bool isHidden(kernel::Zone const& zone, ValueLocation_e location, std::int64_t slot)
{
    return zone.blanking && zone.blanking->hidden(location) && zone.blanking->hidden(location)->contains(slot);
}

// Each value that is shown is the one at its place, and no place has none.
void expectAllValues(kernel::DataSet const& data)
{
    auto const expected = expectedValues();
    ASSERT_GT(expected.size(), 4000U);
    std::map<Place, double> found;
    for (int zone = 1; zone <= data.zoneCount(); ++zone) {
        auto const value = [&](char const* name, std::int64_t point) {
            return fieldOf(data, zone, name).group()->buffer()->value(point);
        };
        for (std::int64_t point = 0; point < data.zone(zone)->pointCount(); ++point) {
            Place const place{value("X", point), value("Y", point), value("Z", point)};
            auto const known = expected.find(place);
            ASSERT_NE(known, expected.end());
            ASSERT_EQ(value("RTData", point), known->second);
            if (!isHidden(*data.zone(zone), ValueLocation_Nodal, point))
                found[place] = known->second;
        }
    }
    EXPECT_EQ(found.size(), expected.size());
}

std::int64_t shownCells(kernel::DataSet const& data)
{
    std::int64_t count = 0;
    for (int number = 1; number <= data.zoneCount(); ++number) {
        kernel::Zone const& zone = *data.zone(number);
        for (std::int64_t cell = 0; cell < zone.connectivity->cellCount; ++cell)
            count += isHidden(zone, ValueLocation_CellCentered, cell) ? 0 : 1;
    }
    return count;
}

SoundFile parallelFile(TemporaryFolder const& folder)
{
    SoundFile file{"box.pvtu", contentOf(writeMesh(folder.path("box.pvtu"))), {}};
    for (char const* name : {"box_0.vtu", "box_1.vtu", "box_2.vtu"})
        file.others.emplace_back(name, contentOf(folder.path(name)));
    return file;
}

} // namespace

TEST(ParallelFile, HasAZoneForEachPieceWithAllOfItsValues)
{
    TemporaryFolder const folder;
    for (std::string const& path : {writeImage(folder.path("box.pvti"), 0), writeImage(folder.path("ghosts.pvti"), 1),
                                    writeBlock(folder.path("block.pvts")), writeMesh(folder.path("mesh.pvtu"))}) {
        SCOPED_TRACE(path);
        for (app::Deferral const deferral : {app::Deferral::Auto, app::Deferral::Always}) {
            auto const data = import(path, deferral).dataSet;
            loadAll(*data);
            ASSERT_EQ(data->zoneCount(), writtenPieces);
            EXPECT_EQ(data->zone(2)->name, std::filesystem::path(path).stem().string() + " 2");
            EXPECT_EQ(variableNames(*data), "X,Y,Z,RTData") << "marks of ghosts are no variable";
            expectAllValues(*data);
        }
    }
}

TEST(ParallelFile, ShowsEachCellOnceWherePiecesHaveGhosts)
{
    TemporaryFolder const folder;
    auto const data = import(writeMesh(folder.path("mesh.pvtu"))).dataSet;
    EXPECT_EQ(shownCells(*data), 18 * 16 * 14);
    std::int64_t all = 0;
    for (int zone = 1; zone <= writtenPieces; ++zone)
        all += data->zone(zone)->connectivity->cellCount;
    EXPECT_GT(all, 18 * 16 * 14) << "there are ghosts";
}

TEST(ParallelFile, NamesThePieceThatIsMissing)
{
    TemporaryFolder const folder;
    std::string const path = writeMesh(folder.path("mesh.pvtu"));
    std::filesystem::remove(folder.path("mesh_1.vtu"));
    EXPECT_EQ(problemWith(path), "Cannot open \"" + path + "\": its part \"mesh_1.vtu\": there is no such file.");
}

TEST(ParallelFile, OfAnotherKindIsRefused)
{
    TemporaryFolder const folder;
    std::string const mesh = contentOf(writeMesh(folder.path("mesh.pvtu")));
    EXPECT_THAT(problemWith(folder.write("a.pvti", mesh)),
                HasSubstr("it is no parallel VTK XML file of the kind that .pvti stands for"));
    EXPECT_THAT(problemWith(folder.write("b.pvtu", "some text\n")), HasSubstr("it is no parallel VTK XML file"));
    std::string const start = "<VTKFile type=\"PUnstructuredGrid\"><PUnstructuredGrid>";
    std::string const end = "</PUnstructuredGrid></VTKFile>";
    EXPECT_THAT(problemWith(folder.write("c.pvtu", start + "<Piece Source=\"c.pvtu\"/>" + end)),
                HasSubstr("its part \"c.pvtu\": files of this kind cannot be parts"));
    writeImage(folder.path("box.pvti"), 0);
    EXPECT_THAT(problemWith(folder.write("g.pvtu", start + "<Piece Source=\"box_0.vti\"/>" + end)),
                HasSubstr("its part \"box_0.vti\": files of this kind cannot be parts"));
    EXPECT_THAT(problemWith(folder.write("d.pvtu", start + "<Piece/>" + end)),
                HasSubstr("a piece of it names no file (line 1)"));
    EXPECT_THAT(problemWith(folder.write("e.pvtu", start + end)), HasSubstr("it has no points"));
    EXPECT_THAT(problemWith(folder.write("f.pvtu", start + "<Piece Source=\"/etc/x.vtu\"/>" + end)),
                HasSubstr("it names files outside of its folder: "));
}

TEST(ParallelFile, StandsAnyDamage)
{
    TemporaryFolder const folder;
    expectToStandDamage(parallelFile(folder), 200);
}

} // namespace veldraw::tests
