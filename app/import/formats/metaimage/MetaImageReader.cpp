#include "app/import/formats/metaimage/MetaImageReader.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/import/raw/RawArrayLoader.h"
#include "app/import/zones/CoordinateLoader.h"
#include "app/import/zones/ImportedZone.h"

#include <algorithm>

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

std::vector<ImportedZone> MetaImageReader::read(std::string const& path, ImportContext const& context)
{
    m_header = MetaImageHeader::read(path);
    std::string const dataFile = dataFileOf(path, context.outsidePaths);
    context.watch.add(dataFile);
    FileStamp const file(dataFile);
    std::int64_t const offset = offsetIn(dataFile, file.size());
    auto const dims = dimensionsOf(m_header);
    ImportedZone result;
    result.zone = std::make_shared<kernel::Zone>(context.title, ZoneType_Ordered, dims[0], dims[1], dims[2]);
    RawArray const whole{file, offset, m_header.type, m_header.pointCount(), m_header.channels, 0, m_header.bigEndian};
    context.plan.setTotal(
        bytesToLoad(m_header, RawArrayLoader::canBeMapped(whole), context.plan.mayCompute(m_header.pointCount())));
    addCoordinates(result, context);
    addValues(result, file, offset, context);
    return {std::move(result)};
}

std::string MetaImageReader::dataFileOf(std::string const& path, OutsidePaths outsidePaths) const
{
    if (m_header.dataFile == "LOCAL")
        return path;
    requireInside(path, {m_header.dataFile}, outsidePaths);
    std::string const file = namedFile(path, m_header.dataFile);
    try {
        checkReadable(file);
    } catch (ImportError const& error) {
        throw ImportError("its values are to be in \"" + file + "\": " + error.what());
    }
    return file;
}

std::int64_t MetaImageReader::offsetIn(std::string const& dataFile, std::int64_t size) const
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

void MetaImageReader::addCoordinates(ImportedZone& zone, ImportContext const& context) const
{
    auto const dims = dimensionsOf(m_header);
    double const bytes = static_cast<double>(m_header.pointCount()) * sizeof(double);
    for (std::size_t axis = 0; axis < m_header.dims.size(); ++axis) {
        std::array<double, 3> steps{};
        for (std::size_t index = 0; index < 3; ++index)
            steps[index] = m_header.directions[3 * index + axis] * m_header.spacing[index];
        auto loader = std::make_shared<ImageCoordinateLoader>(dims, m_header.offset[axis], steps);
        auto values = context.plan.mayCompute(loader->size())
                          ? group(FieldDataType_Double, loader, bytes, LoadingPlan::Need::FirstPlot, context)
                          : std::make_shared<kernel::ShareGroup>(FieldDataType_Double, loader->size(), loader);
        zone.addField(std::string(1, "XYZ"[axis]), kernel::Field(std::move(values), ValueLocation_Nodal));
    }
}

void MetaImageReader::addValues(ImportedZone& zone, FileStamp const& file, std::int64_t offset,
                                ImportContext const& context) const
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
            group(type, loader, bytes, channel == 0 ? LoadingPlan::Need::FirstPlot : LoadingPlan::Need::Later, context);
        zone.addField(componentName("Value", channel, m_header.channels),
                      kernel::Field(std::move(values), ValueLocation_Nodal));
    }
    if (!isKernelType(m_header.type))
        context.remarks.push_back("Zone \"" + zone.zone->name + "\": " + conversionRemark(m_header.type));
}

std::shared_ptr<kernel::ShareGroup> MetaImageReader::group(FieldDataType_e type,
                                                           std::shared_ptr<kernel::ValueLoader> const& loader,
                                                           double bytes, LoadingPlan::Need need,
                                                           ImportContext const& context) const
{
    auto const fields = static_cast<std::int64_t>(m_header.dims.size()) + m_header.channels;
    kernel::Progress ofField(context.progress, context.progress.total() / fields);
    return context.plan.group(type, m_header.pointCount(), loader, bytes, need, ofField);
}

// Somebody may have altered the values since the header was written.
kernel::ValueRange MetaImageReader::rangeInHeader() const
{
    if (!m_header.min || !m_header.max || *m_header.min > *m_header.max)
        return {};
    return {kernel::ValueRange::State::Estimated, *m_header.min, *m_header.max};
}

} // namespace veldraw::app
