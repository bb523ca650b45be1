#include "tests/dialogs/spreadsheet/SheetStage.h"

namespace veldraw::tests {

namespace {

/// Brings dimensions.
class FixedDimensions : public kernel::DimensionsLoader
{
public:
    explicit FixedDimensions(kernel::ZoneDimensions const& dimensions)
        : m_dimensions(dimensions)
    {
    }
    kernel::ZoneDimensions load(kernel::Progress&) override { return m_dimensions; }

private:
    kernel::ZoneDimensions m_dimensions;
};

} // namespace

double SheetStage::numbered(int variable, std::int64_t index)
{
    return 100.0 * variable + static_cast<double>(index);
}

SheetStage::SheetStage(std::vector<std::string> const& variables)
{
    for (std::string const& name : variables)
        m_dataSet->addVariable(std::make_shared<kernel::Variable>(name));
}

int SheetStage::addZone(std::string const& name, ZoneType_e type, std::int64_t i, std::int64_t j, std::int64_t k)
{
    return m_dataSet->addZone(std::make_shared<kernel::Zone>(name, type, i, j, k));
}

int SheetStage::addDeferredZone(std::string const& name, std::int64_t i, std::int64_t j, std::int64_t k)
{
    auto const zone = std::make_shared<kernel::Zone>(name, ZoneType_Ordered, -1, -1, -1);
    zone->dimensionsLoader = std::make_shared<FixedDimensions>(kernel::ZoneDimensions{i, j, k, nullptr});
    return m_dataSet->addZone(zone);
}

kernel::Field& SheetStage::field(int zone, int variable)
{
    return m_dataSet->zone(zone)->fields.at(static_cast<std::size_t>(variable - 1));
}

void SheetStage::fill(int zone, int variable, FieldDataType_e type, ValueLocation_e location, Values const& values)
{
    std::int64_t const size = m_dataSet->zone(zone)->valueCount(location);
    auto const buffer = kernel::Buffer::allocate(type, size);
    for (std::int64_t index = 0; index < size; ++index)
        buffer->setValue(index, values(variable, index));
    field(zone, variable) = kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), location);
}

void SheetStage::fillFrom(int zone, int variable, std::shared_ptr<kernel::Buffer> const& buffer)
{
    field(zone, variable) = kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), ValueLocation_Nodal);
}

void SheetStage::fillAll(int zone)
{
    for (int variable = 1; variable <= m_dataSet->variableCount(); ++variable)
        fill(zone, variable, FieldDataType_Float, ValueLocation_Nodal);
}

std::shared_ptr<ConstantLoader> SheetStage::defer(int zone, int variable, double value)
{
    std::int64_t const size = m_dataSet->zone(zone)->valueCount(ValueLocation_Nodal);
    auto const loader = std::make_shared<ConstantLoader>(FieldDataType_Float, size, value);
    field(zone, variable) =
        kernel::Field(std::make_shared<kernel::ShareGroup>(FieldDataType_Float, size, loader), ValueLocation_Nodal);
    return loader;
}

void SheetStage::share(int zone, int variable, int sourceZone)
{
    field(zone, variable) = field(sourceZone, variable);
}

void SheetStage::show()
{
    if (session().dataSet(m_dataSet->id()))
        session().activateFrame(frame()->id);
    else
        session().setFrameDataSet(frame()->id, m_dataSet);
}

void SheetStage::hide()
{
    session().createFrame("Empty", kernel::Rectangle{0.0, 0.0, 1.0, 1.0});
}

double SheetStage::stored(int zone, int variable, std::int64_t index) const
{
    return m_dataSet->field(zone, variable)->group()->buffer()->value(index);
}

} // namespace veldraw::tests
