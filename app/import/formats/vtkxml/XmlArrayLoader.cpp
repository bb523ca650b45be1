#include "app/import/formats/vtkxml/XmlArrayLoader.h"

#include "app/files/ImportError.h"
#include "app/vtk/ArrayAdoption.h"

#include <vtkCellData.h>
#include <vtkDataSet.h>
#include <vtkPointData.h>
#include <vtkPointSet.h>

namespace veldraw::app {

namespace {

std::shared_ptr<kernel::Buffer> asType(std::shared_ptr<kernel::Buffer> values, FieldDataType_e type)
{
    if (values->type() == type)
        return values;
    auto converted = kernel::Buffer::allocate(type, values->size());
    for (std::int64_t n = 0; n < values->size(); ++n)
        converted->setValue(n, values->value(n));
    return converted;
}

} // namespace

XmlArrayLoader::XmlArrayLoader(Place place, RawType type, std::int64_t tuples, std::shared_ptr<SharedArray> whole,
                               kernel::ValueRange const& knownRange)
    : m_place(std::move(place))
    , m_type(type)
    , m_tuples(tuples)
    , m_whole(std::move(whole))
    , m_range(knownRange)
{
}

std::shared_ptr<kernel::Buffer> XmlArrayLoader::load(kernel::Progress& progress)
{
    m_place.file.checkUnchanged();
    kernel::Progress ofArray(progress, m_tuples);
    auto const values = m_whole->take(m_place.component, [&] { return read(ofArray); });
    return asType(values, kernelTypeOf(m_type));
}

kernel::ValueLoader::Array XmlArrayLoader::array() const
{
    std::int64_t const bytes = kernel::Buffer::bytesOf(kernelTypeOf(m_type), m_tuples * m_place.components);
    return {m_whole.get(), m_whole->isAtHand(m_place.component) ? 0 : bytes};
}

SharedArray::Components XmlArrayLoader::read(kernel::Progress& progress) const
{
    auto const grid = namingFile(m_place.file.path(), [&] {
        return readVtkArray(m_place.file.path(), m_place.extension, m_place.section, m_place.name, progress);
    });
    vtkDataArray* const array = arrayIn(grid);
    bool const fits =
        array && array->GetNumberOfTuples() == m_tuples && array->GetNumberOfComponents() > m_place.component;
    if (!fits || FileStamp(m_place.file.path()).differsFrom(m_place.file))
        throw ImportError("\"" + m_place.file.path() + "\" does not have the values of \"" + m_place.name +
                          "\" any more; open it again");
    return adoptArray(*array).components;
}

vtkDataArray* XmlArrayLoader::arrayIn(vtkDataObject* grid) const
{
    auto* const block = vtkDataSet::SafeDownCast(grid);
    if (!block)
        return nullptr;
    if (m_place.section == XmlSection::PointData)
        return block->GetPointData()->GetArray(m_place.name.c_str());
    if (m_place.section == XmlSection::CellData)
        return block->GetCellData()->GetArray(m_place.name.c_str());
    auto* const points = vtkPointSet::SafeDownCast(block);
    return points && points->GetPoints() ? points->GetPoints()->GetData() : nullptr;
}

} // namespace veldraw::app
