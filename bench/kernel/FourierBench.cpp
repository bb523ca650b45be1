// Fourier transforms of ten variables, with their result zones, beside bare calls of FFTW by two threads.
#include "CancelMeasure.h"
#include "Times.h"
#include "kernel/operations/FourierTransform.h"
#include "kernel/session/Session.h"

#include <algorithm>
#include <benchmark/benchmark.h>
#include <fftw3.h>
#include <random>

using namespace veldraw::kernel;

namespace {

constexpr int variables = 10;

/// A session with one series of noise in ten variables.
struct SignalStage
{
    explicit SignalStage(std::int64_t length)
        : dataSet(std::make_shared<DataSet>("Bench"))
    {
        std::mt19937_64 random(4);
        std::uniform_real_distribution<double> distribution(-1.0, 1.0);
        auto const zone = std::make_shared<Zone>("series", ZoneType_Ordered, length, 1, 1);
        for (int variable = 0; variable <= variables; ++variable) {
            dataSet->addVariable(std::make_shared<Variable>("V" + std::to_string(variable)));
            auto const buffer = Buffer::allocate(FieldDataType_Double, length);
            auto* const values = static_cast<double*>(buffer->mutableData());
            for (std::int64_t at = 0; at < length; ++at) {
                values[at] = variable == 0 ? 0.001 * static_cast<double>(at) : distribution(random);
            }
            zone->fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
        }
        dataSet->addZone(zone);
        auto const shown = std::make_shared<Frame>("Frame", Rectangle{});
        shown->dataSet = dataSet;
        session.openPage({shown});
    }

    bool transform()
    {
        NumberSet dependents;
        for (int variable = 2; variable <= variables + 1; ++variable) {
            dependents.insert(variable);
        }
        FourierTransform::Choice choice;
        choice.spectrum.window = WindowFunction_Hann;
        return session.perform(FourierTransform(*dataSet, 1, dependents, {1}, choice));
    }

    void takeBack()
    {
        session.undo();
        session.history().clear();
    }

    Session session;
    std::shared_ptr<DataSet> dataSet;
};

/// Ten transforms of a length by a plan of FFTW alone, on two threads; the plan is made anew, as the operation does.
class Bare
{
public:
    explicit Bare(std::int64_t length)
        : m_count(static_cast<int>(length))
    {
        for (int variable = 0; variable < variables; ++variable) {
            m_signals.push_back(fftw_alloc_real(static_cast<std::size_t>(length)));
            m_bins.push_back(fftw_alloc_complex(static_cast<std::size_t>(length / 2 + 1)));
            std::fill_n(m_signals.back(), length, 0.5);
            std::fill_n(reinterpret_cast<double*>(m_bins.back()), 2 * (length / 2 + 1), 0.0);
        }
    }

    ~Bare()
    {
        std::for_each(m_signals.begin(), m_signals.end(), fftw_free);
        std::for_each(m_bins.begin(), m_bins.end(), fftw_free);
    }

    void transform()
    {
        fftw_plan const plan = fftw_plan_dft_r2c_1d(m_count, m_signals[0], m_bins[0], FFTW_ESTIMATE);
#pragma omp parallel for schedule(dynamic) num_threads(2)
        for (int variable = 0; variable < variables; ++variable) {
            auto const at = static_cast<std::size_t>(variable);
            fftw_execute_dft_r2c(plan, m_signals[at], m_bins[at]);
        }
        fftw_destroy_plan(plan);
    }

private:
    int m_count;
    std::vector<double*> m_signals;
    std::vector<fftw_complex*> m_bins;
};

void fourierTransform(benchmark::State& state)
{
    SignalStage stage(state.range(0));
    Bare bare(state.range(0));
    Times ours;
    Times peer;
    for (auto _ : state) {
        ours.measure([&] { benchmark::DoNotOptimize(stage.transform()); });
        state.PauseTiming();
        stage.takeBack();
        peer.measure([&] { bare.transform(); });
        state.ResumeTiming();
    }
    state.counters["ours_s"] = ours.clock;
    state.counters["fftw_s"] = peer.clock;
    state.counters["clock_ratio"] = ours.clock / peer.clock;
    state.counters["processor_ratio"] = ours.processor / peer.processor;
}

/// How soon it ends after a cancel, which comes at points of time spread evenly over its whole course.
void cancelFourierTransform(benchmark::State& state)
{
    SignalStage stage(state.range(0));
    measureCancels(
        state, stage.session, [&] { return stage.transform(); }, [&] { stage.takeBack(); });
}

} // namespace

BENCHMARK(fourierTransform)->Arg(1000000)->Arg(1000003)->Unit(benchmark::kMillisecond)->UseRealTime()->Iterations(10);
BENCHMARK(cancelFourierTransform)
    ->Arg(1000003)
    ->Arg(8000000)
    ->Unit(benchmark::kMillisecond)
    ->UseManualTime()
    ->Iterations(32);
