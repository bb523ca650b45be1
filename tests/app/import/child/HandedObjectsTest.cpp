#include "app/import/child/HandedObjects.h"

#include "app/files/ImportError.h"
#include "app/handover/HandedDataCheck.h"
#include "app/handover/HandedForm.h"
#include "app/handover/Nonsense.h"
#include "app/import/formats/vtkxml/BlockZones.h"
#include "tests/app/handover/HandedSample.h"

#include <cstring>
#include <gtest/gtest.h>
#include <random>

namespace veldraw::tests {

namespace {

constexpr unsigned int objectsSeed = 20261123;
constexpr std::size_t bytesOfSegment = 4096;
constexpr int samples = 10000;

std::int64_t below(std::mt19937& random, unsigned int count)
{
    return static_cast<std::int64_t>(random() % count);
}

// Small numbers as a rule: others are found out at once.
app::SharedSegment segmentOf(std::mt19937& random)
{
    std::shared_ptr<void> const memory(new std::int64_t[bytesOfSegment / 8],
                                       [](void* numbers) { delete[] static_cast<std::int64_t*>(numbers); });
    auto* const numbers = static_cast<std::int64_t*>(memory.get());
    for (std::size_t n = 0; n < bytesOfSegment / 8; ++n)
        numbers[n] = random() % 50 == 0 ? below(random, 100000) - 50000 : below(random, 5);
    return {memory, bytesOfSegment};
}

// The tetrahedron of the sample, which is sound, as long as nobody alters it.
void writeMesh(app::SharedSegment const& segment, std::mt19937& random)
{
    auto* const numbers = static_cast<std::int64_t*>(segment.memory.get());
    std::int64_t const offsets[] = {0, 4};
    std::int64_t const points[] = {0, 1, 2, 3};
    std::int64_t const faces[] = {4, 3, 0, 1, 2, 3, 0, 1, 3, 3, 0, 2, 3, 3, 1, 2, 3};
    std::copy(std::begin(offsets), std::end(offsets), numbers + 8);
    std::copy(std::begin(points), std::end(points), numbers + 16);
    numbers[24] = random() % 2 == 0 ? 42 : 10; // a polyhedron or a tetrahedron
    numbers[32] = 0;
    std::copy(std::begin(faces), std::end(faces), numbers + 40);
    for (auto left = random() % 3; left > 0; --left)
        numbers[8 + random() % 50] = below(random, 8) - 2;
}

void damage(std::string& bytes, std::mt19937& random)
{
    for (auto left = random() % 4; left > 0; --left) {
        char& byte = bytes[random() % bytes.size()];
        byte = static_cast<char>(random() % 2 == 0 ? random() % 256 : random() % 8);
    }
}

// Computed coordinates would take the memory that an extent asks for.
app::DeferredArrays withoutComputedCoordinates()
{
    app::DeferredArrays deferred;
    deferred.coordinates = true;
    return deferred;
}

// @return whether a zone was made of it
bool isTaken(app::HandedBlock const& block, std::vector<app::SharedSegment> const& memory)
{
    app::HandedData one;
    one.block = block;
    try {
        app::checkHandedData(one, std::vector<std::uint64_t>(memory.size(), bytesOfSegment));
        kernel::Progress progress;
        std::vector<std::string> remarks;
        std::vector<app::ImportedZone> zones;
        app::addZonesOf(app::objectOf({one, memory}), "block", withoutComputedCoordinates(), remarks, zones, progress);
        for (app::ImportedZone const& zone : zones) {
            for (auto const& field : zone.fields)
                EXPECT_EQ(field.field.group()->size(), zone.zone->valueCount(field.field.location()));
        }
        return !zones.empty();
    } catch (app::ImportError const&) {
        return false;
    } catch (app::Nonsense const&) {
        return false;
    }
}

} // namespace

// What an enemy may say that gets by the check: cells that lead anywhere, purposes that arrays cannot have, extents of other sizes.
TEST(HandedObjects, AreSoundZonesOrRefusedWhateverTheDescriptionSays)
{
    std::mt19937 random(objectsSeed);
    std::printf("seed %u\n", objectsSeed);
    std::string const whole = app::asBytes(handedBlocks());
    int taken = 0;
    int refused = 0;
    for (int n = 0; n < samples; ++n) {
        SCOPED_TRACE(n);
        std::vector<app::SharedSegment> const memory{segmentOf(random), segmentOf(random)};
        writeMesh(memory[0], random);
        std::string bytes = whole;
        damage(bytes, random);
        try {
            app::HandedData const data = app::fromBytes(bytes);
            for (app::HandedBlock const& block : data.block.blocks)
                ++(isTaken(block, memory) ? taken : refused);
        } catch (app::Nonsense const&) {
            ++refused;
        }
    }
    EXPECT_GT(taken, samples);
    EXPECT_GT(refused, samples / 2);
}

} // namespace veldraw::tests
