#include "app/plot/ColourMap.h"

#include "app/plot/PlotTheme.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace veldraw::app {

namespace {

// Control colours, evenly spaced in value and in lightness.
constexpr std::array<std::array<double, 3>, 9> controls = {{{0.267, 0.005, 0.329},
                                                            {0.278, 0.176, 0.482},
                                                            {0.231, 0.322, 0.545},
                                                            {0.173, 0.447, 0.557},
                                                            {0.129, 0.569, 0.549},
                                                            {0.157, 0.682, 0.502},
                                                            {0.369, 0.788, 0.384},
                                                            {0.678, 0.863, 0.188},
                                                            {0.992, 0.906, 0.145}}};

// A Catmull-Rom spline through the control colours: straight pieces would show as bands where they meet.
double channel(double share, std::size_t rgb)
{
    constexpr int last = static_cast<int>(controls.size()) - 1;
    double const position = share * last;
    int const piece = std::min(static_cast<int>(position), last - 1);
    double const t = position - piece;
    auto const at = [rgb](int n) {
        if (n < 0)
            return 2.0 * controls[0][rgb] - controls[1][rgb];
        if (n > last)
            return 2.0 * controls[last][rgb] - controls[last - 1][rgb];
        return controls[static_cast<std::size_t>(n)][rgb];
    };
    double const a = at(piece - 1);
    double const b = at(piece);
    double const c = at(piece + 1);
    double const d = at(piece + 2);
    double const value = b + 0.5 * t * (c - a + t * (2.0 * a - 5.0 * b + 4.0 * c - d + t * (3.0 * (b - c) + d - a)));
    return std::clamp(value, 0.0, 1.0);
}

} // namespace

vtkSmartPointer<vtkLookupTable> ColourMap::create(double min, double max, int bands)
{
    constexpr int smooth = 256;
    int const count = bands > 0 ? bands : smooth;
    auto table = vtkSmartPointer<vtkLookupTable>::New();
    table->SetNumberOfTableValues(count);
    for (int n = 0; n < count; ++n) {
        double const share = count > 1 ? n / (count - 1.0) : 0.5;
        table->SetTableValue(n, channel(share, 0), channel(share, 1), channel(share, 2), 1.0);
    }
    QColor const none = PlotTheme::noValue();
    table->SetNanColor(none.redF(), none.greenF(), none.blueF(), 1.0);
    table->SetTableRange(min, max);
    return table;
}

} // namespace veldraw::app
