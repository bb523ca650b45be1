#include "tests/app/support/SurfaceSamples.h"

#include "tests/app/support/FileHelpers.h"

#include <vtkNew.h>
#include <vtkOBJWriter.h>
#include <vtkPLYWriter.h>
#include <vtkPoints.h>
#include <vtkSTLWriter.h>
#include <vtkSphereSource.h>

#include <cmath>

namespace veldraw::tests {

vtkSmartPointer<vtkPolyData> sphere(int around, int down)
{
    vtkNew<vtkSphereSource> source;
    source->SetThetaResolution(around);
    source->SetPhiResolution(down);
    source->SetRadius(3.0);
    source->SetCenter(1.0, 20.0, -300.0);
    source->GenerateNormalsOff();
    source->Update();
    return source->GetOutput();
}

vtkSmartPointer<vtkPolyData> roundedTo(vtkPolyData& surface, double parts)
{
    auto result = vtkSmartPointer<vtkPolyData>::New();
    result->DeepCopy(&surface);
    for (vtkIdType point = 0; point < result->GetNumberOfPoints(); ++point) {
        double at[3];
        result->GetPoint(point, at);
        for (double& along : at)
            along = std::round(along * parts) / parts;
        result->GetPoints()->SetPoint(point, at);
    }
    return result;
}

std::string writeStl(vtkPolyData& surface, std::string const& path, bool binary)
{
    vtkNew<vtkSTLWriter> writer;
    writer->SetInputData(&surface);
    writer->SetFileName(path.c_str());
    writer->SetFileType(binary ? VTK_BINARY : VTK_ASCII);
    writer->Write();
    return path;
}

std::string writePly(vtkPolyData& surface, std::string const& path, bool binary)
{
    vtkNew<vtkPLYWriter> writer;
    writer->SetInputData(&surface);
    writer->SetFileName(path.c_str());
    writer->SetFileType(binary ? VTK_BINARY : VTK_ASCII);
    writer->Write();
    return path;
}

std::string writeObj(vtkPolyData& surface, std::string const& path)
{
    vtkNew<vtkOBJWriter> writer;
    writer->SetInputData(&surface);
    writer->SetFileName(path.c_str());
    writer->Write();
    return path;
}

std::string textOfSolids()
{
    std::string const start = " facet normal 0 0 1\n  outer loop\n";
    std::string const end = "  endloop\n endfacet\n";
    return "solid Bow \u00dc 1\n" + start + "   vertex 0 0 0\n   vertex 1 0 0\n   vertex 0 1 0\n" + end +
           "endsolid Bow \u00dc 1\nsolid  stern  \n" + start + "   vertex 0 0 0\n   vertex 1 0 0\n   vertex 0 0 1.5\n" +
           end + start + "   vertex 5 0 0\n   vertex 1 0 0\n   vertex 0 0 1.5\n" + end + "endsolid stern\n";
}

std::string textOfPolygons()
{
    return "ply\nformat ascii 1.0\ncomment by hand\nelement vertex 4\nproperty float x\nproperty float y\n"
           "property float z\nproperty uchar red\nproperty uchar green\nproperty uchar blue\n"
           "property float temperature\nproperty float nx\nproperty float ny\nproperty float nz\nelement face 2\n"
           "property list uchar int vertex_indices\nproperty uchar intensity\nend_header\n"
           "0 0 0 255 0 1 300 0 0 1\n1 0 0 2 3 4 301 0 0 1\n1 1 0 5 6 7 302 0 0 1\n0 1 0 8 9 10 303 0 0 -1\n"
           "3 0 1 2 5\n3 0 2 3 6\n";
}

std::vector<SoundFile> soundSurfaces()
{
    TemporaryFolder const folder;
    auto const surface = sphere(6, 5);
    std::vector<SoundFile> files{{"solids.stl", textOfSolids(), {}}, {"polygons.ply", textOfPolygons(), {}}};
    files.push_back({"bytes.stl", contentOf(writeStl(*surface, folder.path("a.stl"), true)), {}});
    files.push_back({"bytes.ply", contentOf(writePly(*surface, folder.path("a.ply"), true)), {}});
    files.push_back({"text.obj", contentOf(writeObj(*surface, folder.path("a.obj"))), {}});
    return files;
}

} // namespace veldraw::tests
