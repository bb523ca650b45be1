#include "app/reader/Sandbox.h"

#include "app/reader/SystemCalls.h"

#include <cerrno>
#include <csignal>
#include <cstddef>
#include <cstdint>
#include <fcntl.h>
#include <linux/audit.h>
#include <linux/filter.h>
#include <linux/seccomp.h>
#include <sched.h>
#include <sys/mman.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <sys/syscall.h>
#include <unistd.h>
#include <vector>

namespace veldraw::app {

namespace {

#if defined(__x86_64__)
constexpr std::uint32_t architecture = AUDIT_ARCH_X86_64;
#elif defined(__aarch64__)
constexpr std::uint32_t architecture = AUDIT_ARCH_AARCH64;
#else
constexpr std::uint32_t architecture = 0; // not known: no filter
#endif

constexpr auto number = static_cast<std::uint32_t>(offsetof(seccomp_data, nr));

// The lower half of an argument, from 0.
constexpr std::uint32_t argument(std::uint32_t which)
{
    return static_cast<std::uint32_t>(offsetof(seccomp_data, args)) + 8 * which;
}

using Filter = std::vector<sock_filter>;

void load(Filter& filter, std::uint32_t offset)
{
    filter.push_back(BPF_STMT(BPF_LD | BPF_W | BPF_ABS, offset));
}

void answer(Filter& filter, std::uint32_t what)
{
    filter.push_back(BPF_STMT(BPF_RET | BPF_K, what));
}

void allow(Filter& filter, int call)
{
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 1));
    answer(filter, SECCOMP_RET_ALLOW);
}

// Allows a call where an argument has certain bits, and refuses it where it has others.
void allowWhere(Filter& filter, int call, std::uint32_t which, int mask, int bits, int otherwise)
{
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 5));
    load(filter, argument(which));
    filter.push_back(BPF_STMT(BPF_ALU | BPF_AND | BPF_K, static_cast<std::uint32_t>(mask)));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(bits), 0, 1));
    answer(filter, SECCOMP_RET_ALLOW);
    answer(filter, SECCOMP_RET_ERRNO | static_cast<std::uint32_t>(otherwise));
}

// Allows a call where a pointer to something new is null.
void allowAsking(Filter& filter, int call, std::uint32_t which)
{
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, 6));
    load(filter, argument(which));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, 0, 0, 3));
    load(filter, argument(which) + 4);
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, 0, 0, 1));
    answer(filter, SECCOMP_RET_ALLOW);
    answer(filter, SECCOMP_RET_ERRNO | EPERM);
}

// Allows a call where an argument is one of some values.
void allowOnly(Filter& filter, int call, std::uint32_t which, std::vector<int> const& values)
{
    auto const rest = static_cast<std::uint8_t>(2 * values.size() + 2);
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, static_cast<std::uint32_t>(call), 0, rest));
    load(filter, argument(which));
    for (int const value : values)
        allow(filter, value);
    answer(filter, SECCOMP_RET_ERRNO | EPERM);
}

Filter filterOfCalls()
{
    constexpr int writing = O_WRONLY | O_RDWR | O_CREAT | O_TRUNC | O_APPEND;
    Filter filter;
    load(filter, static_cast<std::uint32_t>(offsetof(seccomp_data, arch)));
    filter.push_back(BPF_JUMP(BPF_JMP | BPF_JEQ | BPF_K, architecture, 1, 0));
    answer(filter, SECCOMP_RET_KILL_PROCESS);
    load(filter, number);
    for (int const call : allowedSystemCalls())
        allow(filter, call);
    allowWhere(filter, __NR_openat, 2, writing, 0, EACCES);
#ifdef __NR_open
    allowWhere(filter, __NR_open, 1, writing, 0, EACCES);
#endif
    allowWhere(filter, __NR_clone, 0, CLONE_THREAD, CLONE_THREAD, EPERM);
    allowWhere(filter, __NR_tgkill, 0, -1, ::getpid(), EPERM); // abort() ends the process by this
    allowAsking(filter, __NR_prlimit64, 2);
    // Others send signals to whom they like when something arrives, or hold up who wants a file.
    allowOnly(filter, __NR_fcntl, 1, {F_DUPFD, F_DUPFD_CLOEXEC, F_GETFD, F_SETFD, F_GETFL, F_ADD_SEALS, F_GET_SEALS});
    // Huge pages could be given away without there being any.
    allowWhere(filter, __NR_memfd_create, 1, ~static_cast<int>(MFD_CLOEXEC | MFD_ALLOW_SEALING), 0, EPERM);
    // Those that take a structure could not be looked into; who is refused them takes the older ones.
    answer(filter, SECCOMP_RET_ERRNO | ENOSYS);
    return filter;
}

// @return whether the system does it
bool filterCalls()
{
    if (architecture == 0)
        return false;
    Filter filter = filterOfCalls();
    sock_fprog const program{static_cast<unsigned short>(filter.size()), filter.data()};
    return ::prctl(PR_SET_NO_NEW_PRIVS, 1, 0, 0, 0) == 0 && ::prctl(PR_SET_SECCOMP, SECCOMP_MODE_FILTER, &program) == 0;
}

// Each large array takes one.
void wantManyOpenFiles()
{
    rlimit limits{};
    if (::getrlimit(RLIMIT_NOFILE, &limits) != 0)
        return;
    limits.rlim_cur = limits.rlim_max;
    ::setrlimit(RLIMIT_NOFILE, &limits);
}

} // namespace

bool enterSandbox()
{
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    rlimit const none{0, 0};
    ::setrlimit(RLIMIT_CORE, &none);
    std::signal(SIGXFSZ, SIG_IGN); // shared memory beyond the limit is as good as none
    wantManyOpenFiles();
    return filterCalls();
}

} // namespace veldraw::app
