#include "kernel/compute/GridTile.h"

#include "kernel/compute/SmoothRow.h"

#include <algorithm>

namespace veldraw::kernel {

template <typename Number>
GridTile<Number>::GridTile(GridAxes const& axes, double weight, bool hasHoles, std::int64_t passes,
                           GridPlace<Number> const& from, GridPlace<Number> const& to, GridSpans const& spans,
                           Number* room)
    : m_axes(axes)
    , m_weight(weight)
    , m_hasHoles(hasHoles)
    , m_passes(passes)
    , m_from(from)
    , m_to(to)
    , m_spans(spans)
    , m_room(room)
{
    for (std::int64_t around = m_passes; around >= 0; --around) {
        GridSpans computed;
        for (std::size_t axis = 0; axis < 3; ++axis) {
            computed[axis] = {std::max<std::int64_t>(m_spans[axis].first - around, 0),
                              std::min(m_spans[axis].last + around, m_axes.axes[axis].count)};
        }
        m_computed.push_back(computed);
    }
}

/// The part of that which is not held.
template <typename Number>
IndexSpan GridTile<Number>::movedSpan(std::size_t axis, std::int64_t pass) const
{
    IndexSpan const all = span(axis, pass);
    IndexSpan const moving = m_axes.axes[axis].moving();
    return {std::max(all.first, moving.first), std::min(all.last, moving.last)};
}

template <typename Number>
std::int64_t GridTile<Number>::slot(std::int64_t i, std::int64_t j, std::int64_t k) const
{
    return i * m_axes.axes[0].stride + j * m_axes.axes[1].stride + k * m_axes.axes[2].stride;
}

template <typename Number>
typename GridTile<Number>::Plane GridTile<Number>::plane(std::int64_t pass, std::int64_t k) const
{
    Number* const array = pass == 0 ? m_from.array : pass == m_passes ? m_to.array : nullptr;
    if (array != nullptr) {
        return {array + slot(0, 0, k), m_axes.axes[1].stride, 0, 0};
    }
    IndexSpan const& i = span(0, 0);
    IndexSpan const& j = span(1, 0);
    std::int64_t const size = i.count() * j.count();
    return {m_room + (3 * pass + k % 3) * size, i.count(), i.first, j.first};
}

template <typename Number>
double GridTile<Number>::run(Progress& progress)
{
    IndexSpan const read = span(2, 0);
    IndexSpan const& made = m_spans[2];
    constexpr std::int64_t delay = 2; // a plane at the end changes until the second one after it is there
    for (std::int64_t step = read.first; step < made.last + m_passes + delay; ++step) {
        progress.check();
        if (read.contains(step) && m_from.array == nullptr) {
            readPlane(step);
        }
        for (std::int64_t pass = 1; pass <= m_passes; ++pass) {
            if (span(2, pass).contains(step - pass)) {
                makePlane(pass, step - pass);
            }
        }
        std::int64_t const finished = step - m_passes - delay;
        if (made.contains(finished)) {
            if (m_to.array == nullptr) {
                storePlane(finished);
            }
            progress.advance(m_passes);
        }
    }
    return m_largestChange;
}

template <typename Number>
void GridTile<Number>::readPlane(std::int64_t k) const
{
    IndexSpan const i = span(0, 0);
    IndexSpan const j = span(1, 0);
    Plane const values = plane(0, k);
    for (std::int64_t row = j.first; row < j.last; ++row) {
        m_from.values->read(slot(i.first, row, k), i.count(), values.at(i.first, row));
    }
}

template <typename Number>
void GridTile<Number>::storePlane(std::int64_t k) const
{
    IndexSpan const i = m_spans[0];
    Plane const values = plane(m_passes, k);
    for (std::int64_t row = m_spans[1].first; row < m_spans[1].last; ++row) {
        m_to.values->store(slot(i.first, row, k), i.count(), values.at(i.first, row));
    }
}

template <typename Number>
void GridTile<Number>::makePlane(std::int64_t pass, std::int64_t k)
{
    GridAxis const& axis = m_axes.axes[2];
    bool const followsTwo = m_axes.condition == BoundaryCondition_SecondOrder;
    if (axis.isEnd(k)) {
        keepPlane(pass, k); // the first one moves later, when the planes are there that it follows
        if (axis.movesEnds && k > 0) {
            movePlane(pass, k, -1);
        }
        return;
    }
    smoothPlane(pass, k);
    bool const startsHere = span(2, pass).first == 0;
    bool const isMeasured = m_measures && pass == m_passes;
    if (axis.movesEnds && startsHere && k == 1 && isMeasured) {
        keepPlane(pass, 0); // only now is it what the pass before has left there
    }
    if (axis.movesEnds && startsHere && k == (followsTwo ? 2 : 1)) {
        movePlane(pass, 0, 1);
    }
}

template <typename Number>
void GridTile<Number>::keepPlane(std::int64_t pass, std::int64_t k) const
{
    IndexSpan const i = span(0, pass);
    IndexSpan const j = span(1, pass);
    Plane const before = plane(pass - 1, k);
    Plane const after = plane(pass, k);
    for (std::int64_t row = j.first; row < j.last; ++row) {
        std::copy_n(before.at(i.first, row), i.count(), after.at(i.first, row));
    }
}

template <typename Number>
void GridTile<Number>::smoothPlane(std::int64_t pass, std::int64_t k)
{
    IndexSpan const i = span(0, pass);
    IndexSpan const j = span(1, pass);
    Plane const before = plane(pass - 1, k);
    Plane const after = plane(pass, k);
    for (std::int64_t row = j.first; row < j.last; ++row) {
        if (m_axes.axes[1].isEnd(row)) {
            std::copy_n(before.at(i.first, row), i.count(), after.at(i.first, row));
        }
    }
    IndexSpan const inside = m_axes.axes[1].inside();
    IndexSpan const rows{std::max(j.first, inside.first), std::min(j.last, inside.last)};
    bool const isOneRun = i.count() == before.stride && i.count() == after.stride; // without a gap between the rows
    std::int64_t const atATime = isOneRun ? rows.count() : 1;
    for (std::int64_t row = rows.first; row < rows.last; row += atATime) {
        smoothRows(pass, row, atATime, k);
    }
    moveEndsInPlane(pass, k);
}

/// Smooths rows that are at no end of the other axes; the ends of each stay for now. Several ones are computed as one long row,
/// their ends with it, which are then put back.
template <typename Number>
void GridTile<Number>::smoothRows(std::int64_t pass, std::int64_t j, std::int64_t rows, std::int64_t k)
{
    IndexSpan const all = span(0, pass);
    IndexSpan const inside = m_axes.axes[0].inside();
    Plane const before = plane(pass - 1, k);
    Plane const after = plane(pass, k);
    std::int64_t const first = std::max(all.first, inside.first);
    std::int64_t const inner = std::min(all.last, inside.last) - first;
    std::int64_t const count = (rows - 1) * before.stride + inner;
    Number const* const row = before.at(first, j);
    Number* const result = after.at(first, j);
    NeighborRows<Number> neighbors;
    if (m_axes.axes[0].hasEnds()) {
        neighbors.add(row - 1, row + 1);
    }
    if (m_axes.axes[1].hasEnds()) {
        neighbors.add(before.at(first, j - 1), before.at(first, j + 1));
    }
    if (m_axes.axes[2].hasEnds()) {
        neighbors.add(plane(pass - 1, k - 1).at(first, j), plane(pass - 1, k + 1).at(first, j));
    }
    (m_hasHoles ? smoothRowWithHoles<Number> : smoothRow<Number>)(row, neighbors, m_weight, count, result);
    for (std::int64_t changed = j; changed < j + rows; ++changed) {
        for (std::int64_t const end : {all.first, all.last - 1}) {
            if (m_axes.axes[0].isEnd(end)) {
                *after.at(end, changed) = *before.at(end, changed);
            }
        }
    }
    if (m_measures && pass == m_passes) {
        noteChange(pass, largestDifference(row, result, count));
    }
}

/// Moves the ends of the first two axes in a plane that is at no end of the last one.
template <typename Number>
void GridTile<Number>::moveEndsInPlane(std::int64_t pass, std::int64_t k)
{
    Plane const values = plane(pass, k);
    bool const followsTwo = m_axes.condition == BoundaryCondition_SecondOrder;
    auto const move = [&](Number* border, std::int64_t inwards, std::int64_t step, std::int64_t count) {
        Number const* const inner = followsTwo ? border + 2 * inwards : nullptr;
        noteChange(pass, extrapolateRow(border + inwards, inner, step, count, border));
    };
    IndexSpan const rows = span(1, pass);
    IndexSpan const insideRows = m_axes.axes[1].inside();
    for (std::int64_t const end : {std::int64_t{0}, m_axes.axes[0].count - 1}) {
        if (m_axes.axes[0].movesEnds && span(0, pass).contains(end)) {
            std::int64_t const first = std::max(rows.first, insideRows.first);
            std::int64_t const last = std::min(rows.last, insideRows.last);
            move(values.at(end, first), end == 0 ? 1 : -1, values.stride, last - first);
        }
    }
    IndexSpan const i = movedSpan(0, pass);
    for (std::int64_t const end : {std::int64_t{0}, m_axes.axes[1].count - 1}) {
        if (m_axes.axes[1].movesEnds && rows.contains(end)) {
            move(values.at(i.first, end), end == 0 ? values.stride : -values.stride, 1, i.count());
        }
    }
}

/// Moves a plane at an end of the last axis. @param inwards step to the plane that it follows
template <typename Number>
void GridTile<Number>::movePlane(std::int64_t pass, std::int64_t k, std::int64_t inwards)
{
    IndexSpan const i = movedSpan(0, pass);
    IndexSpan const j = movedSpan(1, pass);
    Plane const border = plane(pass, k);
    Plane const next = plane(pass, k + inwards);
    bool const followsTwo = m_axes.condition == BoundaryCondition_SecondOrder;
    for (std::int64_t row = j.first; row < j.last; ++row) {
        Number const* const inner = followsTwo ? plane(pass, k + 2 * inwards).at(i.first, row) : nullptr;
        noteChange(pass, extrapolateRow(next.at(i.first, row), inner, 1, i.count(), border.at(i.first, row)));
    }
}

template <typename Number>
void GridTile<Number>::noteChange(std::int64_t pass, double change)
{
    if (m_measures && pass == m_passes) {
        m_largestChange = std::max(m_largestChange, change);
    }
}

template class GridTile<float>;
template class GridTile<double>;

} // namespace veldraw::kernel
