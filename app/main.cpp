#include "app/commandline/Program.h"

int main(int argc, char** argv)
{
    return veldraw::app::runProgram(argc, argv);
}
