// Zone operations that are cancelled, or disturbed, while they compute.
#include "kernel/operations/DeleteVariables.h"
#include "kernel/operations/DuplicateZonesAxially.h"
#include "kernel/operations/EnableZone.h"
#include "kernel/operations/FourierTransform.h"
#include "kernel/operations/InterpolateByInverseDistance.h"
#include "kernel/operations/InterpolateLinearly.h"
#include "kernel/operations/Krige.h"
#include "kernel/operations/MirrorZones.h"
#include "kernel/operations/ProbeLine.h"
#include "kernel/operations/RenameZone.h"
#include "kernel/operations/RotateZones.h"
#include "kernel/operations/SetPlotType.h"
#include "kernel/operations/SmoothVariable.h"
#include "kernel/operations/Triangulate.h"
#include "tests/kernel/support/LookCounter.h"
#include "tests/kernel/support/MeshData.h"
#include "tests/kernel/support/SessionFixture.h"
#include "tests/kernel/support/SpatialData.h"
#include "tests/kernel/support/Waiters.h"
#include "tests/support/Threads.h"

#include <chrono>
#include <numeric>
#include <thread>

namespace veldraw::tests {

using namespace kernel;
using sample::slanting;
using testing::ElementsAre;

namespace {

class LongOperation : public SessionFixture
{
protected:
    LongOperation()
    {
        dataSet = sample::emptySpace();
        auto zone = std::make_shared<Zone>("large", ZoneType_Ordered, 1000, 1000, 1);
        for (int variable = 0; variable < 7; ++variable) {
            auto const buffer = Buffer::allocate(FieldDataType_Int16, 1000000); // the slow way on purpose
            buffer->setValue(500500, 100.0);
            zone->fields.emplace_back(std::make_shared<ShareGroup>(buffer), ValueLocation_Nodal);
        }
        dataSet->addZone(zone);
        sample::addOrdered(*dataSet, 30, 30, 30); // scattered at random
        std::vector<double> rising(line);
        std::iota(rising.begin(), rising.end(), 0.0);
        sample::addOrdered(*dataSet, line, 1, 1)->fields[0] = sample::field(rising);
        frame = sample::show(session, dataSet);
        plane->dataSet = dataSet;
        plane->plotType = PlotType_Cartesian2D;
        plane->axes2D = {frame->axes3D[0], frame->axes3D[1]};
        session.openPage({frame, plane});
        recorder.take();
    }
    ~LongOperation() override { session.setWaiter(nullptr); }

    std::vector<std::pair<std::string, std::function<bool()>>> operations()
    {
        return {
            {"Axial Rotation",
             [&] { return session.perform(RotateZones(*dataSet, {1}, sample::inSpace, slanting, 30)); }},
            {"Axial Duplication",
             [&] {
                 return session.perform(
                     DuplicateZonesAxially(*dataSet, {1}, sample::inSpace, slanting, {30, 0, 11, true}));
             }},
            {"Create Mirror Zone", [&] { return session.perform(MirrorZones(frame->id, {1}, 'Y')); }},
            {"Linear Interpolation",
             [&] {
                 return session.perform(InterpolateLinearly(frame->id, {1}, 1, {7}, 0, LinearInterpMode_DontChange));
             }},
            {"Probe Line",
             [&] {
                 return session.perform(ProbeLine(frame->id, {1}, {-1, -1, 0}, {1, 1, 0}, 100000));
             }},
            {"Inverse-Distance Interpolation",
             [&] {
                 return session.perform(
                     InterpolateByInverseDistance(frame->id, {2}, 2, {7}, {PtSelection_Octant, 8}, {3.5, 0.0}));
             }},
            {"Kriging",
             [&] {
                 return session.perform(
                     Krige(frame->id, {2}, 2, {7}, {PtSelection_NearestN, 8}, Krige::Model{0.3, 0.1, Drift_Linear}));
             }},
            {"Smooth",
             [&] { return session.perform(SmoothVariable(frame->id, 1, 7, 40, 0.5, BoundaryCondition_Fixed)); }},
            {"2D Triangulation", [&] { return session.perform(Triangulate(plane->id, {2}, {}, false, 0.25)); }},
            {"Discrete Fourier Transform", [&] {
                 return session.perform(FourierTransform(*dataSet, 1, {2, 3, 4, 5, 6, 7}, {3}, {}));
             }}};
    }

