#include "app/tour/DrivenProgram.h"
#include "app/tour/Tour.h"

#include <QTextStream>
#include <QTimer>

#include <cstdio>
#include <cstdlib>

// The tour of ./run: exit status 0 when every step was as expected.
int main(int argc, char** argv)
{
    using namespace veldraw::app;

    DrivenProgram program(argc, argv,
                          QStringLiteral("Uses the program by clicks and keys and checks what comes of it."),
                          QSize(1500, 1000));
    // Whatever goes wrong, nobody has to wait for ever.
    QTimer::singleShot(180000, [] {
        std::fputs("veldraw_tour: stood still for three minutes\n", stderr);
        std::_Exit(1);
    });
    Tour tour(program.window(), program.samples(), program.out(), program.deferral());
    TourReport const& report = tour.run();
    QTextStream(stdout) << report.toText();
    return report.allAsExpected() ? 0 : 1;
}
