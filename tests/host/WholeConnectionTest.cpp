#include "platform/signals/WholeConnection.h"

#include "tests/support/AllocationFailure.h"

#include <boost/make_shared.hpp>
#include <boost/signals2/signal.hpp>

#include <functional>
#include <gtest/gtest.h>
#include <new>
#include <stdexcept>
#include <string>

namespace veldraw::tests {

namespace {

using Signal = boost::signals2::signal<void(std::string const&)>;
using Connect = std::function<boost::signals2::connection(Signal&, Signal::slot_type const&)>;

/// Each way to connect; what it has connected before, if anything, is in a place of its own.
Connect const& way(int number)
{
    static Connect const ways[] = {
        [](Signal& signal, Signal::slot_type const& slot) { return signal.connect(slot); },
        [](Signal& signal, Signal::slot_type const& slot) { return signal.connect(slot, boost::signals2::at_front); },
        [](Signal& signal, Signal::slot_type const& slot) { return signal.connect(1, slot); }};
    return ways[number];
}

/// For each way, with and without slots of others.
class WholeConnection : public testing::TestWithParam<std::tuple<int, int>>
{
protected:
    WholeConnection()
    {
        for (int other = 0; other < std::get<1>(GetParam()); ++other)
            connectBy(signal, [this](std::string const&) { ++ofOthers; });
    }

    static boost::signals2::connection connectBy(Signal& signal, Signal::slot_type const& slot)
    {
        return sdk::connectWhole(slot, [&](auto const& whole) { return way(std::get<0>(GetParam()))(signal, whole); });
    }

    Signal signal;
    int ofOthers = 0;
};

} // namespace

TEST_P(WholeConnection, HearsUntilItIsDisconnected)
{
    std::string heard;
    auto const connection = connectBy(signal, [&](std::string const& text) { heard += text; });
    signal("a");
    connection.disconnect();
    signal("b");
    EXPECT_EQ(heard, "a");
    EXPECT_EQ(ofOthers, 2 * std::get<1>(GetParam()));
}

TEST_P(WholeConnection, LeavesNobodyToBeCalledWithoutMemory)
{
    int failures = 0;
    for (int request = 1;; ++request) {
        Signal fresh;
        std::string heard;
        auto const listener = boost::make_shared<std::string>("gone");
        Signal::slot_type const slot([&heard, listener](std::string const& text) { heard += text; });
        auto const usesBefore = listener.use_count();
        bool hasFailed = true;
        {
            AllocationFailure const failure(request);
            try {
                connectBy(fresh, slot).disconnect();
                hasFailed = failure.hasHappened();
            } catch (std::bad_alloc const&) {
                ++failures;
            }
        }
        fresh("a");
        EXPECT_EQ(heard, "") << request;
        if (!hasFailed)
            break;
        EXPECT_EQ(listener.use_count(), usesBefore) << request << ": nothing that a slot holds is held for it";
        auto const connection = connectBy(fresh, slot);
        fresh("b");
        EXPECT_EQ(heard, "b") << request;
    }
    EXPECT_GT(failures, 3);
}

TEST_P(WholeConnection, DoesNotKeepOthersFromBeingCalledWithoutMemory)
{
    int const before = std::get<1>(GetParam());
    for (int request = 1; request < 12; ++request) {
        try {
            AllocationFailure const failure(request);
            connectBy(signal, [](std::string const&) { FAIL() << "it was not connected"; }).disconnect();
        } catch (std::bad_alloc const&) {
        }
        ofOthers = 0;
        signal("a");
        EXPECT_EQ(ofOthers, before) << request;
    }
}

TEST_P(WholeConnection, IsNoneWhenTheHookFails)
{
    int heard = 0;
    auto const connect = [&](auto const& whole) { return way(std::get<0>(GetParam()))(signal, whole); };
    auto const slotsBefore = signal.num_slots();
    EXPECT_THROW(sdk::connectWhole(Signal::slot_type([&](std::string const&) { ++heard; }), connect,
                                   [] { throw std::runtime_error("no source to watch"); }),
                 std::runtime_error);
    EXPECT_EQ(signal.num_slots(), slotsBefore);
    signal("a");
    EXPECT_EQ(heard, 0);
}

TEST_P(WholeConnection, EndsWithWhatItsSlotTracks)
{
    auto owner = boost::make_shared<int>(0);
    Signal::slot_type slot([raw = owner.get()](std::string const&) { ++*raw; });
    slot.track(owner);
    connectBy(signal, slot);
    signal("a");
    EXPECT_EQ(*owner, 1);
    auto const slotsBefore = signal.num_slots();
    owner.reset();
    EXPECT_EQ(signal.num_slots(), slotsBefore - 1);
}

INSTANTIATE_TEST_SUITE_P(EachWay, WholeConnection,
                         testing::Combine(testing::Values(0, 1, 2), testing::Values(0, 1, 3)));

} // namespace veldraw::tests
