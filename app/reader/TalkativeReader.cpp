#include "app/reader/TalkativeReader.h"

#include <ios>

namespace veldraw::app {

namespace {

constexpr std::size_t bytesOfPiece = std::size_t{1} << 17; // a few milliseconds of reading numbers

constexpr std::size_t longestWord = 32;

bool separatesWords(char c)
{
    return c == ' ' || c == '\n' || c == '\t' || c == '\r';
}

} // namespace

TalkativeBuffer::TalkativeBuffer(std::streambuf& source, std::function<void()> tell)
    : m_source(source)
    , m_tell(std::move(tell))
    , m_piece(bytesOfPiece + longestWord)
    , m_end(source.pubseekoff(0, std::ios_base::cur, std::ios_base::in))
{
}

TalkativeBuffer::int_type TalkativeBuffer::underflow()
{
    if (gptr() < egptr())
        return traits_type::to_int_type(*gptr());
    m_tell();
    std::streamsize const count = fill();
    if (count <= 0)
        return traits_type::eof();
    m_words.shorten(m_piece.data(), static_cast<std::size_t>(count), m_end);
    m_end += count;
    setg(m_piece.data(), m_piece.data(), m_piece.data() + count);
    return traits_type::to_int_type(*gptr());
}

// A piece ends where a word does, unless the word is a long one. @return its bytes, 0 at the end
std::streamsize TalkativeBuffer::fill()
{
    std::streamsize count = m_source.sgetn(m_piece.data(), static_cast<std::streamsize>(bytesOfPiece));
    while (count >= static_cast<std::streamsize>(bytesOfPiece) &&
           count < static_cast<std::streamsize>(m_piece.size()) &&
           !separatesWords(m_piece[static_cast<std::size_t>(count) - 1])) {
        int_type const next = m_source.sbumpc();
        if (traits_type::eq_int_type(next, traits_type::eof()))
            break;
        m_piece[static_cast<std::size_t>(count++)] = traits_type::to_char_type(next);
    }
    return count;
}

TalkativeBuffer::pos_type TalkativeBuffer::seekoff(off_type offset, std::ios_base::seekdir from,
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
TalkativeBuffer::pos_type TalkativeBuffer::seekpos(pos_type position, std::ios_base::openmode)
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
