#include "app/import/formats/vtkxml/InterruptibleReader.h"

#include <ios>

namespace veldraw::app {

namespace {

constexpr std::size_t bytesOfPiece = std::size_t{1} << 17; // a few milliseconds of reading numbers

} // namespace

InterruptibleBuffer::InterruptibleBuffer(std::streambuf& source, std::function<bool()> isInterrupted)
    : m_source(source)
    , m_isInterrupted(std::move(isInterrupted))
    , m_piece(bytesOfPiece)
    , m_end(source.pubseekoff(0, std::ios_base::cur, std::ios_base::in))
{
}

InterruptibleBuffer::int_type InterruptibleBuffer::underflow()
{
    if (gptr() < egptr())
        return traits_type::to_int_type(*gptr());
    if (m_isInterrupted())
        return traits_type::eof();
    std::streamsize const count = m_source.sgetn(m_piece.data(), static_cast<std::streamsize>(m_piece.size()));
    if (count <= 0)
        return traits_type::eof();
    m_end += count;
    setg(m_piece.data(), m_piece.data(), m_piece.data() + count);
    return traits_type::to_int_type(*gptr());
}

InterruptibleBuffer::pos_type InterruptibleBuffer::seekoff(off_type offset, std::ios_base::seekdir from,
                                                           std::ios_base::openmode which)
{
    if (from == std::ios_base::cur)
        return seekpos(m_end - (egptr() - gptr()) + offset, which);
    if (from == std::ios_base::beg)
        return seekpos(offset, which);
    setg(nullptr, nullptr, nullptr);
    pos_type const position = m_source.pubseekoff(offset, from, std::ios_base::in);
    m_end = position;
    return position;
}

// Readers go back and forth by little; what is at hand need not be read again.
InterruptibleBuffer::pos_type InterruptibleBuffer::seekpos(pos_type position, std::ios_base::openmode)
{
    off_type const beforeEnd = m_end - off_type(position);
    if (beforeEnd >= 0 && beforeEnd <= egptr() - eback()) {
        setg(eback(), egptr() - beforeEnd, egptr());
        return position;
    }
    setg(nullptr, nullptr, nullptr);
    pos_type const reached = m_source.pubseekpos(position, std::ios_base::in);
    m_end = reached;
    return reached;
}

} // namespace veldraw::app
