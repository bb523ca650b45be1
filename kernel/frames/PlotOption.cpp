#include "kernel/frames/PlotOption.h"

#include "kernel/frames/Frame.h"

#include <algorithm>
#include <stdexcept>

namespace veldraw::kernel {

std::vector<PlotOption> const& plotOptions()
{
    using Plots = PlotOption::Plots;
    static std::vector<PlotOption> const options{
        {"FieldLayers", "ShowMesh", &Frame::showMesh, false, Plots::Fields, "Mesh", "&Mesh", "", "Mesh"},
        {"FieldLayers", "ShowContour", &Frame::showContour, true, Plots::Fields, "Contour", "&Contour", "", "Contour"},
        {"FieldContour", "Bands", &Frame::contourInBands, false, Plots::Fields, "Contour Bands", "Contour in &Bands",
         "Give all values between two round steps one colour", ""},
        {"FieldContour", "WithoutEnds", &Frame::contourWithoutEnds, false, Plots::Fields, "Contour Range",
         "Contour without O&utermost Values",
         "Spread the colours over the values but the lowest and highest hundredth, so that a few extreme ones do not "
         "spoil the plot",
         ""},
        {"FieldContour", "Log", &Frame::contourLog, false, Plots::Fields, "Logarithmic Contour", "Logarithmic Co&ntour",
         "Give powers of ten equal shares of the colours; values of 0 and below have none", ""},
        {"FieldContour", "Lines", &Frame::contourLines, false, Plots::Fields, "Contour Lines", "Con&tour Lines",
         "Draw a line wherever the contour variable has one of some round values", ""},
        {"FieldContour", "Labels", &Frame::contourLabels, true, Plots::Fields, "Contour Labels",
         "S&how Numbers at Contour Lines", "Tell the value of each contour line beside it", ""},
        {"FieldLayers", "ShowVector", &Frame::showVectors, false, Plots::Fields, "Vectors", "Vector Arro&ws",
         "Show the vector whose components are chosen in Assign Vector by arrows", ""},
        {"FieldVector", "EqualLengths", &Frame::equalVectors, false, Plots::Fields, "Vector Lengths",
         "Vector Arrows of E&qual Length", "Make all arrows as long as the longest one", ""},
        {"FieldLayers", "ShowCuts", &Frame::showCuts, true, Plots::Fields, "Show Slices", "Sl&ices",
         "Show the slices and iso-surfaces of a field plot, and volumes by them alone", ""},
        {"FieldAxes", "Stretch", &Frame::stretchAxes, false, Plots::Fields, "Stretch Axes", "Str&etch Axes",
         "Give each axis a scale of its own, so that the plot fills the frame", ""},
        {"FieldAxes", "Parallel", &Frame::parallelProjection, false, Plots::Fields, "Projection",
         "Parallel Pro&jection", "Draw a plot in space without perspective: what is farther away is not smaller", ""},
        {"LinePlotLayers", "ShowLines", &Frame::showLines, true, Plots::Lines, "Line Layers", "", "", ""},
        {"LinePlotLayers", "ShowSymbols", &Frame::showSymbols, false, Plots::Lines, "Line Layers", "", "", ""},
        {"LinePlotAxes", "LogX", &Frame::logX, false, Plots::Lines, "Logarithmic Axis", "L&ogarithmic X Axis",
         "Show powers of ten at equal distances along the horizontal axis of a line plot", ""},
        {"LinePlotAxes", "LogY", &Frame::logY, false, Plots::Lines, "Logarithmic Axis", "Lo&garithmic Y Axis",
         "Show powers of ten at equal distances along the vertical axis of a line plot", ""},
        {"LinePlotAxes", "LogY2", &Frame::logY2, false, Plots::Lines, "Logarithmic Axis", "Logarithmic Second &Y Axis",
         "Show powers of ten at equal distances along the vertical axis at the right side of a line plot", ""},
    };
    return options;
}

PlotOption const& plotOption(bool Frame::*member)
{
    auto const& options = plotOptions();
    auto const found = std::find_if(options.begin(), options.end(),
                                    [member](PlotOption const& option) { return option.member == member; });
    if (found == options.end()) {
        throw std::out_of_range("There is no such plot option.");
    }
    return *found;
}

} // namespace veldraw::kernel
