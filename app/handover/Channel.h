#pragma once

#include "app/handover/Descriptor.h"

#include <cstdint>
#include <functional>
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

/// Tells which messages there are and what stands in them: to be raised with each change of that, so that programs of different versions
/// notice that they don't understand each other.
constexpr std::uint32_t languageVersion = 4;

/// Something that is said through a Channel.
struct Message
{
    enum class Kind : std::uint32_t
    {
        Ready,    ///< with languageVersion; the reader waits for a request
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
    /// @param waiting    is called several times a second as long as the other side takes nothing; what it throws comes out here, and the
    ///                   channel is of no use any more
    /// @throws ChannelClosed
    void send(Message::Kind kind, std::string_view content = {}, int descriptor = -1,
              std::function<void()> const& waiting = {});

    /// Waits up to @p milliseconds for a message, -1 for as long as it takes. @return none when not all of it has come by then
    /// @throws ChannelClosed, Nonsense
    std::optional<Message> receive(int milliseconds);

private:
    bool readSome();
    Message takeMessage();
    void awaitRoom(std::function<void()> const& waiting) const;

    Descriptor m_socket;
    std::string m_bytes;     // of the message that is on its way
    std::size_t m_wanted;    // bytes of its head, or of all of it
    Descriptor m_descriptor; // that came with it
};

} // namespace veldraw::app
