#pragma once

#include "app/export/Exporter.h"
#include "app/import/Importer.h"

#include <string>
#include <vector>

namespace veldraw::tests {

/// A folder that goes away with its contents.
class TemporaryFolder
{
public:
    TemporaryFolder();
    ~TemporaryFolder();

    std::string path(std::string const& name) const { return m_path + "/" + name; }

    /// Writes a file. @return its path
    std::string write(std::string const& name, std::string const& content) const;

    /// Names of everything in the folder, sorted, separated by blanks.
    std::string listing() const;

    TemporaryFolder(TemporaryFolder const&) = delete;
    TemporaryFolder& operator=(TemporaryFolder const&) = delete;

private:
    std::string m_path;
};

std::string contentOf(std::string const& path);

app::ImportResult import(std::string const& path, app::Deferral deferral = app::Deferral::Auto);

/// Opens a file as the program does when so many bytes of memory are free.
std::shared_ptr<kernel::DataSet> importWithMemory(double bytes, std::string const& path);

/// Loads a field that is not loaded. @return what its loader complains about; empty when it succeeds
std::string loadingProblem(kernel::DataSet const& dataSet, int zone, std::string const& variable);

/// Loads all fields that are not loaded, and fails the test where a loader complains.
void loadAll(kernel::DataSet const& dataSet);

/// Saves all zones in the format of the path's extension. @return remarks
std::vector<std::string> save(kernel::DataSet const& dataSet, std::string const& path);

/// What the import complains about; empty when it succeeds.
std::string problemWith(std::string const& path);

/// Every value of a field as text, "1 2 3"; "-" for a passive field, "not loaded" for one that is to be loaded.
std::string valuesOf(kernel::DataSet const& dataSet, int zone, std::string const& variable);

/// Names of all variables, separated by commas.
std::string variableNames(kernel::DataSet const& dataSet);

kernel::Field const& fieldOf(kernel::DataSet const& dataSet, int zone, std::string const& variable);

/// All cells of a zone as "0 1 2 | 1 2 3".
std::string cellsOf(kernel::Zone const& zone);

} // namespace veldraw::tests
