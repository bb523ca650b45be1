// One value of a hundred million that is corrected, and taken back; and what it costs to branch a zone off.
#include "kernel/operations/DuplicateZones.h"
#include "kernel/operations/LoadVariables.h"
#include "kernel/operations/SetValue.h"
#include "kernel/session/Session.h"
#include "kernel/storage/ValueLoader.h"

#include <benchmark/benchmark.h>
#include <cstdlib>
#include <stdexcept>
#include <sys/mman.h>
#include <sys/resource.h>
#include <unistd.h>

using namespace veldraw::kernel;

namespace {

constexpr std::int64_t count = 100000000;
constexpr std::int64_t edits = 20000;      // each on a page of its own
constexpr std::int64_t step = 4801 * 1031; // from page to page; has no divisor in common with the count

/// Maps a file of zeros, as an importer maps a file of values.
class MappedZeros : public ValueLoader
{
public:
    std::shared_ptr<Buffer> load(Progress&) override
    {
        char name[] = "/tmp/veldraw-bench-XXXXXX";
        int const file = mkstemp(name);
        unlink(name);
        bool const isSized = file >= 0 && ftruncate(file, bytes) == 0;
        void* const memory =
            isSized ? mmap(nullptr, bytes, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_NORESERVE, file, 0) : MAP_FAILED;
        close(file);
        if (memory == MAP_FAILED) {
            throw std::runtime_error("no file could be mapped");
        }
        std::shared_ptr<void> const owner(memory, [](void* mapped) { munmap(mapped, bytes); });
        return Buffer::adopt(FieldDataType_Float, count, memory, 1, owner);
    }

    ValueRange range() const override { return {ValueRange::State::Estimated, 0, 0}; }
    bool isMapped() const override { return true; }

private:
    static constexpr std::size_t bytes = count * sizeof(float);
};

std::shared_ptr<ShareGroup> inMemory()
{
    auto const buffer = Buffer::allocate(FieldDataType_Float, count);
    auto* const values = static_cast<float*>(buffer->mutableData());
    for (std::int64_t index = 0; index < count; ++index) {
        values[index] = static_cast<float>(index % 1000);
    }
    return std::make_shared<ShareGroup>(buffer);
}

std::shared_ptr<ShareGroup> mapped()
{
    return std::make_shared<ShareGroup>(FieldDataType_Float, count, std::make_shared<MappedZeros>());
}

/// One zone with one float variable.
struct OneVariable
{
    explicit OneVariable(std::shared_ptr<ShareGroup> group)
    {
        auto zone = std::make_shared<Zone>("zone", ZoneType_Ordered, count, 1, 1);
        zone->fields = {Field(std::move(group), ValueLocation_Nodal)};
        dataSet->addVariable(std::make_shared<Variable>("v"));
        dataSet->addZone(zone);
        auto frame = std::make_shared<Frame>("frame", Rectangle{});
        frame->dataSet = dataSet;
        session.openPage({frame});
        if (!session.perform(LoadVariables(*dataSet, {1}, {1}))) {
            throw std::runtime_error(session.lastError());
        }
        dataSet->zone(1)->range(1);
    }

    void const* memory() const { return dataSet->field(1, 1)->group()->buffer()->data(); }

    /// Gives a value that no edit has been at another one. @return false when it was refused
    bool editNext()
    {
        m_place = (m_place + step) % count;
        return session.perform(SetValue(*dataSet, 1, 1, m_place, 0.25 + static_cast<double>(m_place), true));
    }

    Session session;
    std::shared_ptr<DataSet> dataSet = std::make_shared<DataSet>("large");

private:
    std::int64_t m_place = 7;
};

long pageFaults()
{
    rusage usage{};
    getrusage(RUSAGE_SELF, &usage);
    return usage.ru_minflt + usage.ru_majflt;
}

/// Another value in another place each time: none of them is in a cache, and of a mapped file none in memory.
void editValue(benchmark::State& state, std::shared_ptr<ShareGroup> (*makeGroup)())
{
    OneVariable stage(makeGroup());
    void const* const memory = stage.memory();
    long const faults = pageFaults();
    for (auto _ : state) {
        bool const isEdited = stage.editNext();
        benchmark::DoNotOptimize(stage.dataSet->zone(1)->range(1)); // known, not computed again
        if (!isEdited) {
            state.SkipWithError("the value was not edited");
        }
    }
    state.counters["page faults"] = static_cast<double>(pageFaults() - faults) / static_cast<double>(edits);
    if (stage.memory() != memory) {
        state.SkipWithError("the array was copied");
    }
}

void undoEdit(benchmark::State& state, std::shared_ptr<ShareGroup> (*makeGroup)())
{
    OneVariable stage(makeGroup());
    void const* const memory = stage.memory();
    for (std::int64_t edit = 0; edit < edits; ++edit) {
        stage.editNext();
    }
    for (auto _ : state) {
        bool const isUndone = stage.session.undo();
        benchmark::DoNotOptimize(stage.dataSet->zone(1)->range(1));
        if (!isUndone) {
            state.SkipWithError("the edit was not undone");
        }
    }
    if (stage.memory() != memory) {
        state.SkipWithError("the array was copied");
    }
}

/// The only largest value goes: all others have to be looked at, when somebody asks for the range.
void editLargestValue(benchmark::State& state)
{
    OneVariable stage(inMemory());
    for (auto _ : state) {
        state.PauseTiming();
        stage.session.perform(SetValue(*stage.dataSet, 1, 1, 12345, 5000, true));
        stage.dataSet->zone(1)->range(1);
        state.ResumeTiming();
        stage.session.perform(SetValue(*stage.dataSet, 1, 1, 12345, 1, true));
        if (stage.dataSet->zone(1)->range(1).max != 999) {
            state.SkipWithError("the range is another one");
        }
    }
}

void editBranch(benchmark::State& state)
{
    OneVariable stage(inMemory());
    stage.session.perform(DuplicateZones(*stage.dataSet, {1}));
    for (auto _ : state) {
        if (!stage.session.perform(SetValue(*stage.dataSet, 2, 1, 12345, -5.0, true))) {
            state.SkipWithError("the value was not edited");
        }
        state.PauseTiming();
        stage.session.undo();
        state.ResumeTiming();
    }
}

} // namespace

BENCHMARK_CAPTURE(editValue, inMemory, inMemory)->Iterations(edits)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(editValue, mapped, mapped)->Iterations(edits)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(undoEdit, inMemory, inMemory)->Iterations(edits)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK_CAPTURE(undoEdit, mapped, mapped)->Iterations(edits)->Unit(benchmark::kMicrosecond)->UseRealTime();
BENCHMARK(editLargestValue)->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK(editBranch)->Unit(benchmark::kMillisecond)->UseRealTime();
