#include "app/plot/ColourMap.h"

#include "app/plot/PlotTheme.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <vector>

namespace veldraw::app {

namespace {

using Colours = std::vector<std::array<double, 3>>;

// Control colours, evenly spaced in value.
Colours const& controlsOf(kernel::ColourMapKind kind)
{
    // Lightness rises evenly in the first two and the last one; in the middle one it falls to both sides alike, as found by K. Moreland, 2009.
    static std::array<Colours, kernel::colourMapCount> const all = {{
        {{0.267, 0.005, 0.329},
         {0.278, 0.176, 0.482},
         {0.231, 0.322, 0.545},
         {0.173, 0.447, 0.557},
         {0.129, 0.569, 0.549},
         {0.157, 0.682, 0.502},
         {0.369, 0.788, 0.384},
         {0.678, 0.863, 0.188},
         {0.992, 0.906, 0.145}},
        {{0.001, 0.000, 0.014},
         {0.106, 0.047, 0.255},
         {0.290, 0.047, 0.420},
         {0.471, 0.110, 0.427},
         {0.647, 0.173, 0.376},
         {0.812, 0.267, 0.275},
         {0.929, 0.412, 0.145},
         {0.984, 0.608, 0.024},
         {0.969, 0.820, 0.239},
         {0.988, 1.000, 0.643}},
        {{0.230, 0.299, 0.754},
         {0.406, 0.537, 0.934},
         {0.602, 0.731, 0.999},
         {0.788, 0.846, 0.939},
         {0.931, 0.820, 0.761},
         {0.967, 0.657, 0.537},
         {0.887, 0.413, 0.324},
         {0.706, 0.016, 0.150}},
        {{0.0, 0.0, 1.0}, {0.0, 1.0, 1.0}, {0.0, 1.0, 0.0}, {1.0, 1.0, 0.0}, {1.0, 0.0, 0.0}},
        {{0.10, 0.10, 0.10}, {0.95, 0.95, 0.95}},
    }};
    return all[static_cast<std::size_t>(kind)];
}

// A Catmull-Rom spline through the control colours: straight pieces would show as bands where they meet.
double channel(Colours const& controls, double share, std::size_t rgb)
{
    int const last = static_cast<int>(controls.size()) - 1;
    double const position = share * last;
    int const piece = std::min(static_cast<int>(position), last - 1);
    double const t = position - piece;
    auto const at = [&](int n) {
        auto const near = static_cast<std::size_t>(std::clamp(n, 0, last));
        if (n < 0)
            return 2.0 * controls[0][rgb] - controls[1][rgb];
        if (n > last)
            return 2.0 * controls[near][rgb] - controls[near - 1][rgb];
        return controls[near][rgb];
    };
    double const a = at(piece - 1);
    double const b = at(piece);
    double const c = at(piece + 1);
    double const d = at(piece + 2);
    double const value = b + 0.5 * t * (c - a + t * (2.0 * a - 5.0 * b + 4.0 * c - d + t * (3.0 * (b - c) + d - a)));
    return std::clamp(value, 0.0, 1.0);
}

} // namespace

vtkSmartPointer<vtkLookupTable> ColourMap::create(double min, double max, int bands, kernel::ColourMapKind kind)
{
    constexpr int smooth = 256;
    int const count = bands > 0 ? bands : smooth;
    Colours const& controls = controlsOf(kind);
    auto table = vtkSmartPointer<vtkLookupTable>::New();
    table->SetNumberOfTableValues(count);
    for (int n = 0; n < count; ++n) {
        double const share = count > 1 ? n / (count - 1.0) : 0.5;
        table->SetTableValue(n, channel(controls, share, 0), channel(controls, share, 1), channel(controls, share, 2),
                             1.0);
    }
    QColor const none = PlotTheme::noValue();
    table->SetNanColor(none.redF(), none.greenF(), none.blueF(), 1.0);
    table->SetTableRange(min, max);
    return table;
}

} // namespace veldraw::app
