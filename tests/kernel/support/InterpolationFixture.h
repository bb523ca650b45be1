#pragma once

#include "kernel/operations/SetPlotType.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/ScatteredPoints.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"

#include <functional>

namespace veldraw::tests {

/// A session with one frame in space over zones of scattered points, with the variables X, Y, Z, P and Q.
class InterpolationFixture : public SessionFixture
{
protected:
    static constexpr int P = 4;
    static constexpr int Q = 5;

    InterpolationFixture()
    {
        dataSet = std::make_shared<kernel::DataSet>();
        for (char const* const name : {"X", "Y", "Z", "P", "Q"}) {
            dataSet->addVariable(std::make_shared<kernel::Variable>(name));
        }
        frame = sample::show(session, dataSet);
        recorder.take();
    }

    using Formula = std::function<double(double const* place)>;

    /// Adds an ordered zone of one dimension; P and Q are formulas of the place, as @p type.
    int addPoints(ScatteredPoints const& points, Formula const& p, Formula const& q,
                  FieldDataType_e type = FieldDataType_Double)
    {
        auto const zone = std::make_shared<kernel::Zone>("Z" + std::to_string(dataSet->zoneCount() + 1),
                                                         ZoneType_Ordered, points.count(), 1, 1);
        for (int axis = 0; axis < points.dimensions(); ++axis) {
            std::vector<double> numbers;
            for (std::size_t point = 0; point < points.count(); ++point) {
                numbers.push_back(points.at(point)[axis]);
            }
            zone->fields.push_back(sample::field(numbers, FieldDataType_Double));
        }
        if (points.dimensions() == 2) {
            zone->fields.emplace_back();
        }
        for (Formula const& formula : {p, q}) {
            std::vector<double> numbers;
            for (std::size_t point = 0; point < points.count(); ++point) {
                numbers.push_back(formula(points.at(point)));
            }
            zone->fields.push_back(sample::field(numbers, type));
        }
        return dataSet->addZone(zone);
    }

    void showPlane() { session.perform(kernel::SetPlotType(frame->id, PlotType_Cartesian2D)); }

    std::vector<double> valuesOf(int zone, int variable) const { return sample::values(*dataSet, zone, variable); }

    kernel::Field& field(int zone, int variable)
    {
        return dataSet->zone(zone)->fields[static_cast<std::size_t>(variable - 1)];
    }

    void setField(int zone, int variable, std::vector<double> const& numbers,
                  FieldDataType_e type = FieldDataType_Double, ValueLocation_e location = ValueLocation_Nodal)
    {
        field(zone, variable) = sample::field(numbers, type, location);
    }

    /// The remarks that the session has told.
    std::vector<std::string> remarks;

    void listenToRemarks()
    {
        session.setRemarkListener([this](std::string const& text) { remarks.push_back(text); });
    }

    static double zero(double const*) { return 0.0; }

    /// A smooth function that is not 0 anywhere.
    static double wave(double const* place) { return 3.0 + std::sin(5.0 * place[0]) * std::cos(3.0 * place[1]); }

    static double slope(double const* place) { return 1.0 + 2.0 * place[0] - 3.0 * place[1]; }
};

} // namespace veldraw::tests
