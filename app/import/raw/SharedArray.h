#pragma once

#include "kernel/storage/Buffer.h"

#include <functional>
#include <memory>
#include <mutex>
#include <vector>

namespace veldraw::app {

/// The memory of an array whose components are wanted one by one but come together, such as a mapping.
///
/// As long as somebody holds one component, the others are taken from the same memory. Each is given away once: it may
/// have been altered since, and who asks again wants what is in the file.
class SharedArray
{
public:
    using Components = std::vector<std::shared_ptr<kernel::Buffer>>;

    /// @param component from 0
    /// @param load      brings all components where the memory at hand does not have the wanted one
    std::shared_ptr<kernel::Buffer> take(int component, std::function<Components()> const& load);

    /// Whether take() would find this component in memory that somebody holds.
    bool isAtHand(int component);

    SharedArray() = default;
    SharedArray(SharedArray const&) = delete;
    SharedArray& operator=(SharedArray const&) = delete;

private:
    // A component that nobody has taken yet; its memory is not held.
    struct Part
    {
        std::weak_ptr<void> owner;
        FieldDataType_e type;
        std::int64_t size;
        std::int64_t stride;
        void* data;
    };

    std::mutex m_mutex;
    std::vector<Part> m_parts;
};

} // namespace veldraw::app
