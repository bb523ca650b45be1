#include "app/import/formats/ensight/EnSightInput.h"

#include "app/files/ImportError.h"
#include "app/files/PathChecks.h"
#include "app/files/PlainText.h"

#include <algorithm>
#include <charconv>
#include <cstring>
#include <filesystem>

namespace veldraw::app {

namespace {

constexpr std::int64_t bytesOfLine = 80;
constexpr std::int64_t bytesOfNumber = 4;
constexpr std::int32_t mostParts = 65536; // by which the order of bytes is found
constexpr std::size_t widthOfNumber = 12; // as text
constexpr std::int64_t numbersAtOnce = 4096;

[[noreturn]] void endTooEarly()
{
    throw ImportError("it is incomplete: it ends in the middle of its values");
}

std::int32_t wholeOf(std::string const& word)
{
    std::int32_t number = 0;
    auto const [end, error] = std::from_chars(word.data(), word.data() + word.size(), number);
    if (error != std::errc() || end != word.data() + word.size())
        throw ImportError("it is damaged: \"" + shortened(asUtf8(word), 40) +
                          "\" stands where a whole number should be");
    return number;
}

bool startsNumber(std::string const& line)
{
    std::size_t const first = line.find_first_not_of(" \t");
    return first != std::string::npos && std::strchr("+-.0123456789nNiI", line[first]) != nullptr;
}

} // namespace

EnSightInput::Form EnSightInput::formOf(std::string const& path)
{
    std::ifstream file = openToRead(path);
    std::string start(static_cast<std::size_t>(bytesOfLine) + 4, '\0');
    file.read(start.data(), static_cast<std::streamsize>(start.size()));
    if (start.compare(0, 8, "C Binary") == 0)
        return Form::Bytes;
    return start.compare(4, 14, "Fortran Binary") == 0 ? Form::Records : Form::Text;
}

EnSightInput::EnSightInput(std::string const& path, Form form)
    : m_file(openToRead(path))
    , m_form(form)
    , m_size(static_cast<std::int64_t>(std::filesystem::file_size(path)))
{
}

bool EnSightInput::isAtEnd()
{
    return m_file.rdbuf()->sgetc() == std::char_traits<char>::eof();
}

std::string EnSightInput::textLine()
{
    std::string line;
    bool const isThere = static_cast<bool>(std::getline(m_file, line));
    // Numbers have the same width in all such files, so that a shorter one without the end of its line was cut.
    bool const isCut = isThere && m_file.eof() && line.size() < widthOfNumber;
    if (!isThere || isCut)
        endTooEarly();
    return line;
}

std::string EnSightInput::line()
{
    if (m_form == Form::Text)
        return trimmed(textLine());
    std::string text = bytes(bytesOfLine);
    text.resize(std::min(text.find('\0'), text.size()));
    return trimmed(text);
}

std::vector<std::int32_t> EnSightInput::wholes(std::size_t count)
{
    std::vector<std::int32_t> numbers;
    if (m_form == Form::Text) {
        auto const words = wordsOf(textLine());
        if (words.size() < count)
            throw ImportError("it is damaged: a line has not as many numbers as it should");
        for (std::size_t n = 0; n < count; ++n)
            numbers.push_back(wholeOf(words[n]));
        return numbers;
    }
    std::string const content = bytes(static_cast<std::int64_t>(count) * bytesOfNumber);
    for (std::size_t n = 0; n < count; ++n)
        numbers.push_back(whole(content.data() + 4 * n));
    return numbers;
}

std::int64_t EnSightInput::count()
{
    std::int32_t const number = wholes(1).front();
    if (number < 0 || number > m_size)
        throw ImportError("it is damaged: it has no room for " + std::to_string(number) + " things that it promises");
    return number;
}

std::int64_t EnSightInput::sumOf(std::int64_t count)
{
    std::int64_t sum = 0;
    auto const add = [&](std::int32_t number) {
        sum += number;
        if (number < 0 || sum > m_size)
            throw ImportError("it is damaged: it has no room for the corners that it promises");
    };
    if (m_form == Form::Text) {
        for (std::int64_t n = 0; n < count; ++n)
            add(wholes(1).front());
        return sum;
    }
    passMark(count * bytesOfNumber);
    for (std::int64_t left = count; left > 0; left -= numbersAtOnce) {
        std::string content(static_cast<std::size_t>(std::min(left, numbersAtOnce) * bytesOfNumber), '\0');
        if (!m_file.read(content.data(), static_cast<std::streamsize>(content.size())))
            endTooEarly();
        for (std::size_t at = 0; at < content.size(); at += 4)
            add(whole(content.data() + at));
    }
    passMark(count * bytesOfNumber);
    return sum;
}

void EnSightInput::skipNumbers(std::int64_t count)
{
    if (m_form != Form::Text) {
        skip(count * bytesOfNumber);
        return;
    }
    for (std::int64_t n = 0; n < count; ++n) {
        std::string const line = textLine();
        if (!startsNumber(line))
            throw ImportError("it is damaged: \"" + shortened(asUtf8(trimmed(line)), 40) +
                              "\" stands where a number should be");
    }
}

void EnSightInput::skipRows(std::int64_t lines, std::int64_t each)
{
    if (m_form != Form::Text) {
        skip(lines * each * bytesOfNumber);
        return;
    }
    for (std::int64_t n = 0; n < lines; ++n)
        wholes(static_cast<std::size_t>(each));
}

std::string EnSightInput::bytes(std::int64_t count)
{
    passMark(count);
    std::string content(static_cast<std::size_t>(count), '\0');
    if (!m_file.read(content.data(), count))
        endTooEarly();
    passMark(count);
    return content;
}

void EnSightInput::skip(std::int64_t count)
{
    passMark(count);
    if (count > m_size - static_cast<std::int64_t>(m_file.tellg()))
        endTooEarly();
    m_file.seekg(count, std::ios::cur);
    passMark(count);
}

void EnSightInput::passMark(std::int64_t bytesBetween)
{
    if (m_form != Form::Records)
        return;
    char mark[4];
    if (!m_file.read(mark, sizeof mark))
        endTooEarly();
    m_isKnown = m_isKnown || bytesBetween == bytesOfLine;
    std::int32_t plain = 0;
    std::memcpy(&plain, mark, sizeof plain);
    m_isSwapped = bytesBetween == bytesOfLine ? plain != bytesOfLine : m_isSwapped;
    if (whole(mark) != bytesBetween)
        throw ImportError("it is damaged: a record has not as many bytes as it should");
}

// Where nothing else tells the order of bytes, the number of the first part does.
std::int32_t EnSightInput::whole(char const* bytes)
{
    char ordered[4] = {bytes[0], bytes[1], bytes[2], bytes[3]};
    std::int32_t number = 0;
    std::memcpy(&number, ordered, sizeof number);
    if (!m_isKnown)
        m_isSwapped = number < 0 || number >= mostParts;
    m_isKnown = true;
    if (m_isSwapped) {
        std::reverse(ordered, ordered + 4);
        std::memcpy(&number, ordered, sizeof number);
    }
    return number;
}

} // namespace veldraw::app
