#include "app/import/formats/numpy/NumpyReader.h"

#include "app/files/PathChecks.h"
#include "app/files/PlainText.h"
#include "app/files/SizeCheck.h"
#include "app/import/formats/numpy/NumpyArray.h"
#include "app/import/formats/numpy/ZipArchive.h"
#include "app/import/zones/CoordinateLoader.h"

#include <algorithm>
#include <set>

namespace veldraw::app {

namespace {

constexpr double bytesPerByteOfFile = 3.0; // the file, an array of it, and its values

std::string bytesOfFile(std::string const& path)
{
    std::int64_t const size = FileStamp(path).size();
    checkMemoryFor(bytesPerByteOfFile * static_cast<double>(size));
    std::string content(static_cast<std::size_t>(size), '\0');
    std::ifstream file = openToRead(path);
    file.read(content.data(), static_cast<std::streamsize>(content.size()));
    content.resize(static_cast<std::size_t>(file.gcount()));
    return content;
}

/// Makes zones of arrays.
class NumpyZones
{
public:
    explicit NumpyZones(ImportContext const& context)
        : m_context(context)
    {
    }

    void add(std::string const& name, std::string_view bytes)
    {
        NumpyArray const array = NumpyArray::of(bytes);
        if (!array.whyNot.empty()) {
            m_context.remarks.push_back("left out: \"" + asUtf8(name) + "\": " + array.whyNot);
            return;
        }
        checkMemoryFor(static_cast<double>(array.count()) * sizeof(double));
        zoneOf(array.size).addField(name, nodal(array.values(m_context.progress)));
        if (array.width == 8 && array.kind != 'f')
            m_context.remarks.push_back("\"" + asUtf8(name) +
                                        "\": 64-bit integers are converted to double, which is exact up to 2^53");
    }

    std::vector<ImportedZone> finish()
    {
        for (std::size_t n = 0; n < m_zones.size(); ++n) {
            if (m_zones.size() > 1)
                m_zones[n].zone->name += " " + std::to_string(n + 1);
            addIndices(m_zones[n]);
        }
        return std::move(m_zones);
    }

private:
    static kernel::Field nodal(std::shared_ptr<kernel::Buffer> const& values)
    {
        return kernel::Field(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
    }

    ImportedZone& zoneOf(std::array<std::int64_t, 3> const& size)
    {
        auto const found = std::find_if(m_zones.begin(), m_zones.end(), [&size](ImportedZone const& zone) {
            return zone.zone->i == size[0] && zone.zone->j == size[1] && zone.zone->k == size[2];
        });
        if (found != m_zones.end())
            return *found;
        m_zones.emplace_back();
        m_zones.back().zone =
            std::make_shared<kernel::Zone>(m_context.title, ZoneType_Ordered, size[0], size[1], size[2]);
        return m_zones.back();
    }

    static bool hasPlaces(ImportedZone const& zone)
    {
        static std::set<std::string> const names{"X", "Y", "Z", "x", "y", "z"};
        return std::any_of(zone.fields.begin(), zone.fields.end(),
                           [](ImportedZone::NamedField const& field) { return names.count(field.name) > 0; });
    }

    void addIndices(ImportedZone& zone) const
    {
        if (hasPlaces(zone))
            return;
        std::array<std::int64_t, 3> const size{zone.zone->i, zone.zone->j, zone.zone->k};
        ImportedZone result;
        result.zone = zone.zone;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            std::array<double, 3> steps{};
            steps[axis] = 1.0;
            result.addField(std::string(1, "XYZ"[axis]),
                            nodal(ImageCoordinateLoader(size, 0.0, steps).load(m_context.progress)));
        }
        for (ImportedZone::NamedField& field : zone.fields)
            result.addField(field.name, std::move(field.field));
        zone = std::move(result);
    }

    ImportContext const& m_context;
    std::vector<ImportedZone> m_zones;
};

} // namespace

std::vector<ImportedZone> NumpyReader::read(std::string const& path, ImportContext const& context)
{
    std::string const bytes = bytesOfFile(path);
    NumpyZones zones(context);
    if (extensionOf(path) == "npy") {
        zones.add(context.title, bytes);
        return zones.finish();
    }
    ZipArchive const archive(bytes);
    for (ZipArchive::Entry const& entry : archive.entries()) {
        if (extensionOf(entry.name) != "npy")
            continue;
        try {
            zones.add(entry.name.substr(0, entry.name.size() - 4), archive.content(entry));
        } catch (ImportError const& error) {
            throw ImportError("its part \"" + asUtf8(entry.name) + "\": " + error.what());
        }
    }
    return zones.finish();
}

} // namespace veldraw::app
