#include "app/import/ReadableFormats.h"

#include "app/import/formats/ensight/EnSightReader.h"
#include "app/import/formats/exodus/ExodusReader.h"
#include "app/import/formats/metaimage/MetaImageReader.h"
#include "app/import/formats/numpy/NumpyReader.h"
#include "app/import/formats/openfoam/OpenFoamReader.h"
#include "app/import/formats/plot3d/Plot3dReader.h"
#include "app/import/formats/series/SeriesReader.h"
#include "app/import/formats/surface/SurfaceReader.h"
#include "app/import/formats/table/TableReader.h"
#include "app/import/formats/vtklegacy/VtkLegacyReader.h"
#include "app/import/formats/vtkxml/VtkXmlReader.h"

namespace veldraw::app {

namespace {

template <typename FormatReader>
std::unique_ptr<Reader> readerOf()
{
    return std::make_unique<FormatReader>();
}

} // namespace

std::vector<ReadableFormat> const& readableFormats()
{
    static std::vector<ReadableFormat> const formats{
        {{"VTK XML files", {"vti", "vtr", "vts", "vtu", "vtp", "vtm"}}, "VTK", readerOf<VtkXmlReader>},
        {{"Parallel VTK XML files", {"pvti", "pvtr", "pvts", "pvtu", "pvtp"}}, "VTK", readerOf<VtkXmlReader>},
        {{"Lists of files with times", {"pvd", "series"}}, "VTK", readerOf<SeriesReader>},
        {{"VTK legacy files", {"vtk"}}, "VTK", readerOf<VtkLegacyReader>},
        {{"MetaImage files", {"mhd", "mha"}}, "MetaImage", readerOf<MetaImageReader>},
        {{"EnSight Gold cases", {"case"}}, "EnSight", readerOf<EnSightReader>},
        {{"Exodus II files", {"e", "exo", "ex2"}}, "Exodus", readerOf<ExodusReader>},
        {{"OpenFOAM cases", {"foam"}, {"controlDict"}}, "OpenFOAM", readerOf<OpenFoamReader>, true},
        {{"PLOT3D files", {"xyz", "q", "f"}}, "PLOT3D", readerOf<Plot3dReader>},
        {{"Surfaces", {"stl", "ply", "obj"}}, "Surface", readerOf<SurfaceReader>},
        {{"NumPy arrays", {"npy", "npz"}}, "NumPy", readerOf<NumpyReader>},
        {{"Text tables with a header line", {"csv", "tsv", "txt"}}, "CSV", readerOf<TableReader>},
    };
    return formats;
}

} // namespace veldraw::app
