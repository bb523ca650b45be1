#pragma once

#include "kernel/data/DataSet.h"

#include <functional>

namespace sample {

/// Brings the given values, and remembers how often; or does what a test wants instead.
class Loader : public veldraw::kernel::ValueLoader
{
public:
    explicit Loader(std::vector<double> values, FieldDataType_e type = FieldDataType_Float)
        : m_values(std::move(values))
        , m_type(type)
    {
    }

    std::shared_ptr<veldraw::kernel::Buffer> load(veldraw::kernel::Progress& progress) override;
    veldraw::kernel::ValueRange range() const override { return knownRange; }
    bool isMapped() const override { return mapped; }

    /// A field whose values this loader brings.
    static veldraw::kernel::Field field(std::shared_ptr<Loader> const& loader,
                                        ValueLocation_e location = ValueLocation_Nodal);

    int loads = 0;
    bool mapped = false;
    veldraw::kernel::ValueRange knownRange;
    std::function<void(veldraw::kernel::Progress&)> before; ///< may throw

private:
    std::vector<double> m_values;
    FieldDataType_e m_type;
};

/// Brings the given dimensions.
class SizeLoader : public veldraw::kernel::DimensionsLoader
{
public:
    explicit SizeLoader(veldraw::kernel::ZoneDimensions size)
        : m_size(std::move(size))
    {
    }

    veldraw::kernel::ZoneDimensions load(veldraw::kernel::Progress& progress) override;

    int loads = 0;
    std::function<void(veldraw::kernel::Progress&)> before; ///< may throw

private:
    veldraw::kernel::ZoneDimensions m_size;
};

} // namespace sample
