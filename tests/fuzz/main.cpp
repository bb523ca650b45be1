// Opens damaged files of all formats in processes of its own, and tells which of them end the program, take longer than ten seconds, or bring in what
// contradicts itself or was in memory before.
//
// usage: veldraw_fuzz COUNT SEED [FIRST]      FIRST: number of the first file, to see one again. Files that were found are left in ./fuzz-findings.

#include "tests/app/support/FileHelpers.h"
#include "tests/app/support/FileMutation.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <sys/mman.h>
#include <sys/wait.h>
#include <unistd.h>

namespace {

using namespace veldraw::tests;

constexpr unsigned int filesOfProcess = 200;
constexpr double longest = 10.0; // seconds of work: a machine with more to do is no slower for that
constexpr std::chrono::minutes longestSilence(3);

/// What the process that opens files tells the one that watches it; both see it.
struct Shared
{
    std::atomic<unsigned int> number; // of the file that is being opened
    std::atomic<unsigned int> refused;
    std::atomic<unsigned int> opened;
};

std::string writeFile(SoundFile const& file, std::string const& content, TemporaryFolder const& folder)
{
    for (auto const& [name, other] : file.others)
        folder.write(name, other);
    return folder.write(file.name, content);
}

[[noreturn]] void openFiles(std::vector<SoundFile> const& files, unsigned int seed, unsigned int first,
                            unsigned int last, Shared& shared)
{
    TemporaryFolder const folder;
    for (unsigned int n = first; n < last; ++n) {
        shared.number = n;
        SoundFile const& file = files[n % files.size()];
        Opening const opening = openedAndLookedAt(writeFile(file, mutation(file, seed, n), folder));
        ++(opening.isRefused ? shared.refused : shared.opened);
        if (opening.problem.empty())
            continue;
        std::printf("file %u (%s): %s\n", n, file.name.c_str(), opening.problem.c_str());
        std::fflush(stdout);
        std::filesystem::remove_all(folder.path(""));
        ::_exit(1);
    }
    std::filesystem::remove_all(folder.path(""));
    ::_exit(0);
}

/// Seconds that a process has worked, and those that it has waited for.
double workOf(pid_t process)
{
    std::ifstream file("/proc/" + std::to_string(process) + "/stat");
    std::string text;
    std::getline(file, text);
    std::istringstream rest(text.substr(std::min(text.size(), text.rfind(')') + 1)));
    std::string word;
    for (int n = 0; n < 11; ++n)
        rest >> word;
    double ticks = 0.0;
    for (int n = 0; n < 4; ++n) {
        double part = 0.0;
        rest >> part;
        ticks += part;
    }
    return ticks / static_cast<double>(::sysconf(_SC_CLK_TCK));
}

/// Watches how long a process works on each file.
class Watch
{
public:
    Watch(pid_t process, Shared const& shared)
        : m_process(process)
        , m_shared(shared)
    {
        begin();
    }

    bool isTooLong()
    {
        if (m_shared.number != m_number)
            begin();
        return workOf(m_process) - m_workBefore > longest ||
               std::chrono::steady_clock::now() - m_start > longestSilence;
    }

private:
    void begin()
    {
        m_number = m_shared.number;
        m_workBefore = workOf(m_process);
        m_start = std::chrono::steady_clock::now();
    }

    pid_t m_process;
    Shared const& m_shared;
    unsigned int m_number = 0;
    double m_workBefore = 0.0;
    std::chrono::steady_clock::time_point m_start;
};

/// Waits until a process ends or sits too long over a file. @return what has happened; empty where all is well
std::string outcomeOf(pid_t process, Shared const& shared)
{
    Watch watch(process, shared);
    int status = 0;
    while (::waitpid(process, &status, WNOHANG) == 0) {
        ::usleep(20000);
        if (watch.isTooLong()) {
            ::kill(process, SIGKILL);
            ::waitpid(process, &status, 0);
            return "takes longer than ten seconds";
        }
    }
    if (WIFSIGNALED(status))
        return "ends the program by signal " + std::to_string(WTERMSIG(status));
    return WEXITSTATUS(status) == 0 ? "" : "is not as it should be";
}

void keep(SoundFile const& file, unsigned int seed, unsigned int number)
{
    std::filesystem::create_directories("fuzz-findings");
    std::string const name = "fuzz-findings/" + std::to_string(seed) + "-" + std::to_string(number) + "-" + file.name;
    if (std::FILE* const kept = std::fopen(name.c_str(), "wb")) {
        std::string const content = mutation(file, seed, number);
        std::fwrite(content.data(), 1, content.size(), kept);
        std::fclose(kept);
    }
}

// Else all could be refused for a reason that has nothing to do with them.
bool areSound(std::vector<SoundFile> const& files)
{
    for (SoundFile const& file : files) {
        TemporaryFolder const folder;
        Opening const opening = openedAndLookedAt(writeFile(file, file.content, folder));
        if (!opening.isRefused && opening.problem.empty())
            continue;
        std::printf("%s without damage cannot be opened\n", file.name.c_str());
        return false;
    }
    return true;
}

int run(unsigned int count, unsigned int seed, unsigned int first)
{
    std::vector<SoundFile> const files = soundFiles();
    if (!areSound(files))
        return 1;
    void* const memory = ::mmap(nullptr, sizeof(Shared), PROT_READ | PROT_WRITE, MAP_SHARED | MAP_ANONYMOUS, -1, 0);
    auto& shared = *new (memory) Shared{};
    unsigned int found = 0;
    unsigned int next = first;
    unsigned int const last = first + count;
    while (next < last) {
        unsigned int const end = std::min(next + filesOfProcess, last);
        std::fflush(stdout);
        shared.number = next;
        pid_t const process = ::fork();
        if (process == 0)
            openFiles(files, seed, next, end, shared);
        std::string const problem = outcomeOf(process, shared);
        next = problem.empty() ? end : shared.number + 1;
        if (problem.empty())
            continue;
        ++found;
        unsigned int const number = shared.number;
        std::printf("file %u (%s) %s\n", number, files[number % files.size()].name.c_str(), problem.c_str());
        keep(files[number % files.size()], seed, number);
    }
    unsigned int const refused = shared.refused;
    unsigned int const opened = shared.opened;
    std::printf("seed %u, files %u to %u: %u refused, %u opened, %u found\n", seed, first, last - 1, refused, opened,
                found);
    return found == 0 ? 0 : 1;
}

} // namespace

int main(int argc, char** argv)
{
    if (argc != 3 && argc != 4) {
        std::fprintf(stderr, "usage: veldraw_fuzz COUNT SEED [FIRST]\n");
        return 2;
    }
    auto const number = [argv](int n) { return static_cast<unsigned int>(std::strtoul(argv[n], nullptr, 10)); };
    return run(number(1), number(2), argc == 4 ? number(3) : 0);
}
