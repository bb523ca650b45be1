#include "app/import/legacy/LegacyConversion.h"

#include "app/import/ImportError.h"
#include "app/import/files/ChildProcess.h"
#include "app/import/files/SizeCheck.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace veldraw::app {

namespace {

constexpr double bytesPerSecond = 2e6; // slower than any machine reads numbers
constexpr double startSeconds = 10.0;
constexpr double shareOfMemory = 0.8;
constexpr int pollMilliseconds = 100;

std::filesystem::path readerProgram()
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "veldraw_legacy_reader";
}

bool startsWith(std::string const& text, std::string const& start)
{
    return text.compare(0, start.size(), start) == 0;
}

} // namespace

LegacyConversion::LegacyConversion(std::string const& path, kernel::Progress& progress,
                                   std::vector<std::string>& remarks)
{
    double const megabytes = std::min(availableMemory() * shareOfMemory / 1048576.0, 1e9);
    double const seconds = startSeconds + static_cast<double>(std::filesystem::file_size(path)) / bytesPerSecond;
    ChildProcess child({readerProgram().string(), std::filesystem::absolute(path).string(), m_folder.path(),
                        std::to_string(static_cast<long>(megabytes)), std::to_string(static_cast<long>(seconds))});
    std::string problem;
    while (!child.hasEnded()) {
        for (std::string const& line : child.lines(pollMilliseconds)) {
            if (startsWith(line, "progress "))
                progress.reach(std::atof(line.c_str() + 9));
            else if (startsWith(line, "warning "))
                remarks.push_back("VTK: " + line.substr(8));
            else if (startsWith(line, "error "))
                problem = line.substr(6);
        }
        progress.check();
    }
    bool const survived = child.endedWell();
    if (!problem.empty())
        throw ImportError(problem);
    if (!survived)
        throw ImportError("it is damaged: the reader did not get through it");
}

std::string LegacyConversion::outputFile() const
{
    for (auto const& entry : std::filesystem::directory_iterator(m_folder.path())) {
        if (entry.path().stem() == "data" && entry.is_regular_file())
            return entry.path().string();
    }
    throw ImportError("it contains no grid");
}

} // namespace veldraw::app
