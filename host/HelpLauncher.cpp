#include "platform/vdsdkuicommon/HelpLauncher.h"

namespace veldraw::sdk::ui::common {

namespace {

// Never destroyed: a dialog of static lifetime may still ask.
HelpLauncher::Opener& installedOpener()
{
    static auto* const opener = new HelpLauncher::Opener;
    return *opener;
}

} // namespace

void HelpLauncher::open(std::string const& topicFileName)
{
    if (Opener const opener = installedOpener()) // a copy: an opener may install another one
        opener(topicFileName);
}

void HelpLauncher::install(Opener const& opener)
{
    installedOpener() = opener;
}

} // namespace veldraw::sdk::ui::common
