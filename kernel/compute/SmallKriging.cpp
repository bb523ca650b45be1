#include "kernel/compute/SmallKriging.h"

#include "kernel/compute/WideLanes.h"

#include <algorithm>
#include <vector>

namespace veldraw::kernel {

namespace {

constexpr std::size_t lanes = SmallKriging::lanes;
constexpr double leastPivot = 1e-9; // of a covariance matrix with ones on its diagonal

/// A number for each lane. Its alignment is that of a number, since the one that the compiler would choose depends on the
/// processor that it compiles for.
typedef double Lanes __attribute__((vector_size(lanes * sizeof(double)), aligned(alignof(double)), may_alias));

/// Many of them. A vector would drop the alignment.
class LaneArray
{
public:
    void resize(std::size_t size) { m_numbers.resize(size * lanes); }
    Lanes* data() { return reinterpret_cast<Lanes*>(m_numbers.data()); }
    Lanes const* data() const { return reinterpret_cast<Lanes const*>(m_numbers.data()); }
    VELDRAW_INLINE Lanes& operator[](std::size_t index) { return data()[index]; }
    VELDRAW_INLINE Lanes const& operator[](std::size_t index) const { return data()[index]; }

private:
    std::vector<double> m_numbers;
};

VELDRAW_INLINE Lanes rootOf(Lanes const& numbers)
{
    Lanes roots;
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        roots[lane] = std::sqrt(numbers[lane]);
    }
    return roots;
}

} // namespace

/// The systems, a number of each lane side by side.
struct SmallKriging::Systems
{
    KrigingModel model;
    double inverseRange;
    std::size_t axes;
    std::size_t terms;
    std::size_t count = 0;
    LaneArray places;                                    ///< point, axis
    LaneArray factor;                                    ///< row, column: L, with the inverses of its diagonal
    LaneArray pivots;                                    ///< row
    LaneArray basis;                                     ///< term, point: Q
    Lanes triangle[mostDriftTerms][mostDriftTerms] = {}; ///< R
    Lanes origin[3] = {};                                ///< of the drift
    Lanes inverseScale = {};                             ///< of the drift
    Lanes target[3] = {};
    LaneArray solution; ///< point
    Lanes smallestPivot = {};
    Lanes smallestRest = {}; ///< of a drift's term beside those before it, as a fraction of the constant term

    Systems(KrigingModel const& krigingModel, std::size_t axisCount)
        : model(krigingModel)
        , inverseRange(1.0 / std::max(model.range, 1e-300))
        , axes(axisCount)
        , terms(driftTermCount(model.drift, axisCount))
    {
    }
};

namespace {

using Systems = SmallKriging::Systems;

template <std::size_t Axes>
VELDRAW_INLINE Lanes distance(Lanes const* a, Lanes const* b)
{
    Lanes square = {};
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        Lanes const difference = a[axis] - b[axis];
        square += difference * difference;
    }
    return rootOf(square);
}

VELDRAW_INLINE Lanes covariance(Systems const& systems, Lanes const& distance)
{
    Lanes const share = distance * systems.inverseRange;
    Lanes const fraction = share < 1.0 ? share : Lanes{} + 1.0;
    return (1.0 - systems.model.nugget) * (1.0 - fraction * (1.5 - 0.5 * fraction * fraction));
}

/// Some rows of a column of L.
template <std::size_t Axes, std::size_t Rows>
VELDRAW_INLINE void factorizeRows(Systems& systems, std::size_t column, std::size_t first)
{
    std::size_t const count = systems.count;
    Lanes* const factor = systems.factor.data();
    alignas(sizeof(Lanes)) Lanes rests[Rows];
    for (std::size_t row = 0; row < Rows; ++row) {
        rests[row] =
            covariance(systems, distance<Axes>(&systems.places[(first + row) * Axes], &systems.places[column * Axes]));
    }
    for (std::size_t before = 0; before < column; ++before) {
        Lanes const shared = factor[column * count + before];
        for (std::size_t row = 0; row < Rows; ++row) {
            rests[row] -= factor[(first + row) * count + before] * shared;
        }
    }
    for (std::size_t row = 0; row < Rows; ++row) {
        Lanes const number = rests[row] * factor[column * count + column];
        factor[(first + row) * count + column] = number;
        systems.pivots[first + row] -= number * number;
    }
}

