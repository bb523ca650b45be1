#pragma once

#include <vtkXMLUnstructuredGridReader.h>

#include <vector>

namespace veldraw::app {

/// VTK's reader for .vtu files, which trusts the faces of polyhedra blindly; this one looks at them first. To be used through
/// PartialReader.
class CheckedMeshReader : public vtkXMLUnstructuredGridReader
{
public:
    CheckedMeshReader(CheckedMeshReader const&) = delete;
    CheckedMeshReader& operator=(CheckedMeshReader const&) = delete;

protected:
    CheckedMeshReader() = default;

    /// Reads the present piece, unless its faces are damaged: then it is an error and nothing is read.
    int ReadPieceData() override;

private:
    bool facesAreSound();
    std::vector<vtkIdType> numbersIn(vtkXMLDataElement& element, vtkIdType count);
};

} // namespace veldraw::app
