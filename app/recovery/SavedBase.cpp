#include "app/recovery/SavedBase.h"

#include "app/recovery/CheckSum.h"
#include "kernel/base/Text.h"
#include "kernel/frames/Page.h"
#include "kernel/operations/CommandText.h"
#include "kernel/session/Session.h"

#include <algorithm>
#include <filesystem>

namespace veldraw::app {

namespace {

using kernel::CommandText;

bool sharesValues(kernel::DataSet const& dataSet)
{
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
        auto const& fields = dataSet.zone(zone)->fields;
        if (std::any_of(fields.begin(), fields.end(),
                        [](kernel::Field const& field) { return field.shareCount() > 1; }))
            return true;
    }
    return false;
}

std::string words(std::initializer_list<long long> numbers)
{
    std::string text;
    for (long long const number : numbers)
        text += std::to_string(number) + ' ';
    return text;
}

std::string describe(kernel::Zone const& zone)
{
    std::string text =
        zone.name + '\n' + words({zone.type, zone.enabled, zone.strand}) + kernel::textOf(zone.solutionTime) + '\n';
    for (kernel::Field const& field : zone.fields)
        text += words({field.type(), field.location(), field.isPassive()}) + '\n';
    return text;
}

std::string describe(kernel::DataSet const& dataSet)
{
    std::string text = dataSet.title() + '\n';
    for (auto const& variable : dataSet.variables())
        text += variable->name + '\n' + words({variable->enabled});
    for (int zone = 1; zone <= dataSet.zoneCount(); ++zone)
        text += describe(*dataSet.zone(zone));
    return text;
}

/// Number of a variable that is known by its identifier.
long long numberOf(kernel::UniqueId id, kernel::DataSet const& dataSet)
{
    auto const& variables = dataSet.variables();
    auto const found =
        std::find_if(variables.begin(), variables.end(), [id](auto const& variable) { return variable->id == id; });
    return found == variables.end() ? 0 : found - variables.begin() + 1;
}

std::vector<std::string> commandsFor(kernel::Frame const& frame)
{
    std::vector<std::string> commands;
    auto const add = [&commands](CommandText const& command) { commands.push_back(command.text()); };
    add(CommandText("set-title").quoted("title", frame.dataSet->title()));
    bool const is2D = frame.plotType == PlotType_Cartesian2D;
    bool const is3D = frame.plotType == PlotType_Cartesian3D;
    if (is2D || is3D || frame.plotType == PlotType_XYLine)
        add(CommandText("set-plot-type").word("type", is2D ? "2d" : is3D ? "3d" : "line"));
    for (char const letter : std::string(is3D ? "XYZUVWC" : is2D ? "XYUVWC" : "UVWC")) {
        CommandText command("assign-variable");
        command.word("to", std::string(1, letter));
        if (int const variable = frame.variableNumber(letter); variable != 0)
            command.number("variable", variable);
        add(command);
    }
    for (int zone = 1; zone <= frame.dataSet->zoneCount(); ++zone) {
        if (!frame.dataSet->zone(zone)->enabled)
            add(CommandText("disable-zone").number("zone", zone));
    }
    auto const& variables = frame.dataSet->variables();
    for (std::size_t n = 0; n < variables.size(); ++n) {
        if (!variables[n]->enabled)
            add(CommandText("disable-variable").number("variable", static_cast<long long>(n) + 1));
    }
    return commands;
}

} // namespace

std::optional<SavedBase> baseOf(kernel::Session const& session, std::string const& path)
{
    auto const page = session.activePage();
    auto const frame = session.activeFrame();
    if (!page || page->frames.size() != 1 || !frame || !frame->dataSet || sharesValues(*frame->dataSet))
        return std::nullopt;
    return SavedBase{path, commandsFor(*frame), stateOf(*frame)};
}

std::string stateOf(kernel::Frame const& frame)
{
    kernel::DataSet const& dataSet = *frame.dataSet;
    std::string text = words({frame.plotType, numberOf(frame.contourVariable, dataSet)});
    for (kernel::UniqueId const id : frame.axes2D)
        text += words({numberOf(id, dataSet)});
    for (auto const& variables : {frame.axes3D, frame.vector}) {
        for (kernel::UniqueId const id : variables)
            text += words({numberOf(id, dataSet)});
    }
    return checkSumOf(text + '\n' + describe(dataSet));
}

std::vector<StampedFile> filesOfSave(std::string const& path)
{
    std::vector<StampedFile> files{StampedFile::of(path)};
    std::filesystem::path folder(path);
    folder.replace_extension();
    std::error_code error;
    for (std::filesystem::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error))
        files.push_back(StampedFile::of(entry->path().string()));
    return files;
}

} // namespace veldraw::app
