#include "kernel/compute/FourierPlan.h"

#include "kernel/base/ZeroedArray.h"

#include <deque>
#include <fftw3.h>
#include <limits>
#include <map>
#include <mutex>
#include <new>

namespace veldraw::kernel {

namespace {

using Bin = FourierPlan::Bin;

constexpr double bytesOfPlanner = 0x1p18; // measured, as those for each number of plans with many and with few factors

/// Guards the planner of FFTW and the plans that are kept: only transforms may run at the same time.
std::mutex& planner()
{
    static std::mutex mutex;
    return mutex;
}

fftw_complex* asLibrary(Bin* bins)
{
    return reinterpret_cast<fftw_complex*>(bins);
}

/// FFTW ends the process where it gets no memory. So more than a plan takes, as measured, is taken and given back before it is made: with
/// what the allocator takes at a time from a system that has little left.
void requireMemoryForPlanner(double bytesOfPlan)
{
    constexpr double bytesOfAllocator = 0x1p22;
    ::operator delete(::operator new(static_cast<std::size_t>(2.0 * bytesOfPlan + bytesOfAllocator)));
}

/// A plan of either kind; the planner is held while it is made.
class LibraryPlan : public FourierPlan
{
public:
    LibraryPlan(std::int64_t length, bool isReal)
    {
        if (length > std::numeric_limits<int>::max()) {
            throw std::bad_alloc(); // such transforms are put together from shorter ones
        }
        auto const size = static_cast<std::size_t>(length);
        ZeroedArray<Bin> bins(isReal ? size / 2 + 1 : size);
        auto const count = static_cast<int>(length);
        constexpr unsigned flags = FFTW_ESTIMATE | FFTW_DESTROY_INPUT;
        if (isReal) {
            requireMemoryForPlanner(bytesOfReal(length));
            auto* const signal = reinterpret_cast<double*>(bins.begin());
            m_plan = fftw_plan_dft_r2c_1d(count, signal, asLibrary(bins.begin()), flags);
        } else {
            ZeroedArray<Bin> signal(size);
            requireMemoryForPlanner(bytesOfComplex(length));
            m_plan = fftw_plan_dft_1d(count, asLibrary(signal.begin()), asLibrary(bins.begin()), FFTW_FORWARD, flags);
        }
        if (m_plan == nullptr) {
            throw std::bad_alloc();
        }
    }

    ~LibraryPlan() override
    {
        std::lock_guard<std::mutex> const lock(planner());
        fftw_destroy_plan(m_plan);
    }

    void run(double* numbers) const override
    {
        fftw_execute_dft_r2c(m_plan, numbers, reinterpret_cast<fftw_complex*>(numbers));
    }

    void run(Bin* signal, Bin* bins) const override { fftw_execute_dft(m_plan, asLibrary(signal), asLibrary(bins)); }

private:
    fftw_plan m_plan = nullptr;
};

/// The plans in use, and some of the short ones that were made last.
class PlanStore
{
public:
    std::shared_ptr<FourierPlan const> plan(std::int64_t length, bool isReal)
    {
        std::shared_ptr<FourierPlan const> plan; // destroyed when the planner is free again, as the next one
        std::shared_ptr<FourierPlan const> dropped;
        std::lock_guard<std::mutex> const lock(planner());
        std::weak_ptr<FourierPlan const>& known = m_known[{length, isReal}];
        plan = known.lock();
        if (!plan) {
            plan = std::make_shared<LibraryPlan>(length, isReal);
            known = plan;
            if (length <= longestKept) {
                m_kept.push_back(plan);
            }
            if (m_kept.size() > mostKept) {
                dropped = std::move(m_kept.front());
                m_kept.pop_front();
            }
            forgetUnused();
        }
        return plan;
    }

private:
    static constexpr std::int64_t longestKept =
        65536; // a longer one takes megabytes, and a transform long enough itself
    static constexpr std::size_t mostKept = 16;
    static constexpr std::size_t mostKnown = 256;

    void forgetUnused()
    {
        for (auto at = m_known.begin(); m_known.size() > mostKnown && at != m_known.end();) {
            at = at->second.expired() ? m_known.erase(at) : std::next(at);
        }
    }

    std::map<std::pair<std::int64_t, bool>, std::weak_ptr<FourierPlan const>> m_known;
    std::deque<std::shared_ptr<FourierPlan const>> m_kept; // the newest last
};

/// It lives until the process ends, since nobody knows in which order objects go then.
PlanStore& store()
{
    static auto* const plans = new PlanStore;
    return *plans;
}

} // namespace

std::shared_ptr<FourierPlan const> FourierPlan::ofReal(std::int64_t length)
{
    return store().plan(length, true);
}

std::shared_ptr<FourierPlan const> FourierPlan::ofComplex(std::int64_t length)
{
    return store().plan(length, false);
}

double FourierPlan::bytesOfReal(std::int64_t length)
{
    return bytesOfPlanner + 9.0 * static_cast<double>(length);
}

double FourierPlan::bytesOfComplex(std::int64_t length)
{
    return bytesOfPlanner + 16.0 * static_cast<double>(length);
}

} // namespace veldraw::kernel
