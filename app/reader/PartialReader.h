#pragma once

#include <vtkDataArray.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkPointSet.h>
#include <vtkPoints.h>
#include <vtkSmartPointer.h>
#include <vtkXMLDataElement.h>
#include <vtkXMLDataReader.h>

namespace veldraw::app {

/// What of a grid is read besides the chosen arrays; for readers that can leave something out.
class GridParts
{
public:
    virtual ~GridParts() = default;

    void leaveOutPoints() { m_wantsPoints = false; }
    void leaveOutCells() { m_wantsCells = false; } ///< those of unstructured grids

protected:
    bool wantsPoints() const { return m_wantsPoints; }
    bool wantsCells() const { return m_wantsCells; }

private:
    bool m_wantsPoints = true;
    bool m_wantsCells = true;
};

/// VTK's reader of a grid that stores its points; points and cells can be left out.
/// @tparam Reader vtkXMLStructuredGridReader, vtkXMLUnstructuredGridReader, vtkXMLPolyDataReader or one derived from these
template <typename Reader>
class PartialReader : public Reader, public GridParts
{
public:
    static PartialReader* New()
    {
        auto* const reader = new PartialReader;
        reader->InitializeObjectBase();
        return reader;
    }

    /// None while the output is set up without points.
    vtkIdType GetNumberOfPoints() override { return m_hidesPoints ? 0 : Reader::GetNumberOfPoints(); }

    PartialReader(PartialReader const&) = delete;
    PartialReader& operator=(PartialReader const&) = delete;

protected:
    PartialReader() = default;

    void SetupOutputData() override
    {
        if (!wantsCells()) {
            vtkXMLDataReader::SetupOutputData();
            if (wantsPoints())
                setupPoints();
            return;
        }
        m_hidesPoints = !wantsPoints();
        Reader::SetupOutputData();
        if (m_hidesPoints)
            makeRoomForArrays();
    }

    int ReadPieceData() override
    {
        if (wantsCells())
            return Reader::ReadPieceData();
        vtkXMLDataElement* const points = this->PointElements[this->Piece];
        if (!vtkXMLDataReader::ReadPieceData())
            return 0;
        return !wantsPoints() || !points || this->ReadArrayForPoints(points->GetNestedElement(0), pointArray());
    }

    int ReadArrayForPoints(vtkXMLDataElement* element, vtkAbstractArray* array) override
    {
        bool const isLeftOut = !wantsPoints() && array == pointArray();
        return isLeftOut ? 1 : Reader::ReadArrayForPoints(element, array);
    }

private:
    vtkPointSet* grid() { return vtkPointSet::SafeDownCast(this->GetCurrentOutput()); }

    vtkDataArray* pointArray() { return grid()->GetPoints() ? grid()->GetPoints()->GetData() : nullptr; }

    void setupPoints()
    {
        vtkXMLDataElement* const element = this->NumberOfPieces > 0 ? this->PointElements[0] : nullptr;
        if (!element || element->GetNumberOfNestedElements() < 1)
            return;
        auto const array = vtkSmartPointer<vtkAbstractArray>::Take(this->CreateArray(element->GetNestedElement(0)));
        auto* const numbers = vtkDataArray::SafeDownCast(array);
        if (!numbers)
            return;
        numbers->SetNumberOfTuples(GetNumberOfPoints());
        vtkNew<vtkPoints> points;
        points->SetData(numbers);
        grid()->SetPoints(points);
    }

    void makeRoomForArrays()
    {
        m_hidesPoints = false;
        vtkPointData& arrays = *grid()->GetPointData();
        for (int n = 0; n < arrays.GetNumberOfArrays(); ++n)
            arrays.GetAbstractArray(n)->SetNumberOfTuples(GetNumberOfPoints());
    }

    bool m_hidesPoints = false;
};

} // namespace veldraw::app
