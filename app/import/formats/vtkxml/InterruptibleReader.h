#pragma once

#include <functional>
#include <istream>
#include <memory>
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

/// VTK's reader of an XML file, which tells its progress at least with every piece of the file. By itself VTK reads an array of
/// text in one go, and hears nobody meanwhile.
/// @tparam Reader a vtkXMLReader
template <typename Reader>
class InterruptibleReader : public Reader
{
public:
    static InterruptibleReader* New()
    {
        auto* const reader = new InterruptibleReader;
        reader->InitializeObjectBase();
        return reader;
    }

    InterruptibleReader(InterruptibleReader const&) = delete;
    InterruptibleReader& operator=(InterruptibleReader const&) = delete;

protected:
    InterruptibleReader() = default;

    int OpenVTKFile() override
    {
        bool const wasOpen = this->Stream != nullptr;
        int const isOpen = Reader::OpenVTKFile();
        if (isOpen && !wasOpen && this->Stream) {
            m_buffer = std::make_unique<InterruptibleBuffer>(*this->Stream->rdbuf(), [this] { return isAborted(); });
            this->Stream->rdbuf(m_buffer.get()); // the stream keeps its own one
        }
        return isOpen;
    }

private:
    bool isAborted()
    {
        this->UpdateProgress(this->GetProgress());
        return this->GetAbortExecute() != 0;
    }

    std::unique_ptr<InterruptibleBuffer> m_buffer; // over that of the stream, of an open file
};

} // namespace veldraw::app
