#pragma once

#include <chrono>
#include <condition_variable>
#include <cstdint>
#include <deque>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

namespace veldraw::app {

/// The end of the names of recovery files, and of those that are not whole yet.
constexpr char recoveryEnding[] = ".recovery";
constexpr char newRecoveryEnding[] = ".recovery-new";

/// Writes a recovery file on a thread of its own, so that nobody waits for the disk. What it is given is on the disk a tenth of a second later, if
/// the disk is not slower. The file is locked as long as this object lives, which tells other programs that somebody goes on with it.
///
/// When a file cannot be written, as on a full disk, what it has stays, and nothing is added to it; the next begin() makes another one.
class RecoveryFile
{
public:
    /// Between writing and writing, so that the disk is not kept busy.
    static constexpr std::chrono::milliseconds pause{100};

    /// @param folder is made when there is a file to write
    /// @param failed is told why a file could not be written, on the thread that writes
    RecoveryFile(std::string folder, std::function<void(std::string const& reason)> failed);

    /// Writes what has been given. The file stays.
    ~RecoveryFile();

    /// Makes a file that begins with @p text, in the place of the one that there may be.
    void begin(std::string text);
    void append(std::string text);

    /// Removes the file.
    void remove();

    /// Waits until everything has been done. @return whether all that was given since begin() is on the disk
    bool finish();

    RecoveryFile(RecoveryFile const&) = delete;
    RecoveryFile& operator=(RecoveryFile const&) = delete;

private:
    struct Order
    {
        enum class Kind
        {
            Begin,
            Append,
            Remove
        };
        Kind kind;
        std::string text;
    };

    void give(Order::Kind kind, std::string text);
    void run();
    void carryOut(std::deque<Order> const& orders);
    void follow(Order const& order);
    void replace(std::string const& text);
    void drop();
    void add(std::string const& text);
    bool isWhole();
    void setWhole(bool isWhole);
    void fail(std::string const& reason);

    std::string const m_folder;
    std::function<void(std::string const&)> const m_failed;

    // Of the thread that writes.
    struct File
    {
        int descriptor = -1;
        std::string path;
        std::int64_t length = 0;
    };
    File make();

    File m_file;
    int m_count = 0; // of files so far

    std::mutex m_mutex;
    std::condition_variable m_change;
    std::deque<Order> m_orders;
    bool m_isWorking = false;
    bool m_isHurried = false; // somebody waits
    bool m_isEnding = false;
    bool m_isWhole = true;

    std::thread m_thread; // last, since it uses the others
};

} // namespace veldraw::app
