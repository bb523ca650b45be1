#include "app/reader/Sandbox.h"

#include "app/import/child/ReadingChild.h"
#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/GridSamples.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstddef>
#include <fcntl.h>
#include <functional>
#include <gtest/gtest.h>
#include <iterator>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <poll.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

namespace veldraw::tests {

namespace {

// What happens in a process that has entered the sandbox. @return what it ended with
int inSandbox(std::function<bool()> const& holds)
{
    pid_t const process = ::fork();
    if (process == 0) {
        bool const isFiltered = app::enterSandbox();
        ::_exit(isFiltered && holds() ? 0 : 1);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    return status;
}

bool knowsFilters()
{
    // Whether the system has them at all: without an address it complains of that, and not of the question.
    return ::syscall(SYS_seccomp, 1, 0, nullptr) != 0 && errno == EFAULT;
}

// As a system that has none: another filter answers to whoever wants to set one.
void forbidFilters()
{
    sock_filter calls[] = {
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, nr)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, __NR_prctl, 0, 3),
        BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offsetof(seccomp_data, args)),
        BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, PR_SET_SECCOMP, 0, 1),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ERRNO | EINVAL),
        BPF_STMT(BPF_RET | BPF_K, SECCOMP_RET_ALLOW),
    };
    sock_fprog const program{static_cast<unsigned short>(std::size(calls)), calls};
    ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0);
    ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program);
}

class SandboxTest : public ::testing::Test
{
protected:
    void SetUp() override { ASSERT_TRUE(knowsFilters()) << "this system cannot show that the sandbox works"; }

    TemporaryFolder const folder;
    std::string const path = folder.write("file", "content");
};

} // namespace

TEST_F(SandboxTest, LetsFilesBeRead)
{
    EXPECT_EQ(inSandbox([this] {
                  int const file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
                  char text[7];
                  return file >= 0 && ::read(file, text, 7) == 7;
              }),
              0);
}

TEST_F(SandboxTest, LetsNoFileBeWrittenMadeOrRemoved)
{
    std::string const other = folder.path("other");
    EXPECT_EQ(inSandbox([&] {
                  return ::open(path.c_str(), O_WRONLY) < 0 && ::open(path.c_str(), O_RDWR) < 0 &&
                         ::open(path.c_str(), O_RDONLY | O_TRUNC) < 0 &&
                         ::open(other.c_str(), O_RDONLY | O_CREAT, 0600) < 0 && ::unlink(path.c_str()) != 0 &&
                         ::rename(path.c_str(), other.c_str()) != 0 && ::truncate(path.c_str(), 0) != 0 &&
                         ::chmod(path.c_str(), 0) != 0 && ::mkdir(other.c_str(), 0700) != 0 &&
                         ::symlink(path.c_str(), other.c_str()) != 0 && ::link(path.c_str(), other.c_str()) != 0;
              }),
              0);
    EXPECT_EQ(folder.listing(), "file");
    EXPECT_EQ(contentOf(path), "content");
}

TEST_F(SandboxTest, HasNoNetwork)
{
    EXPECT_EQ(inSandbox([] {
                  return ::socket(AF_INET, SOCK_STREAM, 0) < 0 && ::socket(AF_UNIX, SOCK_STREAM, 0) < 0 &&
                         ::socket(AF_NETLINK, SOCK_RAW, 0) < 0;
              }),
              0);
}

TEST_F(SandboxTest, StartsNoProgramsAndEndsNoOthers)
{
    EXPECT_EQ(inSandbox([] {
                  char* words[] = {nullptr};
                  return ::fork() < 0 && ::vfork() < 0 && ::execve("/bin/true", words, words) < 0 &&
                         ::kill(::getppid(), SIGTERM) != 0 &&
                         ::syscall(SYS_tgkill, ::getppid(), ::getppid(), SIGTERM) != 0;
              }),
              0);
}

// The system would send the signal as soon as something is said.
TEST_F(SandboxTest, HasNoSignalsSentByFilesEither)
{
    EXPECT_EQ(inSandbox([this] {
                  int const file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
                  return ::fcntl(file, F_SETOWN, ::getppid()) != 0 && ::fcntl(file, F_SETSIG, SIGTERM) != 0 &&
                         ::fcntl(file, F_SETFL, O_ASYNC) != 0 && ::fcntl(file, F_NOTIFY, DN_ACCESS) != 0 &&
                         ::fcntl(file, F_GETFD) == FD_CLOEXEC;
              }),
              0);
}

TEST_F(SandboxTest, HoldsNobodyUpWhoWantsAFile)
{
    EXPECT_EQ(inSandbox([this] {
                  int const file = ::open(path.c_str(), O_RDONLY | O_CLOEXEC);
                  flock whole{};
                  whole.l_type = F_RDLCK;
                  return ::fcntl(file, F_SETLEASE, F_RDLCK) != 0 && ::fcntl(file, F_SETLK, &whole) != 0;
              }),
              0);
}

