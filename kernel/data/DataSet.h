#pragma once

#include "kernel/base/Identifier.h"
#include "kernel/base/NumberSet.h"
#include "kernel/data/AuxiliaryData.h"
#include "kernel/data/RangesOverZones.h"
#include "kernel/data/TransformRecord.h"
#include "kernel/data/Variable.h"
#include "kernel/data/Zone.h"

#include <memory>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// Where a part of a data set came from: the name of the loader and its instructions, for instance "FILENAME_" and a path.
struct LoaderInstructions
{
    std::string loaderName;
    std::vector<std::string> words;
};

/// Zones and variables that belong together. A frame shows one data set; several frames can show the same one.
///
/// An importer fills a new data set before any frame shows it:
///
///     auto const dataSet = std::make_shared<DataSet>("Wing");
///     dataSet->addVariable(std::make_shared<Variable>("X"));
///     dataSet->addZone(zone); // with its field of X
///
/// Afterwards change it by operations only (see Session::perform()): they send events and can be undone. Numbers of zones
/// and variables are one-based positions, which change when a zone or a variable before them is deleted; to remember one, keep
/// its identifier.
class DataSet
{
public:
    explicit DataSet(std::string title = {});

    UniqueId id() const { return m_id; }
    std::string const& title() const { return m_title; }
    void setTitle(std::string title) { m_title = std::move(title); }
    void swapTitle(std::string& title) noexcept { m_title.swap(title); }

    int zoneCount() const { return static_cast<int>(m_zones.size()); }
    int variableCount() const { return static_cast<int>(m_variables.size()); }

    /// @param number one-based. @return null for a number that is out of range
    std::shared_ptr<Zone> zone(int number) const;
    std::shared_ptr<Variable> variable(int number) const;

    /// @return null when zone or variable do not exist
    Field const* field(int zone, int variable) const;

    /// Current one-based number, 0 when the data set has no such zone or variable (any more).
    int zoneNumber(UniqueId id) const;
    int variableNumber(UniqueId id) const;

    /// One-based number of the first variable of exactly this name, 0 if there is none.
    int findVariable(std::string const& name) const;

    NumberSet enabledZones() const;
    NumberSet enabledVariables() const;

    /// Appends a variable, with a passive field in every zone. @return its number
    int addVariable(std::shared_ptr<Variable> variable);

    /// Appends a zone. It gets a passive field for each variable for which it has none. @return its number
    int addZone(std::shared_ptr<Zone> zone);

    /// The ranges of variables over all enabled zones.
    RangesOverZones& ranges() { return m_ranges; }

    /// Name of the lock's holder, empty when the data set is not locked.
    std::string const& lockHolder() const { return m_lockHolder; }
    void setLockHolder(std::string holder) { m_lockHolder = std::move(holder); }

    AuxiliaryData& auxiliaryData() { return m_auxiliaryData; }
    AuxiliaryData const& auxiliaryData() const { return m_auxiliaryData; }

    TransformRecord& transformRecord() { return m_transformRecord; }
    TransformRecord const& transformRecord() const { return m_transformRecord; }

    std::vector<LoaderInstructions>& loaderInstructions() { return m_loaderInstructions; }
    std::vector<LoaderInstructions> const& loaderInstructions() const { return m_loaderInstructions; }

    /// The lists themselves, for changes that remove or add zones or variables.
    std::vector<std::shared_ptr<Zone>>& zones() { return m_zones; }
    std::vector<std::shared_ptr<Zone>> const& zones() const { return m_zones; }
    std::vector<std::shared_ptr<Variable>>& variables() { return m_variables; }
    std::vector<std::shared_ptr<Variable>> const& variables() const { return m_variables; }

    DataSet(DataSet const&) = delete;
    DataSet& operator=(DataSet const&) = delete;

private:
    UniqueId m_id;
    std::string m_title;
    std::string m_lockHolder;
    std::vector<std::shared_ptr<Zone>> m_zones;
    std::vector<std::shared_ptr<Variable>> m_variables;
    AuxiliaryData m_auxiliaryData;
    TransformRecord m_transformRecord;
    std::vector<LoaderInstructions> m_loaderInstructions;
    RangesOverZones m_ranges;
};

} // namespace veldraw::kernel
