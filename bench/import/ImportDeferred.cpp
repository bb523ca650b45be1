// Time and bytes read for opening files of 2 GB whose variables are left to be loaded later (raw appended .vti, .vts and .vtu, ten
// float variables), and for opening an image of three thousand million values. The files are sparse.
// Exit status 1 when one takes a second or more, reads a fortieth of its values or more, or needs as much memory.

#include "app/import/Importer.h"
#include "tools/samples/SparseSamples.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

namespace {

constexpr double mostSeconds = 1.0;
constexpr double mostShare = 0.025; // the types of a mesh's cells are read

// A line such as "rchar: 1234" of a file about this process.
double entry(char const* file, std::string const& name)
{
    std::ifstream status(file);
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, name.size() + 1, name + ":") == 0)
            return std::stod(line.substr(name.size() + 1));
    }
    return 0.0;
}

bool measure(char const* what, std::string const& path, double valueBytes, veldraw::app::Deferral deferral)
{
    double const bytesBefore = entry("/proc/self/io", "rchar");
    double const memoryBefore = entry("/proc/self/status", "VmRSS");
    auto const start = std::chrono::steady_clock::now();
    auto const result = veldraw::app::importFile(QString::fromStdString(path), deferral);
    std::chrono::duration<double> const seconds = std::chrono::steady_clock::now() - start;
    double const read = entry("/proc/self/io", "rchar") - bytesBefore;
    double const memory = 1024.0 * (entry("/proc/self/status", "VmHWM") - memoryBefore);
    std::printf("%-34s %8.1f GB of values, %7.1f ms, %7.3f MB read, %7.2f MB of memory\n", what, valueBytes / 1e9,
                seconds.count() * 1e3, read / 1e6, memory / 1e6);
    return seconds.count() < mostSeconds && read < mostShare * valueBytes && memory < mostShare * valueBytes;
}

} // namespace

int main()
{
    auto const folder = std::filesystem::temp_directory_path() / ("veldraw-deferred-" + std::to_string(::getpid()));
    bool good = false;
    try {
        std::filesystem::create_directory(folder);
        std::string const grid = (folder / "grid.vti").string();
        std::string const image = (folder / "image.mhd").string();
        std::string const curved = (folder / "grid.vts").string();
        std::string const mesh = (folder / "mesh.vtu").string();
        veldraw::samples::writeSparseGrid(grid, 50000000, 10);
        veldraw::samples::writeSparseGrid(curved, 40000000, 10);
        veldraw::samples::writeSparseMesh(mesh, 6000000, 40000000, 10);
        veldraw::samples::writeSparseImage(image, 3000000000);
        good = measure("grid, variables deferred", grid, 2e9, veldraw::app::Deferral::Always);
        good = measure("structured grid, points as well", curved, 2.08e9, veldraw::app::Deferral::Always) && good;
        good = measure("image, mapped", image, 12e9, veldraw::app::Deferral::Auto) && good;
        good = measure("mesh, cells as well", mesh, 1.95e9, veldraw::app::Deferral::Always) && good;
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    std::filesystem::remove_all(folder);
    return good ? 0 : 1;
}
