#include "tools/samples/SparseSamples.h"

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <stdexcept>

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
    std::uint64_t const bytes = static_cast<std::uint64_t>(points) * 4;
    std::uint64_t const step = (bytes + 8 + 7) / 8 * 8;
    std::string const extent = "0 " + std::to_string(points - 1) + " 0 0 0 0";
    std::string text = "<?xml version=\"1.0\"?>\n<VTKFile type=\"ImageData\" version=\"1.0\" "
                       "byte_order=\"LittleEndian\" header_type=\"UInt64\">\n<ImageData WholeExtent=\"" +
                       extent + "\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n<Piece Extent=\"" + extent +
                       "\">\n<PointData>\n";
    for (int n = 0; n < variables; ++n)
        text += "<DataArray type=\"Float32\" Name=\"v" + std::to_string(n + 1) + "\" format=\"appended\" offset=\"" +
                std::to_string(static_cast<std::uint64_t>(n) * step) + "\"/>\n";
    text += "</PointData>\n</Piece>\n</ImageData>\n<AppendedData encoding=\"raw\">\n";
    text.append(7 - text.size() % 8, ' ');
    text += '_';
    std::fstream file = emptyFile(path);
    file << text;
    for (int n = 0; n < variables; ++n)
        writeAt(file, static_cast<std::int64_t>(text.size() + static_cast<std::uint64_t>(n) * step), &bytes, 8);
    std::string const end = "\n</AppendedData>\n</VTKFile>\n";
    writeAt(file, static_cast<std::int64_t>(text.size() + static_cast<std::uint64_t>(variables) * step), end.data(),
            end.size());
    closeChecked(file, path);
}

} // namespace veldraw::samples
