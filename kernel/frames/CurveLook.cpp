#include "kernel/frames/CurveLook.h"

#include <charconv>

namespace veldraw::kernel {

namespace {

constexpr char automaticWord[] = "automatic";
constexpr int mostColour = 0xFFFFFF;

} // namespace

std::string CurveLook::refusal() const
{
    if (colour != automaticColour && (colour < 0 || colour > mostColour)) {
        return "There is no such colour.";
    }
    if (static_cast<int>(style) < 0 || static_cast<int>(style) >= lineStyleCount) {
        return "There is no such line style.";
    }
    return width >= leastWidth && width <= mostWidth ? "" : "A line is 0.5 to 20 pixels wide.";
}

std::vector<std::string> const& CurveLook::styleWords()
{
    static std::vector<std::string> const words{"solid", "dashed", "dotted", "dash-dot", "dash-dot-dot", "none"};
    return words;
}

std::string CurveLook::colourText(int colour)
{
    if (colour == automaticColour) {
        return automaticWord;
    }
    std::string text;
    for (int shift = 20; shift >= 0; shift -= 4) {
        text += "0123456789ABCDEF"[(colour >> shift) & 15];
    }
    return text;
}

std::optional<int> CurveLook::colourOf(std::string const& text)
{
    if (text == automaticWord) {
        return automaticColour;
    }
    std::string const digits = text.substr(!text.empty() && text[0] == '#' ? 1 : 0);
    int colour = 0;
    char const* const end = digits.data() + digits.size();
    bool const isNumber =
        digits.size() == 6 && digits[0] != '-' && std::from_chars(digits.data(), end, colour, 16).ptr == end;
    return isNumber ? std::optional<int>(colour) : std::nullopt;
}

bool operator==(CurveLook const& a, CurveLook const& b)
{
    bool const haveSameWidth = !(a.width < b.width) && !(a.width > b.width);
    return a.colour == b.colour && a.style == b.style && haveSameWidth && a.symbols == b.symbols;
}

} // namespace veldraw::kernel
