#pragma once

#include "kernel/data/DataSet.h"

#include <functional>

namespace veldraw::tests {

namespace sample {

/// Brings the given values, and remembers how often; or does what a test wants instead.
class Loader : public kernel::ValueLoader
{
public:
    explicit Loader(std::vector<double> values, FieldDataType_e type = FieldDataType_Float)
        : m_values(std::move(values))
        , m_type(type)
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress& progress) override;
    kernel::ValueRange range() const override { return knownRange; }
    bool isMapped() const override { return mapped; }
    bool canLoad() const override { return isThere; }
    std::string whatIsLost() const override { return loss; }
    Array array() const override { return wholeArray; }

    /// A field whose values this loader brings.
    static kernel::Field field(std::shared_ptr<Loader> const& loader, ValueLocation_e location = ValueLocation_Nodal);

    int loads = 0;
    bool mapped = false;
    bool isThere = true;
    std::string loss;
    Array wholeArray;
    kernel::ValueRange knownRange;
    std::function<void(kernel::Progress&)> before; ///< may throw

private:
    std::vector<double> m_values;
    FieldDataType_e m_type;
};

/// Brings the given dimensions.
class SizeLoader : public kernel::DimensionsLoader
{
public:
    explicit SizeLoader(kernel::ZoneDimensions size)
        : m_size(std::move(size))
    {
    }

    kernel::ZoneDimensions load(kernel::Progress& progress) override;

    int loads = 0;
    std::function<void(kernel::Progress&)> before; ///< may throw

private:
    kernel::ZoneDimensions m_size;
};

} // namespace sample

} // namespace veldraw::tests
