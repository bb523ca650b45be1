#include "app/import/reading/FileSeries.h"

#include "app/files/PathChecks.h"
#include "app/import/zones/SharedCells.h"

#include <algorithm>
#include <map>
#include <set>
#include <tuple>
#include <utility>

namespace veldraw::app {

namespace {

// Values may be packed in the files.
constexpr double mostUnpacking = 4.0;
constexpr double shareForAll = 0.25;

// Tells the strand of each zone by what is the same in all its moments.
class Strands
{
public:
    // A file of one zone is its part, whatever name the zone has at that moment.
    void assign(std::vector<ImportedZone>& zones, SeriesEntry const& entry)
    {
        std::map<std::string, int> ofName;
        for (ImportedZone& imported : zones) {
            std::string const name = zones.size() == 1 ? std::string() : imported.zone->name;
            Key const key{entry.part, name, ++ofName[name]};
            imported.zone->strand = m_numbers.try_emplace(key, static_cast<int>(m_numbers.size()) + 1).first->second;
            m_cells[imported.zone->strand].join(*imported.zone);
        }
    }

private:
    using Key = std::tuple<std::string, std::string, int>; // part, name of the block, which of that name

    std::map<Key, int> m_numbers;
    std::map<int, SharedCells> m_cells; // by the number of the strand
};

bool hasSeveralMoments(SeriesList const& list)
{
    return std::any_of(list.begin(), list.end(), [&list](SeriesEntry const& entry) {
        return entry.time < list.front().time || entry.time > list.front().time;
    });
}

double sizeOf(SeriesList const& list)
{
    double bytes = 0.0;
    for (SeriesEntry const& entry : list)
        bytes += static_cast<double>(FileStamp(entry.path).size());
    return bytes;
}

void checkEntry(SeriesEntry const& entry)
{
    std::string const extension = extensionOf(entry.path);
    if (extension == "pvd" || extension == "series")
        throw ImportError("a list of files cannot be a part of another one");
    checkReadable(entry.path);
}

// Each sentence once, however many files it is true of.
void addRemarks(SeriesEntry const& entry, std::vector<std::string> const& found, std::set<std::string>& known,
                std::vector<std::string>& remarks)
{
    for (std::string const& remark : found)
        if (known.insert(remark).second)
            remarks.push_back("\"" + entry.file + "\": " + remark);
}

template <typename Work>
auto namingEntry(SeriesEntry const& entry, Work const& work)
{
    try {
        return work();
    } catch (OutsidePathsError const&) {
        throw; // has its own words, and is asked about
    } catch (ImportError const& error) {
        throw ImportError("its part \"" + entry.file + "\": " + error.what());
    }
}

// What is to be loaded at once of files that are seen at a moment.
Deferral deferralAt(double time, double first, bool loadsAll, Deferral wanted)
{
    bool const isSeenFirst = !(time > first);
    return wanted == Deferral::Auto && !loadsAll && !isSeenFirst ? Deferral::Always : wanted;
}

} // namespace

std::vector<ImportedZone> readSeries(SeriesList const& list, ImportContext const& context)
{
    if (list.empty())
        return {};
    for (SeriesEntry const& entry : list)
        namingEntry(entry, [&entry] { checkEntry(entry); });
    bool const isTransient = hasSeveralMoments(list);
    bool const loadsAll = mostUnpacking * sizeOf(list) <= shareForAll * availableMemory();
    double const first = std::min_element(list.begin(), list.end(), [](auto const& left, auto const& right) {
                             return left.time < right.time;
                         })->time;
    Strands strands;
    std::set<std::string> knownRemarks;
    std::vector<ImportedZone> zones;
    for (SeriesEntry const& entry : list) {
        kernel::Progress ofEntry(context.progress, context.progress.total() / static_cast<std::int64_t>(list.size()));
        std::vector<std::string> remarks;
        LoadingPlan plan(deferralAt(entry.time, first, loadsAll, context.plan.deferral()));
        context.watch.add(entry.path);
        std::string const title = entry.name.empty() ? baseNameOf(entry.path) : entry.name;
        std::vector<ImportedZone> found = namingEntry(entry, [&] {
            return context.readOther(entry.path,
                                     {title, context.watch, plan, ofEntry, remarks, context.outsidePaths, {}});
        });
        addRemarks(entry, remarks, knownRemarks, context.remarks);
        if (isTransient)
            strands.assign(found, entry);
        for (ImportedZone& imported : found) {
            imported.zone->solutionTime = isTransient ? entry.time : imported.zone->solutionTime;
            imported.timeStep = isTransient ? std::nullopt : imported.timeStep;
            zones.push_back(std::move(imported));
        }
    }
    return zones;
}

} // namespace veldraw::app
