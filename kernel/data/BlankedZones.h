#pragma once

#include "kernel/data/ValueBlanking.h"

#include <array>
#include <map>
#include <utility>

namespace veldraw::kernel {

/// Remembers what a value blanking hides of the zones of a data set, until values or constraints differ. On the thread of the session alone.
class BlankedZones
{
public:
    /// What is hidden of a zone, by its own marks too; null when nothing is. Values that are not loaded hide nothing.
    /// @param zone one-based number of a zone that exists. @throws std::bad_alloc
    std::shared_ptr<Blanking const> of(DataSet const& dataSet, int zone, ValueBlanking const& blanking);

    /// Range of the finite values of a variable that are not hidden, as Zone::range() tells it; an estimate where values are mapped.
    /// @param variable one-based number of a variable that exists. @throws std::bad_alloc
    ValueRange rangeOf(DataSet const& dataSet, int zone, int variable, ValueBlanking const& blanking);

private:
    /// What the hidden part of a zone was found from.
    struct Source
    {
        std::array<std::int64_t, 3> dimensions{};
        bool isScattered = false;
        std::shared_ptr<Blanking const> own;
        std::vector<std::pair<BlankingConstraint, UniqueId>> constraints; // with revisions of the values

        bool operator==(Source const& other) const;
    };

    struct Known
    {
        Source source;
        std::shared_ptr<Blanking const> hidden;
        std::map<UniqueId, ValueRange> ranges; // of what is not hidden, by revisions of values
    };

    void forgetMissing(DataSet const& dataSet);

    std::map<UniqueId, Known> m_known; // by zones
};

} // namespace veldraw::kernel
