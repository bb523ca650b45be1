#include "app/vtk/ZoneToVtk.h"

#include <vtkCellData.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkSOADataArrayTemplate.h>
#include <vtkStructuredGrid.h>
#include <vtkUnstructuredGrid.h>

#include <gtest/gtest.h>
#include <initializer_list>

namespace veldraw::tests {

namespace {

std::shared_ptr<kernel::Buffer> bufferOf(FieldDataType_e type, std::vector<double> const& values)
{
    auto buffer = kernel::Buffer::allocate(type, static_cast<std::int64_t>(values.size()));
    for (std::size_t n = 0; n < values.size(); ++n)
        buffer->setValue(static_cast<std::int64_t>(n), values[n]);
    return buffer;
}

kernel::Field fieldOf(std::shared_ptr<kernel::Buffer> buffer, ValueLocation_e location = ValueLocation_Nodal)
{
    return kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(buffer)), location);
}

// A data set with one zone and variables called a, b, c ...
std::shared_ptr<kernel::DataSet> dataSetOf(std::shared_ptr<kernel::Zone> const& zone, std::vector<kernel::Field> fields)
{
    auto dataSet = std::make_shared<kernel::DataSet>();
    for (std::size_t n = 0; n < fields.size(); ++n)
        dataSet->addVariable(std::make_shared<kernel::Variable>(std::string(1, static_cast<char>('a' + n))));
    zone->fields = std::move(fields);
    dataSet->addZone(zone);
    return dataSet;
}

std::shared_ptr<kernel::Zone> orderedZone(std::int64_t i, std::int64_t j, std::int64_t k)
{
    return std::make_shared<kernel::Zone>("zone", ZoneType_Ordered, i, j, k);
}

std::vector<double> counting(int count)
{
    std::vector<double> values;
    for (int n = 0; n < count; ++n)
        values.push_back(n);
    return values;
}

std::vector<double> tuple(vtkDataSet& grid, vtkIdType point)
{
    double const* const at = grid.GetPoint(point);
    return {at[0], at[1], at[2]};
}

} // namespace

TEST(ZoneToVtk, HasNothingToShowForAZoneThatDoesNotExist)
{
    EXPECT_EQ(app::vtkDataSetOfZone(kernel::DataSet(), 1, {1, 2, 3}, {}), nullptr);
}

TEST(ZoneToVtk, WrapsContiguousFields)
{
    auto const values = bufferOf(FieldDataType_Float, counting(4));
    auto const zone = orderedZone(4, 1, 1);
    auto const array = app::vtkArrayOfField(*zone, fieldOf(values), "p");
    EXPECT_EQ(array->GetVoidPointer(0), values->data());
    EXPECT_STREQ(array->GetName(), "p");
    EXPECT_EQ(array->GetNumberOfTuples(), 4);
}

TEST(ZoneToVtk, WrapsTheInterleavedComponentsOfOneArrayAsPoints)
{
    auto const owner = std::make_shared<std::vector<float>>(std::vector<float>{1, 2, 3, 4, 5, 6});
    std::vector<kernel::Field> fields;
    for (int n = 0; n < 3; ++n)
        fields.push_back(fieldOf(kernel::Buffer::adopt(FieldDataType_Float, 2, owner->data() + n, 3, owner)));
    auto const dataSet = dataSetOf(orderedZone(2, 1, 1), std::move(fields));
    auto const grid = app::vtkDataSetOfZone(*dataSet, 1, {1, 2, 3}, {});
    vtkDataArray* const points = vtkPointSet::SafeDownCast(grid)->GetPoints()->GetData();
    EXPECT_EQ(points->GetVoidPointer(0), owner->data());
    EXPECT_EQ(tuple(*grid, 1), (std::vector<double>{4, 5, 6}));
    auto const swapped = app::vtkDataSetOfZone(*dataSet, 1, {2, 1, 3}, {});
    EXPECT_EQ(tuple(*swapped, 1), (std::vector<double>{5, 4, 6}));
}

