#pragma once

#include "app/handover/Descriptor.h"

#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

namespace veldraw::app {

/// The other side has gone.
class ChannelClosed : public std::runtime_error
{
public:
    ChannelClosed()
        : std::runtime_error("nobody is at the other end")
    {
    }
};

/// Something that is said through a Channel.
struct Message
{
    enum class Kind : std::uint32_t
    {
        Ready,    ///< the reader waits for a request
        Request,  ///< to the reader: ReadRequest
        Progress, ///< a fraction from 0 to 1
        Found,    ///< FoundArrays; the reader waits for the choice
        Choice,   ///< to the reader: ReadChoice
        Segment,  ///< shared memory comes with it; the first one is number 0
        Data,     ///< HandedData; the reader is ready again
        Refused   ///< Refusal
    };

    Kind kind = Kind::Ready;
    std::string content;
    Descriptor descriptor; ///< that came with it
};

/// One end of a pair of sockets between two processes, through which they send each other messages with open files.
class Channel
{
public:
    /// @param socket of the kind SOCK_STREAM
    explicit Channel(Descriptor socket);

    /// @param descriptor goes along as a copy; -1 for none
    /// @throws ChannelClosed
    void send(Message::Kind kind, std::string_view content = {}, int descriptor = -1);

    /// Waits up to @p milliseconds for a message, -1 for as long as it takes. @return none when it has not come by then
    /// @throws ChannelClosed, Nonsense
    std::optional<Message> receive(int milliseconds);

private:
    bool readSome();

    Descriptor m_socket;
    std::string m_bytes;     // of the message that is on its way
    std::size_t m_wanted;    // bytes of its head, or of all of it
    Descriptor m_descriptor; // that came with it
};

} // namespace veldraw::app
