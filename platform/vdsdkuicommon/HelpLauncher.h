#pragma once

#include "platform/PlatformApi.h"

#include <boost/function.hpp>

#include <string>

namespace veldraw::sdk::ui::common {

/// Opens help topics, in the way that the application has installed.
class VELDRAW_PLATFORM_API HelpLauncher
{
public:
    typedef boost::function<void(std::string const& topicFileName)> Opener;

    /// Shows a topic, for instance "smooth.html". Does nothing while no opener is installed.
    static void open(std::string const& topicFileName);

    /// Installs what shows topics; an empty function takes it away.
    static void install(Opener const& opener);

    HelpLauncher() = delete;
};

} // namespace veldraw::sdk::ui::common
