#include "tests/tour/DrivenProgram.h"
#include "tests/tour/Tour.h"

#include <QTextStream>
#include <QTimer>

#include <cstdio>
#include <cstdlib>
#include <utility>

namespace {

constexpr int stillFor = 5; // minutes without a step

} // namespace

// The tour of ./run: exit status 0 when every step was as expected.
int main(int argc, char** argv)
{
    using namespace veldraw::tests;

    DrivenProgram program(argc, argv,
                          QStringLiteral("Uses the program by clicks and keys and checks what comes of it."),
                          QSize(1500, 1000));
    Tour tour(program.window(), program.samples(), program.out(), program.deferral());
    // Whatever goes wrong, nobody has to wait for ever; but a busy machine may take its time.
    int stepsBefore = -1;
    QTimer look;
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        if (std::exchange(stepsBefore, tour.report().stepCount()) != tour.report().stepCount())
            return;
        QTextStream(stdout) << tour.report().toText();
        std::fprintf(stderr, "veldraw_tour: stood still for %d minutes after step %d\n", stillFor, stepsBefore);
        std::_Exit(1);
    });
    look.start(stillFor * 60000);
    TourReport const& report = tour.run();
    QTextStream(stdout) << report.toText();
    return report.allAsExpected() ? 0 : 1;
}
