#pragma once

#include "kernel/operations/SmoothVariable.h"
#include "tests/kernel/support/ReferenceSmoothing.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/support/SpecialNumbers.h"

#include <random>

namespace veldraw::tests {

/// A session in 3D over variables X, Y, Z and P, without a zone. What is smoothed is P.
class SmoothingFixture : public SessionFixture
{
protected:
    using Size = std::array<std::int64_t, 3>;

    static constexpr int smoothed = 4; // one-based number of a variable
    static constexpr auto fixedBorder = BoundaryCondition_Fixed;
    static constexpr auto firstOrder = BoundaryCondition_FirstOrder;
    static constexpr auto secondOrder = BoundaryCondition_SecondOrder;
    static constexpr BoundaryCondition_e conditions[] = {fixedBorder, firstOrder, secondOrder};

    SmoothingFixture()
    {
        dataSet = std::make_shared<kernel::DataSet>("Smoothing");
        for (char const* name : {"X", "Y", "Z", "P"}) {
            dataSet->addVariable(std::make_shared<kernel::Variable>(name));
        }
        frame = sample::show(session, dataSet);
        session.setRemarkListener([this](std::string const& text) { remark = text; });
        recorder.take();
    }

    ~SmoothingFixture() override { session.setRemarkListener({}); }

    /// Adds an ordered zone with P of these values.
    int addOrdered(Size const& size, std::vector<double> const& values, FieldDataType_e type = FieldDataType_Double,
                   ValueLocation_e location = ValueLocation_Nodal)
    {
        return addOrdered(size, sample::field(values, type, location));
    }

    int addOrdered(Size const& size, kernel::Field field)
    {
        auto const zone = std::make_shared<kernel::Zone>("block", ZoneType_Ordered, size[0], size[1], size[2]);
        zone->fields.resize(3);
        zone->fields.push_back(std::move(field));
        return dataSet->addZone(zone);
    }

    /// Adds a zone that has coordinates.
    int addCells(std::shared_ptr<kernel::Zone> const& zone, std::vector<double> const& values,
                 ValueLocation_e location = ValueLocation_Nodal, FieldDataType_e type = FieldDataType_Double)
    {
        zone->fields.push_back(sample::field(values, type, location));
        return dataSet->addZone(zone);
    }

    bool smooth(int zone, int passes, double weight = 0.5, BoundaryCondition_e condition = fixedBorder,
                int variable = smoothed)
    {
        return session.perform(kernel::SmoothVariable(frame->id, zone, variable, passes, weight, condition));
    }

    std::vector<double> valuesOf(int zone, int variable = smoothed) const
    {
        return sample::values(*dataSet, zone, variable);
    }

    kernel::Buffer const& bufferOf(int zone) const { return *dataSet->field(zone, smoothed)->group()->buffer(); }

    void expectRefusal(std::string const& reason, std::function<bool()> const& operation)
    {
        recorder.take();
        expectRefused(operation);
        EXPECT_EQ(session.lastError(), reason);
    }

    static std::vector<double> randomValues(std::int64_t count, double low = -1.0, double high = 1.0)
    {
        std::mt19937 random(7);
        std::uniform_real_distribution<double> distribution(low, high);
        std::vector<double> values(static_cast<std::size_t>(count));
        std::generate(values.begin(), values.end(), [&] { return distribution(random); });
        return values;
    }

    static reference::Numbers asReference(std::vector<double> const& values)
    {
        reference::Numbers numbers(values.begin(), values.end());
        std::replace_if(
            numbers.begin(), numbers.end(), [](long double value) { return !std::isfinite(value); }, NAN);
        return numbers;
    }

    static void expectNear(std::vector<double> const& found, reference::Numbers const& wanted, double tolerance)
    {
        ASSERT_EQ(found.size(), wanted.size());
        for (std::size_t at = 0; at < found.size(); ++at) {
            if (!std::isnan(wanted[at])) {
                ASSERT_NEAR(found[at], static_cast<double>(wanted[at]), tolerance) << "value " << at;
            }
        }
    }

    /// Compares the largest change that was told with that between two passes.
    void expectLastChange(reference::Numbers const& before, reference::Numbers const& after) const
    {
        long double largest = 0;
        for (std::size_t at = 0; at < after.size(); ++at) {
            largest = std::max(largest, std::abs(after[at] - before[at]));
        }
        std::string const words = "the largest change of the last pass was ";
        std::size_t const place = remark.find(words);
        ASSERT_NE(place, std::string::npos) << remark;
        double const told = std::stod(remark.substr(place + words.size()));
        EXPECT_NEAR(told, static_cast<double>(largest), static_cast<double>(0.06L * largest) + 1e-14);
    }

    std::string remark;
};

} // namespace veldraw::tests
