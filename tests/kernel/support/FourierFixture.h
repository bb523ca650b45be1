#pragma once

#include "kernel/operations/FourierTransform.h"
#include "tests/kernel/support/ReferenceSpectrum.h"
#include "tests/kernel/support/SampleData.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"

#include <cmath>
#include <random>

namespace veldraw::tests {

/// A session over ordered zones of one dimension with the variables Time, U and V.
class FourierFixture : public SessionFixture
{
protected:
    using Numbers = std::vector<double>;
    using Choice = kernel::FourierTransform::Choice;

    static constexpr int time = 1;
    static constexpr int U = 2;
    static constexpr int V = 3;

    FourierFixture()
    {
        dataSet = std::make_shared<kernel::DataSet>("Series");
        for (char const* const name : {"Time", "U", "V"}) {
            dataSet->addVariable(std::make_shared<kernel::Variable>(name));
        }
        frame = sample::show(session, dataSet);
        session.history().clear();
        session.setRemarkListener([this](std::string const& text) { remark = text; });
        recorder.take();
    }

    ~FourierFixture() override { session.setRemarkListener({}); }

    static Numbers evenTimes(std::size_t count, double step = 0.25, double start = 10.0)
    {
        Numbers times;
        for (std::size_t at = 0; at < count; ++at) {
            times.push_back(start + step * static_cast<double>(at));
        }
        return times;
    }

    static Numbers noise(std::size_t count, unsigned seed = 1)
    {
        std::mt19937 random(seed);
        std::uniform_real_distribution<double> distribution(-1.0, 2.0);
        Numbers values(count);
        std::generate(values.begin(), values.end(), [&] { return distribution(random); });
        return values;
    }

    /// @return the number of the zone, whose name is S with its number
    int add(Numbers const& times, Numbers const& u, Numbers const& v)
    {
        auto const zone =
            std::make_shared<kernel::Zone>("S" + std::to_string(dataSet->zoneCount() + 1), ZoneType_Ordered,
                                           static_cast<std::int64_t>(times.size()), 1, 1);
        for (Numbers const& values : {times, u, v}) {
            zone->fields.push_back(sample::field(values, FieldDataType_Double));
        }
        return dataSet->addZone(zone);
    }

    /// A zone with noise in U and V.
    int addNoise(std::size_t count, double step = 0.25, unsigned seed = 1)
    {
        return add(evenTimes(count, step), noise(count, seed), noise(count, seed + 100));
    }

    kernel::Field& field(int zone, int variable)
    {
        return dataSet->zone(zone)->fields[static_cast<std::size_t>(variable - 1)];
    }

    void setField(int zone, int variable, Numbers const& values, FieldDataType_e type = FieldDataType_Double,
                  ValueLocation_e location = ValueLocation_Nodal)
    {
        field(zone, variable) = sample::field(values, type, location);
    }

    Numbers valuesOf(int zone, int variable) const { return sample::values(*dataSet, zone, variable); }

    bool transform(kernel::NumberSet const& sources, kernel::NumberSet const& dependents = {U}, Choice choice = {},
                   int independent = time)
    {
        remark.clear();
        kernel::FourierTransform operation(*dataSet, independent, dependents, sources, choice);
        bool const isDone = session.perform(operation);
        resultZones = toVector(operation.resultZones());
        resultVariables = toVector(operation.resultVariables());
        return isDone;
    }

    static Choice with(WindowFunction_e window, bool includeConjugates = false)
    {
        Choice choice;
        choice.spectrum = {window, includeConjugates};
        return choice;
    }

    static Choice replacing()
    {
        Choice choice;
        choice.replaceZones = true;
        choice.replaceVariables = true;
        return choice;
    }

    void expectRefusal(std::string const& reason, kernel::NumberSet const& sources,
                       kernel::NumberSet const& dependents = {U}, Choice choice = {}, int independent = time)
    {
        recorder.take();
        expectRefused([&] { return transform(sources, dependents, choice, independent); });
        EXPECT_EQ(session.lastError(), reason);
        EXPECT_EQ(remark, "");
    }

    /// The factor of a window by its definition.
    static long double windowFactor(WindowFunction_e window, std::size_t number, std::size_t length)
    {
        long double const part = static_cast<long double>(number) / static_cast<long double>(length);
        long double const cosine = std::cos(8.0L * std::atan(1.0L) * part);
        return window == WindowFunction_Rectangular  ? 1.0L
               : window == WindowFunction_Triangular ? 1.0L - std::abs(2.0L * part - 1.0L)
               : window == WindowFunction_Hann       ? 0.5L - 0.5L * cosine
                                                     : 0.54L - 0.46L * cosine;
    }

    /// Compares three result variables, from @p first on, with direct sums over a signal of even steps.
    void expectSpectrum(int zone, int first, Numbers const& signal, double step,
                        kernel::SpectrumChoice const& choice = {})
    {
        std::size_t const length = signal.size();
        std::vector<long double> windowed;
        long double sum = 0;
        for (std::size_t at = 0; at < length; ++at) {
            long double const factor = windowFactor(choice.window, at, length);
            sum += factor;
            windowed.push_back(factor * static_cast<long double>(signal[at]));
        }
        std::vector<reference::LongBin> const roots = reference::roots(length);
        std::size_t const count = choice.includeConjugates ? length : length / 2 + 1;
        Numbers const frequencies = valuesOf(zone, first);
        Numbers const amplitudes = valuesOf(zone, first + 1);
        Numbers const phases = valuesOf(zone, first + 2);
        ASSERT_EQ(frequencies.size(), count);
        ASSERT_EQ(amplitudes.size(), count);
        ASSERT_EQ(phases.size(), count);
        double const tolerance = 1e-12 * *std::max_element(amplitudes.begin(), amplitudes.end());
        for (std::size_t bin = 0; bin < count; ++bin) {
            auto const number =
                static_cast<long double>(bin) - (2 * bin > length ? static_cast<long double>(length) : 0.0L);
            double const frequency = static_cast<double>(number / (static_cast<long double>(length) * step));
            ASSERT_NEAR(frequencies[bin], frequency, 1e-12 * std::abs(frequency)) << "bin " << bin << " of " << length;
            reference::LongBin wanted = reference::sumOfBin(windowed, roots, bin) / sum;
            bool const isLonely = bin == 0 || 2 * bin == length;
            wanted *= choice.includeConjugates || isLonely ? 1.0L : 2.0L;
            reference::LongBin const found =
                std::polar<long double>(amplitudes[bin], phases[bin] * std::atan(1.0L) / 45.0L);
            ASSERT_NEAR(amplitudes[bin], static_cast<double>(std::abs(wanted)), tolerance)
                << "bin " << bin << " of " << length;
            ASSERT_LT(std::abs(found - wanted), tolerance) << "bin " << bin << " of " << length;
        }
    }

    std::vector<int> resultZones;
    std::vector<int> resultVariables;
    std::string remark;
};

} // namespace veldraw::tests
