#pragma once

#include <vtkDataSet.h>
#include <vtkSmartPointer.h>

#include <string>
#include <vector>

namespace veldraw::tests {

/// How VTK's writers can store the values of a file.
struct Encoding
{
    enum class Data
    {
        Ascii,
        Inline,
        AppendedRaw,
        AppendedBase64
    };

    Data data = Data::Ascii;
    int compressor = 0; ///< vtkXMLWriter::CompressorType
    bool bigEndian = false;
    bool header64 = false;

    std::string text() const;
};

/// All of them; a compressor once in each byte order.
std::vector<Encoding> allEncodings();

/// Writes VTK XML for the grid's kind. @return path
std::string writeXml(vtkDataSet& grid, std::string const& path, Encoding const& encoding);

/// Writes grids of one kind, with the same arrays, as the pieces of one file.
/// @param wholeExtent of all pieces of grids that have one, "0 3 0 1 0 0"; else empty
/// @return path
std::string writePieces(std::vector<vtkSmartPointer<vtkDataSet>> const& pieces, std::string const& wholeExtent,
                        std::string const& path, Encoding const& encoding);

} // namespace veldraw::tests
