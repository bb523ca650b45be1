#include "app/import/reading/Moments.h"

#include "app/import/reading/FileSeries.h"

#include <charconv>
#include <memory>

namespace veldraw::app {

namespace {

std::string textOfTime(double time)
{
    char text[32];
    auto const [end, error] = std::to_chars(text, text + sizeof text, time);
    return {text, end};
}

SeriesList listOf(std::string const& path, std::vector<double> const& times, std::string const& name)
{
    SeriesList list;
    for (double const time : times) {
        SeriesEntry entry;
        entry.path = path;
        entry.file = "time " + textOfTime(time);
        entry.name = name;
        entry.time = time;
        list.push_back(entry);
    }
    return list;
}

} // namespace

std::vector<ImportedZone> readMoments(std::string const& path, std::vector<double> const& times,
                                      ImportContext const& context, ReadMoment const& read)
{
    if (times.size() > 1) {
        auto const moment = std::make_shared<std::size_t>(0);
        ImportContext ofSeries = context;
        ofSeries.readOther = [&read, moment](std::string const&, ImportContext const& ofMoment) {
            return read((*moment)++, ofMoment);
        };
        return readSeries(listOf(path, times, context.title), ofSeries);
    }
    std::vector<ImportedZone> zones = read(0, context);
    for (ImportedZone& zone : zones)
        zone.zone->solutionTime = times.empty() ? zone.zone->solutionTime : times.front();
    return zones;
}

} // namespace veldraw::app
