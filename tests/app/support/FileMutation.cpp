#include "tests/app/support/FileMutation.h"

#include "tests/app/support/EnSightSamples.h"
#include "tests/app/support/ExodusSamples.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"
#include "tests/app/support/SurfaceSamples.h"

#include <vtkCellType.h>
#include <vtkImageData.h>
#include <vtkNew.h>
#include <vtkPointData.h>
#include <vtkRectilinearGrid.h>

#include <algorithm>
#include <cstdlib>
#include <mutex>
#include <optional>
#include <thread>

namespace veldraw::tests {

namespace {

vtkSmartPointer<vtkUnstructuredGrid> mixedMesh()
{
    auto grid = unstructuredGrid(
        12, {{VTK_TETRA, {0, 1, 2, 3}}, {VTK_HEXAHEDRON, {1, 2, 3, 4, 5, 6, 7, 8}}, {VTK_POLYGON, {8, 9, 10, 11, 7}}});
    addPointValues(*grid, "p", {1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12});
    addCellValues(*grid, "q", {1, 2, 3, 4, 5, 6}, 2);
    addFact(*grid, "TimeValue", 2.5);
    return grid;
}

vtkSmartPointer<vtkPolyData> surface()
{
    vtkNew<vtkPolyData> result;
    auto const mesh = unstructuredGrid(6, {});
    result->SetPoints(mesh->GetPoints());
    vtkNew<vtkCellArray> faces;
    faces->InsertNextCell({0, 1, 2});
    faces->InsertNextCell({2, 3, 4, 5});
    vtkNew<vtkCellArray> lines;
    lines->InsertNextCell({0, 5});
    result->SetPolys(faces);
    result->SetLines(lines);
    addPointValues(*result, "p", {1, 2, 3, 4, 5, 6});
    addCellValues(*result, "q", {1, 2, 3});
    return result;
}

vtkSmartPointer<vtkStructuredGrid> block()
{
    auto const grid = structuredGrid(3, 4, 2);
    addCellValues(*grid, "c", {1, 2, 3, 4, 5, 6});
    return grid;
}

vtkSmartPointer<vtkImageData> image()
{
    vtkNew<vtkImageData> result;
    result->SetDimensions(3, 2, 1);
    addPointValues(*result, "p", {1, 2, 3, 4, 5, 6});
    addFact(*result, "TimeValue", 2.5);
    return result;
}

vtkSmartPointer<vtkRectilinearGrid> axes()
{
    auto const along = [](int count) {
        vtkNew<vtkImageData> line;
        addPointValues(*line, "x", std::vector<double>(static_cast<std::size_t>(count), 1.5));
        return vtkSmartPointer<vtkDataArray>(line->GetPointData()->GetArray(0));
    };
    vtkNew<vtkRectilinearGrid> result;
    result->SetDimensions(3, 2, 1);
    result->SetXCoordinates(along(3));
    result->SetYCoordinates(along(2));
    result->SetZCoordinates(along(1));
    addPointValues(*result, "p", {1, 2, 3, 4, 5, 6});
    return result;
}

// In two encodings that leave room for values that are not there.
std::string piecesOfImage()
{
    return "<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\" header_type=\"UInt32\">\n"
           "<ImageData WholeExtent=\"0 3 0 1 0 0\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n"
           "<Piece Extent=\"0 1 0 1 0 0\">\n<PointData>\n<DataArray type=\"Int16\" Name=\"p\" format=\"binary\">\n"
           "CAAAAAEAAgADAAQA\n</DataArray>\n</PointData>\n<CellData>\n"
           "<DataArray type=\"Float64\" Name=\"c\" format=\"ascii\">\n7.5\n</DataArray>\n</CellData>\n</Piece>\n"
           "<Piece Extent=\"1 3 0 1 0 0\">\n<PointData>\n<DataArray type=\"Int16\" Name=\"p\" format=\"binary\">\n"
           "DAAAAAIABQAGAAQABwAIAA==\n</DataArray>\n</PointData>\n<CellData>\n"
           "<DataArray type=\"Float64\" Name=\"c\" format=\"ascii\">\n8.5 9.5\n</DataArray>\n</CellData>\n</Piece>\n"
           "</ImageData>\n</VTKFile>\n";
}

// Attributes of XML, from quote to quote.
std::vector<std::pair<std::size_t, std::size_t>> attributeValues(std::string const& text)
{
    std::vector<std::pair<std::size_t, std::size_t>> result;
    for (std::size_t at = text.find("=\""); at != std::string::npos; at = text.find("=\"", at + 2)) {
        std::size_t const end = text.find('"', at + 2);
        if (end != std::string::npos && end - at < 200)
            result.emplace_back(at + 2, end - at - 2);
    }
    return result;
}

std::size_t below(std::mt19937& random, std::size_t count)
{
    return static_cast<std::size_t>(random()) % count;
}

void exchangeAttributes(std::string& text, std::mt19937& random)
{
    auto const values = attributeValues(text);
    if (values.size() < 2)
        return;
    auto const [to, size] = values[below(random, values.size())];
    auto const [from, otherSize] = values[below(random, values.size())];
    text.replace(to, size, text.substr(from, otherSize));
}

void repeatTag(std::string& text, std::mt19937& random)
{
    std::size_t const start = text.find('<', below(random, text.size()));
    std::size_t const end = start == std::string::npos ? start : text.find('\n', start);
    if (end == std::string::npos)
        return;
    std::string const line = text.substr(start, std::min(end + 1 - start, std::size_t{200}));
    std::string repeated;
    for (std::size_t left = random() % 50 == 0 ? 20000 : 1; left > 0; --left)
        repeated += line;
    text.insert(start, repeated);
}

void renameType(std::string& text, std::mt19937& random)
{
    static std::vector<std::string> const types{"Float32", "Float64", "Int64", "UInt8",    "Int8",
                                                "Int32",   "String",  "Bit",   "Float",    "",
                                                "double",  "string",  "bit",   "vtkIdType"};
    std::string const& from = types[below(random, types.size())];
    std::size_t const at = from.empty() ? std::string::npos : text.find(from, below(random, text.size()));
    if (at != std::string::npos)
        text.replace(at, from.size(), types[below(random, types.size())]);
}

void exchangeDigit(std::string& text, std::mt19937& random)
{
    std::size_t const digit = text.find_first_of("0123456789", below(random, text.size()));
    if (digit == std::string::npos)
        return;
    if (random() % 4 == 0)
        text.insert(digit, "99999999", 1 + below(random, 8));
    else
        text[digit] = static_cast<char>('0' + random() % 10);
}

// What is an array to VTK, and none by its name.
void renameTag(std::string& text, std::mt19937& random)
{
    static std::vector<std::string> const names{"Array", "Values", "Piece", "PointData", "FieldData", "VTKFile"};
    std::size_t const start = text.find("<DataArray", below(random, text.size()));
    std::size_t const end = text.find("</DataArray", start);
    if (end == std::string::npos)
        return;
    std::string const& name = names[below(random, names.size())];
    text.replace(end + 2, 9, name);
    text.replace(start + 1, 9, name);
}

void insertMarkup(std::string& text, std::mt19937& random)
{
    static std::vector<std::string> const pieces{"<!-- <AppendedData encoding=\"raw\"> _ -->",
                                                 "<!-- <DataArray -->",
                                                 "<![CDATA[ </Piece> ]]>",
                                                 "<?veldraw <PointData> ?>",
                                                 "<Piece Extent=\"0 1 0 1 0 0\"/>",
                                                 "<Piece NumberOfPoints=\"3\" NumberOfCells=\"0\"/>",
                                                 "<FieldData></FieldData>"};
    std::size_t const at = text.find('<', below(random, text.size()));
    if (at != std::string::npos)
        text.insert(at, pieces[below(random, pieces.size())]);
}

// The same file to a parser of XML.
void writeLetterAsNumber(std::string& text, std::mt19937& random)
{
    auto const values = attributeValues(text);
    if (values.empty())
        return;
    auto const [start, size] = values[below(random, values.size())];
    if (size == 0)
        return;
    std::size_t const at = start + below(random, size);
    std::string const number = std::to_string(static_cast<unsigned char>(text[at]));
    text.replace(at, 1, "&#" + std::string(below(random, 20), '0') + number + ";");
}

void lengthenTag(std::string& text, std::mt19937& random)
{
    std::size_t const at = text.find("=\"", below(random, text.size()));
    std::size_t const end = text.find('"', at == std::string::npos ? at : at + 2);
    if (end != std::string::npos)
        text.insert(end + 1, " note=\"" + std::string(random() % 4 == 0 ? 70000 : 20, 'x') + "\"");
}

void damage(std::string& text, std::mt19937& random)
{
    std::size_t const at = below(random, text.size());
    switch (random() % 13) {
    case 0:
        text[at] = static_cast<char>(random() % 256);
        return;
    case 1:
        text[at] = static_cast<char>(text[at] ^ (1 << (random() % 8)));
        return;
    case 2:
        text.erase(at, 1 + random() % 20);
        return;
    case 3:
        text.insert(at, text.substr(below(random, text.size()), 1 + random() % 40));
        return;
    case 4:
        text.resize(1 + at);
        return;
    case 5:
        exchangeAttributes(text, random);
        return;
    case 6:
        repeatTag(text, random);
        return;
    case 7:
        renameType(text, random);
        return;
    case 8:
        renameTag(text, random);
        return;
    case 9:
        insertMarkup(text, random);
        return;
    case 10:
        writeLetterAsNumber(text, random);
        return;
    case 11:
        lengthenTag(text, random);
        return;
    default:
        exchangeDigit(text, random);
    }
}

std::string unsoundnessOf(kernel::Zone const& zone, int variables)
{
    if (zone.pointCount() <= 0)
        return "a zone without points";
    if (zone.fields.size() != static_cast<std::size_t>(variables))
        return "a zone with another number of variables";
    for (kernel::Field const& field : zone.fields) {
        if (!field.isPassive() && field.group()->size() != zone.valueCount(field.location()))
            return "a variable with another number of values than points or cells";
    }
    for (std::int64_t n = 0; zone.connectivity && n < zone.connectivity->indexCount; ++n) {
        if (zone.connectivity->indices[n] < 0 || zone.connectivity->indices[n] >= zone.pointCount())
            return "a cell with a point that there is not";
    }
    return {};
}

std::string unsoundnessOf(kernel::DataSet const& data)
{
    for (int zone = 1; zone <= data.zoneCount(); ++zone) {
        for (auto const& variable : data.variables()) {
            if (!fieldOf(data, zone, variable->name).isLoaded())
                loadingProblem(data, zone, variable->name);
        }
        std::string const problem = unsoundnessOf(*data.zone(zone), data.variableCount());
        if (!problem.empty())
            return problem;
    }
    return data.zoneCount() == 0 ? "no zone" : "";
}

// All bits of all values and cells.
std::uint64_t digestOf(kernel::DataSet const& data)
{
    std::uint64_t digest = 14695981039346656037U;
    auto const add = [&digest](std::uint64_t number) { digest = (digest ^ number) * 1099511628211U; };
    for (auto const& zone : data.zones()) {
        for (kernel::Field const& field : zone->fields) {
            auto const buffer = field.isPassive() || !field.isLoaded() ? nullptr : field.group()->buffer();
            for (std::int64_t n = 0; buffer && n < buffer->size(); ++n)
                add(buffer->bits(n));
        }
        for (std::int64_t n = 0; zone->connectivity && n < zone->connectivity->indexCount; ++n)
            add(static_cast<std::uint64_t>(zone->connectivity->indices[n]));
    }
    return digest;
}

// What memory is full of that a process asks for, if it starts from now on. The readers get it with the environment.
void fillMemoryOfReaders(int byte)
{
    std::string const value = "glibc.malloc.perturb=" + std::to_string(byte) + ":glibc.malloc.tcache_count=0";
    ::setenv("GLIBC_TUNABLES", value.c_str(), 1);
}

// Two readers whose memory was full of different bytes bring the same, unless they bring what stood in memory. The second one reads on a
// thread of its own: else it would be the first one.
bool dependsOnMemory(std::string const& path, kernel::DataSet const& data)
{
    std::optional<std::uint64_t> digest; // none where it is refused now
    fillMemoryOfReaders(0x5a);
    std::thread([&] {
        try {
            digest = digestOf(*import(path).dataSet);
        } catch (app::ImportError const&) {
        }
    }).join();
    fillMemoryOfReaders(0x21);
    return digest != digestOf(data);
}

void addXmlFiles(TemporaryFolder const& folder, std::vector<SoundFile>& files)
{
    auto const add = [&](vtkDataSet& grid, std::string const& name, Mode mode) {
        files.push_back({name, contentOf(writeXml(grid, folder.path(name), mode)), {}});
    };
    for (Mode const mode : allModes) {
        add(*mixedMesh(), "mesh.vtu", mode);
        add(*polyhedra(), "polyhedra.vtu", mode);
        add(*block(), "grid.vts", mode);
        add(*image(), "image.vti", mode);
        add(*axes(), "axes.vtr", mode);
        add(*surface(), "surface.vtp", mode);
    }
    files.push_back({"pieces.vti", piecesOfImage(), {}});
    files.push_back(
        {"all.vtm",
         "<VTKFile type=\"vtkMultiBlockDataSet\" version=\"1.0\"><vtkMultiBlockDataSet>\n<Block index=\"0\" "
         "name=\"a\">\n<DataSet index=\"0\" name=\"b\" file=\"mesh.vtu\"/>\n<DataSet file=\"grid.vts\"/>\n"
         "</Block>\n</vtkMultiBlockDataSet>\n<FieldData>\n<DataArray type=\"Float64\" Name=\"T\" "
         "NumberOfTuples=\"1\" format=\"ascii\">1.5</DataArray>\n</FieldData>\n</VTKFile>\n",
         {{"mesh.vtu", contentOf(folder.path("mesh.vtu"))}, {"grid.vts", contentOf(folder.path("grid.vts"))}}});
}

void addParallelFile(TemporaryFolder const& folder, std::vector<SoundFile>& files)
{
    files.push_back({"all.pvtu",
                     "<VTKFile type=\"PUnstructuredGrid\" version=\"0.1\">\n<PUnstructuredGrid GhostLevel=\"0\">\n"
                     "<PPoints>\n<PDataArray type=\"Float32\" Name=\"Points\" NumberOfComponents=\"3\"/>\n"
                     "</PPoints>\n<Piece Source=\"mesh.vtu\"/>\n<Piece Source=\"polyhedra.vtu\"/>\n"
                     "</PUnstructuredGrid>\n</VTKFile>\n",
                     {{"mesh.vtu", contentOf(folder.path("mesh.vtu"))},
                      {"polyhedra.vtu", contentOf(folder.path("polyhedra.vtu"))}}});
}

void addLists(TemporaryFolder const& folder, std::vector<SoundFile>& files)
{
    std::vector<std::pair<std::string, std::string>> const moments{{"mesh.vtu", contentOf(folder.path("mesh.vtu"))},
                                                                   {"mesh_2.vtu", contentOf(folder.path("mesh.vtu"))}};
    files.push_back({"all.pvd",
                     "<VTKFile type=\"Collection\" version=\"0.1\">\n<Collection>\n<DataSet timestep=\"0.5\" "
                     "group=\"a\" part=\"0\" "
                     "file=\"mesh.vtu\"/>\n<DataSet timestep=\"1.5e0\" group=\"a\" part=\"0\" file=\"mesh_2.vtu\"/>\n"
                     "</Collection>\n</VTKFile>\n",
                     moments});
    files.push_back({"all.vtu.series",
                     "{\"file-series-version\": \"1.0\",\n\"files\": [{\"name\": \"mesh.vtu\", \"time\": 0},\n"
                     "{\"name\": \"mesh_2.vtu\", \"time\": 0.25}]}\n",
                     moments});
}

} // namespace

std::vector<SoundFile> soundFiles()
{
    TemporaryFolder const folder;
    std::vector<SoundFile> files;
    addXmlFiles(folder, files);
    addParallelFile(folder, files);
    addLists(folder, files);
    for (bool const binary : {false, true}) {
        std::vector<vtkSmartPointer<vtkDataSet>> const grids{mixedMesh(), block(), image(), axes(), surface()};
        for (auto const& grid : grids)
            files.push_back({"old.vtk", contentOf(writeLegacy(*grid, folder.path("old.vtk"), binary)), {}});
    }
    files.push_back({"table.csv", "# title: x\ntime,\"p, q\",T\r\n0,1.5,2\r\n1,-3e4,nan\r\n2,5,6\r\n", {}});
    files.push_back({"image.mha",
                     "ObjectType = Image\nNDims = 2\nDimSize = 3 2\nElementSpacing = 1 0.5\nElementByteOrderMSB = "
                     "False\nHeaderSize = -1\nElementType = MET_SHORT\nElementDataFile = LOCAL\n0123456789ab",
                     {}});
    files.push_back(enSightCase(2, 2, EnSightForm::Text));
    writeExodus(folder.path("row.e"), 2, 3);
    files.push_back({"row.e", contentOf(folder.path("row.e")), {}});
    for (SoundFile const& surfaceFile : soundSurfaces())
        files.push_back(surfaceFile);
    return files;
}

std::string mutated(std::string text, std::mt19937& random)
{
    for (auto left = 1 + random() % 4; left > 0 && text.size() > 1; --left)
        damage(text, random);
    return text;
}

std::string mutation(SoundFile const& file, unsigned int seed, unsigned int number)
{
    std::seed_seq numbers{seed, number};
    std::mt19937 random(numbers);
    return mutated(file.content, random);
}

Opening openedAndLookedAt(std::string const& path)
{
    static std::once_flag once;
    std::call_once(once, [] { fillMemoryOfReaders(0x21); });
    for (auto const deferral : {app::Deferral::Auto, app::Deferral::Always}) {
        try {
            auto const data = import(path, deferral).dataSet;
            if (deferral == app::Deferral::Auto && dependsOnMemory(path, *data))
                return {false, "values that do not stand in the file"};
            std::string const problem = unsoundnessOf(*data);
            if (!problem.empty())
                return {false, problem};
        } catch (app::ImportError const& error) {
            bool const isNamed = std::string(error.what()).find(path) != std::string::npos;
            return {true, isNamed ? "" : std::string("a refusal that does not name the file: ") + error.what()};
        }
    }
    return {};
}

} // namespace veldraw::tests
