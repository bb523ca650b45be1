#include "app/handover/Channel.h"

#include "app/handover/Nonsense.h"

#include <algorithm>
#include <cerrno>
#include <chrono>
#include <cstring>
#include <poll.h>
#include <sys/socket.h>

namespace veldraw::app {

namespace {

struct Head
{
    std::uint32_t kind;
    std::uint32_t size; // of what follows, in bytes
};

constexpr std::size_t largestContent = std::size_t{1} << 28;
constexpr std::size_t mostAtOnce = std::size_t{1} << 16;
constexpr int millisecondsOfPatience = 50; // with who reads or writes by little

using Clock = std::chrono::steady_clock;

int millisecondsUntil(Clock::time_point end)
{
    auto const left = std::chrono::duration_cast<std::chrono::milliseconds>(end - Clock::now()).count();
    return static_cast<int>(std::max<std::int64_t>(left, 0));
}

Head headOf(std::string const& bytes)
{
    Head head{};
    std::memcpy(&head, bytes.data(), sizeof head);
    return head;
}

union Control {
    char room[CMSG_SPACE(sizeof(int))];
    cmsghdr alignment;
};

void attach(msghdr& message, Control& control, int descriptor)
{
    message.msg_control = control.room;
    message.msg_controllen = sizeof control.room;
    cmsghdr* const head = CMSG_FIRSTHDR(&message);
    head->cmsg_level = SOL_SOCKET;
    head->cmsg_type = SCM_RIGHTS;
    head->cmsg_len = CMSG_LEN(sizeof descriptor);
    std::memcpy(CMSG_DATA(head), &descriptor, sizeof descriptor);
}

// There is room for one.
void takeDescriptor(msghdr& message, Descriptor& taken)
{
    for (cmsghdr* head = CMSG_FIRSTHDR(&message); head; head = CMSG_NXTHDR(&message, head)) {
        if (head->cmsg_level != SOL_SOCKET || head->cmsg_type != SCM_RIGHTS || head->cmsg_len < CMSG_LEN(sizeof(int)))
            continue;
        int number = -1;
        std::memcpy(&number, CMSG_DATA(head), sizeof number);
        taken.reset(number);
    }
}

} // namespace

Channel::Channel(Descriptor socket)
    : m_socket(std::move(socket))
    , m_wanted(sizeof(Head))
{
}

void Channel::send(Message::Kind kind, std::string_view content, int descriptor, std::function<void()> const& waiting)
{
    if (content.size() > largestContent)
        throw std::length_error("too much to be said at once");
    Head const head{static_cast<std::uint32_t>(kind), static_cast<std::uint32_t>(content.size())};
    std::string bytes(reinterpret_cast<char const*>(&head), sizeof head);
    bytes.append(content);
    Control control{};
    for (std::size_t done = 0; done < bytes.size();) {
        iovec part{bytes.data() + done, bytes.size() - done};
        msghdr message{};
        message.msg_iov = &part;
        message.msg_iovlen = 1;
        if (done == 0 && descriptor >= 0)
            attach(message, control, descriptor);
        ssize_t const sent = ::sendmsg(m_socket.number(), &message, MSG_NOSIGNAL | MSG_DONTWAIT);
        if (sent < 0 && errno == EAGAIN)
            awaitRoom(waiting);
        else if (sent < 0 && errno != EINTR)
            throw ChannelClosed();
        done += sent > 0 ? static_cast<std::size_t>(sent) : 0;
    }
}

void Channel::awaitRoom(std::function<void()> const& waiting) const
{
    pollfd socket{m_socket.number(), POLLOUT, 0};
    if (::poll(&socket, 1, millisecondsOfPatience) < 0 && errno != EINTR)
        throw ChannelClosed();
    if (waiting)
        waiting();
}

std::optional<Message> Channel::receive(int milliseconds)
{
    auto const end = Clock::now() + std::chrono::milliseconds(milliseconds);
    auto const endOfPatience = end + std::chrono::milliseconds(millisecondsOfPatience);
    for (;;) {
        pollfd socket{m_socket.number(), POLLIN, 0};
        int const ready = ::poll(&socket, 1, milliseconds < 0 ? -1 : millisecondsUntil(end));
        if (ready < 0 && errno != EINTR)
            throw ChannelClosed();
        if (ready > 0 && readSome())
            return takeMessage();
        bool const isOver = ready == 0 || Clock::now() > endOfPatience; // also where bytes come one by one
        if (milliseconds >= 0 && isOver)
            return std::nullopt;
    }
}

Message Channel::takeMessage()
{
    Message message{static_cast<Message::Kind>(headOf(m_bytes).kind), m_bytes.substr(sizeof(Head)),
                    std::move(m_descriptor)};
    m_bytes.clear();
    m_wanted = sizeof(Head);
    return message;
}

// Never takes bytes of the next message, whose open file would come with them. @return whether all of the message is there
bool Channel::readSome()
{
    std::size_t const had = m_bytes.size();
    m_bytes.resize(std::min(m_wanted, had + mostAtOnce));
    iovec part{m_bytes.data() + had, m_bytes.size() - had};
    Control control{};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control.room;
    message.msg_controllen = CMSG_LEN(sizeof(int)); // all of the room would do for two, of which nobody would close one
    ssize_t const size = ::recvmsg(m_socket.number(), &message, MSG_CMSG_CLOEXEC | MSG_DONTWAIT);
    int const error = errno;
    m_bytes.resize(had + (size > 0 ? static_cast<std::size_t>(size) : 0));
    if (size == 0 || (size < 0 && error != EINTR && error != EAGAIN))
        throw ChannelClosed();
    if (size > 0)
        takeDescriptor(message, m_descriptor);
    if (m_bytes.size() < sizeof(Head))
        return false;
    Head const head = headOf(m_bytes);
    if (head.kind > static_cast<std::uint32_t>(Message::Kind::Refused) || head.size > largestContent)
        throw Nonsense("a message of no kind");
    m_wanted = sizeof(Head) + head.size;
    return m_bytes.size() == m_wanted;
}

} // namespace veldraw::app
