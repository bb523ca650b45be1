#include "kernel/compute/FourierPlan.h"

#include <fstream>
#include <gtest/gtest.h>
#include <new>
#include <sys/resource.h>

namespace veldraw::tests {

using namespace kernel;

// The sanitizers take address space of their own, without end.
#ifndef __SANITIZE_ADDRESS__

namespace {

/// Bytes of address space that this process uses.
rlim_t addressSpace()
{
    rlim_t pages = 0;
    std::ifstream("/proc/self/statm") >> pages;
    return pages * 4096;
}

bool canPlan(std::int64_t length)
{
    try {
        FourierPlan::ofComplex(length);
        FourierPlan::ofReal(length);
        return true;
    } catch (std::bad_alloc const&) {
        return false;
    }
}

/// Makes plans with more and more memory. @return whether all were made or refused, some of each
bool plansWithLittleMemory()
{
    int made = 0;
    int refused = 0;
    std::int64_t length = 70001; // too long to be kept, and another one each time
    for (rlim_t room = 0; room < rlim_t{24} << 20; room += rlim_t{64} << 10) {
        rlimit limit{};
        getrlimit(RLIMIT_AS, &limit);
        rlim_t const before = limit.rlim_cur;
        limit.rlim_cur = addressSpace() + room;
        setrlimit(RLIMIT_AS, &limit);
        (canPlan(length) ? made : refused) += 1;
        limit.rlim_cur = before;
        setrlimit(RLIMIT_AS, &limit);
        length += 2;
    }
    return made > 0 && refused > 0;
}

} // namespace

// In a process of its own, which FFTW would end.
TEST(FourierPlanTest, IsRefusedWithoutTheMemoryToMakeIt)
{
    testing::FLAGS_gtest_death_test_style = "threadsafe";
    EXPECT_EXIT(std::exit(plansWithLittleMemory() ? 0 : 1), testing::ExitedWithCode(0), "");
}

#endif

} // namespace veldraw::tests
