#include "app/plot/ZoneDrawing.h"

#include "app/plot/FieldValues.h"
#include "kernel/base/Parallel.h"

#include <cmath>
#include <limits>

namespace veldraw::app {

namespace {

float pointSize(std::int64_t count)
{
    return count < 3000 ? 7.0F : count < 50000 ? 4.0F : 2.0F;
}

double mixed(FieldValues const& values, ZoneShape::Mix const& mix)
{
    return (1.0 - mix.share) * values.at(mix.first) + mix.share * values.at(mix.second);
}

double logarithm(double value)
{
    return value > 0.0 ? std::log10(value) : std::numeric_limits<double>::quiet_NaN();
}

} // namespace

bool DrawingStyle::operator==(DrawingStyle const& other) const
{
    return isLit == other.isLit && hasPolygons == other.hasPolygons && isFlooded == other.isFlooded &&
           valuesAt == other.valuesAt && pointSize == other.pointSize;
}

bool ZoneDrawing::Colours::operator==(Colours const& other) const
{
    return hasValues == other.hasValues && values == other.values && location == other.location && min == other.min &&
           max == other.max && isLog == other.isLog;
}

ZoneDrawing::ZoneDrawing(kernel::UniqueId zone, std::shared_ptr<ZoneGeometry const> geometry)
    : m_zone(zone)
    , m_geometry(std::move(geometry))
{
}

void ZoneDrawing::setGeometry(std::shared_ptr<ZoneGeometry const> geometry)
{
    if (geometry == m_geometry)
        return;
    m_geometry = std::move(geometry);
    m_colours = {};
    m_shares = nullptr;
    m_colouring = kernel::nextUniqueId();
}

void ZoneDrawing::colour(kernel::DataSet const& dataSet, int number, FieldLook const& look)
{
    m_number = number;
    kernel::Field const* const field = dataSet.field(number, look.contourVariable);
    Colours colours;
    if (field)
        colours = {true,
                   revisionOf(field),
                   field->isPassive() ? ValueLocation_Nodal : field->location(),
                   look.contourMin,
                   look.contourMax,
                   look.isLog};
    bool const isFlooded = field && look.isFlooded;
    if (colours == m_colours && isFlooded == m_isFlooded)
        return;
    m_isFlooded = isFlooded;
    if (!(colours == m_colours)) {
        m_colours = colours;
        m_shares = nullptr;
        if (field)
            computeShares(*field);
    }
    m_colouring = kernel::nextUniqueId();
}

// The contour variable as a share of the common range, so that single precision is enough for any offset. No value, no share.
void ZoneDrawing::computeShares(kernel::Field const& field)
{
    FieldValues const values(&field);
    bool const isNodal = m_colours.location == ValueLocation_Nodal;
    ZoneGeometry::Numbers const& slots = isNodal ? m_geometry->points() : m_geometry->cells();
    std::vector<ZoneShape::Mix> const& mixes = m_geometry->mixes();
    bool const isMixed = isNodal && !mixes.empty();
    std::int64_t const count = isNodal ? surface().GetNumberOfPoints() : surface().GetNumberOfCells();
    m_shares = vtkSmartPointer<vtkFloatArray>::New();
    m_shares->SetNumberOfValues(count);
    if (m_colours.values <= 0) {
        m_shares->FillValue(std::numeric_limits<float>::quiet_NaN());
        return;
    }
    // Halves first: the whole difference may be beyond the largest number.
    double const min = 0.5 * m_colours.min;
    double const width = 0.5 * m_colours.max - min;
    float* const target = m_shares->GetPointer(0);
    auto const work = [&](std::int64_t first, std::int64_t last, std::int64_t) {
        for (std::int64_t n = first; n < last; ++n) {
            auto const at = static_cast<std::size_t>(n);
            double const read = isMixed ? mixed(values, mixes[at]) : values.at(slots.empty() ? n : slots[at]);
            double const value = m_colours.isLog ? logarithm(read) : read;
            double const share = width > 0.0 ? (0.5 * value - min) / width : value - value + 0.5;
            target[n] = static_cast<float>(share);
        }
    };
    kernel::parallelFor(count, work, kernel::grainOfFreshMemory(count));
}

DrawingStyle ZoneDrawing::style() const
{
    DrawingStyle style;
    style.hasPolygons = surface().GetNumberOfPolys() > 0;
    style.isLit = m_geometry->isLit();
    style.isFlooded = m_isFlooded;
    style.valuesAt = m_colours.location;
    if (surface().GetNumberOfVerts() > 0)
        style.pointSize = pointSize(surface().GetNumberOfVerts());
    return style;
}

long long ZoneDrawing::cellCount() const
{
    return surface().GetNumberOfCells();
}

long long ZoneDrawing::bytes() const
{
    return m_geometry->bytes() + (m_shares ? static_cast<long long>(m_shares->GetNumberOfValues()) * 4 : 0);
}

} // namespace veldraw::app
