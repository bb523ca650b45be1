#pragma once

#include "kernel/data/ValueLoader.h"

#include <array>
#include <cstdint>

namespace veldraw::app {

/// Computes one coordinate of the points of a grid that does not store a place for each of them. The range is known exactly
/// without that.
class CoordinateLoader : public kernel::ValueLoader
{
public:
    /// @param dims points along I, J and K, each 1 or more
    /// @param type of the values
    CoordinateLoader(std::array<std::int64_t, 3> const& dims, FieldDataType_e type)
        : m_dims(dims)
        , m_type(type)
    {
    }

    FieldDataType_e type() const { return m_type; }
    std::int64_t size() const { return m_dims[0] * m_dims[1] * m_dims[2]; }

protected:
    std::array<std::int64_t, 3> const& dims() const { return m_dims; }

private:
    std::array<std::int64_t, 3> m_dims;
    FieldDataType_e m_type;
};

} // namespace veldraw::app
