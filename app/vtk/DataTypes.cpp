#include "app/vtk/DataTypes.h"

#include <vtkType.h>

namespace veldraw::app {

int vtkTypeOf(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
        return VTK_FLOAT;
    case FieldDataType_Double:
        return VTK_DOUBLE;
    case FieldDataType_Int32:
        return VTK_INT;
    case FieldDataType_Int16:
        return VTK_SHORT;
    case FieldDataType_Byte:
        return VTK_UNSIGNED_CHAR;
    case FieldDataType_Bit:
        break;
    }
    return VTK_BIT;
}

int bytesOf(FieldDataType_e type)
{
    switch (type) {
    case FieldDataType_Float:
    case FieldDataType_Int32:
        return 4;
    case FieldDataType_Double:
        return 8;
    case FieldDataType_Int16:
        return 2;
    case FieldDataType_Byte:
        return 1;
    case FieldDataType_Bit:
        break;
    }
    return 0;
}

} // namespace veldraw::app
