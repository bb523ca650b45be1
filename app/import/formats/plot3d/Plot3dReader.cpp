#include "app/import/formats/plot3d/Plot3dReader.h"

#include "app/files/PathChecks.h"
#include "app/import/formats/plot3d/Plot3dLayout.h"
#include "app/import/raw/RawArrayLoader.h"

#include <charconv>
#include <cmath>
#include <filesystem>

namespace veldraw::app {

namespace {

using Content = Plot3dLayout::Content;

/// A file with variables of all blocks.
struct Plot3dFile
{
    Content content;
    FileStamp file;
    Plot3dLayout layout;
};

struct Plot3dArray
{
    std::string name;
    RawArray values;
};

std::vector<std::string> namesIn(Plot3dFile const& from, Plot3dLayout::Block const& block)
{
    bool const isPlanar = from.layout.form.isPlanar;
    if (from.content == Content::Grid)
        return isPlanar ? std::vector<std::string>{"X", "Y"} : std::vector<std::string>{"X", "Y", "Z"};
    if (from.content == Content::Solution && isPlanar)
        return {"Density", "Momentum_X", "Momentum_Y", "Energy"};
    if (from.content == Content::Solution)
        return {"Density", "Momentum_X", "Momentum_Y", "Momentum_Z", "Energy"};
    std::vector<std::string> names;
    for (int n = 1; n <= block.variables; ++n)
        names.push_back("Function_" + std::to_string(n));
    return names;
}

std::vector<Plot3dArray> arraysIn(Plot3dFile const& from, Plot3dLayout::Block const& block)
{
    std::vector<Plot3dArray> arrays;
    RawType const type = from.layout.form.isDouble ? RawType::Float64 : RawType::Float32;
    std::int64_t offset = block.offset;
    for (std::string const& name : namesIn(from, block)) {
        arrays.push_back({name, {from.file, offset, type, block.points(), 1, 0, from.layout.form.isBigEndian}});
        offset += block.points() * bytesOf(type);
    }
    if (from.layout.form.hasMarks)
        arrays.push_back(
            {"IBlank", {from.file, offset, RawType::Int32, block.points(), 1, 0, from.layout.form.isBigEndian}});
    return arrays;
}

double bytesOfPlot3d(RawArray const& array)
{
    if (RawArrayLoader::canBeMapped(array))
        return 0.0;
    return static_cast<double>(kernel::Buffer::bytesOf(kernelTypeOf(array.type), array.tuples));
}

void addField(Plot3dArray const& array, LoadingPlan::Need need, kernel::Progress& progress, LoadingPlan& plan,
              ImportedZone& zone)
{
    auto loader = std::make_shared<RawArrayLoader>(array.values, std::make_shared<SharedArray>());
    auto values = plan.group(kernelTypeOf(array.values.type), array.values.tuples, loader, bytesOfPlot3d(array.values),
                             need, progress);
    zone.addField(array.name, kernel::Field(std::move(values), ValueLocation_Nodal));
}

// The shortest one that reads back as the same number.
std::string textOfCondition(double number, bool isDouble)
{
    char text[40];
    auto const end = isDouble ? std::to_chars(text, text + sizeof text, number).ptr
                              : std::to_chars(text, text + sizeof text, static_cast<float>(number)).ptr;
    return {text, end};
}

void addConditions(Plot3dLayout::Block const& block, bool isDouble, kernel::Zone& zone)
{
    static constexpr char const* names[] = {"Mach", "Alpha", "Re", "Time"};
    for (std::size_t n = 0; n < block.conditions.size(); ++n)
        zone.auxiliaryData.set(names[n], textOfCondition(block.conditions[n], isDouble), true);
    if (std::isfinite(block.conditions[3]))
        zone.solutionTime = block.conditions[3];
}

Plot3dFile gridOf(std::string const& path)
{
    auto const layout = Plot3dLayout::of(path, Content::Grid);
    if (!layout)
        throw ImportError("it is damaged, or no PLOT3D grid in binary form: its size is not what the counts at its "
                          "start ask for");
    return {Content::Grid, FileStamp(path), *layout};
}

/// The files of a grid, those beside it as far as they are there.
class Plot3dSet
{
public:
    Plot3dSet(std::string const& path, ImportContext const& context)
        : m_path(path)
        , m_context(context)
    {
        std::string const grid = beside("xyz");
        if (grid != path)
            checkGridBeside(grid);
        m_files.push_back(gridOf(grid));
        add("q", Content::Solution);
        add("f", Content::Function);
    }

