#pragma once

#include "app/import/formats/vtkxml/InterruptibleBuffer.h"

#include <istream>
#include <memory>

namespace veldraw::app {

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
