#pragma once

#include "kernel/data/DataSet.h"
#include "kernel/session/Session.h"

#include <functional>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

/// Data sets of every kind, made by formulas, and sessions that show them.
class SampleData
{
public:
    using Formula = std::function<double(double x, double y, double z)>;
    using DataSetPtr = std::shared_ptr<kernel::DataSet>;

    /// A bent block of I x J x K points with X, Y, Z and p (0 to 100, growing with X and Z); a bent sheet when K is 1.
    static DataSetPtr block(int i, int j, int k);

    /// A sheet in the plane: X from 0 to 2, Y from 0 to 1, p running from -5 (left) to 15 (right).
    static DataSetPtr sheet(int i, int j);

    /// The sheet with p in the cells, 1 to the number of columns; the slots that stand for no cell hold 1e9.
    static DataSetPtr cellSheet(int i, int j);

    /// A disc of triangles with X, Y, p.
    static DataSetPtr triangles(int rings);

    /// Bricks that fill a cube, n in each direction, with X, Y, Z, p.
    static DataSetPtr bricks(int n);

    /// One polyhedron: a prism of six points, two triangles and three quads.
    static DataSetPtr prism();

    /// A tetrahedron and, apart from it, a triangle.
    static DataSetPtr mixed();

    /// Points strewn over the plane in no order, with X, Y, p.
    static DataSetPtr points(int count);

    /// A spiral of line segments with X, Y, p.
    static DataSetPtr segments(int count);

    /// An I-ordered zone with t, sine and cosine, each over two periods.
    static DataSetPtr waves(int count);

    /// A frame of the given type: axes are the first two or three variables, the contour variable the last.
    static std::shared_ptr<kernel::Frame> frame(std::string const& name, DataSetPtr const& dataSet,
                                                PlotType_e plotType);

    /// The two curves of waves() in one frame.
    static std::shared_ptr<kernel::Frame> waveFrame(DataSetPtr const& dataSet);

    static void addField(kernel::Zone& zone, std::vector<double> const& values,
                         ValueLocation_e location = ValueLocation_Nodal, int number = 0);
};

} // namespace veldraw::tests
