#pragma once

#include "app/import/ImportedZone.h"
#include "kernel/data/DataSet.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::app {

/// Puts imported zones together: variables are matched by name, and a zone that lacks one gets a passive field.
class DataSetBuilder
{
public:
    void add(ImportedZone zone) { m_zones.push_back(std::move(zone)); }

    bool isEmpty() const { return m_zones.empty(); }

    /// The finished data set; the builder is empty afterwards.
    std::shared_ptr<kernel::DataSet> finish(std::string const& title);

private:
    std::vector<std::string> variableNames() const;
    void assignStrands();
    static void assignArrays(kernel::DataSet& dataSet, ImportedZone const& imported);

    std::vector<ImportedZone> m_zones;
};

} // namespace veldraw::app
