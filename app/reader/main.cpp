// Reads files with libraries that damaged files can end or lead astray, in a process of its own that can do no harm: the application
// starts it, says through a socket what it wants, and gets the values in shared memory.

#include "app/files/ImportError.h"
#include "app/handover/ByteWriter.h"
#include "app/handover/Channel.h"
#include "app/handover/HandedForm.h"
#include "app/handover/Nonsense.h"
#include "app/handover/ReadRequest.h"
#include "app/handover/Utf8.h"
#include "app/reader/FormatReading.h"
#include "app/reader/GridDescription.h"
#include "app/reader/LegacyReading.h"
#include "app/reader/Sandbox.h"
#include "app/reader/XmlReading.h"
#include "app/vtk/VtkErrorCapture.h"

#include <cstdio>
#include <new>
#include <stdexcept>
#include <sys/stat.h>
#include <unistd.h>

namespace {

using namespace veldraw::app;

constexpr int socketNumber = 3;        // where the application leaves its other end
constexpr int idleMilliseconds = 2000; // nobody reads files one after the other with such pauses

vtkSmartPointer<vtkDataObject> readWhatIsWanted(ReadRequest const& request, Channel& channel,
                                                VtkErrorCapture const& errors, std::vector<std::string>& remarks)
{
    switch (request.what) {
    case ReadRequest::What::XmlGrid:
        return readXmlGrid(request, channel, errors);
    case ReadRequest::What::XmlFieldData:
        return readXmlFieldData(request, channel, errors);
    case ReadRequest::What::Format:
        return readFormat(request, channel, errors);
    case ReadRequest::What::Legacy:
        break;
    }
    return readLegacy(request.path, channel, errors, remarks);
}

// VTK quotes what stands in files, which may be any bytes.
std::string sayable(std::string const& text)
{
    return madeUtf8(text, handover::longestName);
}

void read(ReadRequest const& request, Channel& channel, bool isFiltered)
{
    VtkErrorCapture const messages;
    HandedData data;
    auto const object = readWhatIsWanted(request, channel, messages, data.remarks);
    GridDescription description(channel);
    data.block = description.describe(object);
    description.finish();
    if (!isFiltered)
        data.remarks.emplace_back(
            "its reader could not be kept from writing to files: this system has no filter for that");
    data.remarks.insert(data.remarks.end(), description.remarks().begin(), description.remarks().end());
    for (std::string const& warning : messages.warnings())
        data.warnings.push_back(sayable(warning));
    channel.send(Message::Kind::Data, asBytes(data));
}

Refusal refusalFor(ReadRequest const& request, Channel& channel, bool isFiltered)
{
    try {
        read(request, channel, isFiltered);
        return {};
    } catch (ImportError const& error) {
        return {false, sayable(error.what())};
    } catch (std::bad_alloc const&) {
        return {true, {}};
    } catch (std::length_error const&) {
        return {true, {}};
    }
}

void serve(Channel& channel, bool isFiltered)
{
    ByteWriter version;
    version.number(languageVersion);
    channel.send(Message::Kind::Ready, version.bytes());
    for (;;) {
        auto const message = channel.receive(idleMilliseconds);
        if (!message)
            return;
        if (message->kind != Message::Kind::Request)
            throw Nonsense("no request");
        Refusal const refusal = refusalFor(ReadRequest::fromBytes(message->content), channel, isFiltered);
        if (refusal.isForMemory || !refusal.reason.empty())
            channel.send(Message::Kind::Refused, refusal.asBytes());
    }
}

bool hasSocket()
{
    struct stat status
    {
    };
    return ::fstat(socketNumber, &status) == 0 && S_ISSOCK(status.st_mode);
}

} // namespace

int main()
{
    if (!hasSocket()) {
        std::fprintf(stderr, "veldraw_reader reads files for veldraw, which starts it\n");
        return 2;
    }
    bool const isFiltered = enterSandbox();
    try {
        Channel channel{Descriptor(socketNumber)};
        serve(channel, isFiltered);
        ::_exit(0);
    } catch (ChannelClosed const&) {
        ::_exit(0); // nobody wants anything any more
    } catch (std::exception const&) {
        ::_exit(1);
    }
}
