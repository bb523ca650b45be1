#include "app/handover/Channel.h"

#include "app/handover/Nonsense.h"
#include "tests/app/support/OpenFiles.h"

#include <atomic>
#include <chrono>
#include <cstring>
#include <gtest/gtest.h>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/socket.h>
#include <thread>

namespace veldraw::tests {

namespace {

/// A channel to which the test talks through the bare socket.
class ChannelTest : public ::testing::Test
{
protected:
    ChannelTest()
        : channel(makePair())
    {
    }

    app::Descriptor makePair()
    {
        int ends[2];
        EXPECT_EQ(::socketpair(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC, 0, ends), 0);
        other.reset(ends[1]);
        return app::Descriptor(ends[0]);
    }

    void say(std::string const& bytes) const
    {
        ASSERT_EQ(::send(other.number(), bytes.data(), bytes.size(), 0), static_cast<ssize_t>(bytes.size()));
    }

    app::Descriptor other;
    app::Channel channel;
};

} // namespace

TEST_F(ChannelTest, BringsMessagesOfAnySizeInTheirOrder)
{
    app::Channel there(std::move(other));
    std::string const large(3000000, 'x');
    std::thread speaker([&] {
        there.send(app::Message::Kind::Ready);
        there.send(app::Message::Kind::Data, large);
        there.send(app::Message::Kind::Progress, "abc");
    });
    auto const ready = channel.receive(-1);
    auto const data = channel.receive(-1);
    auto const progress = channel.receive(-1);
    speaker.join();
    EXPECT_EQ(ready->kind, app::Message::Kind::Ready);
    EXPECT_EQ(ready->content, "");
    EXPECT_EQ(data->kind, app::Message::Kind::Data);
    EXPECT_TRUE(data->content == large);
    EXPECT_EQ(progress->content, "abc");
    EXPECT_FALSE(channel.receive(0));
}

TEST_F(ChannelTest, BringsAnOpenFileWithTheMessageThatItCameWith)
{
    app::Channel there(std::move(other));
    app::Descriptor const file(::memfd_create("test", MFD_CLOEXEC));
    ASSERT_EQ(::write(file.number(), "content", 7), 7);
    there.send(app::Message::Kind::Ready);
    there.send(app::Message::Kind::Segment, "number", file.number());
    there.send(app::Message::Kind::Ready);
    EXPECT_FALSE(channel.receive(-1)->descriptor.isOpen());
    auto const message = channel.receive(-1);
    ASSERT_TRUE(message->descriptor.isOpen());
    char text[8] = {};
    EXPECT_EQ(::pread(message->descriptor.number(), text, 7, 0), 7);
    EXPECT_STREQ(text, "content");
    EXPECT_FALSE(channel.receive(-1)->descriptor.isOpen());
}

TEST_F(ChannelTest, ClosesASecondFileThatComesWithAMessage)
{
    app::Descriptor const file(::memfd_create("test", MFD_CLOEXEC));
    int const files[] = {file.number(), file.number()};
    char control[CMSG_SPACE(sizeof files)] = {};
    char head[8] = {};
    iovec part{head, sizeof head};
    msghdr message{};
    message.msg_iov = &part;
    message.msg_iovlen = 1;
    message.msg_control = control;
    message.msg_controllen = sizeof control;
    cmsghdr* const rights = CMSG_FIRSTHDR(&message);
    rights->cmsg_level = SOL_SOCKET;
    rights->cmsg_type = SCM_RIGHTS;
    rights->cmsg_len = CMSG_LEN(sizeof files);
    std::memcpy(CMSG_DATA(rights), files, sizeof files);
    auto const before = openFileCount();
    ASSERT_EQ(::sendmsg(other.number(), &message, 0), 8);
    EXPECT_TRUE(channel.receive(-1)->descriptor.isOpen());
    EXPECT_EQ(openFileCount(), before);
}

TEST_F(ChannelTest, DoesNotWaitForAMessageThatComesByteByByte)
{
    say(std::string("\5\0\0\0\0\0\1\0", 8));
    std::atomic<bool> isEnough{false};
    std::atomic<bool> isAllSaid{false};
    std::thread speaker([&] {
        for (int n = 0; n < 3000 && !isEnough; ++n) {
            say("x");
            std::this_thread::sleep_for(std::chrono::milliseconds(1));
        }
        isAllSaid = !isEnough;
    });
    EXPECT_FALSE(channel.receive(5));
    EXPECT_FALSE(isAllSaid);
    isEnough = true;
    speaker.join();
}

TEST_F(ChannelTest, AsksWhetherToGoOnWhileNobodyListens)
{
    int asked = 0;
    auto const giveUp = [&asked] {
        if (++asked == 3)
            throw std::runtime_error("enough");
    };
    EXPECT_THROW(channel.send(app::Message::Kind::Choice, std::string(4000000, 'x'), -1, giveUp), std::runtime_error);
    EXPECT_EQ(asked, 3);
}

TEST_F(ChannelTest, TellsThatNobodyIsThereAnyMore)
{
    other.reset();
    EXPECT_THROW(channel.receive(-1), app::ChannelClosed);
    EXPECT_THROW(channel.send(app::Message::Kind::Ready), app::ChannelClosed);
}

TEST_F(ChannelTest, TellsThatAMessageHasNoEnd)
{
    say(std::string("\5\0\0\0\144\0\0\0abc", 11));
    EXPECT_FALSE(channel.receive(0)) << "it may come yet";
    other.reset();
    EXPECT_THROW(channel.receive(-1), app::ChannelClosed);
}

TEST_F(ChannelTest, RefusesMessagesOfNoKind)
{
    say(std::string("\77\0\0\0\0\0\0\0", 8));
    EXPECT_THROW(channel.receive(-1), app::Nonsense);
}

TEST_F(ChannelTest, RefusesMessagesThatWouldFillTheMemory)
{
    say(std::string("\1\0\0\0\377\377\377\377", 8));
    EXPECT_THROW(channel.receive(-1), app::Nonsense);
}

} // namespace veldraw::tests
