#include "kernel/compute/TurnBlock.h"

// Chosen when the library is loaded. Fused multiplication stays off, so that every processor rounds alike.
#if defined(__x86_64__) && defined(__GNUC__) && !defined(__clang__) && !defined(__SANITIZE_THREAD__)
#define VELDRAW_WIDE_LANES __attribute__((target_clones("avx2", "default")))
#else
#define VELDRAW_WIDE_LANES
#endif

namespace veldraw::kernel {

namespace {

// The loops read all that they need from local variables: the compiler would reload what it reaches by a pointer.
template <typename Element>
[[gnu::always_inline]] inline void turnPlane(TurnBlock<2, Element> const& block)
{
    double const u = block.origin[0], v = block.origin[1];
    double const a = block.matrix[0][0], b = block.matrix[0][1];
    double const c = block.matrix[1][0], d = block.matrix[1][1];
    Element const* const x = block.from[0];
    Element const* const y = block.from[1];
    Element* const __restrict p = block.to[0];
    Element* const __restrict q = block.to[1];
    std::int64_t const count = block.count;
    for (std::int64_t at = 0; at < count; ++at) {
        double const dx = static_cast<double>(x[at]) - u;
        double const dy = static_cast<double>(y[at]) - v;
        p[at] = static_cast<Element>(u + (a * dx + b * dy));
        q[at] = static_cast<Element>(v + (c * dx + d * dy));
    }
}

template <typename Element>
[[gnu::always_inline]] inline void turnSpace(TurnBlock<3, Element> const& block)
{
    double const u = block.origin[0], v = block.origin[1], w = block.origin[2];
    double const a = block.matrix[0][0], b = block.matrix[0][1], c = block.matrix[0][2];
    double const d = block.matrix[1][0], e = block.matrix[1][1], f = block.matrix[1][2];
    double const g = block.matrix[2][0], h = block.matrix[2][1], i = block.matrix[2][2];
    Element const* const x = block.from[0];
    Element const* const y = block.from[1];
    Element const* const z = block.from[2];
    Element* const __restrict p = block.to[0];
    Element* const __restrict q = block.to[1];
    Element* const __restrict r = block.to[2];
    std::int64_t const count = block.count;
    for (std::int64_t at = 0; at < count; ++at) {
        double const dx = static_cast<double>(x[at]) - u;
        double const dy = static_cast<double>(y[at]) - v;
        double const dz = static_cast<double>(z[at]) - w;
        p[at] = static_cast<Element>(u + (a * dx + b * dy + c * dz));
        q[at] = static_cast<Element>(v + (d * dx + e * dy + f * dz));
        r[at] = static_cast<Element>(w + (g * dx + h * dy + i * dz));
    }
}

} // namespace

VELDRAW_WIDE_LANES void turn(TurnBlock<2, float> const& block)
{
    turnPlane(block);
}

VELDRAW_WIDE_LANES void turn(TurnBlock<2, double> const& block)
{
    turnPlane(block);
}

VELDRAW_WIDE_LANES void turn(TurnBlock<3, float> const& block)
{
    turnSpace(block);
}

VELDRAW_WIDE_LANES void turn(TurnBlock<3, double> const& block)
{
    turnSpace(block);
}

} // namespace veldraw::kernel
