// Stands in for the process that reads files, and does to whoever believes it what the path of the file says.

#include "app/handover/ByteWriter.h"
#include "app/handover/Channel.h"
#include "app/handover/HandedForm.h"
#include "app/handover/ReadRequest.h"

#include <csignal>
#include <cstdlib>
#include <fcntl.h>
#include <functional>
#include <map>
#include <random>
#include <string>
#include <sys/mman.h>
#include <sys/socket.h>
#include <unistd.h>

namespace {

using namespace veldraw::app;
using Kind = Message::Kind;

constexpr int socketNumber = 3;

Descriptor memoryOf(std::size_t bytes, int seals)
{
    Descriptor file(::memfd_create("nonsense", MFD_CLOEXEC | MFD_ALLOW_SEALING));
    if (::ftruncate(file.number(), static_cast<off_t>(bytes)) != 0 || ::fcntl(file.number(), F_ADD_SEALS, seals) != 0)
        ::_exit(3);
    return file;
}

void sendSegment(Channel& channel, std::uint32_t number, std::size_t bytes,
                 int seals = F_SEAL_SHRINK | F_SEAL_GROW | F_SEAL_WRITE)
{
    ByteWriter content;
    content.number(number);
    Descriptor const memory = memoryOf(bytes, seals);
    channel.send(Kind::Segment, content.bytes(), memory.number());
}

HandedData pointsInSegment(std::uint32_t segment)
{
    HandedData data;
    data.block.content = HandedBlock::Content::Grid;
    data.block.grid.emplace();
    HandedGrid& grid = *data.block.grid;
    grid.kind = HandedGrid::Kind::Mesh;
    HandedArray points;
    points.components = 3;
    points.tuples = 10;
    points.segment = segment;
    grid.coordinates = {points};
    return data;
}

std::string bytesOf(Kind kind, std::string const& content)
{
    ByteWriter bytes;
    bytes.number(static_cast<std::uint32_t>(kind));
    bytes.number(static_cast<std::uint32_t>(content.size()));
    return bytes.bytes() + content;
}

void sendBytes(std::string const& bytes)
{
    if (::send(socketNumber, bytes.data(), bytes.size(), MSG_NOSIGNAL) != static_cast<ssize_t>(bytes.size()))
        ::_exit(3);
}

// Until nobody listens any more.
[[noreturn]] void repeat(std::string const& bytes)
{
    for (;;) {
        sendBytes(bytes);
        ::usleep(5000);
    }
}

// In files that are neither mapped nor given away.
void hoard(std::size_t files)
{
    constexpr std::size_t bytesOfFile = std::size_t{4} << 20;
    std::string const content(bytesOfFile, 'x');
    for (; files > 0; --files) {
        if (::write(::memfd_create("hoard", 0), content.data(), bytesOfFile) != static_cast<ssize_t>(bytesOfFile))
            ::_exit(3);
    }
}

[[noreturn]] void sleepForEver()
{
    for (;;)
        ::pause();
}

void sayRandomBytes(Channel& channel, unsigned int seed)
{
    std::mt19937 random(seed);
    std::string bytes(random() % 3000, ' ');
    for (char& byte : bytes)
        byte = static_cast<char>(random() % (seed % 2 == 0 ? 256 : 4));
    channel.send(static_cast<Kind>(random() % 8), bytes);
}

void sayNonsense(Channel& channel, std::string const& what, unsigned int seed)
{
    static std::map<std::string, std::function<void(Channel&)>> const kinds{
        {"good",
         [](Channel& to) {
             sendSegment(to, 0, 4096);
             to.send(Kind::Data, asBytes(pointsInSegment(0)));
         }},
        {"dies", [](Channel&) { ::raise(SIGSEGV); }},
        {"exits", [](Channel&) { ::_exit(0); }},
        {"sleeps", [](Channel&) { sleepForEver(); }},
        {"works",
         [](Channel&) {
             for (volatile unsigned int n = 0;;)
                 n = n + 1;
         }},
        {"missing", [](Channel& to) { to.send(Kind::Data, asBytes(pointsInSegment(0))); }},
        {"small",
         [](Channel& to) {
             sendSegment(to, 0, 100);
             to.send(Kind::Data, asBytes(pointsInSegment(0)));
         }},
        {"open", [](Channel& to) { sendSegment(to, 0, 4096, F_SEAL_SHRINK); }},
        {"twice",
         [](Channel& to) {
             sendSegment(to, 0, 4096);
             sendSegment(to, 0, 4096);
         }},
        {"large",
         [](Channel& to) {
             for (std::uint32_t n = 0;; ++n)
                 sendSegment(to, n, std::size_t{1} << 28);
         }},
        {"number", [](Channel& to) { sendSegment(to, 0xffffffff, 4096); }},
        {"nothing", [](Channel& to) { to.send(Kind::Segment, std::string(4, '\0')); }},
        {"progress",
         [](Channel& to) {
             ByteWriter content;
             content.number(1e300);
             to.send(Kind::Progress, content.bytes());
         }},
        {"drips",
         [](Channel&) {
             sendBytes(bytesOf(Kind::Data, std::string(1000000, ' ')).substr(0, 8));
             repeat(" ");
         }},
        {"chats",
         [](Channel&) {
             ByteWriter half;
             half.number(0.5);
             repeat(bytesOf(Kind::Progress, half.bytes()));
         }},
        {"hangs-up",
         [](Channel&) {
             ::close(socketNumber);
             sleepForEver();
         }},
        {"deaf",
         [](Channel& to) {
             FoundArrays found;
             for (int n = 0; n < 5000; ++n)
                 found.ofPoints.push_back(std::string(1000, 'a') + std::to_string(n));
             to.send(Kind::Found, found.asBytes());
             sleepForEver();
         }},
        {"many",
         [](Channel& to) {
             FoundArrays found;
             for (int n = 0; n < 20001; ++n)
                 found.ofPoints.push_back(std::to_string(n));
             to.send(Kind::Found, found.asBytes());
         }},
        {"again",
         [](Channel& to) {
             sendSegment(to, 0, 4096);
             HandedData other = pointsInSegment(0);
             other.block.grid->coordinates.clear();
             sendBytes(bytesOf(Kind::Data, asBytes(pointsInSegment(0))) + bytesOf(Kind::Data, asBytes(other)));
         }},
        {"hoards",
         [](Channel&) {
             hoard(24);
             sleepForEver();
         }},
        {"asks", [](Channel& to) { to.send(Kind::Choice); }},
        {"whole",
         [](Channel&) {
             std::string const head("\6\0\0\0\377\377\377\377", 8);
             ::send(socketNumber, head.data(), head.size(), MSG_NOSIGNAL);
         }},
    };
    if (auto const found = kinds.find(what); found != kinds.end())
        found->second(channel);
    else
        sayRandomBytes(channel, seed);
}

} // namespace

int main(int, char** words)
{
    Channel channel{Descriptor(socketNumber)};
    bool const isStale = std::string(words[0]).find("stale") != std::string::npos;
    try {
        ByteWriter version;
        version.number(isStale ? languageVersion + 1 : languageVersion);
        channel.send(Kind::Ready, version.bytes());
        for (;;) {
            std::string const path = ReadRequest::fromBytes(channel.receive(-1)->content).path;
            std::string const what = path.substr(path.rfind('/') + 1);
            sayNonsense(channel, what, static_cast<unsigned int>(std::strtoul(what.c_str(), nullptr, 10)));
        }
    } catch (std::exception const&) {
        ::_exit(0);
    }
}
