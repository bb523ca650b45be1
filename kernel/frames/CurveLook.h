#pragma once

#include <optional>
#include <string>
#include <vector>

namespace veldraw::kernel {

/// How the line of a curve is drawn.
enum class LineStyle
{
    Solid,
    Dashed,
    Dotted,
    DashDot,
    DashDotDot,
    None ///< points alone
};

constexpr int lineStyleCount = 6;

/// What a curve of a line plot looks like.
struct CurveLook
{
    static constexpr int automaticColour = -1;
    static constexpr double leastWidth = 0.5;
    static constexpr double mostWidth = 20.0;

    int colour = automaticColour; ///< by the place among the line maps, or 0xRRGGBB
    LineStyle style = LineStyle::Solid;
    double width = 2.0;          ///< logical pixels, within the limits
    std::optional<bool> symbols; ///< whether there is one at each point; otherwise as the plot has it

    /// Why no curve looks like this, in one sentence; empty when one may.
    std::string refusal() const;

    /// The names of the styles in commands, in their order.
    static std::vector<std::string> const& styleWords();

    /// A colour as commands write it: "automatic", or six digits.
    static std::string colourText(int colour);

    /// The other way round; a # may stand before the digits. Nothing for any other text.
    static std::optional<int> colourOf(std::string const& text);
};

bool operator==(CurveLook const& a, CurveLook const& b);

} // namespace veldraw::kernel
