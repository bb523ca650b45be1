#pragma once

#include "kernel/operations/DataSetOperation.h"

namespace veldraw::kernel {

/// Loads values or dimensions.
///
/// Loading changes no value, so it is no step of the history, and it is allowed in a locked data set. Values are loaded for
/// all fields that share their storage. Event 23 with the zones whose dimensions have become known, then event 21 with the
/// fields whose values were loaded or unloaded. Refused, with nothing changed: numbers that do not exist, a loader that
/// fails, no memory, a cancel.
class LoadOperation : public DataSetOperation
{
public:
    DataSet const* lockable() const override { return nullptr; }
    bool isLong() const override { return true; }
    bool onlyLoads() const override { return true; }
    std::shared_ptr<Change> makeChange(EventHub&) override { return nullptr; }

protected:
    using DataSetOperation::DataSetOperation;
};

/// Loads variables in zones. The set of wanted variables of the zones does not change.
class LoadVariables : public LoadOperation
{
public:
    enum class Ranges
    {
        Computed, ///< so that nobody who shows the values has to wait
        Left      ///< to whoever asks for them: no value is looked at, and what the loader maps is not read
    };

    /// @param zones, variables one-based numbers
    LoadVariables(DataSet const& dataSet, NumberSet zones, NumberSet variables, Ranges ranges = Ranges::Computed)
        : LoadOperation(dataSet)
        , m_zones(std::move(zones))
        , m_variables(std::move(variables))
        , m_ranges(ranges)
    {
    }

    std::string name() const override { return "Load Variable"; }
    CommandText command() const override;
    std::string reasonAgainst() const override;
    std::shared_ptr<DeferredLoad> needs() override;

protected:
    NumberSet const& zones() const { return m_zones; }
    NumberSet const& variables() const { return m_variables; }

private:
    NumberSet m_zones;
    NumberSet m_variables;
    Ranges m_ranges;
};

/// Loads variables in zones and makes them the set of wanted variables there, whose values stay loaded.
class MakeVariablesAvailable : public LoadVariables
{
public:
    using LoadVariables::LoadVariables;

    std::shared_ptr<DeferredLoad> needs() override;
};

/// Loads the dimensions of a zone.
class LoadDimensions : public LoadOperation
{
public:
    /// @param zone one-based number
    LoadDimensions(DataSet const& dataSet, int zone)
        : LoadOperation(dataSet)
        , m_zone(zone)
    {
    }

    CommandText command() const override { return {}; }
    std::string name() const override { return "Load Zone"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<DeferredLoad> needs() override;

private:
    int m_zone;
};

} // namespace veldraw::kernel
