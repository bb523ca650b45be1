#include "tests/tour/DrivenProgram.h"
#include "tools/help-pictures/HelpPictures.h"

#include <cstdio>

// Takes the pictures of the help pages: exit status 0 when all were taken.
int main(int argc, char** argv)
{
    veldraw::tests::DrivenProgram program(
        argc, argv, QStringLiteral("Takes the pictures of the help pages from the real dialogs."), QSize(1100, 700));
    veldraw::app::HelpPictures pictures(program.window(), program.samples(), program.out(), program.deferral());
    QStringList const problems = pictures.take();
    for (QString const& problem : problems)
        std::fprintf(stderr, "veldraw_help_pictures: %s\n", qPrintable(problem));
    return problems.isEmpty() ? 0 : 1;
}
