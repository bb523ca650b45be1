#pragma once

#include "app/import/formats/vtkxml/DeferredArray.h"
#include "kernel/data/Blanking.h"
#include "kernel/data/DimensionsLoader.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

namespace veldraw::app {

/// Brings the cells of a mesh of a VTK XML file, and with them the dimensions of its zone and what is hidden of it.
class CellLoader : public kernel::DimensionsLoader
{
public:
    /// @param wanted as in importCells()
    CellLoader(DeferredCells cells, ZoneType_e wanted);

    /// Of the zone, known from the kinds of the cells.
    ZoneType_e zoneType() const { return m_zoneType; }

    /// Marks of the mesh's points and cells, which are known before its cells are.
    void setMarks(kernel::Blanking::Marks marks) { m_marks = std::move(marks); }

    /// @throws ImportError also when the file has other cells than those that were announced
    kernel::ZoneDimensions load(kernel::Progress& progress) override;

private:
    DeferredCells m_cells;
    ZoneType_e m_wanted;
    ZoneType_e m_zoneType;
    kernel::Blanking::Marks m_marks;
};

} // namespace veldraw::app
