#include "app/plot/ColourMap.h"

#include "app/plot/PlotTheme.h"

#include <vtkColorTransferFunction.h>
#include <vtkNew.h>

#include <array>

namespace veldraw::app {

vtkSmartPointer<vtkLookupTable> ColourMap::create(double min, double max)
{
    // Control colours, evenly spaced in value, in between interpolated in Lab, where distance is what the eye sees.
    static constexpr std::array<std::array<double, 3>, 7> controls = {{{0.230, 0.040, 0.340},
                                                                       {0.255, 0.205, 0.520},
                                                                       {0.185, 0.375, 0.555},
                                                                       {0.115, 0.530, 0.550},
                                                                       {0.190, 0.680, 0.460},
                                                                       {0.560, 0.810, 0.270},
                                                                       {0.985, 0.905, 0.150}}};
    vtkNew<vtkColorTransferFunction> colours;
    colours->SetColorSpaceToLab();
    for (std::size_t n = 0; n < controls.size(); ++n)
        colours->AddRGBPoint(static_cast<double>(n) / (controls.size() - 1), controls[n][0], controls[n][1],
                             controls[n][2]);

    constexpr int count = 256;
    auto table = vtkSmartPointer<vtkLookupTable>::New();
    table->SetNumberOfTableValues(count);
    for (int n = 0; n < count; ++n) {
        double rgb[3];
        colours->GetColor(n / (count - 1.0), rgb);
        table->SetTableValue(n, rgb[0], rgb[1], rgb[2], 1.0);
    }
    QColor const none = PlotTheme::noValue();
    table->SetNanColor(none.redF(), none.greenF(), none.blueF(), 1.0);
    table->SetTableRange(min, max);
    return table;
}

} // namespace veldraw::app
