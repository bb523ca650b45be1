#pragma once

#include <string>
#include <vector>

namespace veldraw::kernel {

struct Frame;

/// Something that the plot of a frame shows or not. Session, style tree and menus take the options from plotOptions();
/// otherwise an option is only a member of Frame and code in the view that draws it.
struct PlotOption
{
    enum class Plots
    {
        Fields, ///< 2D and 3D Cartesian
        Lines
    };

    char const* group; ///< top-level name of the path in the style tree
    char const* value; ///< name below it
    bool Frame::*member;
    bool isOnAtFirst;
    Plots plots;
    char const* step;    ///< name of the step in the history
    char const* text;    ///< of the menu, with its "&"; empty for an option that is in no menu
    char const* toolTip; ///< empty for the text
    char const* icon;    ///< name of an icon of the application, empty for none

    /// Its path in the style tree. @throws std::bad_alloc
    std::vector<std::string> path() const { return {group, value}; }
};

/// All options, in the order of the menu.
std::vector<PlotOption> const& plotOptions();

/// The option that is kept in a member. @throws std::out_of_range for a member that is none
PlotOption const& plotOption(bool Frame::*member);

} // namespace veldraw::kernel
