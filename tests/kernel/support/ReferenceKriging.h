#pragma once

#include <array>
#include <cmath>
#include <cstddef>
#include <utility>
#include <vector>

namespace veldraw::tests {

/// Universal kriging as the textbooks have it: one system of the points and the drift, solved in extended precision by
/// elimination with pivots.
class ReferenceKriging
{
public:
    using Place = std::array<double, 3>;

    /// @param terms of the drift: 1; 1 and the coordinates; these and their products
    ReferenceKriging(std::vector<Place> points, std::size_t axes, int degree, double range, double nugget)
        : m_points(std::move(points))
        , m_axes(axes)
        , m_degree(degree)
        , m_range(range)
        , m_nugget(nugget)
    {
    }

    std::vector<double> weights(Place const& target) const
    {
        std::size_t const count = m_points.size();
        std::size_t const terms = drift(target).size();
        std::size_t const size = count + terms;
        Matrix matrix(size, std::vector<long double>(size + 1, 0.0L));
        for (std::size_t row = 0; row < count; ++row) {
            for (std::size_t column = 0; column < count; ++column) {
                matrix[row][column] = row == column ? 1.0L : covariance(m_points[row], m_points[column]);
            }
            std::vector<long double> const atPoint = drift(m_points[row]);
            for (std::size_t term = 0; term < terms; ++term) {
                matrix[row][count + term] = atPoint[term];
                matrix[count + term][row] = atPoint[term];
            }
            matrix[row][size] = covariance(m_points[row], target);
        }
        std::vector<long double> const atTarget = drift(target);
        for (std::size_t term = 0; term < terms; ++term) {
            matrix[count + term][size] = atTarget[term];
        }
        std::vector<double> const solution = solved(std::move(matrix));
        return {solution.begin(), solution.begin() + static_cast<std::ptrdiff_t>(count)};
    }

private:
    using Matrix = std::vector<std::vector<long double>>;

    long double covariance(Place const& a, Place const& b) const
    {
        long double square = 0.0L;
        for (std::size_t axis = 0; axis < m_axes; ++axis) {
            long double const difference = static_cast<long double>(a[axis]) - b[axis];
            square += difference * difference;
        }
        long double const share = std::sqrt(square) / m_range;
        return share < 1.0L ? (1.0L - m_nugget) * (1.0L - 1.5L * share + 0.5L * share * share * share) : 0.0L;
    }

    std::vector<long double> drift(Place const& place) const
    {
        std::vector<long double> terms{1.0L};
        for (std::size_t a = 0; a < m_axes && m_degree > 0; ++a) {
            terms.push_back(place[a]);
            for (std::size_t b = a; b < m_axes && m_degree > 1; ++b) {
                terms.push_back(static_cast<long double>(place[a]) * place[b]);
            }
        }
        return terms;
    }

    static std::vector<double> solved(Matrix matrix)
    {
        std::size_t const size = matrix.size();
        for (std::size_t step = 0; step < size; ++step) {
            std::size_t pivot = step;
            for (std::size_t row = step; row < size; ++row) {
                pivot = std::abs(matrix[row][step]) > std::abs(matrix[pivot][step]) ? row : pivot;
            }
            std::swap(matrix[step], matrix[pivot]);
            long double const* const source = matrix[step].data();
            for (std::size_t row = step + 1; row < size; ++row) {
                long double* const target = matrix[row].data();
                long double const factor = target[step] / source[step];
                for (std::size_t column = step; column <= size; ++column) {
                    target[column] -= factor * source[column];
                }
            }
        }
        std::vector<long double> solution(size);
        for (std::size_t row = size; row-- > 0;) {
            long double rest = matrix[row][size];
            for (std::size_t column = row + 1; column < size; ++column) {
                rest -= matrix[row][column] * solution[column];
            }
            solution[row] = rest / matrix[row][row];
        }
        return {solution.begin(), solution.end()};
    }

    std::vector<Place> m_points;
    std::size_t m_axes;
    int m_degree;
    long double m_range;
    long double m_nugget;
};

} // namespace veldraw::tests
