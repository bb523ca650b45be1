#include "app/import/formats/vtkxml/CellLoader.h"

#include "app/files/ImportError.h"
#include "app/import/cells/ImportedCells.h"
#include "app/import/formats/vtkxml/VtkFile.h"
#include "kernel/data/Zone.h"

namespace veldraw::app {

CellLoader::CellLoader(DeferredCells cells, ZoneType_e wanted)
    : m_cells(std::move(cells))
    , m_wanted(wanted)
    , m_zoneType(zoneTypeOfCells(m_cells.kinds, wanted))
{
}

kernel::ZoneDimensions CellLoader::load(kernel::Progress& progress)
{
    m_cells.file.checkUnchanged();
    ImportedCells const cells = namingFile(m_cells.file.path(), [&] {
        auto const grid = readVtkCells(m_cells.file.path(), progress);
        auto* const mesh = vtkDataSet::SafeDownCast(grid);
        return mesh ? importCells(*mesh, m_cells.points, m_wanted) : ImportedCells();
    });
    bool const isAsAnnounced = cells.connectivity && cells.sameCells && cells.zoneType == m_zoneType &&
                               cells.connectivity->cellCount == m_cells.count;
    if (!isAsAnnounced || FileStamp(m_cells.file.path()).differsFrom(m_cells.file))
        throw ImportError("\"" + m_cells.file.path() + "\" does not have the same cells any more; open it again");
    kernel::ZoneDimensions result{m_cells.points, m_cells.count, cells.faceCount, cells.connectivity};
    if (m_marks.ofPoints || m_marks.ofCells) {
        kernel::Zone zone({}, m_zoneType, result.i, result.j, result.k);
        zone.connectivity = result.connectivity;
        result.blanking = std::make_shared<kernel::Blanking>(zone, m_marks);
    }
    return result;
}

} // namespace veldraw::app
