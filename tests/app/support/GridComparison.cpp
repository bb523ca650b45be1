#include "tests/app/support/GridComparison.h"

#include <vtkCellData.h>
#include <vtkDataArray.h>
#include <vtkPointData.h>
#include <vtkXMLGenericDataObjectReader.h>

#include <cstring>
#include <gtest/gtest.h>
#include <set>

namespace veldraw::tests {

namespace {

std::set<std::string> namesOf(vtkDataSetAttributes& attributes)
{
    std::set<std::string> names;
    for (int n = 0; n < attributes.GetNumberOfArrays(); ++n)
        names.insert(attributes.GetArrayName(n) ? attributes.GetArrayName(n) : "(none)");
    return names;
}

std::string componentNameOf(vtkDataArray& array, int component)
{
    char const* const name = array.GetComponentName(component);
    return name ? name : "";
}

void expectSameArray(vtkDataArray& expected, vtkDataArray& found)
{
    EXPECT_EQ(expected.GetDataType(), found.GetDataType());
    ASSERT_EQ(expected.GetNumberOfComponents(), found.GetNumberOfComponents());
    ASSERT_EQ(expected.GetNumberOfTuples(), found.GetNumberOfTuples());
    for (int component = 0; component < expected.GetNumberOfComponents(); ++component) {
        EXPECT_EQ(componentNameOf(expected, component), componentNameOf(found, component));
        for (vtkIdType tuple = 0; tuple < expected.GetNumberOfTuples(); ++tuple) {
            double const left = expected.GetComponent(tuple, component);
            double const right = found.GetComponent(tuple, component);
            ASSERT_EQ(std::memcmp(&left, &right, sizeof left), 0)
                << tuple << " " << component << ": " << left << " " << right;
        }
    }
}

void expectSameArrays(vtkDataSetAttributes& expected, vtkDataSetAttributes& found)
{
    EXPECT_EQ(namesOf(expected), namesOf(found));
    for (std::string const& name : namesOf(expected)) {
        SCOPED_TRACE(name);
        vtkDataArray* const left = expected.GetArray(name.c_str());
        vtkDataArray* const right = found.GetArray(name.c_str());
        ASSERT_NE(left, nullptr);
        ASSERT_NE(right, nullptr);
        expectSameArray(*left, *right);
    }
}

} // namespace

vtkSmartPointer<vtkDataSet> readByVtk(std::string const& path)
{
    auto const reader = vtkSmartPointer<vtkXMLGenericDataObjectReader>::New();
    reader->SetFileName(path.c_str());
    reader->Update();
    return vtkDataSet::SafeDownCast(reader->GetOutput());
}

void expectSameArrays(vtkDataSet& expected, vtkDataSet& found)
{
    ASSERT_EQ(expected.GetNumberOfPoints(), found.GetNumberOfPoints());
    ASSERT_EQ(expected.GetNumberOfCells(), found.GetNumberOfCells());
    {
        SCOPED_TRACE("points");
        expectSameArrays(*expected.GetPointData(), *found.GetPointData());
    }
    SCOPED_TRACE("cells");
    expectSameArrays(*expected.GetCellData(), *found.GetCellData());
}

} // namespace veldraw::tests