TEST(ZoneToVtk, PutsSeparateAxesSideBySideWithoutACopy)
{
    auto const x = bufferOf(FieldDataType_Double, {1, 2});
    auto const y = bufferOf(FieldDataType_Double, {3, 4});
    auto const dataSet = dataSetOf(orderedZone(2, 1, 1), {fieldOf(x), fieldOf(y)});
    auto const grid = app::vtkDataSetOfZone(*dataSet, 1, {1, 2, 0}, {});
    auto* const points =
        vtkSOADataArrayTemplate<double>::FastDownCast(vtkPointSet::SafeDownCast(grid)->GetPoints()->GetData());
    ASSERT_NE(points, nullptr);
    EXPECT_EQ(points->GetComponentArrayPointer(1), y->data());
    EXPECT_EQ(tuple(*grid, 1), (std::vector<double>{2, 4, 0}));
}

TEST(ZoneToVtk, CopiesAxesOfDifferentTypesIntoDoubles)
{
    auto const dataSet = dataSetOf(orderedZone(2, 1, 1), {fieldOf(bufferOf(FieldDataType_Float, {1, 2})),
                                                          fieldOf(bufferOf(FieldDataType_Double, {3, 0.1})),
                                                          fieldOf(bufferOf(FieldDataType_Int32, {5, 6}))});
    auto const grid = app::vtkDataSetOfZone(*dataSet, 1, {1, 2, 3}, {});
    EXPECT_EQ(tuple(*grid, 1), (std::vector<double>{2, 0.1, 6}));
}

TEST(ZoneToVtk, TakesCellCentredAndPassiveAxesAsZero)
{
    auto const dataSet =
        dataSetOf(orderedZone(2, 1, 1), {fieldOf(bufferOf(FieldDataType_Float, {1, 2})), kernel::Field(),
                                         fieldOf(bufferOf(FieldDataType_Float, {7, 8}), ValueLocation_CellCentered)});
    EXPECT_EQ(tuple(*app::vtkDataSetOfZone(*dataSet, 1, {1, 2, 3}, {}), 1), (std::vector<double>{2, 0, 0}));
}

TEST(ZoneToVtk, ClosesTheGapsOfCellCentredOrderedFields)
{
    auto const zone = orderedZone(3, 3, 2);
    auto const array = app::vtkArrayOfField(
        *zone, fieldOf(bufferOf(FieldDataType_Float, counting(18)), ValueLocation_CellCentered), "c");
    ASSERT_EQ(array->GetNumberOfTuples(), 4);
    EXPECT_EQ(array->GetTuple1(0), 0);
    EXPECT_EQ(array->GetTuple1(1), 1);
    EXPECT_EQ(array->GetTuple1(2), 3);
    EXPECT_EQ(array->GetTuple1(3), 4);
    auto const bits = app::vtkArrayOfField(
        *zone, fieldOf(bufferOf(FieldDataType_Bit, {0, 1, 0, 1}), ValueLocation_CellCentered), "b");
    EXPECT_EQ(bits->GetNumberOfTuples(), 4);
}

TEST(ZoneToVtk, WrapsTheCellsOfALineWithoutTheUnusedSlot)
{
    auto const values = bufferOf(FieldDataType_Float, {5, 6, 0});
    auto const array = app::vtkArrayOfField(*orderedZone(3, 1, 1), fieldOf(values, ValueLocation_CellCentered), "c");
    EXPECT_EQ(array->GetVoidPointer(0), values->data());
    EXPECT_EQ(array->GetNumberOfTuples(), 2);
}

TEST(ZoneToVtk, ShowsPassiveFieldsAsZerosAndEvadesEqualNames)
{
    auto const zone = orderedZone(2, 1, 1);
    auto const dataSet =
        dataSetOf(zone, {fieldOf(bufferOf(FieldDataType_Float, {1, 2})), kernel::Field(FieldDataType_Double)});
    dataSet->variable(2)->name = "a";
    auto const grid = app::vtkDataSetOfZone(*dataSet, 1, {0, 0, 0}, {1, 2, 99});
    ASSERT_EQ(grid->GetPointData()->GetNumberOfArrays(), 2);
    ASSERT_NE(grid->GetPointData()->GetArray("a (2)"), nullptr);
    EXPECT_EQ(grid->GetPointData()->GetArray("a (2)")->GetTuple1(1), 0.0);
}