    static constexpr int line = 200003; // a prime number of points
    std::shared_ptr<Frame> plane = std::make_shared<Frame>("Plane", Rectangle{});

    using MakeOperation = std::function<std::shared_ptr<Operation>()>;

    /// Cancels an operation at each of its looks, one after the other. @return the number of looks
    std::int64_t cancelAtEachLook(MakeOperation const& make)
    {
        LookCounter whole;
        computeWith(whole, *make());
        for (std::int64_t look = 1; look <= whole.looks(); ++look) {
            std::string const before = stateDigest(session);
            LookCounter cancelled(look);
            EXPECT_THROW(computeWith(cancelled, *make()), Interrupted) << "look " << look;
            EXPECT_EQ(stateDigest(session), before) << "look " << look;
        }
        EXPECT_TRUE(session.perform(*make())) << "afterwards";
        return whole.looks();
    }

    void computeWith(Progress& progress, Operation& operation)
    {
        ASSERT_EQ(operation.find(session.pages()), "");
        ASSERT_EQ(operation.reasonAgainst(), "");
        Progress loading;
        operation.needs()->load(loading);
        operation.compute(progress);
    }
};

} // namespace

TEST_F(LongOperation, IsCancelledWithoutATrace)
{
    for (auto const& [name, operation] : operations()) {
        ActingWaiter waiter([this](Progress&) { session.setInterrupted(true); });
        session.setWaiter(&waiter);
        expectRefused(operation);
        EXPECT_EQ(session.lastError(), "The operation was cancelled.") << name;
        EXPECT_THAT(waiter.names, ElementsAre(name));
        EXPECT_FALSE(session.isBusy());
    }
}

TEST_F(LongOperation, ItsCancelIsTakenBackByTheNextOperationHoweverShort)
{
    std::vector<std::function<bool()>> const shortOnes = {
        [&] { return session.perform(RenameZone(*dataSet, 1, "keel")); },
        [&] { return session.undo(); },
        [&] { return session.perform(EnableZone(*dataSet, 1, false)); },
        [&] { return session.perform(SetPlotType(frame->id, PlotType_Cartesian3D)); },
        [&] { return session.perform(DeleteVariables(*dataSet, {99})); }, // refused, but it has started
    };
    for (auto const& shortOne : shortOnes) {
        session.setInterrupted(true);
        shortOne();
        EXPECT_FALSE(session.isInterrupted());
    }
}

TEST_F(LongOperation, GivesItsMemoryBackWhenItIsCancelled)
{
    ActingWaiter waiter([this](Progress&) { session.setInterrupted(true); });
    session.setWaiter(&waiter);
    for (auto const& [name, operation] : operations()) {
        EXPECT_FALSE(operation());
        for (auto const& zone : dataSet->zones()) {
            for (Field const& field : zone->fields) {
                EXPECT_EQ(field.shareCount(), 1) << name;
                EXPECT_EQ(field.group()->buffer().use_count(), 2) << name << ": the group's and this one";
            }
        }
    }
}

TEST_F(LongOperation, IsDoneWhollyOrNotAtAllWheneverItIsCancelled)
{
    for (auto const& [name, operation] : operations()) {
        for (int delay = 0; delay < 12; ++delay) {
            std::string const before = stateDigest(session);
            ActingWaiter waiter([&](Progress& progress) {
                std::this_thread::sleep_for(std::chrono::milliseconds(delay));
                progress.interrupt();
            });
            session.setWaiter(&waiter);
            bool const done = operation();
            session.setWaiter(nullptr);
            EXPECT_EQ(recorder.take().empty(), !done) << name;
            if (done) {
                EXPECT_EQ(session.history().undoName(), name);
                session.undo();
                session.history().clear();
                recorder.take();
            } else {
                EXPECT_EQ(stateDigest(session), before) << name;
            }
        }
    }
}

TEST_F(LongOperation, EndsWithoutATraceAtWhicheverLookItSeesACancel)
{
    sample::addOrdered(*dataSet, 6, 5, 5);
    sample::addOrdered(*dataSet, 2, 3, 1);
    auto const cells = sample::fillOf(Connectivity::Shape::Tetrahedron, 4, 0.2, 1).zone(ZoneType_FETetra);
    for (std::size_t variable = 3; variable < 7; ++variable) {
        cells->fields.push_back(cells->fields[variable - 3]);
    }
    dataSet->addZone(cells);
    Threads const one(1); // one look after the other
    auto const byInverseDistance = [this](NeighborChoice choice) -> MakeOperation {
        return [this, choice] {
            return std::make_shared<InterpolateByInverseDistance>(frame->id, NumberSet{4}, 5, NumberSet{6, 7}, choice,
                                                                  InterpolateByInverseDistance::Formula{3.5, 0.0});
        };
    };
    auto const byKriging = [this](NeighborChoice choice) -> MakeOperation {
        return [this, choice] {
            return std::make_shared<Krige>(frame->id, NumberSet{4}, 5, NumberSet{6, 7}, choice,
                                           Krige::Model{0.3, 0.1, Drift_Quadratic});
        };
    };
    MakeOperation const linearly = [this] {
        return std::make_shared<InterpolateLinearly>(frame->id, NumberSet{4}, 5, NumberSet{6, 7}, 0.0,
                                                     LinearInterpMode_DontChange);
    };
    auto const smoothing = [this](int zone) -> MakeOperation {
        return [this, zone] {
            return std::make_shared<SmoothVariable>(frame->id, zone, 7, 20, 0.5, BoundaryCondition_FirstOrder);
        };
    };
    sample::addOrdered(*dataSet, 4, 1, 1);
    MakeOperation const inTriangles = [this] {
        return std::make_shared<Triangulate>(plane->id, NumberSet{4, 5}, NumberSet{7}, true, 0.25);
    };
    std::vector<double> rising(1601); // a prime number
    std::iota(rising.begin(), rising.end(), 0.0);
    sample::addOrdered(*dataSet, 1601, 1, 1)->fields[0] = sample::field(rising);
    MakeOperation const alongALine = [this] {
        FourierTransform::Choice choice;
        choice.spectrum = {WindowFunction_Hann, true};
        return std::make_shared<FourierTransform>(*dataSet, 1, NumberSet{6, 7}, NumberSet{8}, choice);
    };
    for (auto const& make :
         {smoothing(4), smoothing(6), linearly, inTriangles, byInverseDistance({PtSelection_NearestN, 8}),
          byInverseDistance({PtSelection_Octant, 9}), byInverseDistance({PtSelection_All, 1}),
          byKriging({PtSelection_NearestN, 12}), byKriging({PtSelection_Octant, 17}),
          byKriging({PtSelection_NearestN, 60}), byKriging({PtSelection_All, 1}), alongALine}) {
        EXPECT_GE(cancelAtEachLook(make), 9);
    }
}

TEST_F(LongOperation, EndsWithoutATraceWhenTransformsOfSeveralLengthsAreCancelled)
{
    for (int const length : {1601, 997, 1000}) {
        std::vector<double> rising(static_cast<std::size_t>(length));
        std::iota(rising.begin(), rising.end(), 0.0);
        sample::addOrdered(*dataSet, length, 1, 1)->fields[0] = sample::field(rising);
    }
    MakeOperation const make = [this] {
        FourierTransform::Choice choice;
        choice.spectrum = {WindowFunction_Hann, true};
        return std::make_shared<FourierTransform>(*dataSet, 1, NumberSet{6}, NumberSet{4, 5, 6}, choice);
    };
    runDividedOnOneThread([&] { EXPECT_GE(cancelAtEachLook(make), 30); });
    session.undo();
    Threads const two(2); // each look is on one of two threads
    EXPECT_GE(cancelAtEachLook(make), 30);
}

TEST_F(LongOperation, CountsToItsEnd)
{
    for (auto const& [name, operation] : operations()) {
        PlainWaiter waiter;
        session.setWaiter(&waiter);
        EXPECT_TRUE(operation()) << name;
        EXPECT_EQ(waiter.fraction, 1.0) << name;
    }
}

TEST_F(LongOperation, HearsNothingElseMeanwhile)
{
    ActingWaiter waiter([this](Progress&) {
        for (auto const& [name, operation] : operations()) {
            expectRefused(operation);
            EXPECT_EQ(session.lastError(), "Another operation is running.") << name;
        }
        expectRefused([this] { return session.undo(); });
        expectRefused([this] { return session.perform(DeleteVariables(*dataSet, {7})); });
    });
    session.setWaiter(&waiter);
    ASSERT_TRUE(session.perform(RotateZones(*dataSet, {1}, sample::inSpace, slanting, 30)));
    EXPECT_THAT(recorder.take(), ElementsAre("0 zones 1 variables 1 2 3 4 5 6"));
    EXPECT_TRUE(session.undo());
}

} // namespace veldraw::tests
