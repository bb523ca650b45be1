#include "app/vtk/VtkErrorCapture.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/PieceFiles.h"

#include <vtkBitArray.h>
#include <vtkCellArray.h>
#include <vtkCellData.h>
#include <vtkCellType.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkImageData.h>
#include <vtkIntArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkRectilinearGrid.h>
#include <vtkStringArray.h>
#include <vtkXMLWriter.h>

#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <random>

namespace veldraw::tests {

namespace {

constexpr unsigned int choiceSeed = 20261122;
constexpr double memoryForSome = 1500.0; // bytes: enough for the coordinates and one or the other array of a sample

using Grid = vtkSmartPointer<vtkDataSet>;

struct Sample
{
    std::string name;
    std::string extension;
    std::vector<std::function<Grid()>> pieces; // made anew for each file, with points and cells alone
    std::string wholeExtent;
    std::size_t step = 5; // of every so many encodings one is tried
};

// Numbers at the limits of their types among ordinary ones; a text has no place for infinities and the like.
void fill(vtkDataArray& array, bool inText, std::mt19937& random)
{
    bool const isFloating = array.GetDataType() == VTK_FLOAT || array.GetDataType() == VTK_DOUBLE;
    for (vtkIdType tuple = 0; tuple < array.GetNumberOfTuples(); ++tuple) {
        for (int component = 0; component < array.GetNumberOfComponents(); ++component) {
            double value = static_cast<double>(static_cast<int>(random() % 200)) / (isFloating ? 7.0 : 2.0);
            if (random() % 4 == 0)
                value = random() % 2 == 0 ? array.GetDataTypeMin() : array.GetDataTypeMax();
            if (!inText && isFloating && random() % 5 == 0)
                value = random() % 2 == 0 ? std::numeric_limits<double>::quiet_NaN()
                                          : std::numeric_limits<double>::infinity() * (random() % 2 == 0 ? 1 : -1);
            if (array.GetDataType() == VTK_LONG_LONG)
                value = static_cast<double>(random() % 1000); // as numbers of things are
            if (array.GetDataType() == VTK_UNSIGNED_LONG_LONG)
                value = std::ldexp(static_cast<double>(random()), static_cast<int>(random() % 21));
            array.SetComponent(tuple, component, value);
        }
    }
}

void addTexts(vtkDataSetAttributes& attributes, std::string const& name, vtkIdType count)
{
    vtkNew<vtkStringArray> texts;
    texts->SetName(name.c_str());
    for (vtkIdType n = 0; n < count; ++n)
        texts->InsertNextValue("text");
    attributes.AddArray(texts);
}

// Arrays of every type and of several components, of texts, of bits, and of a coordinate's name.
void addArrays(vtkDataSetAttributes& attributes, vtkIdType count, std::string const& place, bool inText,
               std::mt19937& random)
{
    int number = 0;
    for (int const type : {VTK_DOUBLE, VTK_SIGNED_CHAR, VTK_UNSIGNED_CHAR, VTK_SHORT, VTK_UNSIGNED_SHORT, VTK_INT,
                           VTK_UNSIGNED_INT, VTK_LONG_LONG, VTK_FLOAT, VTK_UNSIGNED_LONG_LONG}) {
        static int const components[] = {1, 3, 2, 9, 4};
        auto const array = vtkSmartPointer<vtkDataArray>::Take(vtkDataArray::CreateDataArray(type));
        std::string const common = number % 4 == 2 ? "both " : place + " a>b ";
        array->SetName((common + array->GetDataTypeAsString()).c_str());
        array->SetNumberOfComponents(components[number % 5]);
        array->SetNumberOfTuples(count);
        fill(*array, inText, random);
        attributes.AddArray(array);
        if (number++ % 3 == 1)
            addTexts(attributes, place + " texts " + std::to_string(number), count);
    }
    vtkNew<vtkBitArray> bits;
    bits->SetName((place + " bits").c_str());
    bits->SetNumberOfTuples(count);
    for (vtkIdType n = 0; n < count; ++n)
        bits->SetValue(n, n % 3 == 0 ? 1 : 0);
    attributes.AddArray(bits);
    vtkNew<vtkFloatArray> x;
    x->SetName("X");
    x->SetNumberOfTuples(count);
    x->Fill(0.5);
    attributes.AddArray(x);
    attributes.SetActiveScalars("X");
}

Grid imagePiece(std::array<int, 6> extent)
{
    auto const grid = vtkSmartPointer<vtkImageData>::New();
    grid->SetExtent(extent.data());
    grid->SetOrigin(0.0, 3.0, -2.0);
    grid->SetSpacing(0.1, 2.0, 0.3);
    grid->SetDirectionMatrix(0.6, -0.8, 0, 0.8, 0.6, 0, 0, 0, 1);
    return grid;
}

template <typename Array>
vtkSmartPointer<vtkDataArray> positions(int first, int last, double step)
{
    auto const array = vtkSmartPointer<Array>::New();
    for (int n = first; n <= last; ++n)
        array->InsertNextTuple1(step * n * std::abs(n));
    return array;
}

Grid rectilinearPiece(std::array<int, 6> extent)
{
    auto const grid = vtkSmartPointer<vtkRectilinearGrid>::New();
    grid->SetExtent(extent.data());
    grid->SetXCoordinates(positions<vtkDoubleArray>(extent[0], extent[1], 0.1));
    grid->SetYCoordinates(positions<vtkFloatArray>(extent[2], extent[3], -0.7));
    grid->SetZCoordinates(positions<vtkIntArray>(extent[4], extent[5], 2.0));
    return grid;
}

Grid structuredPiece(std::array<int, 6> extent)
{
    auto const grid = vtkSmartPointer<vtkStructuredGrid>::New();
    grid->SetExtent(extent.data());
    vtkNew<vtkPoints> points;
    points->SetDataTypeToDouble();
    for (int k = extent[4]; k <= extent[5]; ++k)
        for (int j = extent[2]; j <= extent[3]; ++j)
            for (int i = extent[0]; i <= extent[1]; ++i)
                points->InsertNextPoint(0.1 * i, 0.3 * j * i, k - 0.7 * j);
    grid->SetPoints(points);
    return grid;
}

Grid surface(std::vector<std::vector<vtkIdType>> const& verts, std::vector<std::vector<vtkIdType>> const& lines,
             std::vector<std::vector<vtkIdType>> const& polys, std::vector<std::vector<vtkIdType>> const& strips)
{
    auto const grid = vtkSmartPointer<vtkPolyData>::New();
    grid->SetPoints(unstructuredGrid(8, {})->GetPoints());
    auto const cells = [](std::vector<std::vector<vtkIdType>> const& lists) {
        auto const result = vtkSmartPointer<vtkCellArray>::New();
        for (auto const& list : lists)
            result->InsertNextCell(static_cast<vtkIdType>(list.size()), list.data());
        return result;
    };
    grid->SetVerts(cells(verts));
    grid->SetLines(cells(lines));
    grid->SetPolys(cells(polys));
    grid->SetStrips(cells(strips));
    return grid;
}

Sample ordered(std::string const& extension, Grid (*piece)(std::array<int, 6>))
{
    return {extension, extension, {[piece] { return piece({5, 8, -2, 0, 7, 9}); }}, {}, 3};
}

Sample orderedPieces(std::string const& extension, Grid (*piece)(std::array<int, 6>))
{
    return {extension + "InPieces",
            extension,
            {[piece] {
                 return piece({5, 7, -2, 0, 7, 8});
             },
             [piece] {
                 return piece({7, 8, -2, 0, 7, 8});
             },
             [piece] {
                 return piece({5, 8, -2, 0, 8, 9});
             }},
            "5 8 -2 0 7 9"};
}

std::vector<Sample> samples()
{
    auto const triangles = [] { return unstructuredGrid(5, {{VTK_TRIANGLE, {0, 1, 2}}, {VTK_TRIANGLE, {1, 2, 3}}}); };
    auto const mixed = [] {
        return unstructuredGrid(9, {{VTK_TRIANGLE, {0, 1, 2}},
                                    {VTK_VERTEX, {4}},
                                    {VTK_QUAD, {1, 2, 3, 4}},
                                    {VTK_HEXAHEDRON, {0, 1, 2, 3, 4, 5, 6, 7}},
                                    {VTK_TRIANGLE_STRIP, {1, 2, 3, 4}},
                                    {VTK_QUADRATIC_EDGE, {1, 2, 3}}});
    };
    auto const points = [] { return unstructuredGrid(3, {{VTK_VERTEX, {0}}, {VTK_VERTEX, {1}}, {VTK_VERTEX, {2}}}); };
    auto const strips = [] {
        return surface({{0}, {3, 4}}, {{0, 1}, {1, 2, 3}}, {{0, 1, 2}, {1, 2, 3, 4}}, {{2, 3, 4, 5, 6}, {1, 2, 3}});
    };
    auto const polygons = [] { return surface({}, {}, {{0, 1, 2}, {1, 2, 3, 4}, {3, 4, 5, 6, 7}}, {}); };
    return {ordered("vti", imagePiece),
            ordered("vtr", rectilinearPiece),
            ordered("vts", structuredPiece),
            orderedPieces("vti", imagePiece),
            orderedPieces("vtr", rectilinearPiece),
            orderedPieces("vts", structuredPiece),
            {"line",
             "vti",
             {[] {
                 return imagePiece({100, 104, 3, 3, -1, -1});
             }},
             {}},
            {"point",
             "vts",
             {[] {
                 return structuredPiece({4, 4, 3, 3, 2, 2});
             }},
             {}},
            {"triangles", "vtu", {triangles}, {}},
            {"mixed", "vtu", {mixed}, {}, 3},
            {"mixedInPieces", "vtu", {mixed, triangles, points}, {}},
            {"scattered", "vtu", {points}, {}},
            {"withoutCells", "vtu", {[] { return unstructuredGrid(4, {}); }}, {}},
            {"polyhedra", "vtu", {[] { return polyhedra(); }}, {}},
            {"polygons", "vtp", {polygons}, {}},
            {"surface", "vtp", {strips}, {}, 3},
            {"surfaceInPieces", "vtp", {polygons, strips}, {}}};
}

void loadEverything(kernel::DataSet const& dataSet)
{
    kernel::Progress progress;
    for (auto const& zone : dataSet.zones()) {
        if (zone->isDeferred())
            zone->setDimensions(zone->dimensionsLoader->load(progress));
        for (kernel::Field const& field : zone->fields) {
            if (!field.isPassive() && !field.isLoaded())
                field.group()->setLoaded(field.group()->loader()->load(progress));
        }
    }
}

bool isSlotOfCell(kernel::Zone const& zone, std::int64_t slot)
{
    std::int64_t const i = slot % zone.i;
    std::int64_t const j = slot / zone.i % zone.j;
    std::int64_t const k = slot / zone.i / zone.j;
    return (i < zone.i - 1 || zone.i == 1) && (j < zone.j - 1 || zone.j == 1) && (k < zone.k - 1 || zone.k == 1);
}

// One value after the other, in more digits than any of them has.
kernel::ValueRange rangeByHand(kernel::Zone const& zone, kernel::Field const& field)
{
    bool const hasUnusedSlots = zone.isOrdered() && field.location() == ValueLocation_CellCentered;
    kernel::Buffer const& values = *field.group()->buffer();
    long double min = std::numeric_limits<long double>::infinity();
    long double max = -min;
    for (std::int64_t n = 0; n < values.size(); ++n) {
        long double const value = values.value(n);
        if (!std::isfinite(value) || (hasUnusedSlots && !isSlotOfCell(zone, n)))
            continue;
        min = std::min(min, value);
        max = std::max(max, value);
    }
    if (min > max)
        return {};
    return {kernel::ValueRange::State::Exact, static_cast<double>(min), static_cast<double>(max)};
}

void expectSameRange(kernel::ValueRange const& range, kernel::ValueRange const& wanted)
{
    EXPECT_EQ(range.state, wanted.state);
    if (range.isValid() && wanted.isValid()) {
        EXPECT_EQ(range.min, wanted.min);
        EXPECT_EQ(range.max, wanted.max);
    }
}

void expectSameValues(kernel::Zone const& zone, kernel::Field const& field, kernel::Field const& wanted)
{
    EXPECT_EQ(field.location(), wanted.location());
    EXPECT_EQ(field.type(), wanted.type());
    kernel::Buffer const& values = *field.group()->buffer();
    kernel::Buffer const& wantedValues = *wanted.group()->buffer();
    ASSERT_EQ(values.size(), wantedValues.size());
    ASSERT_EQ(values.size(), zone.valueCount(field.location()));
    ASSERT_EQ(values.type(), wantedValues.type());
    for (std::int64_t n = 0; n < values.size(); ++n)
        ASSERT_EQ(values.bits(n), wantedValues.bits(n)) << "value " << n;
}

using Ranges = std::vector<kernel::ValueRange>;

Ranges rangesOf(kernel::DataSet const& dataSet)
{
    Ranges ranges;
    for (int variable = 1; variable <= dataSet.variableCount(); ++variable)
        ranges.push_back(dataSet.zone(1)->range(variable));
    return ranges;
}

void expectSame(kernel::DataSet const& dataSet, kernel::DataSet const& wanted)
{
    Ranges const announced = rangesOf(dataSet);
    std::vector<FieldDataType_e> types;
    for (kernel::Field const& field : dataSet.zone(1)->fields)
        types.push_back(field.type());
    loadEverything(dataSet);
    kernel::Zone const& zone = *dataSet.zone(1);
    kernel::Zone const& wantedZone = *wanted.zone(1);
    ASSERT_EQ(dataSet.zoneCount(), 1);
    EXPECT_EQ(zone.type, wantedZone.type);
    EXPECT_EQ(zone.i, wantedZone.i);
    EXPECT_EQ(zone.j, wantedZone.j);
    EXPECT_EQ(zone.k, wantedZone.k);
    ASSERT_EQ(zone.connectivity == nullptr, wantedZone.connectivity == nullptr);
    if (zone.connectivity) {
        EXPECT_EQ(cellsOf(zone), cellsOf(wantedZone));
    }
    ASSERT_EQ(variableNames(dataSet), variableNames(wanted));
    for (std::size_t n = 0; n < zone.fields.size(); ++n) {
        SCOPED_TRACE(dataSet.variables()[n]->name);
        expectSameValues(zone, zone.fields[n], wantedZone.fields[n]);
        EXPECT_EQ(types[n], wantedZone.fields[n].type()) << "before it was loaded";
        kernel::ValueRange const found = rangeByHand(zone, zone.fields[n]);
        expectSameRange(zone.range(static_cast<int>(n + 1)), found);
        expectSameRange(wantedZone.range(static_cast<int>(n + 1)), found);
        if (announced[n].state == kernel::ValueRange::State::Exact)
            expectSameRange(announced[n], found);
    }
}

std::string write(Sample const& sample, TemporaryFolder const& folder, Encoding const& encoding)
{
    std::mt19937 random(choiceSeed);
    bool const inText = encoding.data == Encoding::Data::Ascii;
    std::vector<Grid> grids;
    for (auto const& make : sample.pieces) {
        Grid const grid = make();
        addArrays(*grid->GetPointData(), grid->GetNumberOfPoints(), "point", inText, random);
        addArrays(*grid->GetCellData(), grid->GetNumberOfCells(), "cell", inText, random);
        grids.push_back(grid);
    }
    std::string const path = folder.path("a." + sample.extension);
    return grids.size() == 1 ? writeXml(*grids.front(), path, encoding)
                             : writePieces(grids, sample.wholeExtent, path, encoding);
}

std::ostream& operator<<(std::ostream& out, Sample const& sample)
{
    return out << sample.name;
}

class DeferralEquivalenceTest : public ::testing::TestWithParam<Sample>
{
};

} // namespace

TEST_P(DeferralEquivalenceTest, BringsTheSameVariablesWheneverTheirValuesAreLoaded)
{
    app::VtkErrorCapture const quiet; // VTK complains of lengths of vectors that are infinite
    std::printf("seed %u\n", choiceSeed);
    TemporaryFolder const folder;
    std::vector<Encoding> const encodings = allEncodings();
    for (std::size_t n = 0; n < encodings.size(); n += GetParam().step) {
        Encoding const& encoding = encodings[n];
        SCOPED_TRACE(GetParam().name + ", " + encoding.text());
        std::string const path = write(GetParam(), folder, encoding);
        auto const wanted = import(path, app::Deferral::Never).dataSet;
        EXPECT_GT(wanted->variableCount(), 25);
        expectSame(*import(path, app::Deferral::Always).dataSet, *wanted);
        expectSame(*importWithMemory(memoryForSome, path), *wanted);
        if (HasFailure())
            return;
    }
}

INSTANTIATE_TEST_SUITE_P(AllGrids, DeferralEquivalenceTest, ::testing::ValuesIn(samples()),
                         [](auto const& instance) { return instance.param.name; });

} // namespace veldraw::tests
