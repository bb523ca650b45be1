#pragma once

#include "tests/dialogs/datasetinfo/CountingLoaders.h"
#include "tests/dialogs/models/SampleSession.h"

#include <functional>
#include <memory>
#include <string>

namespace veldraw::tests {

/// Knows limits of the values that it brings, but not exactly.
class EstimatingLoader : public ConstantLoader
{
public:
    /// @param isPieceByPiece the system reads a piece of the values when it is accessed
    EstimatingLoader(std::int64_t size, double min, double max, bool isPieceByPiece)
        : ConstantLoader(FieldDataType_Float, size, max)
        , m_range{kernel::ValueRange::State::Estimated, min, max}
        , m_isPieceByPiece(isPieceByPiece)
    {
    }
    kernel::ValueRange range() const override { return m_range; }
    bool isMapped() const override { return m_isPieceByPiece; }

private:
    kernel::ValueRange const m_range;
    bool const m_isPieceByPiece;
};

/// The real kernel showing zones of several types, in which the variables X, Y, P, T and Q are loaded or not in several ways.
///
/// | zone | X | Y | P | T | Q |
/// |---|---|---|---|---|---|
/// | 1 Wing, ordered, 4 by 3 by 2, time 0.5 of strand 1 | 100 to 123, double | 200 to 223, float | 300 to 323 at cells, short | passive | waits |
/// | 2 Skin, 3 triangles of 5 points | 100 to 104, float | 200 to 204 | 300 to 304 | 400 to 404 | estimated from -1.5 to 2.5 |
/// | 3 Cells, 4 polyhedra of 8 points with 12 faces, strand 0 | 100 to 107 | 200 to 207 | 300 to 307 | 400 to 407 | waits |
/// | 4 Later, ordered, 10 by 20 by 30 when it is loaded | waits | waits | waits | waits | waits |
class ZoneVarStage
{
public:
    enum Zone
    {
        Wing = 1,
        Skin,
        Cells,
        Later
    };
    enum Variable
    {
        X = 1,
        Y,
        P,
        T,
        Q
    };

    ZoneVarStage();

    /// Gives a field values as a function of the zero-based index.
    static void fill(kernel::Zone& zone, int variable, FieldDataType_e type, ValueLocation_e location,
                     std::function<double(std::int64_t)> const& value);
    static kernel::Field& field(kernel::Zone& zone, int variable)
    {
        return zone.fields.at(static_cast<std::size_t>(variable - 1));
    }

    /// Gives a field, loaded or not, values that are known to lie within limits until they are loaded.
    static void estimate(kernel::Zone& zone, int variable, double min, double max, bool isPieceByPiece = false);

    kernel::Session& session() const { return sample.session(); }
    kernel::UniqueId frameID() const { return sample.frame()->id; }
    kernel::Zone& zone(int number) const { return *dataSet->zone(number); }
    kernel::Frame& frame() const { return *sample.frame(); }

    SampleSession sample;
    std::shared_ptr<kernel::DataSet> const dataSet = std::make_shared<kernel::DataSet>("Sample");
    DeferredZones deferred;
};

} // namespace veldraw::tests
