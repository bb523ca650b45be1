#pragma once

#include "kernel/data/FieldReplacement.h"
#include "kernel/data/ValuePlaces.h"
#include "kernel/operations/DataSetOperation.h"
#include "kernel/operations/FrameOperation.h"
#include "kernel/operations/InterpolatedField.h"
#include "kernel/operations/ReportText.h"

namespace veldraw::kernel {

/// Brings values of variables from source zones to the places of a destination zone: what InterpolateByInverseDistance,
/// Krige and InterpolateLinearly have in common.
///
/// Places are those of the frame's axis variables: X, Y in a 2D plot, X, Y, Z in a 3D plot; a passive one is 0 everywhere.
/// Cell-centred values sit at the means of the corners of their cells. Sources are read as they were before, also where the
/// destination is one of them. Results replace the destination's values in storage of their own.
///
/// Refused: no 2D or 3D plot; an empty set; zones or variables that do not exist; an axis variable among the variables; an
/// axis without a variable or with its values at the cells; a variable that is passive in a source zone.
class Interpolation : public FrameDataOperation
{
public:
    std::string reasonAgainst() const override;
    bool isLong() const override { return true; }
    std::shared_ptr<DeferredLoad> needs() override;
    void compute(Progress& progress) override;
    std::shared_ptr<Change> makeChange(EventHub& events) override;
    std::string remark() const override { return m_report; }

protected:
    /// @param sources one-based numbers of zones, @param variables of variables
    Interpolation(UniqueId frame, NumberSet sources, int destination, NumberSet variables);

    using Fields = std::vector<std::unique_ptr<InterpolatedField>>;

    /// Fills @p fields, one a variable. Run on any thread. @return sentences for the report, empty for none
    /// @throws Interrupted, std::bad_alloc, std::runtime_error with a reason
    virtual std::string interpolate(Fields const& fields, Progress& progress) = 0;

    /// A command with the zones and variables.
    CommandText withZones(char const* command) const;

    NumberSet const& sources() const { return m_sources; }
    int destination() const { return m_destination; }
    NumberSet const& variables() const { return m_variables; }

    /// Number of coordinates: 2 or 3.
    int dimensions() const { return frame()->plotType == PlotType_Cartesian2D ? 2 : 3; }

    /// What follows is for interpolate(), when everything has been loaded.
    DeferredLoad const& load() const { return *m_load; }
    ValuePlaces places(int zone, ValueLocation_e location) const;
    std::shared_ptr<Buffer const> values(int zone, int variable) const;

private:
    std::string reasonAgainstAxes() const;
    std::string reasonAgainstVariables() const;
    FieldDataType_e typeForPassive(int variable) const;
    std::string report(Fields const& fields, std::string const& details, double seconds) const;

    NumberSet m_sources;
    int m_destination;
    NumberSet m_variables;
    std::shared_ptr<DeferredLoad> m_load;
    std::vector<NewField> m_results;
    std::string m_report;
};

} // namespace veldraw::kernel
