#include "app/import/formats/vtklegacy/VtkLegacyReader.h"

#include "app/files/ChildProcess.h"
#include "app/files/ScratchFile.h"
#include "app/files/SizeCheck.h"
#include "app/import/formats/vtklegacy/LegacyHeaderCheck.h"
#include "app/import/formats/vtkxml/VtkXmlReader.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>

namespace veldraw::app {

namespace {

constexpr double conversionShare = 0.7; // of the time for a file
constexpr double bytesPerSecond = 2e6;  // slower than any machine reads numbers
constexpr double startSeconds = 10.0;
constexpr double shareForReader = 0.8;
constexpr int pollMilliseconds = 100;

std::filesystem::path converter()
{
    return std::filesystem::read_symlink("/proc/self/exe").parent_path() / "veldraw_legacy_reader";
}

bool startsWith(std::string const& text, std::string const& start)
{
    return text.compare(0, start.size(), start) == 0;
}

void convert(std::string const& path, std::string const& folder, kernel::Progress& progress,
             std::vector<std::string>& remarks)
{
    double const megabytes = std::min(availableMemory() * shareForReader / 1048576.0, 1e9);
    double const seconds = startSeconds + static_cast<double>(std::filesystem::file_size(path)) / bytesPerSecond;
    ChildProcess child({converter().string(), std::filesystem::absolute(path).string(), folder,
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

std::string convertedFileIn(std::string const& folder)
{
    for (auto const& entry : std::filesystem::directory_iterator(folder)) {
        if (entry.path().stem() == "data" && entry.is_regular_file())
            return entry.path().string();
    }
    throw ImportError("it contains no grid");
}

} // namespace

std::vector<ImportedZone> VtkLegacyReader::read(std::string const& path, ImportContext const& context)
{
    checkLegacyHeader(path, static_cast<std::int64_t>(std::filesystem::file_size(path)));
    ScratchFolder const folder;
    auto const units = static_cast<std::int64_t>(conversionShare * static_cast<double>(context.progress.total()));
    {
        kernel::Progress ofConversion(context.progress, units);
        convert(path, folder.path(), ofConversion, context.remarks);
    }
    kernel::Progress ofGrids(context.progress, context.progress.total() - units);
    LoadingPlan everything(Deferral::Never);
    FileWatch ofConverted; // temporary files are none that the data set came from
    return VtkXmlReader().read(convertedFileIn(folder.path()),
                               {context.title, ofConverted, everything, ofGrids, context.remarks});
}

} // namespace veldraw::app