/// The columns of L, one after the other (A.-L. Cholesky). Some rows at a time, as each step of a sum waits for the one before.
template <std::size_t Axes>
VELDRAW_INLINE void factorizeCovariances(Systems& systems)
{
    constexpr std::size_t rowsAtOnce = 4;
    std::size_t const count = systems.count;
    systems.smallestPivot = Lanes{} + 1.0;
    for (std::size_t row = 0; row < count; ++row) {
        systems.pivots[row] = Lanes{} + 1.0;
    }
    for (std::size_t column = 0; column < count; ++column) {
        Lanes const pivot = systems.pivots[column];
        systems.smallestPivot = pivot < systems.smallestPivot ? pivot : systems.smallestPivot;
        Lanes const usable = pivot > leastPivot ? pivot : Lanes{} + 1.0;
        systems.factor[column * count + column] = 1.0 / rootOf(usable);
        std::size_t row = column + 1;
        for (; row + rowsAtOnce <= count; row += rowsAtOnce) {
            factorizeRows<Axes, rowsAtOnce>(systems, column, row);
        }
        for (; row < count; ++row) {
            factorizeRows<Axes, 1>(systems, column, row);
        }
    }
}

/// Solves Lx = b, in place.
VELDRAW_INLINE void solveForward(Systems const& systems, Lanes* numbers)
{
    std::size_t const count = systems.count;
    for (std::size_t column = 0; column < count; ++column) {
        Lanes const number = numbers[column] * systems.factor[column * count + column];
        numbers[column] = number;
        for (std::size_t row = column + 1; row < count; ++row) {
            numbers[row] -= systems.factor[row * count + column] * number;
        }
    }
}

/// Solves L'x = b, in place.
VELDRAW_INLINE void solveBackward(Systems const& systems, Lanes* numbers)
{
    std::size_t const count = systems.count;
    for (std::size_t row = count; row-- > 0;) {
        Lanes const number = numbers[row] * systems.factor[row * count + row];
        numbers[row] = number;
        for (std::size_t column = 0; column < row; ++column) {
            numbers[column] -= systems.factor[row * count + column] * number;
        }
    }
}

/// The drift is centred at the first point and scaled by the farthest.
template <std::size_t Axes>
VELDRAW_INLINE void placeDrift(Systems& systems)
{
    Lanes scale = {};
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        systems.origin[axis] = systems.places[axis];
        for (std::size_t point = 1; point < systems.count; ++point) {
            Lanes const difference = systems.places[point * Axes + axis] - systems.origin[axis];
            Lanes const size = difference < 0.0 ? -difference : difference;
            scale = size > scale ? size : scale;
        }
    }
    systems.inverseScale = scale > 0.0 ? 1.0 / scale : Lanes{} + 1.0;
}

template <std::size_t Axes>
VELDRAW_INLINE void driftTerms(Systems const& systems, Lanes const* place, Lanes* terms)
{
    alignas(sizeof(Lanes)) Lanes scaled[Axes];
    for (std::size_t axis = 0; axis < Axes; ++axis) {
        scaled[axis] = (place[axis] - systems.origin[axis]) * systems.inverseScale;
    }
    setDriftTerms(scaled, Axes, terms);
}

VELDRAW_INLINE Lanes dot(Lanes const* a, Lanes const* b, std::size_t count)
{
    Lanes sum = {};
    for (std::size_t at = 0; at < count; ++at) {
        sum += a[at] * b[at];
    }
    return sum;
}

/// Makes a column orthogonal to those before it (modified Gram-Schmidt, twice, which is enough: W. Kahan).
VELDRAW_INLINE void orthogonalize(Systems& systems, std::size_t term)
{
    std::size_t const count = systems.count;
    Lanes* const column = &systems.basis[term * count];
    for (int round = 0; round < 2; ++round) {
        for (std::size_t other = 0; other < term; ++other) {
            Lanes const* const unit = &systems.basis[other * count];
            Lanes const share = dot(unit, column, count);
            systems.triangle[other][term] += share;
            for (std::size_t point = 0; point < count; ++point) {
                column[point] -= share * unit[point];
            }
        }
    }
    Lanes const rest = rootOf(dot(column, column, count));
    Lanes const fraction = term > 0 ? rest / systems.triangle[0][0] : Lanes{} + 1.0;
    systems.smallestRest = fraction < systems.smallestRest ? fraction : systems.smallestRest;
    Lanes const usable = fraction > leastRest ? rest : Lanes{} + 1.0;
    systems.triangle[term][term] = usable;
    for (std::size_t point = 0; point < count; ++point) {
        column[point] /= usable;
    }
}

