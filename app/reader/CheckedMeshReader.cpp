#include "app/reader/CheckedMeshReader.h"

#include <vtkDataArray.h>
#include <vtkSmartPointer.h>
#include <vtkXMLDataElement.h>

#include <algorithm>

namespace veldraw::app {

namespace {

// The faces of a cell end where the next cell's begin: its offset is that end, or negative for a cell that is no polyhedron.
bool facesFit(std::vector<vtkIdType> const& ends, std::vector<vtkIdType> const& faces)
{
    std::size_t at = 0;
    for (vtkIdType const cellEnd : ends) {
        if (cellEnd < 0)
            continue;
        if (static_cast<std::size_t>(cellEnd) > faces.size() || at >= static_cast<std::size_t>(cellEnd))
            return false;
        auto const end = static_cast<std::size_t>(cellEnd);
        for (vtkIdType count = faces[at++]; count > 0; --count) {
            if (at >= end || faces[at] < 0 || static_cast<std::size_t>(faces[at]) >= end - at)
                return false;
            at += static_cast<std::size_t>(faces[at]) + 1;
        }
        if (at != end)
            return false;
    }
    return true;
}

} // namespace

int CheckedMeshReader::ReadPieceData()
{
    if (facesAreSound())
        return vtkXMLUnstructuredGridReader::ReadPieceData();
    vtkErrorMacro("The faces of the polyhedra are damaged");
    return 0;
}

bool CheckedMeshReader::facesAreSound()
{
    vtkXMLDataElement* const cells = CellElements[Piece];
    vtkIdType const count = NumberOfCells[Piece];
    vtkXMLDataElement* const faces = cells ? FindDataArrayWithName(cells, "faces") : nullptr;
    vtkXMLDataElement* const faceOffsets = cells ? FindDataArrayWithName(cells, "faceoffsets") : nullptr;
    if (!faces || !faceOffsets || count <= 0)
        return true; // VTK itself complains when one of them is missing
    std::vector<vtkIdType> const ends = numbersIn(*faceOffsets, count);
    if (static_cast<vtkIdType>(ends.size()) != count)
        return false;
    vtkIdType const length = *std::max_element(ends.begin(), ends.end());
    return length <= 0 || facesFit(ends, numbersIn(*faces, length));
}

std::vector<vtkIdType> CheckedMeshReader::numbersIn(vtkXMLDataElement& element, vtkIdType count)
{
    vtkSmartPointer<vtkAbstractArray> const array = vtkSmartPointer<vtkAbstractArray>::Take(CreateArray(&element));
    auto* const numbers = vtkDataArray::SafeDownCast(array);
    if (!numbers || numbers->GetNumberOfComponents() != 1 || !numbers->Resize(count))
        return {};
    numbers->SetNumberOfTuples(count);
    if (!ReadArrayValues(&element, 0, numbers, 0, count))
        return {};
    std::vector<vtkIdType> result(static_cast<std::size_t>(count));
    for (vtkIdType n = 0; n < count; ++n)
        result[static_cast<std::size_t>(n)] = static_cast<vtkIdType>(numbers->GetComponent(n, 0));
    return result;
}

} // namespace veldraw::app
