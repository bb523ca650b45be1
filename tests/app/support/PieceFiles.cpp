#include "tests/app/support/PieceFiles.h"

#include "tests/app/support/FileHelpers.h"

#include <vtkNew.h>
#include <vtkXMLDataSetWriter.h>

#include <fstream>
#include <regex>
#include <stdexcept>

namespace veldraw::tests {

namespace {

// A file with one piece, taken apart; all parts together are the file.
struct FileParts
{
    std::string head;
    std::string piece;
    std::string tail; // up to the underscore that starts appended data
    std::string data;
    std::string end;
};

FileParts partsOf(std::string const& text)
{
    std::size_t const piece = text.find("<Piece");
    std::size_t const pieceEnd = text.find("</Piece>") + 8;
    std::size_t const appended = text.find("<AppendedData");
    std::size_t const data = appended == std::string::npos ? text.size() : text.find('_', appended) + 1;
    std::size_t const dataEnd = appended == std::string::npos ? text.size() : text.rfind("</AppendedData>");
    return {text.substr(0, piece), text.substr(piece, pieceEnd - piece), text.substr(pieceEnd, data - pieceEnd),
            text.substr(data, dataEnd - data), text.substr(dataEnd)};
}

std::string withOffsetsBehind(std::string const& piece, std::size_t shift)
{
    static std::regex const offset("offset=\"(\\d+)\"");
    std::string result;
    auto last = piece.begin();
    for (std::sregex_iterator match(piece.begin(), piece.end(), offset); match != std::sregex_iterator(); ++match) {
        result.append(last, piece.begin() + match->position());
        result += "offset=\"" + std::to_string(std::stoull((*match)[1]) + shift) + "\"";
        last = piece.begin() + match->position() + match->length();
    }
    return result.append(last, piece.end());
}

} // namespace

std::string Encoding::text() const
{
    return "data " + std::to_string(static_cast<int>(data)) + ", compressor " + std::to_string(compressor) +
           (bigEndian ? ", big endian" : "") + (header64 ? ", UInt64" : ", UInt32");
}

std::vector<Encoding> allEncodings()
{
    using Data = Encoding::Data;
    std::vector<Encoding> result{{Data::Ascii, vtkXMLWriter::NONE, false, false}};
    for (Data const data : {Data::Inline, Data::AppendedRaw, Data::AppendedBase64}) {
        for (int const compressor : {vtkXMLWriter::NONE, vtkXMLWriter::ZLIB, vtkXMLWriter::LZ4, vtkXMLWriter::LZMA}) {
            result.push_back({data, compressor, false, false});
            result.push_back({data, compressor, true, true});
        }
        result.push_back({data, vtkXMLWriter::NONE, false, true});
        result.push_back({data, vtkXMLWriter::NONE, true, false});
    }
    return result;
}

std::string writeXml(vtkDataSet& grid, std::string const& path, Encoding const& encoding)
{
    using Data = Encoding::Data;
    vtkNew<vtkXMLDataSetWriter> writer;
    writer->SetFileName(path.c_str());
    writer->SetInputDataObject(&grid);
    writer->SetDataMode(encoding.data == Data::Ascii    ? vtkXMLWriter::Ascii
                        : encoding.data == Data::Inline ? vtkXMLWriter::Binary
                                                        : vtkXMLWriter::Appended);
    writer->SetEncodeAppendedData(encoding.data == Data::AppendedBase64 ? 1 : 0);
    writer->SetCompressorType(encoding.compressor);
    writer->SetByteOrder(encoding.bigEndian ? vtkXMLWriter::BigEndian : vtkXMLWriter::LittleEndian);
    writer->SetHeaderType(encoding.header64 ? vtkXMLWriter::UInt64 : vtkXMLWriter::UInt32);
    if (writer->Write() != 1)
        throw std::runtime_error("VTK cannot write " + path);
    return path;
}

std::string writePieces(std::vector<vtkSmartPointer<vtkDataSet>> const& pieces, std::string const& wholeExtent,
                        std::string const& path, Encoding const& encoding)
{
    std::string text;
    std::string data;
    FileParts last;
    for (auto const& piece : pieces) {
        last = partsOf(contentOf(writeXml(*piece, path, encoding)));
        text += (text.empty() ? last.head : std::string()) + withOffsetsBehind(last.piece, data.size());
        // In text, what follows the last value is no part of it.
        if (encoding.data == Encoding::Data::AppendedBase64)
            last.data.erase(last.data.find_last_not_of(" \n") + 1);
        data += last.data;
    }
    if (!wholeExtent.empty())
        text = std::regex_replace(text, std::regex("WholeExtent=\"[^\"]*\""), "WholeExtent=\"" + wholeExtent + "\"");
    std::ofstream(path, std::ios::binary) << text << last.tail << data << last.end;
    return path;
}

} // namespace veldraw::tests