template <std::size_t Axes>
VELDRAW_INLINE void factorizeDrift(Systems& systems)
{
    placeDrift<Axes>(systems);
    std::size_t const count = systems.count;
    alignas(sizeof(Lanes)) Lanes terms[mostDriftTerms] = {};
    for (std::size_t point = 0; point < count; ++point) {
        driftTerms<Axes>(systems, &systems.places[point * Axes], terms);
        for (std::size_t term = 0; term < systems.terms; ++term) {
            systems.basis[term * count + point] = terms[term];
        }
    }
    systems.smallestRest = Lanes{} + 1.0;
    for (std::size_t term = 0; term < systems.terms; ++term) {
        for (std::size_t column = 0; column < mostDriftTerms;
             ++column) { // a loop over the range would take them for aligned
            systems.triangle[term][column] = Lanes{};
        }
    }
    for (std::size_t term = 0; term < systems.terms; ++term) {
        solveForward(systems, &systems.basis[term * count]);
        orthogonalize(systems, term);
    }
}

template <std::size_t Axes>
VELDRAW_INLINE void solveSystems(Systems& systems)
{
    std::size_t const count = systems.count;
    Lanes* const solution = systems.solution.data();
    for (std::size_t point = 0; point < count; ++point) {
        solution[point] = covariance(systems, distance<Axes>(&systems.places[point * Axes], systems.target));
    }
    solveForward(systems, solution);
    alignas(sizeof(Lanes)) Lanes terms[mostDriftTerms] = {};
    driftTerms<Axes>(systems, systems.target, terms);
    for (std::size_t term = 0; term < systems.terms; ++term) {
        Lanes rest = terms[term];
        for (std::size_t other = 0; other < term; ++other) {
            rest -= systems.triangle[other][term] * terms[other];
        }
        terms[term] = rest / systems.triangle[term][term]; // of inv(R') f
        Lanes const* const unit = &systems.basis[term * count];
        Lanes const share = dot(unit, solution, count) - terms[term];
        for (std::size_t point = 0; point < count; ++point) {
            solution[point] -= share * unit[point];
        }
    }
    solveBackward(systems, solution);
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void factorize(Systems& systems)
{
    if (systems.axes == 2) {
        factorizeCovariances<2>(systems);
        factorizeDrift<2>(systems);
    } else {
        factorizeCovariances<3>(systems);
        factorizeDrift<3>(systems);
    }
}

VELDRAW_WIDE_LANES("avx512f", "avx2")
void solveAll(Systems& systems)
{
    if (systems.axes == 2) {
        solveSystems<2>(systems);
    } else {
        solveSystems<3>(systems);
    }
}

} // namespace

SmallKriging::SmallKriging(KrigingModel const& model, std::size_t axes)
    : m_systems(std::make_unique<Systems>(model, axes))
{
}

SmallKriging::~SmallKriging() = default;

void SmallKriging::setPointCount(std::size_t count)
{
    m_systems->count = count;
    m_systems->places.resize(count * m_systems->axes);
    m_systems->factor.resize(count * count);
    m_systems->pivots.resize(count);
    m_systems->basis.resize(m_systems->terms * count);
    m_systems->solution.resize(count);
}

void SmallKriging::setPoints(std::size_t lane, double const* places)
{
    for (std::size_t at = 0; at < m_systems->count * m_systems->axes; ++at) {
        m_systems->places[at][lane] = places[at];
    }
}

unsigned SmallKriging::factorize()
{
    kernel::factorize(*m_systems);
    unsigned singular = 0;
    for (std::size_t lane = 0; lane < lanes; ++lane) {
        bool const isRegular = m_systems->smallestPivot[lane] > leastPivot && m_systems->smallestRest[lane] > leastRest;
        singular |= isRegular ? 0U : 1U << lane;
    }
    return singular;
}

void SmallKriging::setTarget(std::size_t lane, double const* place)
{
    for (std::size_t axis = 0; axis < m_systems->axes; ++axis) {
        m_systems->target[axis][lane] = place[axis];
    }
}

void SmallKriging::solve()
{
    solveAll(*m_systems);
}

void SmallKriging::readWeights(std::size_t lane, double* weights) const
{
    for (std::size_t point = 0; point < m_systems->count; ++point) {
        weights[point] = m_systems->solution[point][lane];
    }
}

} // namespace veldraw::kernel
