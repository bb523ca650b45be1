#include "app/import/metaimage/MetaImageImport.h"

#include "app/import/ComponentNames.h"
#include "app/import/ImportError.h"
#include "app/import/coordinates/ImageCoordinateLoader.h"
#include "app/import/files/PathChecks.h"
#include "app/import/raw/RawArrayLoader.h"

#include <filesystem>

namespace veldraw::app {

namespace {

std::array<std::int64_t, 3> dimensionsOf(MetaImageHeader const& header)
{
    std::array<std::int64_t, 3> dims{{1, 1, 1}};
    std::copy(header.dims.begin(), header.dims.end(), dims.begin());
    return dims;
}

double bytesToLoad(MetaImageHeader const& header, bool mapped, bool computes)
{
    double const points = static_cast<double>(header.pointCount());
    double const coordinates = computes ? points * sizeof(double) * static_cast<double>(header.dims.size()) : 0.0;
    double const values = static_cast<double>(kernel::Buffer::bytesOf(kernelTypeOf(header.type), header.pointCount()));
    return coordinates + (mapped ? 0.0 : values * header.channels);
}

} // namespace

MetaImageImport::MetaImageImport(FileWatch& watch, LoadingPlan& plan, std::vector<std::string>& remarks,
                                 kernel::Progress& progress)
    : m_watch(watch)
    , m_plan(plan)
    , m_remarks(remarks)
    , m_progress(progress)
{
}

ImportedZone MetaImageImport::read(std::string const& path, std::string const& title)
{
    m_header = MetaImageHeader::read(path);
    std::string const dataFile = dataFileOf(path);
    m_watch.add(dataFile);
    FileStamp const file(dataFile);
    std::int64_t const offset = offsetIn(dataFile, file.size());
    auto const dims = dimensionsOf(m_header);
    ImportedZone result;
    result.zone = std::make_shared<kernel::Zone>(title, ZoneType_Ordered, dims[0], dims[1], dims[2]);
    RawArray const whole{file, offset, m_header.type, m_header.pointCount(), m_header.channels, 0, m_header.bigEndian};
    m_plan.setTotal(
        bytesToLoad(m_header, RawArrayLoader::canBeMapped(whole), m_plan.mayCompute(m_header.pointCount())));
    addCoordinates(result);
    addValues(result, file, offset);
    return result;
}

std::string MetaImageImport::dataFileOf(std::string const& path) const
{
    if (m_header.dataFile == "LOCAL")
        return path;
    std::filesystem::path const name(m_header.dataFile);
    std::string const file =
        name.is_absolute() ? name.string() : (std::filesystem::path(path).parent_path() / name).string();
    try {
        checkReadable(file);
    } catch (ImportError const& error) {
        throw ImportError("its values are to be in \"" + file + "\": " + error.what());
    }
    return file;
}

std::int64_t MetaImageImport::offsetIn(std::string const& dataFile, std::int64_t size) const
{
    std::int64_t const needed = m_header.dataBytes();
    std::int64_t const before =
        m_header.dataFile == "LOCAL" && m_header.headerSize == 0 ? m_header.endOfHeader : m_header.headerSize;
    std::int64_t const offset = before < 0 ? std::max<std::int64_t>(size - needed, 0) : before;
    if (offset <= size && needed <= size - offset)
        return offset;
    throw ImportError("\"" + dataFile + "\" has " + std::to_string(size) + " bytes, and the header asks for " +
                      std::to_string(needed) + (offset > 0 ? " from byte " + std::to_string(offset) + " on" : "") +
                      "; it is incomplete");
}

void MetaImageImport::addCoordinates(ImportedZone& zone)
{
    auto const dims = dimensionsOf(m_header);
    double const bytes = static_cast<double>(m_header.pointCount()) * sizeof(double);
    for (std::size_t axis = 0; axis < m_header.dims.size(); ++axis) {
        std::array<double, 3> steps{};
        for (std::size_t index = 0; index < 3; ++index)
            steps[index] = m_header.directions[3 * index + axis] * m_header.spacing[index];
        auto loader = std::make_shared<ImageCoordinateLoader>(dims, m_header.offset[axis], steps);
        auto values = m_plan.mayCompute(loader->size())
                          ? group(FieldDataType_Double, loader, bytes, LoadingPlan::Need::FirstPlot)
                          : std::make_shared<kernel::ShareGroup>(FieldDataType_Double, loader->size(), loader);
        zone.addField(std::string(1, "XYZ"[axis]), kernel::Field(std::move(values), ValueLocation_Nodal));
    }
}

void MetaImageImport::addValues(ImportedZone& zone, FileStamp const& file, std::int64_t offset)
{
    FieldDataType_e const type = kernelTypeOf(m_header.type);
    std::int64_t const points = m_header.pointCount();
    auto const whole = std::make_shared<SharedArray>();
    for (int channel = 0; channel < m_header.channels; ++channel) {
        auto loader = std::make_shared<RawArrayLoader>(
            RawArray{file, offset, m_header.type, points, m_header.channels, channel, m_header.bigEndian}, whole,
            m_header.channels == 1 ? rangeInHeader() : kernel::ValueRange{});
        double const bytes = loader->maps() ? 0.0 : static_cast<double>(kernel::Buffer::bytesOf(type, points));
        auto values =
            group(type, loader, bytes, channel == 0 ? LoadingPlan::Need::FirstPlot : LoadingPlan::Need::Later);
        zone.addField(componentName("Value", channel, m_header.channels),
                      kernel::Field(std::move(values), ValueLocation_Nodal));
    }
    if (!isKernelType(m_header.type))
        m_remarks.push_back("Zone \"" + zone.zone->name + "\": " + conversionRemark(m_header.type));
}

std::shared_ptr<kernel::ShareGroup> MetaImageImport::group(FieldDataType_e type,
                                                           std::shared_ptr<kernel::ValueLoader> const& loader,
                                                           double bytes, LoadingPlan::Need need)
{
    auto const fields = static_cast<std::int64_t>(m_header.dims.size()) + m_header.channels;
    kernel::Progress ofField(m_progress, m_progress.total() / fields);
    return m_plan.group(type, m_header.pointCount(), loader, bytes, need, ofField);
}

// Somebody may have altered the values since the header was written.
kernel::ValueRange MetaImageImport::rangeInHeader() const
{
    if (!m_header.min || !m_header.max || *m_header.min > *m_header.max)
        return {};
    return {kernel::ValueRange::State::Estimated, *m_header.min, *m_header.max};
}

} // namespace veldraw::app
