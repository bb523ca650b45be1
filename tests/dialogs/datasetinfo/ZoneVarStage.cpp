#include "tests/dialogs/datasetinfo/ZoneVarStage.h"

#include "kernel/operations/SetPlotType.h"

namespace veldraw::tests {

ZoneVarStage::ZoneVarStage()
{
    for (char const* const name : {"X", "Y", "P", "T", "Q"})
        dataSet->addVariable(std::make_shared<kernel::Variable>(name));
    dataSet->addZone(std::make_shared<kernel::Zone>("Wing", ZoneType_Ordered, 4, 3, 2));
    dataSet->addZone(std::make_shared<kernel::Zone>("Skin", ZoneType_FETriangle, 5, 3, 0));
    dataSet->addZone(std::make_shared<kernel::Zone>("Cells", ZoneType_FEPolyhedron, 8, 4, 12));
    for (int const number : {Wing, Skin, Cells}) {
        for (int variable = X; variable <= T; ++variable)
            fill(zone(number), variable, FieldDataType_Float, ValueLocation_Nodal,
                 [variable](std::int64_t index) { return 100.0 * variable + static_cast<double>(index); });
    }
    fill(zone(Wing), X, FieldDataType_Double, ValueLocation_Nodal,
         [](std::int64_t index) { return 100.0 + static_cast<double>(index); });
    fill(zone(Wing), P, FieldDataType_Int16, ValueLocation_CellCentered,
         [](std::int64_t index) { return 300.0 + static_cast<double>(index); });
    field(zone(Wing), T) = kernel::Field();
    for (int const number : {Wing, Cells})
        deferred.defer(field(zone(number), Q), zone(number).valueCount(ValueLocation_Nodal));
    estimate(zone(Skin), Q, -1.5, 2.5);
    zone(Wing).solutionTime = 0.5;
    zone(Wing).strand = 1;
    zone(Cells).strand = 0;
    deferred.append(*dataSet, "Later", 10, 20, 30);
    session().setFrameDataSet(frameID(), dataSet);
    session().perform(kernel::SetPlotType(frameID(), PlotType_Cartesian2D));
}

void ZoneVarStage::fill(kernel::Zone& zone, int variable, FieldDataType_e type, ValueLocation_e location,
                        std::function<double(std::int64_t)> const& value)
{
    std::int64_t const size = zone.valueCount(location);
    auto const buffer = kernel::Buffer::allocate(type, size);
    for (std::int64_t index = 0; index < size; ++index)
        buffer->setValue(index, value(index));
    field(zone, variable) = kernel::Field(std::make_shared<kernel::ShareGroup>(buffer), location);
}

void ZoneVarStage::estimate(kernel::Zone& zone, int variable, double min, double max, bool isPieceByPiece)
{
    std::int64_t const size = zone.valueCount(ValueLocation_Nodal);
    auto const loader = std::make_shared<EstimatingLoader>(size, min, max, isPieceByPiece);
    field(zone, variable) =
        kernel::Field(std::make_shared<kernel::ShareGroup>(FieldDataType_Float, size, loader), ValueLocation_Nodal);
}

} // namespace veldraw::tests
