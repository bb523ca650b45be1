#include "tests/app/support/SystemCalls.h"

#include <algorithm>
#include <cerrno>
#include <csignal>
#include <cstdarg>
#include <cstdio>
#include <dlfcn.h>
#include <fcntl.h>
#include <string_view>
#include <sys/file.h>
#include <sys/stat.h>
#include <sys/uio.h>
#include <sys/xattr.h>
#include <unistd.h>

namespace {

using veldraw::tests::Disturbance;

bool isArmed = false;
bool hasHappened = false;
bool isAwaiting = false; // calls come before the texts below are there
int calls = 0;
Disturbance wanted;
std::string& victim = *new std::string; // never destroyed: calls come after the end of main() too
std::string& awaited = *new std::string;
std::function<void()>& workBefore = *new std::function<void()>;
std::vector<std::string>& changes = *new std::vector<std::string>;

template <typename Function>
Function* next(char const* name)
{
    return reinterpret_cast<Function*>(::dlsym(RTLD_NEXT, name));
}

std::string pathOf(int descriptor)
{
    char path[4096];
    ssize_t const size = ::readlink(("/proc/self/fd/" + std::to_string(descriptor)).c_str(), path, sizeof path);
    return size < 0 ? std::string() : std::string(path, static_cast<std::size_t>(size));
}

[[noreturn]] void end()
{
    ::kill(::getpid(), SIGKILL);
    for (;;)
        ::pause();
}

// What a call does besides looking.
enum class Effect
{
    Looks,
    Changes
};

// Whether this is the call to disturb, or one after it where all of these fail.
bool isNext(char const* name, Effect effect)
{
    if (!isArmed)
        return false;
    bool const isUncounted = (wanted.kind == Disturbance::Kind::KillBefore && effect == Effect::Looks) ||
                             (wanted.kind == Disturbance::Kind::KillHalfway && std::string_view(name) != "write");
    if (isUncounted)
        return false;
    ++calls;
    bool const isHit = wanted.kind != Disturbance::Kind::None &&
                       (wanted.kind == Disturbance::Kind::FailFromThen ? calls >= wanted.call : calls == wanted.call);
    if (isHit && !hasHappened)
        victim = name;
    hasHappened = hasHappened || isHit;
    return isHit;
}

// @return true when the call is to fail, with errno set
bool fails(char const* name, Effect effect, std::string const& paths, int usualError)
{
    if (isAwaiting && awaited == name) {
        isAwaiting = false;
        workBefore();
    }
    bool const isHit = isNext(name, effect);
    if (isHit && (wanted.kind == Disturbance::Kind::KillBefore || wanted.kind == Disturbance::Kind::KillHalfway))
        end();
    if (isHit) {
        errno = wanted.error != 0 ? wanted.error : usualError;
        return true;
    }
    if (isArmed && effect == Effect::Changes) {
        isArmed = false; // to note it takes memory, and may take calls
        changes.push_back(std::string(name) + " " + paths);
        isArmed = true;
    }
    return false;
}

bool isOpenedToChange(int flags)
{
    return (flags & (O_CREAT | O_TRUNC)) != 0;
}

template <typename Call>
int opened(char const* name, char const* path, int flags, Call const& call)
{
    Effect const effect = isOpenedToChange(flags) ? Effect::Changes : Effect::Looks;
    return fails(name, effect, path, EACCES) ? -1 : call();
}

mode_t modeOf(int flags, va_list arguments)
{
    return (flags & (O_CREAT | O_TMPFILE)) != 0 ? va_arg(arguments, mode_t) : 0;
}

// The output of tests is no file.
bool isOfFile(int descriptor)
{
    return descriptor > 2;
}

// How many of the bytes there is room for.
std::size_t roomFor(std::size_t count)
{
    if (!isArmed || wanted.room < 0)
        return count;
    std::size_t const granted = std::min(count, static_cast<std::size_t>(wanted.room));
    wanted.room -= static_cast<std::int64_t>(granted);
    return granted;
}

} // namespace

