#pragma once

#include "kernel/data/DimensionsLoader.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/dialogs/support/ConstantLoader.h"

#include <cstdint>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// Brings dimensions as often as they are wanted.
class CountingDimensions : public kernel::DimensionsLoader
{
public:
    explicit CountingDimensions(kernel::ZoneDimensions const& dimensions)
        : m_dimensions(dimensions)
    {
    }

    kernel::ZoneDimensions load(kernel::Progress&) override
    {
        ++timesLoaded;
        return m_dimensions;
    }

    int timesLoaded = 0;

private:
    kernel::ZoneDimensions const m_dimensions;
};

/// Zones of which nothing is known but their names before it is loaded; and how often anything was.
class DeferredZones
{
public:
    /// Appends an ordered zone whose dimensions wait to be loaded, and with them the values of all variables.
    void append(kernel::DataSet& dataSet, std::string const& name, std::int64_t i, std::int64_t j, std::int64_t k)
    {
        auto const zone = std::make_shared<kernel::Zone>(name, ZoneType_Ordered, -1, -1, -1);
        m_dimensions.push_back(std::make_shared<CountingDimensions>(kernel::ZoneDimensions{i, j, k, nullptr}));
        zone->dimensionsLoader = m_dimensions.back();
        dataSet.addZone(zone);
        for (kernel::Field& field : zone->fields)
            defer(field, i * j * k);
    }

    /// Has the values of a field wait to be loaded.
    void defer(kernel::Field& field, std::int64_t size)
    {
        m_values.push_back(std::make_shared<ConstantLoader>(FieldDataType_Float, size, 1.0));
        field = kernel::Field(std::make_shared<kernel::ShareGroup>(FieldDataType_Float, size, m_values.back()),
                              ValueLocation_Nodal);
    }

    int timesLoaded() const
    {
        int times = 0;
        for (auto const& loader : m_dimensions)
            times += loader->timesLoaded;
        for (auto const& loader : m_values)
            times += loader->timesLoaded;
        return times;
    }

private:
    std::vector<std::shared_ptr<CountingDimensions>> m_dimensions;
    std::vector<std::shared_ptr<ConstantLoader>> m_values;
};

} // namespace veldraw::tests
