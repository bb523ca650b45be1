#include "kernel/base/Text.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace veldraw::kernel {

namespace {

int smallLetter(char letter)
{
    bool const capital = letter >= 'A' && letter <= 'Z';
    return static_cast<unsigned char>(letter) + (capital ? 'a' - 'A' : 0);
}

template <typename Number>
std::string shortestText(Number number)
{
    std::array<char, 64> text{};
    std::to_chars_result const end = std::to_chars(text.data(), text.data() + text.size(), number);
    return {text.data(), end.ptr};
}

} // namespace

std::string lowered(std::string text)
{
    std::transform(text.begin(), text.end(), text.begin(), [](char c) { return static_cast<char>(smallLetter(c)); });
    return text;
}

int compareIgnoringCase(std::string const& left, std::string const& right)
{
    std::size_t const common = std::min(left.size(), right.size());
    for (std::size_t at = 0; at < common; ++at) {
        int const difference = smallLetter(left[at]) - smallLetter(right[at]);
        if (difference != 0) {
            return difference;
        }
    }
    return left.size() == right.size() ? 0 : (left.size() < right.size() ? -1 : 1);
}

std::string textOf(double number)
{
    return shortestText(number);
}

std::string textOf(float number)
{
    return shortestText(number);
}

std::string freeName(std::string const& text, std::set<std::string>& taken)
{
    std::string name = text;
    for (int number = 2; !taken.insert(name).second; ++number) {
        name = text + " (" + std::to_string(number) + ")";
    }
    return name;
}

} // namespace veldraw::kernel