namespace veldraw::tests {

void disturbCalls(Disturbance const& disturbance)
{
    wanted = disturbance;
    calls = 0;
    hasHappened = false;
    victim.clear();
    changes.clear();
    isArmed = true;
}

void doBefore(std::string const& call, std::function<void()> const& work)
{
    workBefore = work;
    awaited = call;
    isAwaiting = true;
}

int endOfDisturbance()
{
    isArmed = false;
    return calls;
}

bool wasDisturbed()
{
    return hasHappened;
}

std::string disturbedCall()
{
    return victim;
}

std::vector<std::string> const& changingCalls()
{
    return changes;
}

} // namespace veldraw::tests

extern "C" {

int open(char const* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    mode_t const mode = modeOf(flags, arguments);
    va_end(arguments);
    static auto* const real = next<int(char const*, int, ...)>("open");
    return opened("open", path, flags, [&] { return real(path, flags, mode); });
}

int open64(char const* path, int flags, ...)
{
    va_list arguments;
    va_start(arguments, flags);
    mode_t const mode = modeOf(flags, arguments);
    va_end(arguments);
    static auto* const real = next<int(char const*, int, ...)>("open64");
    return opened("open", path, flags, [&] { return real(path, flags, mode); });
}

std::FILE* fopen64(char const* path, char const* how)
{
    static auto* const real = next<std::FILE*(char const*, char const*)>("fopen64");
    Effect const effect = *how == 'r' ? Effect::Looks : Effect::Changes;
    return fails("open", effect, path, EACCES) ? nullptr : real(path, how);
}

std::FILE* fopen(char const* path, char const* how)
{
    static auto* const real = next<std::FILE*(char const*, char const*)>("fopen");
    Effect const effect = *how == 'r' ? Effect::Looks : Effect::Changes;
    return fails("open", effect, path, EACCES) ? nullptr : real(path, how);
}

int fclose(std::FILE* file)
{
    static auto* const real = next<int(std::FILE*)>("fclose");
    bool const fail = fails("close", Effect::Looks, {}, EIO);
    int const error = errno;
    int const result = real(file);
    if (fail)
        errno = error;
    return fail ? EOF : result;
}

int close(int descriptor)
{
    static auto* const real = next<int(int)>("close");
    bool const fail = isOfFile(descriptor) && fails("close", Effect::Looks, {}, EIO);
    int const error = errno;
    int const result = real(descriptor);
    if (fail)
        errno = error;
    return fail ? -1 : result;
}

ssize_t write(int descriptor, void const* bytes, size_t count)
{
    static auto* const real = next<ssize_t(int, void const*, size_t)>("write");
    if (!isArmed || !isOfFile(descriptor))
        return real(descriptor, bytes, count);
    if (wanted.kind == Disturbance::Kind::KillHalfway && calls + 1 == wanted.call)
        real(descriptor, bytes, count / 2);
    if (fails("write", Effect::Changes, pathOf(descriptor), ENOSPC))
        return -1;
    size_t const granted = roomFor(count);
    if (granted == 0 && count > 0) {
        errno = ENOSPC;
        return -1;
    }
    return real(descriptor, bytes, granted);
}

ssize_t writev(int descriptor, iovec const* parts, int count)
{
    static auto* const real = next<ssize_t(int, iovec const*, int)>("writev");
    if (!isArmed || !isOfFile(descriptor))
        return real(descriptor, parts, count);
    if (fails("write", Effect::Changes, pathOf(descriptor), ENOSPC))
        return -1;
    std::size_t wantedBytes = 0;
    for (int n = 0; n < count; ++n)
        wantedBytes += parts[n].iov_len;
    if (roomFor(wantedBytes) < wantedBytes) {
        errno = ENOSPC;
        return -1;
    }
    return real(descriptor, parts, count);
}

int posix_fallocate(int descriptor, off_t offset, off_t size)
{
    static auto* const real = next<int(int, off_t, off_t)>("posix_fallocate");
    if (isArmed && wanted.room >= 0 && size > wanted.room)
        return ENOSPC;
    return fails("posix_fallocate", Effect::Changes, pathOf(descriptor), ENOSPC) ? errno
                                                                                 : real(descriptor, offset, size);
}

int fsync(int descriptor)
{
    static auto* const real = next<int(int)>("fsync");
    return fails("fsync", Effect::Changes, pathOf(descriptor), EIO) ? -1 : real(descriptor);
}

int rename(char const* from, char const* to) noexcept
{
    static auto* const real = next<int(char const*, char const*)>("rename");
    return fails("rename", Effect::Changes, std::string(from) + " " + to, EACCES) ? -1 : real(from, to);
}

int renameat2(int fromFolder, char const* from, int toFolder, char const* to, unsigned how) noexcept
{
    static auto* const real = next<int(int, char const*, int, char const*, unsigned)>("renameat2");
    return fails("rename", Effect::Changes, std::string(from) + " " + to, EINVAL)
               ? -1
               : real(fromFolder, from, toFolder, to, how);
}

int unlink(char const* path) noexcept
{
    static auto* const real = next<int(char const*)>("unlink");
    return fails("unlink", Effect::Changes, path, EACCES) ? -1 : real(path);
}

int rmdir(char const* path) noexcept
{
    static auto* const real = next<int(char const*)>("rmdir");
    return fails("rmdir", Effect::Changes, path, EACCES) ? -1 : real(path);
}

int mkdir(char const* path, mode_t mode) noexcept
{
    static auto* const real = next<int(char const*, mode_t)>("mkdir");
    return fails("mkdir", Effect::Changes, path, EACCES) ? -1 : real(path, mode);
}

int fchmod(int descriptor, mode_t mode) noexcept
{
    static auto* const real = next<int(int, mode_t)>("fchmod");
    return fails("fchmod", Effect::Changes, pathOf(descriptor), EPERM) ? -1 : real(descriptor, mode);
}

int fchown(int descriptor, uid_t user, gid_t group) noexcept
{
    static auto* const real = next<int(int, uid_t, gid_t)>("fchown");
    return fails("fchown", Effect::Changes, pathOf(descriptor), EPERM) ? -1 : real(descriptor, user, group);
}

int flock(int descriptor, int how) noexcept
{
    static auto* const real = next<int(int, int)>("flock");
    return fails("flock", Effect::Looks, {}, ENOLCK) ? -1 : real(descriptor, how);
}

int stat(char const* path, struct stat* facts) noexcept
{
    static auto* const real = next<int(char const*, struct stat*)>("stat");
    return fails("stat", Effect::Looks, {}, EACCES) ? -1 : real(path, facts);
}

int lstat(char const* path, struct stat* facts) noexcept
{
    static auto* const real = next<int(char const*, struct stat*)>("lstat");
    return fails("lstat", Effect::Looks, {}, EACCES) ? -1 : real(path, facts);
}

int fstat(int descriptor, struct stat* facts) noexcept
{
    static auto* const real = next<int(int, struct stat*)>("fstat");
    return fails("fstat", Effect::Looks, {}, EIO) ? -1 : real(descriptor, facts);
}

ssize_t getxattr(char const* path, char const* name, void* value, size_t size) noexcept
{
    static auto* const real = next<ssize_t(char const*, char const*, void*, size_t)>("getxattr");
    return fails("getxattr", Effect::Looks, {}, EACCES) ? -1 : real(path, name, value, size);
}

int fremovexattr(int descriptor, char const* name) noexcept
{
    static auto* const real = next<int(int, char const*)>("fremovexattr");
    return fails("fremovexattr", Effect::Changes, pathOf(descriptor), EPERM) ? -1 : real(descriptor, name);
}

} // extern "C"
