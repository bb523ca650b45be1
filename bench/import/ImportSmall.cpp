// Time of opening a small file with a reader that has to be started, as the application does it: each file on a thread of its own.
// Exit status 1 when half of the openings take more than 150 ms.
//
// usage: import_small_benchmark

#include "app/import/Importer.h"

#include <algorithm>
#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <string>
#include <thread>
#include <unistd.h>
#include <vector>

namespace {

constexpr double mostMilliseconds = 150.0;
constexpr int openings = 41;

void writeSmallImage(std::string const& path)
{
    std::ofstream(path) << "<VTKFile type=\"ImageData\" version=\"1.0\" byte_order=\"LittleEndian\">\n"
                           "<ImageData WholeExtent=\"0 2 0 0 0 0\" Origin=\"0 0 0\" Spacing=\"1 1 1\">\n"
                           "<Piece Extent=\"0 2 0 0 0 0\"><PointData>\n"
                           "<DataArray type=\"Float64\" Name=\"p\" format=\"ascii\">1 2 3</DataArray>\n"
                           "</PointData></Piece>\n</ImageData>\n</VTKFile>\n";
}

double millisecondsToOpen(std::string const& path)
{
    auto const start = std::chrono::steady_clock::now();
    std::exception_ptr problem;
    std::thread([&] {
        try {
            veldraw::app::importFile(QString::fromStdString(path));
        } catch (...) {
            problem = std::current_exception();
        }
    }).join();
    if (problem)
        std::rethrow_exception(problem);
    return 1e3 * std::chrono::duration<double>(std::chrono::steady_clock::now() - start).count();
}

bool measure(std::string const& path)
{
    std::vector<double> times;
    for (int n = 0; n < openings; ++n)
        times.push_back(millisecondsToOpen(path));
    std::sort(times.begin(), times.end());
    double const median = times[times.size() / 2];
    std::printf("open a small file: %.0f ms at best, %.0f ms as a rule (limit %.0f), %.0f ms at worst\n", times.front(),
                median, mostMilliseconds, times.back());
    return median <= mostMilliseconds;
}

} // namespace

int main()
{
    std::string const path =
        (std::filesystem::temp_directory_path() / ("veldraw-small-" + std::to_string(::getpid()) + ".vti")).string();
    bool isGood = false;
    try {
        writeSmallImage(path);
        isGood = measure(path);
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    std::filesystem::remove(path);
    return isGood ? 0 : 1;
}
