#include "app/recovery/RecoveryKeeper.h"
#include "tests/app/recovery/ScriptedWork.h"

#include <chrono>
#include <cstdint>
#include <ctime>
#include <thread>
#include <unistd.h>

// usage: veldraw_recovery_driver RECOVERY_FOLDER FILE SECOND_FILE SAVE_FOLDER
//
// Works through longWork() with pauses, keeping what can be recovered in the first folder, and writes the time to standard output when a step is done:
// nanoseconds of the steady clock, as a number of 64 bits. Waits at the end, for whoever is to kill it.
int main(int argc, char** argv)
{
    using namespace veldraw;
    if (argc != 5)
        return 2;
    app::RecoveryKeeper const keeper(kernel::Session::instance(), argv[1]);
    tests::ScriptedWork work;
    for (std::string const& line : tests::longWork(argv[2], argv[3], argv[4])) {
        work.run(line);
        std::int64_t const now = std::chrono::steady_clock::now().time_since_epoch().count();
        if (::write(STDOUT_FILENO, &now, sizeof now) != static_cast<ssize_t>(sizeof now))
            return 1;
        std::this_thread::sleep_for(std::chrono::milliseconds(4));
    }
    ::pause();
    return 0;
}
