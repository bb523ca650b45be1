#include "tools/samples/SparseSamples.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <vector>

namespace veldraw::samples {

namespace {

void writeAt(std::fstream& file, std::int64_t position, void const* bytes, std::size_t count)
{
    file.seekp(position);
    file.write(static_cast<char const*>(bytes), static_cast<std::streamsize>(count));
}

void closeChecked(std::fstream& file, std::string const& path)
{
    file.close();
    if (!file)
        throw std::runtime_error("cannot write " + path);
}

std::fstream emptyFile(std::string const& path)
{
    return std::fstream(path, std::ios::binary | std::ios::in | std::ios::out | std::ios::trunc);
}

// A VTK XML file of one piece with raw appended arrays that are all of one byte.
class SparseXml
{
public:
    SparseXml(std::string const& kind, std::string const& attributes)
        : m_kind(kind)
        , m_text("<?xml version=\"1.0\"?>\n<VTKFile type=\"" + kind +
                 "\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt64\">\n<" + kind + " " + attributes +
                 ">\n")
    {
    }

    void addTag(std::string const& tag) { m_text += "<" + tag + ">\n"; }

    void addArray(std::string const& type, std::string const& name, int components, std::int64_t bytes, char fill = 0)
    {
        m_text += "<DataArray type=\"" + type + "\" Name=\"" + name + "\" NumberOfComponents=\"" +
                  std::to_string(components) + "\" format=\"appended\" offset=\"" + std::to_string(m_end) + "\"/>\n";
        m_arrays.push_back({m_end, bytes, fill});
        m_end += (bytes + 8 + 7) / 8 * 8;
    }

    void write(std::string const& path)
    {
        m_text += "</Piece>\n</" + m_kind + ">\n<AppendedData encoding=\"raw\">\n";
        m_text.append(7 - m_text.size() % 8, ' ');
        m_text += '_';
        auto const start = static_cast<std::int64_t>(m_text.size());
        std::fstream file = emptyFile(path);
        file << m_text;
        for (Array const& array : m_arrays) {
            writeAt(file, start + array.offset, &array.bytes, 8);
            if (array.fill != 0)
                fill(file, start + array.offset + 8, array);
        }
        std::string const end = "\n</AppendedData>\n</VTKFile>\n";
        writeAt(file, start + m_end, end.data(), end.size());
        closeChecked(file, path);
    }

private:
    struct Array
    {
        std::int64_t offset;
        std::int64_t bytes;
        char fill;
    };

    static void fill(std::fstream& file, std::int64_t position, Array const& array)
    {
        std::string const part(1 << 20, array.fill);
        for (std::int64_t done = 0; done < array.bytes; done += static_cast<std::int64_t>(part.size()))
            writeAt(file, position + done, part.data(),
                    static_cast<std::size_t>(std::min<std::int64_t>(array.bytes - done, 1 << 20)));
    }

    std::string m_kind;
    std::string m_text;
    std::vector<Array> m_arrays;
    std::int64_t m_end = 0;
};

void addVariables(SparseXml& file, std::int64_t points, int variables)
{
    file.addTag("PointData");
    for (int n = 0; n < variables; ++n)
        file.addArray("Float32", "v" + std::to_string(n + 1), 1, 4 * points);
    file.addTag("/PointData");
}

void addPoints(SparseXml& file, std::int64_t points)
{
    file.addTag("Points");
    file.addArray("Float32", "Points", 3, 12 * points);
    file.addTag("/Points");
}

} // namespace

void writeSparseImage(std::string const& path, std::int64_t points)
{
    std::filesystem::path const raw = std::filesystem::path(path).replace_extension(".raw");
    std::fstream header = emptyFile(path);
    header << "ObjectType = Image\nNDims = 1\nDimSize = " << points
           << "\nElementSpacing = 0.001\nElementMin = -1\nElementMax = 1\nElementType = MET_FLOAT\nElementDataFile = "
           << raw.filename().string() << "\n";
    closeChecked(header, path);
    std::fstream values = emptyFile(raw.string());
    for (std::int64_t const first : {std::int64_t(0), points / 2, std::max<std::int64_t>(points - 1000, 0)}) {
        for (std::int64_t n = first; n < std::min(first + 1000, points); ++n) {
            float const value = static_cast<float>(n % 201 - 100) / 100.0F;
            writeAt(values, n * 4, &value, sizeof value);
        }
    }
    closeChecked(values, raw.string());
}

void writeSparseGrid(std::string const& path, std::int64_t points, int variables)
{
    bool const isUniform = std::filesystem::path(path).extension() == ".vti";
    std::string const kind = isUniform ? "ImageData" : "StructuredGrid";
    std::string const extent = "0 " + std::to_string(points - 1) + " 0 0 0 0";
    SparseXml file(kind, "WholeExtent=\"" + extent + "\"" + (isUniform ? " Origin=\"0 0 0\" Spacing=\"1 1 1\"" : ""));
    file.addTag("Piece Extent=\"" + extent + "\"");
    addVariables(file, points, variables);
    if (!isUniform)
        addPoints(file, points);
    file.write(path);
}

void writeSparseMesh(std::string const& path, std::int64_t points, std::int64_t cells, int variables)
{
    SparseXml file("UnstructuredGrid", "");
    file.addTag("Piece NumberOfPoints=\"" + std::to_string(points) + "\" NumberOfCells=\"" + std::to_string(cells) +
                "\"");
    addVariables(file, points, variables);
    addPoints(file, points);
    file.addTag("Cells");
    file.addArray("Int64", "connectivity", 1, 8 * 4 * cells);
    file.addArray("Int64", "offsets", 1, 8 * cells);
    file.addArray("UInt8", "types", 1, cells, 10);
    file.addTag("/Cells");
    file.write(path);
}

} // namespace veldraw::samples
