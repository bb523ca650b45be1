#pragma once

#include "kernel/operations/DataSetOperation.h"

namespace veldraw::kernel {

/// Lets a zone take part in plots and operations, or keeps it out of them. "Enable Zone", "Disable Zone"; event 6. Refused:
/// a number that does not exist. A lock does not forbid it.
class EnableZone : public DataSetOperation
{
public:
    /// @param zone one-based number
    EnableZone(DataSet const& dataSet, int zone, bool isEnabled)
        : DataSetOperation(dataSet)
        , m_zone(zone)
        , m_isEnabled(isEnabled)
    {
    }

    std::string name() const override { return m_isEnabled ? "Enable Zone" : "Disable Zone"; }
    CommandText command() const override;
    DataSet const* lockable() const override { return nullptr; }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    int m_zone;
    bool m_isEnabled;
};

/// The same for a variable. "Enable Variable", "Disable Variable"; event 3.
class EnableVariable : public DataSetOperation
{
public:
    /// @param variable one-based number
    EnableVariable(DataSet const& dataSet, int variable, bool isEnabled)
        : DataSetOperation(dataSet)
        , m_variable(variable)
        , m_isEnabled(isEnabled)
    {
    }

    std::string name() const override { return m_isEnabled ? "Enable Variable" : "Disable Variable"; }
    CommandText command() const override;
    DataSet const* lockable() const override { return nullptr; }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    int m_variable;
    bool m_isEnabled;
};

} // namespace veldraw::kernel
