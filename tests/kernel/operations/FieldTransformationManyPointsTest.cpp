// Rotation, mirror and copies of more values than are worked on at a time, wherever and however they lie in memory, against a
// plain loop of long doubles.
#include "kernel/compute/CopyValues.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/RotateZones.h"
#include "tests/kernel/support/SpatialFixture.h"

#include <cmath>

namespace veldraw::tests {

using namespace kernel;
using sample::aboutX;
using sample::aboutZ;
using sample::noVector;
using sample::slanting;

namespace {

using ExactPoint = std::array<long double, 3>;

/// How the values of a variable lie in memory.
struct Layout
{
    FieldDataType_e type;
    std::int64_t offset; ///< of the first value, in values
    std::int64_t stride;
};

/// A whole number within the limits of @p type, as good as random.
double plainNumber(std::int64_t point, int variable, FieldDataType_e type)
{
    std::int64_t const mixed =
        (point * 2654435761LL + variable * 40503LL) >> 25; // repeats after no power of 2 in sight
    std::int64_t const kinds = type == FieldDataType_Bit ? 2 : type == FieldDataType_Byte ? 251 : 30011;
    return static_cast<double>(((mixed % kinds) + kinds) % kinds);
}

class ManyPoints : public SpatialFixture
{
protected:
    /// Appends a zone with X, Y, Z laid out like this and everything else passive. @return its number
    int addZone(std::int64_t count, std::array<Layout, 3> const& layouts)
    {
        auto zone = std::make_shared<Zone>("many", ZoneType_Ordered, count, 1, 1);
        for (int variable = 1; variable <= 3; ++variable) {
            zone->fields.push_back(laidOut(count, variable, layouts[static_cast<std::size_t>(variable - 1)]));
        }
        return dataSet->addZone(zone);
    }

    static Field laidOut(std::int64_t count, int variable, Layout const& layout)
    {
        auto const whole = Buffer::allocate(layout.type, layout.offset + count * layout.stride);
        for (std::int64_t at = 0; at < whole->size(); ++at) {
            whole->setValue(at, 77); // what must not be looked at
        }
        for (std::int64_t point = 0; point < count; ++point) {
            whole->setValue(layout.offset + point * layout.stride, plainNumber(point, variable, layout.type));
        }
        std::int64_t const bytes = Buffer::bytesOf(layout.type, layout.offset);
        auto part = Buffer::adopt(layout.type, count, static_cast<char*>(whole->mutableData()) + bytes, layout.stride,
                                  whole->owner());
        return {std::make_shared<ShareGroup>(std::move(part)), ValueLocation_Nodal};
    }

