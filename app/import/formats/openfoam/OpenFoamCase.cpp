#include "app/import/formats/openfoam/OpenFoamCase.h"

#include "app/files/FileStamp.h"
#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/files/PlainText.h"
#include "app/import/formats/openfoam/OpenFoamText.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <filesystem>
#include <optional>
#include <set>
#include <utility>

namespace veldraw::app {

namespace {

namespace fs = std::filesystem;

constexpr std::size_t mostIncluded = 1000; // more than a case has, and one that includes itself in ever new words ends

fs::path folderOf(std::string const& path)
{
    fs::path const file = fs::absolute(path).lexically_normal();
    return file.filename() == "controlDict" ? file.parent_path().parent_path() : file.parent_path();
}

// Of a folder with the values of a moment: its name is the time.
std::optional<double> timeOf(std::string const& name)
{
    double time = 0.0;
    auto const [end, error] = std::from_chars(name.data(), name.data() + name.size(), time);
    bool const isTime = error == std::errc() && end == name.data() + name.size() && std::isfinite(time);
    return isTime ? std::optional<double>(time) : std::nullopt;
}

/// Notes what there is in the folder of a case.
class CaseFolder
{
public:
    CaseFolder(OpenFoamCase& result, kernel::Progress const& progress)
        : m_result(result)
        , m_folder(result.folder)
        , m_progress(progress)
    {
    }

    void look()
    {
        std::error_code none;
        std::set<double> times;
        for (fs::directory_entry const& entry : fs::directory_iterator(m_folder)) {
            auto const time = timeOf(entry.path().filename().string());
            if (!time || !entry.is_directory(none))
                continue;
            times.insert(*time);
            addAll(entry.path());
        }
        m_result.times.assign(times.begin(), times.end());
        addMeshes();
        std::sort(m_result.present.begin(), m_result.present.end());
    }

private:
    void addAll(fs::path const& folder)
    {
        std::error_code none;
        for (fs::directory_entry const& entry : fs::recursive_directory_iterator(folder)) {
            m_progress.check();
            if (entry.is_regular_file(none))
                m_result.present.push_back(entry.path().lexically_relative(m_folder).string());
        }
    }

    void addMeshes()
    {
        fs::path const constant = m_folder / "constant";
        std::error_code none;
        bool hasRegions = false;
        for (fs::directory_entry const& entry : fs::directory_iterator(constant, none)) {
            if (!fs::is_directory(entry.path() / "polyMesh", none))
                continue;
            hasRegions = true;
            addMesh(entry.path() / "polyMesh");
        }
        if (fs::is_directory(constant / "polyMesh", none) || !hasRegions)
            addMesh(constant / "polyMesh");
    }

    void addMesh(fs::path const& folder)
    {
        std::error_code none;
        if (!fs::exists(folder, none) && fs::exists(m_folder / "processor0", none))
            throw ImportError("its mesh stands in pieces in the folders of processors, which are not read: put "
                              "them together with OpenFOAM's reconstructPar");
        for (char const* const name : {"points", "faces", "owner", "neighbour", "boundary"}) {
            fs::path const file = folder / name;
            bool const isPacked = !fs::exists(file, none) && fs::exists(file.string() + ".gz", none);
            m_result.needed.push_back((file.string() + (isPacked ? ".gz" : "")).substr(m_result.folder.size() + 1));
        }
        if (fs::exists(folder, none))
            addAll(folder);
    }

    OpenFoamCase& m_result;
    fs::path m_folder;
    kernel::Progress const& m_progress;
};

// Relative to the folder of the case.
std::string placeOf(std::string const& included, std::string const& file)
{
    constexpr char const* ofCase = "$FOAM_CASE/";
    bool const isFromCase = included.rfind(ofCase, 0) == 0;
    std::string const name = isFromCase ? included.substr(std::string(ofCase).size()) : included;
    if (name.find_first_of("$~<") != std::string::npos)
        throw ImportError("it includes \"" + shortened(asUtf8(included), 100) +
                          "\", which is another file in each environment");
    return (isFromCase ? fs::path(name) : fs::path(file).parent_path() / name).lexically_normal().string();
}

} // namespace

OpenFoamCase OpenFoamCase::of(std::string const& path, kernel::Progress const& progress)
{
    OpenFoamCase result;
    result.folder = folderOf(path).string();
    CaseFolder(result, progress).look();
    return result;
}

std::vector<std::string> OpenFoamCase::includedFiles(kernel::Progress const& progress) const
{
    std::vector<std::string> found;
    std::set<std::string> known(present.begin(), present.end());
    std::vector<std::string> left = present;
    while (!left.empty()) {
        std::string const file = std::move(left.back());
        left.pop_back();
        fs::path const path = fs::path(folder) / file;
        std::error_code none;
        if (!fs::is_regular_file(path, none))
            continue; // VTK's reader tells that
        for (std::string const& included : includesIn(path.string(), progress)) {
            std::string const place = placeOf(included, file);
            if (!known.insert(place).second)
                continue;
            if (found.size() == mostIncluded)
                throw ImportError("its files include more than " + std::to_string(mostIncluded) + " others");
            found.push_back(place);
            left.push_back(place);
        }
    }
    return found;
}

double OpenFoamCase::bytes() const
{
    double sum = 0.0;
    for (std::string const& name : present)
        sum += static_cast<double>(FileStamp(folder + "/" + name).size());
    return sum;
}

bool OpenFoamCase::isPacked() const
{
    return std::any_of(present.begin(), present.end(),
                       [](std::string const& name) { return extensionOf(name) == "gz"; });
}

} // namespace veldraw::app
