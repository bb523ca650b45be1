#pragma once

#include "app/reader/InfinityWords.h"

#include <functional>
#include <istream>
#include <memory>
#include <streambuf>
#include <vector>

namespace veldraw::app {

/// Reads from another buffer piece by piece, and tells of each piece: for readers that take a whole array in one go. What stands there is text
/// of a VTK XML file, whose words for infinity are shortened (InfinityWords).
class TalkativeBuffer : public std::streambuf
{
public:
    /// @param source can be positioned, and outlives this
    /// @param tell   is called before each piece
    TalkativeBuffer(std::streambuf& source, std::function<void()> tell);

    TalkativeBuffer(TalkativeBuffer const&) = delete;
    TalkativeBuffer& operator=(TalkativeBuffer const&) = delete;

protected:
    int_type underflow() override;
    pos_type seekoff(off_type offset, std::ios_base::seekdir from, std::ios_base::openmode which) override;
    pos_type seekpos(pos_type position, std::ios_base::openmode which) override;

private:
    std::streamsize fill();

    std::streambuf& m_source;
    std::function<void()> m_tell;
    std::vector<char> m_piece;
    off_type m_end; // of the piece, where the source stands
    InfinityWords m_words;
};

/// VTK's reader of an XML file, which tells its progress at least with every piece of the file. By itself VTK reads an array of
/// text in one go, and who waits for it cannot know whether it still works.
/// @tparam Reader a vtkXMLReader
template <typename Reader>
class TalkativeReader : public Reader
{
public:
    static TalkativeReader* New()
    {
        auto* const reader = new TalkativeReader;
        reader->InitializeObjectBase();
        return reader;
    }

    TalkativeReader(TalkativeReader const&) = delete;
    TalkativeReader& operator=(TalkativeReader const&) = delete;

protected:
    TalkativeReader() = default;

    int OpenVTKFile() override
    {
        bool const wasOpen = this->Stream != nullptr;
        int const isOpen = Reader::OpenVTKFile();
        if (isOpen && !wasOpen && this->Stream) {
            m_buffer = std::make_unique<TalkativeBuffer>(*this->Stream->rdbuf(),
                                                         [this] { this->UpdateProgress(this->GetProgress()); });
            this->Stream->rdbuf(m_buffer.get()); // the stream keeps its own one
        }
        return isOpen;
    }

private:
    std::unique_ptr<TalkativeBuffer> m_buffer; // over that of the stream, of an open file
};

} // namespace veldraw::app
