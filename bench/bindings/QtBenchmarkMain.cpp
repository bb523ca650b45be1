#include <QApplication>

#include <benchmark/benchmark.h>

// For benchmarks with widgets. Run with QT_QPA_PLATFORM=offscreen.
int main(int argc, char** argv)
{
    QApplication const application(argc, argv);
    benchmark::Initialize(&argc, argv);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
    return 0;
}
