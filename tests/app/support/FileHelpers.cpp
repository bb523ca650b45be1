#include "tests/app/support/FileHelpers.h"

#include "app/files/PathChecks.h"
#include "app/import/ReadableFormats.h"
#include "app/import/zones/DataSetOfZones.h"

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <iterator>
#include <sstream>
#include <stdexcept>
#include <vector>

namespace veldraw::tests {

TemporaryFolder::TemporaryFolder()
    : m_path((std::filesystem::temp_directory_path() / "veldraw-test-XXXXXX").string())
{
    if (!::mkdtemp(&m_path[0]))
        throw std::runtime_error("no temporary folder");
}

TemporaryFolder::~TemporaryFolder()
{
    std::error_code ignored;
    std::filesystem::remove_all(m_path, ignored);
}

std::string TemporaryFolder::write(std::string const& name, std::string const& content) const
{
    std::filesystem::create_directories(std::filesystem::path(path(name)).parent_path());
    std::ofstream(path(name), std::ios::binary) << content;
    return path(name);
}

std::string TemporaryFolder::listing() const
{
    std::vector<std::string> names;
    for (auto const& entry : std::filesystem::recursive_directory_iterator(m_path))
        names.push_back(entry.path().lexically_relative(m_path).string());
    std::sort(names.begin(), names.end());
    std::string text;
    for (std::string const& name : names)
        text += (text.empty() ? "" : " ") + name;
    return text;
}

std::string contentOf(std::string const& path)
{
    std::ifstream file(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), std::istreambuf_iterator<char>()};
}

app::ImportResult import(std::string const& path, app::Deferral deferral)
{
    return app::importFile(QString::fromStdString(path), deferral);
}

std::shared_ptr<kernel::DataSet> importWithMemory(double bytes, std::string const& path)
{
    app::FileWatch watch;
    app::LoadingPlan plan(app::Deferral::Auto, bytes);
    kernel::Progress progress;
    std::vector<std::string> remarks;
    auto const reader = app::findFormat(app::readableFormats(), app::extensionOf(path))->makeReader();
    return app::dataSetOf(reader->read(path, {app::baseNameOf(path), watch, plan, progress, remarks}), "sample");
}

std::string loadingProblem(kernel::DataSet const& dataSet, int zone, std::string const& variable)
{
    auto const& group = fieldOf(dataSet, zone, variable).group();
    kernel::Progress progress;
    try {
        group->setLoaded(group->loader()->load(progress));
        return {};
    } catch (std::runtime_error const& error) {
        return error.what();
    }
}

void loadAll(kernel::DataSet const& dataSet)
{
    for (auto const& variable : dataSet.variables()) {
        for (int zone = 1; zone <= dataSet.zoneCount(); ++zone) {
            bool const isLoaded = fieldOf(dataSet, zone, variable->name).isLoaded();
            EXPECT_EQ(isLoaded ? "" : loadingProblem(dataSet, zone, variable->name), "");
        }
    }
}

std::vector<std::string> save(kernel::DataSet const& dataSet, std::string const& path)
{
    return app::exportDataSet(dataSet, QString::fromStdString(path));
}

std::string problemWith(std::string const& path)
{
    try {
        import(path);
        return {};
    } catch (app::ImportError const& error) {
        return error.what();
    }
}

std::string valuesOf(kernel::DataSet const& dataSet, int zone, std::string const& variable)
{
    kernel::Field const& field = fieldOf(dataSet, zone, variable);
    if (field.isPassive())
        return "-";
    if (!field.isLoaded())
        return "not loaded";
    std::ostringstream text;
    for (std::int64_t n = 0; n < field.group()->buffer()->size(); ++n)
        text << (n > 0 ? " " : "") << field.group()->buffer()->value(n);
    return text.str();
}

std::string variableNames(kernel::DataSet const& dataSet)
{
    std::string text;
    for (auto const& variable : dataSet.variables())
        text += (text.empty() ? "" : ",") + variable->name;
    return text;
}

kernel::Field const& fieldOf(kernel::DataSet const& dataSet, int zone, std::string const& variable)
{
    kernel::Field const* const field = dataSet.field(zone, dataSet.findVariable(variable));
    if (!field)
        throw std::runtime_error("no such field: " + variable);
    return *field;
}

std::string cellsOf(kernel::Zone const& zone)
{
    std::ostringstream text;
    kernel::Connectivity const& cells = *zone.connectivity;
    for (std::int64_t cell = 0; cell < cells.cellCount; ++cell) {
        text << (cell > 0 ? " |" : "");
        for (std::int64_t n = cells.offsets[cell]; n < cells.offsets[cell + 1]; ++n)
            text << (n > 0 ? " " : "") << cells.indices[n];
    }
    return text.str();
}

} // namespace veldraw::tests