    std::vector<Plot3dFile> const& files() const { return m_files; }

private:
    // Beside A.Q stands A.XYZ.
    std::string beside(std::string extension) const
    {
        std::filesystem::path result(m_path);
        if (extensionOf(m_path) == extension)
            return m_path;
        bool const isUpper = result.extension().string().find_first_of("QFXYZ") != std::string::npos;
        for (char& c : extension)
            c = isUpper ? static_cast<char>(c - 'a' + 'A') : c;
        return result.replace_extension(extension).string();
    }

    void checkGridBeside(std::string const& grid) const
    {
        namingFile(grid, [&grid] { checkReadable(grid); });
        m_context.watch.add(grid);
    }

    // What the user has not asked for keeps nobody from the grid.
    void add(char const* extension, Content content)
    {
        std::string const file = beside(extension);
        if (file != m_path && !std::filesystem::exists(file))
            return;
        auto const layout = Plot3dLayout::of(file, content, &m_files.front().layout);
        std::string const reason = "it is damaged, or no PLOT3D file that goes with the grid";
        if (!layout && file == m_path)
            throw ImportError(reason);
        if (!layout) {
            m_context.remarks.push_back("\"" + file + "\" was left out: " + reason);
            return;
        }
        if (file != m_path)
            m_context.watch.add(file);
        m_files.push_back({content, FileStamp(file), *layout});
    }

    std::string m_path;
    ImportContext const& m_context;
    std::vector<Plot3dFile> m_files; // the grid first
};

double bytesOfAll(std::vector<Plot3dFile> const& files)
{
    double bytes = 0.0;
    for (Plot3dFile const& file : files) {
        for (Plot3dLayout::Block const& block : file.layout.blocks) {
            for (Plot3dArray const& array : arraysIn(file, block))
                bytes += bytesOfPlot3d(array.values);
        }
    }
    return bytes;
}

ImportedZone zoneOf(std::vector<Plot3dFile> const& files, std::size_t number, ImportContext const& context)
{
    Plot3dLayout const& grid = files.front().layout;
    auto const& size = grid.blocks[number].size;
    ImportedZone result;
    std::string const name = grid.blocks.size() == 1 ? context.title : context.title + " " + std::to_string(number + 1);
    result.zone = std::make_shared<kernel::Zone>(name, ZoneType_Ordered, size[0], size[1], size[2]);
    kernel::Progress ofZone(context.progress, context.progress.total() / static_cast<std::int64_t>(grid.blocks.size()));
    for (Plot3dFile const& file : files) {
        Plot3dLayout::Block const& block = file.layout.blocks[number];
        auto const arrays = arraysIn(file, block);
        for (std::size_t n = 0; n < arrays.size(); ++n) {
            bool const isFirst = file.content == Content::Grid || n == 0;
            kernel::Progress part(ofZone, ofZone.total() / static_cast<std::int64_t>(files.size() * arrays.size()));
            addField(arrays[n], isFirst ? LoadingPlan::Need::FirstPlot : LoadingPlan::Need::Later, part, context.plan,
                     result);
        }
        if (file.content == Content::Solution)
            addConditions(block, file.layout.form.isDouble, *result.zone);
    }
    return result;
}

} // namespace

std::vector<ImportedZone> Plot3dReader::read(std::string const& path, ImportContext const& context)
{
    Plot3dSet const set(path, context);
    if (!context.plan.hasTotal())
        context.plan.setTotal(bytesOfAll(set.files()));
    std::vector<ImportedZone> zones;
    for (std::size_t n = 0; n < set.files().front().layout.blocks.size(); ++n)
        zones.push_back(zoneOf(set.files(), n, context));
    return zones;
}

} // namespace veldraw::app