TEST_F(SandboxTest, MakesNoMemoryOfHugePages)
{
    EXPECT_EQ(inSandbox([] {
                  return ::memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING | MFD_HUGETLB) < 0 && errno == EPERM;
              }),
              0);
}

TEST_F(SandboxTest, SaysThatTheSystemFiltersNoCalls)
{
    pid_t const process = ::fork();
    if (process == 0) {
        forbidFilters();
        ::_exit(app::enterSandbox() ? 1 : 0);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
    EXPECT_EQ(inSandbox([] { return true; }), 0);
}

TEST_F(SandboxTest, IsMissedInARemarkOnEachFileWhereTheSystemFiltersNoCalls)
{
    std::string const grid = writeXml(*unstructuredGrid(4, {{VTK_TETRA, {0, 1, 2, 3}}}), folder.path("a.vtu"));
    auto const isMissed = [&grid] {
        app::ReadRequest request;
        request.path = grid;
        request.extension = "vtu";
        auto const choose = [](app::FoundArrays const&) { return app::ReadChoice{{}, {}, true, true}; };
        kernel::Progress unwatched;
        auto const result = app::ReadingChild().read(request, {1 << 30, 20, 60}, choose, unwatched);
        auto const& remarks = result.data.remarks;
        return std::any_of(remarks.begin(), remarks.end(), [](std::string const& remark) {
            return remark.find("this system has no filter for that") != std::string::npos;
        });
    };
    EXPECT_FALSE(isMissed());
    app::ReadingChild::endKept(); // it would read for the other process
    pid_t const process = ::fork();
    if (process == 0) {
        forbidFilters();
        bool const isFirst = isMissed();
        bool const isSecond = isMissed();
        app::ReadingChild::endKept();
        ::_exit(isFirst && isSecond ? 0 : 1);
    }
    int status = 0;
    ::waitpid(process, &status, 0);
    EXPECT_EQ(status, 0);
}

TEST_F(SandboxTest, LiftsNoLimits)
{
    EXPECT_EQ(inSandbox([] {
                  rlimit limits{};
                  bool const asked = ::getrlimit(RLIMIT_CPU, &limits) == 0;
                  return asked && ::setrlimit(RLIMIT_CPU, &limits) != 0;
              }),
              0);
}

TEST_F(SandboxTest, HasMemoryToShare)
{
    EXPECT_EQ(inSandbox([] {
                  int const file = ::memfd_create("test", MFD_CLOEXEC | MFD_ALLOW_SEALING);
                  return file >= 0 && ::ftruncate(file, 4096) == 0 && ::pwrite(file, "x", 1, 0) == 1 &&
                         ::fcntl(file, F_ADD_SEALS, F_SEAL_WRITE) == 0;
              }),
              0);
}

TEST_F(SandboxTest, EndsWithItsParent)
{
    int ends[2];
    ASSERT_EQ(::pipe(ends), 0);
    pid_t const parent = ::fork();
    if (parent == 0) {
        if (::fork() == 0) {
            app::enterSandbox();
            for (bool isTold = ::write(ends[1], "x", 1) == 1; isTold;)
                ::sleep(1000);
        }
        ::sleep(1000);
    }
    ::close(ends[1]);
    char byte = ' ';
    EXPECT_EQ(::read(ends[0], &byte, 1), 1) << "it is in the sandbox";
    ::kill(parent, SIGKILL);
    ::waitpid(parent, nullptr, 0);
    pollfd pipe{ends[0], POLLIN, 0};
    EXPECT_EQ(::poll(&pipe, 1, 60000), 1);
    EXPECT_EQ(::read(ends[0], &byte, 1), 0) << "nobody has the other end any more";
    ::close(ends[0]);
}

TEST_F(SandboxTest, TakesSharedMemoryBeyondItsLimitForNone)
{
    rlimit before{};
    ::getrlimit(RLIMIT_FSIZE, &before);
    rlimit limit = before;
    limit.rlim_cur = 4096;
    ::setrlimit(RLIMIT_FSIZE, &limit);
    int const status = inSandbox([] {
        int const file = ::memfd_create("test", MFD_CLOEXEC);
        return ::ftruncate(file, 4096) == 0 && ::ftruncate(file, 4097) != 0 && errno == EFBIG;
    });
    ::setrlimit(RLIMIT_FSIZE, &before);
    EXPECT_EQ(status, 0);
}

TEST_F(SandboxTest, EndsByAbortAndLeavesNoCore)
{
    int const status = inSandbox([]() -> bool { ::abort(); });
    EXPECT_TRUE(WIFSIGNALED(status));
    EXPECT_EQ(WTERMSIG(status), SIGABRT);
    EXPECT_FALSE(WCOREDUMP(status));
}

} // namespace veldraw::tests