    double value(int zone, int variable, std::int64_t point)
    {
        return field(zone, variable).group()->buffer()->value(point);
    }
};

/// The rotation by the formula of Rodrigues.
ExactPoint rotated(ExactPoint const& point, RotationAxis const& axis, long double degrees)
{
    long double const angle = degrees * std::acos(-1.0L) / 180;
    ExactPoint k{axis.direction[0], axis.direction[1], axis.direction[2]};
    long double const length = std::sqrt(k[0] * k[0] + k[1] * k[1] + k[2] * k[2]);
    ExactPoint v;
    for (std::size_t at = 0; at < 3; ++at) {
        k[at] /= length;
        v[at] = point[at] - axis.origin[at];
    }
    long double const along = (k[0] * v[0] + k[1] * v[1] + k[2] * v[2]) * (1 - std::cos(angle));
    ExactPoint result;
    for (std::size_t at = 0; at < 3; ++at) {
        std::size_t const next = (at + 1) % 3;
        std::size_t const last = (at + 2) % 3;
        long double const across = k[next] * v[last] - k[last] * v[next];
        result[at] = axis.origin[at] + v[at] * std::cos(angle) + across * std::sin(angle) + k[at] * along;
    }
    return result;
}

std::vector<std::array<Layout, 3>> allLayouts()
{
    std::vector<std::array<Layout, 3>> all;
    for (FieldDataType_e const type :
         {FieldDataType_Float, FieldDataType_Double, FieldDataType_Int32, FieldDataType_Int16, FieldDataType_Byte}) {
        all.push_back({Layout{type, 0, 1}, {type, 0, 1}, {type, 0, 1}});
        all.push_back({Layout{type, 5, 1}, {type, 1, 1}, {type, 0, 1}});
        all.push_back({Layout{type, 0, 3}, {type, 1, 3}, {type, 2, 3}});
    }
    all.push_back({Layout{FieldDataType_Bit, 0, 1}, {FieldDataType_Bit, 16, 1}, {FieldDataType_Float, 0, 2}});
    all.push_back({Layout{FieldDataType_Float, 3, 2}, {FieldDataType_Double, 0, 4}, {FieldDataType_Int16, 7, 1}});
    return all;
}

constexpr std::int64_t sizes[] = {511, 512, 513, 20011}; // about a block, and several threads' share

} // namespace

TEST_F(ManyPoints, AreRotatedOneByOne)
{
    for (RotationAxis const& axis : {aboutX, aboutZ, slanting}) {
        for (auto const& layouts : allLayouts()) {
            for (std::int64_t const size : sizes) {
                int const zone = addZone(size, layouts);
                ASSERT_TRUE(session.perform(RotateZones(*dataSet, {zone}, noVector, axis, 33.0)));
                for (std::int64_t point = 0; point < size; ++point) {
                    ExactPoint before;
                    for (int variable = 1; variable <= 3; ++variable) {
                        auto const place = static_cast<std::size_t>(variable - 1);
                        before[place] = plainNumber(point, variable, layouts[place].type);
                    }
                    ExactPoint const expected = rotated(before, axis, 33.0L);
                    for (int variable = 1; variable <= 3; ++variable) {
                        long double const wanted = expected[static_cast<std::size_t>(variable - 1)];
                        bool const isDouble = field(zone, variable).type() == FieldDataType_Double;
                        ASSERT_NEAR(static_cast<double>(value(zone, variable, point) - wanted), 0.0,
                                    isDouble ? 3e-11 : 3e-3)
                            << "type " << layouts[0].type << " stride " << layouts[0].stride << " variable " << variable
                            << " point " << point << " of " << size;
                    }
                }
                session.history().clear();
                dataSet->zones().pop_back();
            }
        }
    }
}

TEST_F(ManyPoints, AreMirroredOneByOne)
{
    for (auto const& layouts : allLayouts()) {
        for (std::int64_t const size : sizes) {
            int const zone = addZone(size, layouts);
            for (int axis = 1; axis <= 3; ++axis) {
                ASSERT_TRUE(session.perform(MirrorZones(frame->id, {zone}, "XYZ"[axis - 1])));
                Layout const& layout = layouts[static_cast<std::size_t>(axis - 1)];
                for (std::int64_t point = 0; point < size; ++point) {
                    ASSERT_EQ(value(zone + axis, axis, point), -plainNumber(point, axis, layout.type))
                        << "type " << layout.type << " stride " << layout.stride << " point " << point << " of "
                        << size;
                }
            }
            session.history().clear();
            dataSet->zones().resize(1);
        }
    }
}

TEST_F(ManyPoints, AreCopiedOneByOneForAnEdit)
{
    constexpr std::int64_t size =
        (std::int64_t{1} << 22) + 4099; // a thread looks for a cancel several times on its way
    for (Layout const& layout :
         {Layout{FieldDataType_Float, 3, 1}, {FieldDataType_Int16, 1, 2}, {FieldDataType_Bit, 8, 1}}) {
        auto const source = laidOut(size, 2, layout).group()->buffer();
        Progress progress;
        for (auto const& copy : {copyValues(*source, progress), source->clone()}) {
            std::int64_t differences = 0;
            for (std::int64_t point = 0; point < size; ++point) {
                differences += copy->value(point) != plainNumber(point, 2, layout.type) ? 1 : 0;
            }
            EXPECT_EQ(differences, 0) << layout.type;
        }
    }
}

} // namespace veldraw::tests