TEST(ZoneToVtk, HoldsTheMemoryButNeitherBuffersNorShareGroups)
{
    auto group = std::make_shared<kernel::ShareGroup>(bufferOf(FieldDataType_Float, {1, 2}));
    kernel::Field const field(group, ValueLocation_Nodal);
    auto const zone = orderedZone(2, 1, 1);
    auto const groupsBefore = group.use_count();
    auto const buffersBefore = group->buffer().use_count();
    auto const ownersBefore = group->buffer()->owner().use_count();
    auto array = app::vtkArrayOfField(*zone, field, "p");
    EXPECT_EQ(group.use_count(), groupsBefore);
    EXPECT_EQ(group->buffer().use_count(), buffersBefore) << "an edit of one value copies nothing";
    EXPECT_EQ(group->buffer()->owner().use_count(), ownersBefore + 1);
    group.reset();
    EXPECT_EQ(array->GetTuple1(0), 1.0);
}

TEST(ZoneToVtk, KeepsTheMemoryForShallowCopiesOfAnArray)
{
    std::weak_ptr<void> watched;
    vtkNew<vtkFloatArray> copy;
    {
        auto buffer = bufferOf(FieldDataType_Float, {1, 2, 3});
        watched = buffer->owner();
        auto const array = app::vtkArrayOfField(*orderedZone(3, 1, 1), fieldOf(std::move(buffer)), "p");
        copy->ShallowCopy(array);
    }
    ASSERT_FALSE(watched.expired());
    EXPECT_EQ(copy->GetTuple1(2), 3.0);
    copy->Initialize();
    EXPECT_TRUE(watched.expired());
}

TEST(ZoneToVtk, RefusesValuesThatAreNotLoaded)
{
    auto const group = std::make_shared<kernel::ShareGroup>(FieldDataType_Float, 2, nullptr);
    EXPECT_THROW(app::vtkArrayOfField(*orderedZone(2, 1, 1), kernel::Field(group, ValueLocation_Nodal), "p"),
                 std::logic_error);
}

TEST(ZoneToVtk, WrapsTheCellsOfFiniteElementZones)
{
    struct Arrays
    {
        std::vector<std::int64_t> offsets{0, 3, 6};
        std::vector<std::int64_t> indices{0, 1, 2, 1, 3, 2};
    };
    auto const arrays = std::make_shared<Arrays>();
    auto const cells = std::make_shared<kernel::Connectivity>();
    cells->cellCount = 2;
    cells->indexCount = 6;
    cells->offsets = arrays->offsets.data();
    cells->indices = arrays->indices.data();
    cells->owner = arrays;
    auto const zone = std::make_shared<kernel::Zone>("zone", ZoneType_FETriangle, 4, 2, 0);
    zone->connectivity = cells;
    auto const dataSet = dataSetOf(zone, {fieldOf(bufferOf(FieldDataType_Float, counting(4))),
                                          fieldOf(bufferOf(FieldDataType_Float, {5, 6}), ValueLocation_CellCentered)});
    auto const grid = app::vtkDataSetOfZone(*dataSet, 1, {1, 1, 0}, {2});
    auto* const unstructured = vtkUnstructuredGrid::SafeDownCast(grid);
    ASSERT_NE(unstructured, nullptr);
    EXPECT_EQ(unstructured->GetNumberOfCells(), 2);
    EXPECT_EQ(unstructured->GetCellType(1), VTK_TRIANGLE);
    EXPECT_EQ(unstructured->GetCells()->GetConnectivityArray()->GetVoidPointer(0), arrays->indices.data());
    EXPECT_EQ(grid->GetCellData()->GetArray("b")->GetTuple1(1), 6.0);
}

TEST(ZoneToVtk, OutlivesTheDataSet)
{
    auto dataSet = dataSetOf(orderedZone(2, 1, 1), {fieldOf(bufferOf(FieldDataType_Float, {1, 2}))});
    auto const grid = app::vtkDataSetOfZone(*dataSet, 1, {1, 1, 1}, {1});
    dataSet.reset();
    EXPECT_EQ(grid->GetPointData()->GetArray("a")->GetTuple1(1), 2.0);
    EXPECT_EQ(tuple(*grid, 1), (std::vector<double>{2, 2, 2}));
}

TEST(ZoneToVtk, ShowsAnEmptyZoneAsAnEmptyGrid)
{
    auto const dataSet = dataSetOf(orderedZone(0, 0, 0), {fieldOf(bufferOf(FieldDataType_Float, {}))});
    auto const grid = app::vtkDataSetOfZone(*dataSet, 1, {1, 1, 1}, {1});
    EXPECT_EQ(grid->GetNumberOfPoints(), 0);
}

} // namespace veldraw::tests
