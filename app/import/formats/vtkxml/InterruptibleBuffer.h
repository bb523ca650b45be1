#pragma once

#include <functional>
#include <streambuf>
#include <vector>

namespace veldraw::app {

/// Reads from another buffer piece by piece, and asks before each piece whether it is to go on: for readers that take a whole
/// array in one go. What was interrupted has come to its end.
class InterruptibleBuffer : public std::streambuf
{
public:
    /// @param source can be positioned, and outlives this
    InterruptibleBuffer(std::streambuf& source, std::function<bool()> isInterrupted);

    InterruptibleBuffer(InterruptibleBuffer const&) = delete;
    InterruptibleBuffer& operator=(InterruptibleBuffer const&) = delete;

protected:
    int_type underflow() override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

private:
    std::streambuf& m_source;
    std::function<bool()> m_isInterrupted;
    std::vector<char> m_piece;
    off_type m_end; // of the piece, where the source stands
};

} // namespace veldraw::app
