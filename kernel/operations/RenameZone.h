#pragma once

#include "kernel/operations/DataSetOperation.h"

namespace veldraw::kernel {

// These operations are allowed on a locked data set, too. With the present name or title they succeed without a step of the
// history and without an event.

/// Changes the name of a zone. Step "Rename Zone"; event 18. Refused: a zone that does not exist, an empty name.
class RenameZone : public DataSetOperation
{
public:
    /// @param zone one-based number; @param newName UTF-8
    RenameZone(DataSet const& dataSet, int zone, std::string newName)
        : DataSetOperation(dataSet)
        , m_zone(zone)
        , m_newName(std::move(newName))
    {
    }

    std::string name() const override { return "Rename Zone"; }
    CommandText command() const override;
    DataSet const* lockable() const override { return nullptr; }
    DataSet const* altered() const override { return dataSet().get(); }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    int m_zone;
    std::string m_newName;
};

/// Changes the name of a variable. Step "Rename Variable"; event 17. Refused: a variable that does not exist, an empty name.
class RenameVariable : public DataSetOperation
{
public:
    /// @param variable one-based number; @param newName UTF-8
    RenameVariable(DataSet const& dataSet, int variable, std::string newName)
        : DataSetOperation(dataSet)
        , m_variable(variable)
        , m_newName(std::move(newName))
    {
    }

    std::string name() const override { return "Rename Variable"; }
    CommandText command() const override;
    DataSet const* lockable() const override { return nullptr; }
    DataSet const* altered() const override { return dataSet().get(); }
    std::string reasonAgainst() const override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    int m_variable;
    std::string m_newName;
};

/// Changes the title of a data set. Step "Data Set Title"; event 13.
class SetTitle : public DataSetOperation
{
public:
    /// @param title UTF-8, may be empty
    SetTitle(DataSet const& dataSet, std::string title)
        : DataSetOperation(dataSet)
        , m_title(std::move(title))
    {
    }

    std::string name() const override { return "Data Set Title"; }
    CommandText command() const override;
    DataSet const* lockable() const override { return nullptr; }
    std::shared_ptr<Change> makeChange(EventHub& events) override;

private:
    std::string m_title;
};

} // namespace veldraw::kernel
