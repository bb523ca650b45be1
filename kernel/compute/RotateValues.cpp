#include "kernel/compute/RotateValues.h"

#include "kernel/compute/ValueBlock.h"

#include <algorithm>
#include <cmath>

namespace veldraw::kernel {

namespace {

/// The rotation of the @p Size components that take part, with everything at hand in one place.
template <std::size_t Size>
struct Turn
{
    Buffer const* sources[Size];
    Buffer* targets[Size];
    double matrix[Size][Size];
    double origin[Size];
};

template <std::size_t Size>
Turn<Size> turnOf(Rotation const& rotation, ComponentBuffers const& buffers, std::array<std::size_t, 3> const& parts)
{
    Turn<Size> turn{};
    for (std::size_t row = 0; row < Size; ++row) {
        turn.sources[row] = buffers.sources[parts[row]].get();
        turn.targets[row] = buffers.targets[parts[row]].get();
        turn.origin[row] = rotation.origin()[parts[row]];
        for (std::size_t column = 0; column < Size; ++column) {
            turn.matrix[row][column] = rotation.entry(parts[row], parts[column]);
        }
    }
    return turn;
}

template <std::size_t Size>
struct Block
{
    alignas(64) double values[Size][blockSize];
};

void multiply(Turn<2> const& turn, Block<2> const& before, Block<2>& after, std::int64_t count)
{
    auto const [u, v] = turn.origin;
    auto const [a, b] = turn.matrix[0];
    auto const [c, d] = turn.matrix[1];
    for (std::int64_t at = 0; at < count; ++at) {
        double const x = before.values[0][at] - u;
        double const y = before.values[1][at] - v;
        after.values[0][at] = u + (a * x + b * y);
        after.values[1][at] = v + (c * x + d * y);
    }
}

void multiply(Turn<3> const& turn, Block<3> const& before, Block<3>& after, std::int64_t count)
{
    auto const [u, v, w] = turn.origin;
    auto const [a, b, c] = turn.matrix[0];
    auto const [d, e, f] = turn.matrix[1];
    auto const [g, h, i] = turn.matrix[2];
    for (std::int64_t at = 0; at < count; ++at) {
        double const x = before.values[0][at] - u;
        double const y = before.values[1][at] - v;
        double const z = before.values[2][at] - w;
        after.values[0][at] = u + (a * x + b * y + c * z);
        after.values[1][at] = v + (d * x + e * y + f * z);
        after.values[2][at] = w + (g * x + h * y + i * z);
    }
}

/// Whether all values are finite; several sums side by side do not wait for one another.
bool areFinite(double const* values, std::int64_t count)
{
    constexpr std::int64_t lanes = 8;
    double sums[lanes] = {};
    std::int64_t at = 0;
    for (; at + lanes <= count; at += lanes) {
        for (std::int64_t lane = 0; lane < lanes; ++lane) {
            sums[lane] += values[at + lane] * 0.0; // not a number, and so from then on, unless the value is finite
        }
    }
    for (; at < count; ++at) {
        sums[0] += values[at] * 0.0;
    }
    return std::all_of(sums, sums + lanes, [](double sum) { return sum == 0.0; });
}

template <std::size_t Size>
void keepWhatIsNotFinite(Block<Size> const& before, Block<Size>& after, std::int64_t count)
{
    for (std::int64_t at = 0; at < count; ++at) {
        bool isFinite = true;
        for (std::size_t part = 0; part < Size; ++part) {
            isFinite = isFinite && std::isfinite(before.values[part][at]);
        }
        for (std::size_t part = 0; part < Size && !isFinite; ++part) {
            after.values[part][at] = before.values[part][at];
        }
    }
}

template <std::size_t Size>
void turnBlock(Turn<Size> const& turn, std::int64_t first, std::int64_t count)
{
    Block<Size> before;
    Block<Size> after;
    for (std::size_t part = 0; part < Size; ++part) {
        if (turn.sources[part] == nullptr) {
            std::fill_n(before.values[part], count, 0.0);
        } else {
            readBlock(*turn.sources[part], first, count, before.values[part]);
        }
    }
    multiply(turn, before, after, count);
    // A component that is not finite spoils every result, also by a factor of 0, so looking at one is enough.
    if (!areFinite(after.values[0], count)) {
        keepWhatIsNotFinite(before, after, count);
    }
    for (std::size_t part = 0; part < Size; ++part) {
        if (turn.targets[part] != nullptr) {
            writeBlock(after.values[part], first, count, *turn.targets[part]);
        }
    }
}

} // namespace

void rotateValues(Rotation const& rotation, ComponentBuffers const& buffers, Progress& progress)
{
    std::array<std::size_t, 3> parts{};
    std::size_t size = 0;
    for (std::size_t component = 0; component < 3; ++component) {
        if (rotation.involves(component)) {
            parts[size++] = component;
        }
    }
    if (size == 2) {
        Turn<2> const turn = turnOf<2>(rotation, buffers, parts);
        forEachBlock(buffers.count, progress,
                     [&turn](std::int64_t first, std::int64_t count) { turnBlock(turn, first, count); });
    } else if (size == 3) {
        Turn<3> const turn = turnOf<3>(rotation, buffers, parts);
        forEachBlock(buffers.count, progress,
                     [&turn](std::int64_t first, std::int64_t count) { turnBlock(turn, first, count); });
    }
}

} // namespace veldraw::kernel
