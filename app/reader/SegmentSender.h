#pragma once

#include "app/handover/Channel.h"
#include "app/handover/HandedArray.h"

#include <cstdint>
#include <map>

namespace veldraw::app {

/// Sends the values of arrays in segments of shared memory: a large one in its own, the memory that it stands in (SharedBlocks), others
/// together.
class SegmentSender
{
public:
    /// @param channel outlives this
    explicit SegmentSender(Channel& channel);

    /// Gives @p array a place for its values; what stood at one address before stands in one place. Large ones are gone afterwards.
    /// @param values stay alive, and as they are, as long as this does
    /// @throws std::bad_alloc, ChannelClosed
    void place(HandedArray& array, void const* values, std::uint64_t bytes);

    /// Sends the values that have not been sent yet. @throws ChannelClosed
    void finish();

private:
    struct Place
    {
        std::uint32_t segment;
        std::uint64_t offset;
    };

    Place placeFor(void const* values, std::uint64_t bytes);
    Place copied(void const* values, std::uint64_t bytes);
    void send(std::uint32_t segment, Descriptor const& memory);

    Channel& m_channel;
    std::map<void const*, Place> m_places;
    std::uint32_t m_segments = 0;
    Descriptor m_open; // the segment that small arrays go into
    std::uint32_t m_openSegment = 0;
    std::uint64_t m_openBytes = 0;
};

} // namespace veldraw::app
