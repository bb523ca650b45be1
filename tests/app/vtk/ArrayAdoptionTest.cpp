#include "app/vtk/ArrayAdoption.h"

#include <vtkBitArray.h>
#include <vtkCharArray.h>
#include <vtkDoubleArray.h>
#include <vtkFloatArray.h>
#include <vtkIdTypeArray.h>
#include <vtkIntArray.h>
#include <vtkNew.h>
#include <vtkShortArray.h>
#include <vtkSignedCharArray.h>
#include <vtkSmartPointer.h>
#include <vtkUnsignedCharArray.h>
#include <vtkUnsignedIntArray.h>
#include <vtkUnsignedShortArray.h>
#include <vtkWeakPointer.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {

using ::testing::HasSubstr;

namespace {

template <typename Array>
vtkSmartPointer<Array> arrayOf(std::initializer_list<double> values, int components = 1)
{
    auto array = vtkSmartPointer<Array>::New();
    array->SetNumberOfComponents(components);
    array->SetNumberOfTuples(static_cast<vtkIdType>(values.size()) / components);
    vtkIdType n = 0;
    for (double value : values) {
        array->SetComponent(n / components, static_cast<int>(n % components), value);
        ++n;
    }
    return array;
}

template <typename Array>
void expectAdopted(FieldDataType_e type)
{
    auto const array = arrayOf<Array>({1, 0, 1});
    app::AdoptedArray const adopted = app::adoptArray(*array);
    ASSERT_EQ(adopted.components.size(), 1U);
    EXPECT_EQ(adopted.components[0]->type(), type);
    EXPECT_EQ(adopted.components[0]->data(), array->GetVoidPointer(0)) << "not copied";
    EXPECT_EQ(adopted.components[0]->value(0), 1.0);
    EXPECT_EQ(adopted.components[0]->value(1), 0.0);
    EXPECT_TRUE(adopted.remark.empty());
}

template <typename Array>
void expectConverted(std::initializer_list<double> values, FieldDataType_e type, char const* remark)
{
    app::AdoptedArray const adopted = app::adoptArray(*arrayOf<Array>(values));
    EXPECT_EQ(adopted.components.at(0)->type(), type);
    std::int64_t n = 0;
    for (double value : values)
        EXPECT_EQ(adopted.components[0]->value(n++), value);
    EXPECT_THAT(adopted.remark, HasSubstr(remark));
}

} // namespace

TEST(ArrayAdoption, AdoptsTheSixKernelTypesInPlace)
{
    expectAdopted<vtkFloatArray>(FieldDataType_Float);
    expectAdopted<vtkDoubleArray>(FieldDataType_Double);
    expectAdopted<vtkIntArray>(FieldDataType_Int32);
    expectAdopted<vtkShortArray>(FieldDataType_Int16);
    expectAdopted<vtkUnsignedCharArray>(FieldDataType_Byte);
    expectAdopted<vtkBitArray>(FieldDataType_Bit);
}

TEST(ArrayAdoption, MakesInterleavedComponentsStridedBuffersOfOneOwner)
{
    auto const array = arrayOf<vtkFloatArray>({1, 2, 3, 4, 5, 6}, 3);
    app::AdoptedArray const adopted = app::adoptArray(*array);
    ASSERT_EQ(adopted.components.size(), 3U);
    EXPECT_EQ(adopted.components[1]->stride(), 3);
    EXPECT_EQ(adopted.components[1]->size(), 2);
    EXPECT_EQ(adopted.components[1]->value(1), 5.0);
    EXPECT_EQ(adopted.components[0]->owner(), adopted.components[2]->owner());
}

TEST(ArrayAdoption, KeepsTheArrayAliveAsLongAsABuffer)
{
    auto array = arrayOf<vtkFloatArray>({1, 2, 3, 4}, 2);
    vtkWeakPointer<vtkFloatArray> const watched(array.Get());
    auto adopted = app::adoptArray(*array);
    array = nullptr;
    auto second = adopted.components[1];
    adopted = {};
    EXPECT_NE(watched, nullptr);
    EXPECT_EQ(second->value(1), 4.0);
    second.reset();
    EXPECT_EQ(watched, nullptr);
}

TEST(ArrayAdoption, ConvertsOtherTypesAndSaysSo)
{
    expectConverted<vtkSignedCharArray>({-128, 127}, FieldDataType_Int16, "8-bit");
    expectConverted<vtkUnsignedShortArray>({0, 65535}, FieldDataType_Int32, "16-bit unsigned");
    expectConverted<vtkUnsignedIntArray>({0, 4294967295.0}, FieldDataType_Double, "32-bit unsigned");
    expectConverted<vtkIdTypeArray>({-1e15, 1e15}, FieldDataType_Double, "exact up to 2^53");
}

TEST(ArrayAdoption, ChoosesATypeThatDoesNotDependOnTheValues)
{
    expectConverted<vtkUnsignedIntArray>({0, 1}, FieldDataType_Double, "32-bit unsigned");
    expectConverted<vtkIdTypeArray>({0, 1}, FieldDataType_Double, "64-bit");
}

TEST(ArrayAdoption, SeparatesInterleavedBits)
{
    app::AdoptedArray const adopted = app::adoptArray(*arrayOf<vtkBitArray>({1, 0, 1, 1}, 2));
    ASSERT_EQ(adopted.components.size(), 2U);
    EXPECT_EQ(adopted.components[1]->type(), FieldDataType_Bit);
    EXPECT_EQ(adopted.components[1]->value(0), 0.0);
    EXPECT_EQ(adopted.components[1]->value(1), 1.0);
}

} // namespace veldraw::tests
