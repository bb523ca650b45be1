#include "app/import/formats/vtkxml/GridCoordinates.h"

#include "app/import/zones/CoordinateLoader.h"

#include <vtkDataArray.h>
#include <vtkImageData.h>
#include <vtkMatrix4x4.h>
#include <vtkRectilinearGrid.h>

namespace veldraw::app {

namespace {

template <typename Grid>
std::array<std::int64_t, 3> gridDimensions(Grid& grid)
{
    int dims[3] = {0, 0, 0};
    grid.GetDimensions(dims);
    return {{dims[0], dims[1], dims[2]}};
}

std::shared_ptr<CoordinateLoader> ofImage(vtkImageData& image, int axis)
{
    int const* const extent = image.GetExtent();
    vtkMatrix4x4& matrix = *image.GetIndexToPhysicalMatrix();
    return std::make_shared<ImageCoordinateLoader>(
        gridDimensions(image), matrix.GetElement(axis, 3),
        std::array<double, 3>{{matrix.GetElement(axis, 0), matrix.GetElement(axis, 1), matrix.GetElement(axis, 2)}},
        std::array<std::int64_t, 3>{{extent[0], extent[2], extent[4]}});
}

std::shared_ptr<CoordinateLoader> ofRectilinear(vtkRectilinearGrid& grid, int axis)
{
    auto const dims = gridDimensions(grid);
    vtkDataArray* const positions = axis == 0   ? grid.GetXCoordinates()
                                    : axis == 1 ? grid.GetYCoordinates()
                                                : grid.GetZCoordinates();
    if (!positions || positions->GetNumberOfTuples() != dims[static_cast<std::size_t>(axis)])
        return nullptr;
    std::vector<double> values(static_cast<std::size_t>(positions->GetNumberOfTuples()));
    for (std::size_t n = 0; n < values.size(); ++n)
        values[n] = positions->GetComponent(static_cast<vtkIdType>(n), 0);
    bool const isFloat = positions->GetDataType() == VTK_FLOAT;
    return std::make_shared<RectilinearCoordinateLoader>(dims, axis, std::move(values),
                                                         isFloat ? FieldDataType_Float : FieldDataType_Double);
}

} // namespace

std::shared_ptr<CoordinateLoader> coordinateLoaderOf(vtkDataSet& grid, int axis)
{
    if (auto* const image = vtkImageData::SafeDownCast(&grid))
        return ofImage(*image, axis);
    auto* const rectilinear = vtkRectilinearGrid::SafeDownCast(&grid);
    return rectilinear ? ofRectilinear(*rectilinear, axis) : nullptr;
}

} // namespace veldraw::app
