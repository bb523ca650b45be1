#include "app/recovery/RecoveryFile.h"

#include "app/files/SystemReason.h"

#include <cerrno>
#include <fcntl.h>
#include <filesystem>
#include <stdexcept>
#include <sys/file.h>
#include <unistd.h>
#include <utility>

namespace veldraw::app {

namespace {

[[noreturn]] void throwProblem(int error)
{
    throw std::runtime_error(systemReason(error));
}

/// Makes the folder's list of files safe; where that cannot be done, the file is no less there.
void synchronizeFolder(std::string const& folder)
{
    int const descriptor = ::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    if (descriptor >= 0) {
        ::fsync(descriptor);
        ::close(descriptor);
    }
}

/// A folder that nobody else looks into.
void makeFolder(std::string const& folder)
{
    std::error_code error;
    if (std::filesystem::create_directories(folder, error))
        std::filesystem::permissions(folder, std::filesystem::perms::owner_all, error);
    if (error)
        throwProblem(error.value());
}

void lock(int descriptor)
{
    // Who looks for files that were left holds the lock for a moment.
    while (::flock(descriptor, LOCK_EX) != 0) {
        if (errno != EINTR)
            throwProblem(errno);
    }
}

void writeAll(int descriptor, std::string const& text)
{
    for (std::size_t done = 0; done < text.size();) {
        ssize_t const count = ::write(descriptor, text.data() + done, text.size() - done);
        if (count < 0 && errno != EINTR)
            throwProblem(errno);
        done += count > 0 ? static_cast<std::size_t>(count) : 0;
    }
}

void synchronize(int descriptor)
{
    if (::fdatasync(descriptor) != 0)
        throwProblem(errno);
}

} // namespace

RecoveryFile::RecoveryFile(std::string folder, std::function<void(std::string const&)> failed)
    : m_folder(std::move(folder))
    , m_failed(std::move(failed))
    , m_thread([this] { run(); })
{
}

RecoveryFile::~RecoveryFile()
{
    {
        std::lock_guard<std::mutex> const guard(m_mutex);
        m_isEnding = true;
    }
    m_change.notify_all();
    m_thread.join();
    if (m_file.descriptor >= 0)
        ::close(m_file.descriptor);
}

void RecoveryFile::begin(std::string text)
{
    give(Order::Kind::Begin, std::move(text));
}

void RecoveryFile::append(std::string text)
{
    give(Order::Kind::Append, std::move(text));
}

void RecoveryFile::remove()
{
    give(Order::Kind::Remove, {});
}

void RecoveryFile::give(Order::Kind kind, std::string text)
{
    {
        std::lock_guard<std::mutex> const guard(m_mutex);
        m_orders.push_back({kind, std::move(text)});
    }
    m_change.notify_all();
}

bool RecoveryFile::finish()
{
    std::unique_lock<std::mutex> guard(m_mutex);
    m_isHurried = true;
    m_change.notify_all();
    m_change.wait(guard, [this] { return m_orders.empty() && !m_isWorking; });
    m_isHurried = false;
    return m_isWhole;
}

void RecoveryFile::run()
{
    std::unique_lock<std::mutex> guard(m_mutex);
    for (;;) {
        m_change.wait(guard, [this] { return !m_orders.empty() || m_isEnding; });
        if (m_orders.empty())
            return;
        std::deque<Order> const orders = std::exchange(m_orders, {});
        m_isWorking = true;
        guard.unlock();
        carryOut(orders);
        guard.lock();
        m_isWorking = false;
        m_change.notify_all();
        m_change.wait_for(guard, pause, [this] { return m_isEnding || m_isHurried; });
    }
}

void RecoveryFile::carryOut(std::deque<Order> const& orders)
{
    try {
        for (Order const& order : orders)
            follow(order);
        if (m_file.descriptor >= 0 && isWhole())
            synchronize(m_file.descriptor);
    } catch (std::exception const& error) {
        fail(error.what());
    }
}

// What is wrong with one file is nothing to the next.
void RecoveryFile::follow(Order const& order)
{
    try {
        if (order.kind == Order::Kind::Begin)
            replace(order.text);
        else if (order.kind == Order::Kind::Append)
            add(order.text);
        else
            drop();
    } catch (std::exception const& error) {
        fail(error.what());
    }
}

// The file that there was stays until the other one is whole.
void RecoveryFile::replace(std::string const& text)
{
    makeFolder(m_folder);
    File made = make();
    std::string const named = m_folder + '/' + std::filesystem::path(made.path).stem().string() + recoveryEnding;
    try {
        lock(made.descriptor);
        writeAll(made.descriptor, text);
        synchronize(made.descriptor);
        if (::rename(made.path.c_str(), named.c_str()) != 0)
            throwProblem(errno);
    } catch (std::exception const&) {
        ::unlink(made.path.c_str());
        ::close(made.descriptor);
        throw;
    }
    drop();
    made.path = named;
    made.length = static_cast<std::int64_t>(text.size());
    m_file = made;
    setWhole(true);
    synchronizeFolder(m_folder);
}

// Makes an empty file of a name that no other one has.
RecoveryFile::File RecoveryFile::make()
{
    File file;
    do {
        std::string const name = m_folder + '/' + std::to_string(::getpid()) + '-' + std::to_string(++m_count);
        file.path = name + newRecoveryEnding;
        if (::access((name + recoveryEnding).c_str(), F_OK) == 0)
            continue; // left by a process of the same number
        file.descriptor =
            ::open(file.path.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_APPEND | O_CLOEXEC | O_NOFOLLOW, 0600);
        if (file.descriptor < 0 && errno != EEXIST)
            throwProblem(errno);
    } while (file.descriptor < 0);
    return file;
}

void RecoveryFile::drop()
{
    if (m_file.descriptor >= 0) {
        ::unlink(m_file.path.c_str());
        ::close(m_file.descriptor);
    }
    m_file = {};
}

// Nothing is written behind a hole.
void RecoveryFile::add(std::string const& text)
{
    if (m_file.descriptor < 0 || !isWhole())
        return;
    writeAll(m_file.descriptor, text);
    m_file.length += static_cast<std::int64_t>(text.size());
}

bool RecoveryFile::isWhole()
{
    std::lock_guard<std::mutex> const guard(m_mutex);
    return m_isWhole;
}

void RecoveryFile::setWhole(bool isWhole)
{
    std::lock_guard<std::mutex> const guard(m_mutex);
    m_isWhole = isWhole;
}

// What was written in part is no record; where it cannot be taken away, it is left out when the file is read.
void RecoveryFile::fail(std::string const& reason)
{
    setWhole(false);
    int const cut = m_file.descriptor < 0 ? 0 : ::ftruncate(m_file.descriptor, m_file.length);
    static_cast<void>(cut);
    m_failed(reason);
}

} // namespace veldraw::app
