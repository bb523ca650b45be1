#include "tools/samples/FlowSample.h"
#include "tools/samples/IslandSample.h"
#include "tools/samples/LargeGrid.h"
#include "tools/samples/MeshSamples.h"
#include "tools/samples/RainfallSample.h"
#include "tools/samples/SparseSamples.h"
#include "tools/samples/TableSamples.h"
#include "tools/samples/TransientSample.h"

#include <cstdio>
#include <exception>
#include <filesystem>
#include <string>
#include <vector>

namespace {

void writeAll(std::filesystem::path const& folder)
{
    using namespace veldraw::samples;
    std::filesystem::create_directories(folder);
    writeFlow((folder / "flow.vtm").string());
    writeTetrahedra((folder / "tetra.vtu").string());
    writeTriangles((folder / "triangles.vtu").string());
    writeTransient((folder / "transient.vtm").string());
    writeRainfall((folder / "rainfall.vtm").string());
    writeIsland((folder / "island.vtm").string());
    writeTimeSeries((folder / "timeseries.csv").string());
    writeScatter((folder / "scatter.csv").string());
}

} // namespace

// usage: veldraw_make_samples OUTDIR [--large FILE | --sparse FILE]     FILE of --large ends in .vts, that of --sparse in .mhd
int main(int argc, char** argv)
{
    std::vector<std::string> const words(argv + 1, argv + argc);
    bool const large = words.size() == 3 && words[1] == "--large";
    bool const sparse = words.size() == 3 && words[1] == "--sparse";
    if (words.empty() || words[0].empty() || words[0][0] == '-' || (words.size() > 1 && !large && !sparse)) {
        std::fprintf(stderr, "usage: veldraw_make_samples OUTDIR [--large FILE | --sparse FILE]\n");
        return 2;
    }
    try {
        writeAll(words[0]);
        if (large)
            veldraw::samples::writeLargeGrid(words[2]);
        if (sparse)
            veldraw::samples::writeSparseImage(words[2]);
    } catch (std::exception const& error) {
        std::fprintf(stderr, "veldraw_make_samples: %s\n", error.what());
        return 1;
    }
    return 0;
}
