#include "app/import/xml/XmlText.h"

#include <charconv>
#include <optional>

namespace veldraw::app {

namespace {

constexpr unsigned int lastCharacter = 0x10ffff;

std::string utf8Of(unsigned int character)
{
    auto const tail = [character](unsigned int shift) {
        return static_cast<char>(0x80U | ((character >> shift) & 0x3fU));
    };
    if (character < 0x80)
        return {static_cast<char>(character)};
    if (character < 0x800)
        return {static_cast<char>(0xc0U | (character >> 6U)), tail(0)};
    if (character < 0x10000)
        return {static_cast<char>(0xe0U | (character >> 12U)), tail(6), tail(0)};
    return {static_cast<char>(0xf0U | (character >> 18U)), tail(12), tail(6), tail(0)};
}

// @param name as "lt", "#60" or "#x3c"
std::optional<std::string> meaningOf(std::string const& name)
{
    static std::pair<char const*, char const*> const known[] = {
        {"lt", "<"}, {"gt", ">"}, {"amp", "&"}, {"quot", "\""}, {"apos", "'"}};
    for (auto const& [entity, meaning] : known) {
        if (name == entity)
            return meaning;
    }
    bool const isHexadecimal = name.compare(0, 2, "#x") == 0;
    if (name.empty() || name[0] != '#')
        return std::nullopt;
    unsigned int character = 0;
    char const* const last = name.data() + name.size();
    auto const [end, error] =
        std::from_chars(name.data() + (isHexadecimal ? 2 : 1), last, character, isHexadecimal ? 16 : 10);
    if (error != std::errc() || end != last || character > lastCharacter)
        return std::nullopt;
    return utf8Of(character);
}

// Where the semicolon stands that ends what starts here. Numbers may have any number of zeros in front.
std::size_t endOfEntity(std::string const& text, std::size_t start)
{
    std::size_t const end =
        text.find_first_not_of("#0123456789ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz", start + 1);
    return end != std::string::npos && text[end] == ';' ? end : std::string::npos;
}

} // namespace

std::string xmlUnescaped(std::string const& text)
{
    std::string result;
    for (std::size_t at = 0; at < text.size();) {
        std::size_t const end = text[at] == '&' ? endOfEntity(text, at) : std::string::npos;
        auto const meaning = end != std::string::npos ? meaningOf(text.substr(at + 1, end - at - 1)) : std::nullopt;
        result += meaning.value_or(std::string(1, text[at]));
        at = meaning ? end + 1 : at + 1;
    }
    return result;
}

} // namespace veldraw::app
