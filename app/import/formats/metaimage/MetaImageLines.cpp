#include "app/import/formats/metaimage/MetaImageLines.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/files/PlainText.h"

#include <algorithm>
#include <cerrno>
#include <cmath>
#include <cstdlib>

namespace veldraw::app {

namespace {

constexpr std::size_t longestLine = 1 << 16;

bool parseInteger(std::string const& text, std::int64_t& value)
{
    char* end = nullptr;
    errno = 0;
    value = std::strtoll(text.c_str(), &end, 10);
    return !text.empty() && *end == '\0' && errno == 0;
}

} // namespace

MetaImageLines::MetaImageLines(std::string const& path)
    : m_file(openToRead(path))
{
}

std::int64_t MetaImageLines::end()
{
    return m_file.tellg();
}

bool MetaImageLines::next()
{
    std::string line;
    for (char c = '\0'; m_file.get(c) && c != '\n';) {
        if (line.size() == longestLine || c == '\0') {
            ++m_number;
            m_key.clear();
            fail("this is no line of text; it is no MetaImage header");
        }
        line += c;
    }
    if (line.empty() && !m_file)
        return false;
    m_file.clear(m_file.rdstate() & ~std::ios::failbit);
    ++m_number;
    std::size_t const equals = line.find('=');
    m_key = trimmed(line.substr(0, equals));
    m_value = equals == std::string::npos ? std::string() : trimmed(line.substr(equals + 1));
    if (equals == std::string::npos && !m_key.empty()) {
        m_key.clear();
        fail("there is no \"=\" in it");
    }
    return true;
}

bool MetaImageLines::isKey(std::initializer_list<char const*> names) const
{
    return std::any_of(names.begin(), names.end(), [this](char const* name) { return m_key == name; });
}

std::int64_t MetaImageLines::integer(std::int64_t least, std::int64_t largest) const
{
    std::int64_t value = 0;
    if (!parseInteger(m_value, value))
        fail("\"" + m_value + "\" is no whole number");
    if (value < least || value > largest)
        fail(m_value + " is out of range");
    return value;
}

std::vector<double> MetaImageLines::numbers(std::size_t count) const
{
    std::vector<double> values;
    for (std::string const& word : wordsOf(m_value)) {
        char* end = nullptr;
        double const value = std::strtod(word.c_str(), &end);
        if (end == word.c_str() || *end != '\0' || !std::isfinite(value))
            fail("\"" + word + "\" is no number");
        values.push_back(value);
    }
    if (values.empty())
        fail("a number is missing");
    values.resize(std::min(values.size(), count));
    return values;
}

std::vector<std::int64_t> MetaImageLines::counts() const
{
    std::vector<std::int64_t> values;
    for (std::string const& word : wordsOf(m_value)) {
        std::int64_t value = 0;
        if (!parseInteger(word, value) || value < 1)
            fail("\"" + word + "\" is no whole number from 1");
        values.push_back(value);
    }
    return values;
}

bool MetaImageLines::flag() const
{
    if (m_value.empty() || std::string("TtYy1FfNn0").find(m_value[0]) == std::string::npos)
        fail("True or False is needed");
    return std::string("TtYy1").find(m_value[0]) != std::string::npos;
}

void MetaImageLines::fail(std::string const& reason) const
{
    throw ImportError("line " + std::to_string(m_number) + (m_key.empty() ? "" : " (" + m_key + ")") + ": " + reason);
}

} // namespace veldraw::app
