#include "app/reader/SegmentSender.h"

#include "app/handover/ByteWriter.h"
#include "app/reader/SharedBlocks.h"

#include <cerrno>
#include <new>
#include <sys/mman.h>
#include <unistd.h>

namespace veldraw::app {

namespace {

constexpr std::uint64_t largestOpenSegment = std::uint64_t{1} << 22;

void writeAll(int descriptor, void const* values, std::uint64_t bytes, std::uint64_t offset)
{
    auto const* const first = static_cast<char const*>(values);
    for (std::uint64_t done = 0; done < bytes;) {
        ssize_t const written = ::pwrite(descriptor, first + done, static_cast<std::size_t>(bytes - done),
                                         static_cast<off_t>(offset + done));
        if (written < 0 && errno != EINTR)
            throw std::bad_alloc();
        done += written > 0 ? static_cast<std::uint64_t>(written) : 0;
    }
}

} // namespace

SegmentSender::SegmentSender(Channel& channel)
    : m_channel(channel)
{
}

void SegmentSender::place(HandedArray& array, void const* values, std::uint64_t bytes)
{
    if (bytes == 0)
        return;
    auto const known = m_places.find(values);
    Place const found = known != m_places.end() ? known->second : placeFor(values, bytes);
    m_places.emplace(values, found);
    array.segment = found.segment;
    array.offset = found.offset;
}

SegmentSender::Place SegmentSender::placeFor(void const* values, std::uint64_t bytes)
{
    if (!SharedBlocks::has(values))
        return copied(values, bytes);
    Descriptor const memory = SharedBlocks::take(values);
    if (!memory.isOpen())
        throw std::bad_alloc();
    send(m_segments, memory);
    return {m_segments++, 0};
}

SegmentSender::Place SegmentSender::copied(void const* values, std::uint64_t bytes)
{
    if (!m_open.isOpen()) {
        m_open.reset(::memfd_create("values", MFD_CLOEXEC | MFD_ALLOW_SEALING));
        m_openSegment = m_segments++;
        m_openBytes = 0;
    }
    if (!m_open.isOpen())
        throw std::bad_alloc();
    Place const result{m_openSegment, m_openBytes};
    writeAll(m_open.number(), values, bytes, m_openBytes);
    m_openBytes = (m_openBytes + bytes + handover::alignment - 1) / handover::alignment * handover::alignment;
    if (m_openBytes >= largestOpenSegment)
        finish();
    return result;
}

void SegmentSender::finish()
{
    if (!m_open.isOpen())
        return;
    if (!sealed(m_open.number()))
        throw std::bad_alloc();
    send(m_openSegment, m_open);
    m_open.reset();
}

void SegmentSender::send(std::uint32_t segment, Descriptor const& memory)
{
    ByteWriter number;
    number.number(segment);
    m_channel.send(Message::Kind::Segment, number.bytes(), memory.number());
}

} // namespace veldraw::app
