// Memory and time of opening a structured grid of ten million points and six float variables (raw appended .vts).
// Exit status 1 when the peak above the empty program is more than 1.3 times the size of the arrays.
//
// usage: import_benchmark [FILE]      FILE is written when it does not exist; without it a temporary one is used

#include "app/import/Importer.h"
#include "tools/samples/LargeGrid.h"

#include <chrono>
#include <cstdio>
#include <exception>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <string>
#include <sys/wait.h>
#include <unistd.h>

namespace {

constexpr double mostExpansion = 1.3;

// A line such as "VmHWM:   1234 kB" of the process's status, in bytes.
double statusBytes(std::string const& name)
{
    std::ifstream status("/proc/self/status");
    std::string line;
    while (std::getline(status, line)) {
        if (line.compare(0, name.size() + 1, name + ":") == 0)
            return 1024.0 * std::stod(line.substr(name.size() + 1));
    }
    return 0.0;
}

double arrayBytes(veldraw::kernel::DataSet const& dataSet)
{
    double sum = 0.0;
    for (auto const& zone : dataSet.zones()) {
        for (veldraw::kernel::Field const& field : zone->fields)
            sum += field.isPassive()
                       ? 0.0
                       : static_cast<double>(veldraw::kernel::Buffer::bytesOf(field.type(), field.group()->size()));
    }
    return sum;
}

bool measure(std::string const& path)
{
    double const before = statusBytes("VmRSS");
    auto const start = std::chrono::steady_clock::now();
    auto const result = veldraw::app::importFile(QString::fromStdString(path));
    std::chrono::duration<double> const seconds = std::chrono::steady_clock::now() - start;
    double const peak = statusBytes("VmHWM") - before;
    double const arrays = arrayBytes(*result.dataSet);
    std::printf("arrays               %8.1f MB\n", arrays / 1e6);
    std::printf("peak above the start %8.1f MB = %.3f times the arrays (limit %.1f)\n", peak / 1e6, peak / arrays,
                mostExpansion);
    std::printf("time                 %8.2f s\n", seconds.count());
    return arrays > 0.0 && peak <= mostExpansion * arrays;
}

// In a process of its own: what the writer allocates must not count.
void writeInChild(std::string const& path)
{
    pid_t const child = ::fork();
    if (child == 0) {
        try {
            veldraw::samples::writeLargeGrid(path);
            ::_exit(0);
        } catch (std::exception const& error) {
            std::fprintf(stderr, "%s\n", error.what());
            ::_exit(1);
        }
    }
    int status = 0;
    if (child < 0 || ::waitpid(child, &status, 0) != child || status != 0)
        throw std::runtime_error("the file to be measured could not be written");
}

} // namespace

int main(int argc, char** argv)
{
    bool const temporary = argc < 2;
    std::filesystem::path const scratch =
        std::filesystem::temp_directory_path() / ("veldraw-large-" + std::to_string(::getpid()) + ".vts");
    std::string const path = temporary ? scratch.string() : argv[1];
    bool good = false;
    try {
        if (!std::filesystem::exists(path))
            writeInChild(path);
        good = measure(path);
    } catch (std::exception const& error) {
        std::fprintf(stderr, "%s\n", error.what());
    }
    if (temporary)
        std::filesystem::remove(path);
    return good ? 0 : 1;
}
