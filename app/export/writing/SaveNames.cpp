#include "app/export/writing/SaveNames.h"

#include <algorithm>
#include <cstdint>
#include <random>
#include <string_view>

namespace veldraw::app {

namespace {

constexpr std::string_view tagLetters = "abcdefghijklmnopqrstuvwxyz0123456789";
constexpr std::size_t tagSize = 10;
std::string const partEnding = ".part";

} // namespace

std::string nameWithEnding(std::string const& name, std::string const& ending)
{
    constexpr std::size_t longest = 255; // bytes, on nearly all file systems
    if (name.size() + ending.size() <= longest)
        return name + ending;
    std::uint64_t sum = 14695981039346656037U; // FNV-1a: the same in every run
    for (char const c : name)
        sum = (sum ^ static_cast<unsigned char>(c)) * 1099511628211U;
    std::size_t kept = longest - ending.size() - 21;
    while (kept > 0 && (static_cast<unsigned char>(name[kept]) & 0xC0U) == 0x80U)
        --kept; // in the middle of a letter
    return name.substr(0, kept) + "-" + std::to_string(sum) + ending;
}

std::string partName(std::string const& target, std::string const& tag)
{
    return nameWithEnding(target, "." + tag + partEnding);
}

std::string newTag()
{
    std::random_device source;
    std::uniform_int_distribution<std::size_t> letter(0, tagLetters.size() - 1);
    std::string tag;
    while (tag.size() < tagSize)
        tag += tagLetters[letter(source)];
    return tag;
}

bool isPartName(std::string const& name, std::string const& target)
{
    if (name.size() < tagSize + partEnding.size())
        return false;
    std::string const tag = name.substr(name.size() - partEnding.size() - tagSize, tagSize);
    return tag.find_first_not_of(tagLetters) == std::string::npos && name == partName(target, tag);
}

std::string nameOfPiece(std::string const& stem, std::size_t number, int round, std::string const& extension)
{
    std::string const mark = round == 1 ? std::string() : "-" + std::to_string(round);
    return stem + "_" + std::to_string(number) + mark + "." + extension;
}

bool isPieceName(std::string const& name, std::string const& stem)
{
    if (name.compare(0, stem.size() + 1, stem + "_") != 0)
        return false;
    auto const endOfDigits = [&](std::size_t start) {
        return std::min(name.find_first_not_of("0123456789", start), name.size());
    };
    std::size_t const first = stem.size() + 1;
    std::size_t end = endOfDigits(first);
    bool isGood = end > first;
    if (isGood && end < name.size() && name[end] == '-') {
        std::size_t const second = end + 1;
        end = endOfDigits(second);
        isGood = end > second;
    }
    std::string const extension = name.substr(end);
    return isGood && (extension == ".vts" || extension == ".vtu" || extension == ".vtp");
}

} // namespace veldraw::app
