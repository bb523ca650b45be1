#pragma once

#include "kernel/operations/DataSetOperation.h"

namespace veldraw::kernel {

/// Brings values or dimensions that are not loaded.
///
/// Loading changes no value: it is no step of the history, and a locked data set can be loaded as well. What is loaded for one
/// field is loaded for all that share its storage. Event 21 with the fields whose values have come or gone, after event 23
/// with the zones whose dimensions have become known. Refused, with all as it was: numbers that do not exist, a loader that fails,
/// no memory, a cancel.
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

/// Loads variables in zones; what is wanted there stays as it was.
class LoadVariables : public LoadOperation
{
public:
    /// @param zones, variables one-based numbers
    LoadVariables(DataSet const& dataSet, NumberSet zones, NumberSet variables)
        : LoadOperation(dataSet)
        , m_zones(std::move(zones))
        , m_variables(std::move(variables))
    {
    }

    std::string name() const override { return "Load Variable"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<DeferredLoad> needs() override;

protected:
    NumberSet const& zones() const { return m_zones; }
    NumberSet const& variables() const { return m_variables; }

private:
    NumberSet m_zones;
    NumberSet m_variables;
};

/// Makes variables available in zones, and takes them for all that is wanted there from now on.
class MakeVariablesAvailable : public LoadVariables
{
public:
    using LoadVariables::LoadVariables;

    std::shared_ptr<DeferredLoad> needs() override;
};

/// Finds out the dimensions of a zone.
class LoadDimensions : public LoadOperation
{
public:
    /// @param zone one-based number
    LoadDimensions(DataSet const& dataSet, int zone)
        : LoadOperation(dataSet)
        , m_zone(zone)
    {
    }

    std::string name() const override { return "Load Zone"; }
    std::string reasonAgainst() const override;
    std::shared_ptr<DeferredLoad> needs() override;

private:
    int m_zone;
};

} // namespace veldraw::kernel
