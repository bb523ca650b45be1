#pragma once

#include "kernel/storage/ValueLoader.h"

#include <cstdint>
#include <stdexcept>

namespace veldraw::tests {

/// Brings one value as often as it is wanted, or fails.
class ConstantLoader : public kernel::ValueLoader
{
public:
    ConstantLoader(FieldDataType_e type, std::int64_t size, double value)
        : m_type(type)
        , m_size(size)
        , m_value(value)
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress&) override
    {
        if (fails)
            throw std::runtime_error("the file has gone");
        ++timesLoaded;
        auto const buffer = kernel::Buffer::allocate(m_type, m_size);
        for (std::int64_t index = 0; index < m_size; ++index)
            buffer->setValue(index, m_value);
        return buffer;
    }

    bool fails = false;
    int timesLoaded = 0;

private:
    FieldDataType_e const m_type;
    std::int64_t const m_size;
    double const m_value;
};

} // namespace veldraw::tests
