#include "app/vtk/ArrayAdoption.h"

#include "app/vtk/DataTypes.h"

#include <vtkSmartPointer.h>

namespace veldraw::app {

namespace {

bool kernelHasType(int vtkType)
{
    return vtkType == VTK_FLOAT || vtkType == VTK_DOUBLE || vtkType == VTK_INT || vtkType == VTK_SHORT ||
           vtkType == VTK_UNSIGNED_CHAR || vtkType == VTK_BIT;
}

FieldDataType_e kernelTypeOf(int vtkType)
{
    for (auto type :
         {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte}) {
        if (vtkTypeOf(type) == vtkType)
            return type;
    }
    return FieldDataType_Bit;
}

struct Conversion
{
    FieldDataType_e type;
    char const* remark;
};

Conversion conversionOf(vtkDataArray& array)
{
    switch (array.GetDataType()) {
    case VTK_CHAR:
    case VTK_SIGNED_CHAR:
        return {FieldDataType_Int16, "8-bit signed integers were converted to 16-bit integers"};
    case VTK_UNSIGNED_SHORT:
        return {FieldDataType_Int32, "16-bit unsigned integers were converted to 32-bit integers"};
    default:
        break;
    }
    if (array.GetDataTypeSize() == 8)
        return {FieldDataType_Double, "64-bit integers were converted to double, which is exact up to 2^53"};
    return {FieldDataType_Double, "32-bit unsigned integers were converted to double"};
}

std::vector<std::shared_ptr<kernel::Buffer>> copied(vtkDataArray& array, FieldDataType_e type)
{
    std::vector<std::shared_ptr<kernel::Buffer>> result;
    for (int component = 0; component < array.GetNumberOfComponents(); ++component) {
        auto buffer = kernel::Buffer::allocate(type, array.GetNumberOfTuples());
        for (vtkIdType tuple = 0; tuple < array.GetNumberOfTuples(); ++tuple)
            buffer->setValue(tuple, array.GetComponent(tuple, component));
        result.push_back(std::move(buffer));
    }
    return result;
}

std::vector<std::shared_ptr<kernel::Buffer>> adopted(vtkDataArray& array, FieldDataType_e type)
{
    // The deleter holds the reference, and drops it itself: it lives on as long as weak pointers do.
    std::shared_ptr<void> const owner(
        &array, [keeper = vtkSmartPointer<vtkDataArray>(&array)](void*) mutable { keeper = nullptr; });
    auto* const memory = static_cast<char*>(array.GetVoidPointer(0));
    int const stride = array.GetNumberOfComponents();
    std::vector<std::shared_ptr<kernel::Buffer>> result;
    for (int component = 0; component < stride; ++component) {
        result.push_back(
            kernel::Buffer::adopt(type, array.GetNumberOfTuples(), memory + component * bytesOf(type), stride, owner));
    }
    return result;
}

} // namespace

AdoptedArray adoptArray(vtkDataArray& array)
{
    int const vtkType = array.GetDataType();
    if (!kernelHasType(vtkType)) {
        Conversion const conversion = conversionOf(array);
        return {copied(array, conversion.type), conversion.remark};
    }
    FieldDataType_e const type = kernelTypeOf(vtkType);
    bool const inPlace =
        array.HasStandardMemoryLayout() && (type != FieldDataType_Bit || array.GetNumberOfComponents() == 1);
    return {inPlace ? adopted(array, type) : copied(array, type), {}};
}

} // namespace veldraw::app
