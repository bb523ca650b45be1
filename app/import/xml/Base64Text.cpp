#include "app/import/xml/Base64Text.h"

#include "app/files/PathChecks.h"

#include <algorithm>
#include <cctype>

namespace veldraw::app {

namespace {

using Values = std::array<std::int8_t, 256>;

constexpr std::int8_t noLetter = -1;

Values valuesOfLetters()
{
    Values values;
    values.fill(noLetter);
    std::int8_t value = 0;
    for (char const letter : std::string("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"))
        values[static_cast<unsigned char>(letter)] = value++;
    values['='] = 0; // counts as 0 wherever it stands
    return values;
}

int valueOf(int letter)
{
    static Values const values = valuesOfLetters();
    return letter < 0 || letter > 255 ? noLetter : values[static_cast<std::size_t>(letter)];
}

} // namespace

Base64Text::Base64Text(std::string const& path, std::int64_t position)
    : m_file(openToRead(path))
{
    m_file.seekg(position);
    while (std::isspace(m_file.peek()) != 0)
        m_file.get();
}

int Base64Text::next(Triplet& bytes)
{
    unsigned int bits = 0;
    int count = 3;
    for (int n = 0; n < 4; ++n) {
        int const found = letter();
        int const value = valueOf(found);
        if (value < 0)
            return 0;
        bits = (bits << 6U) + static_cast<unsigned int>(value);
        if (found == '=' && n >= 2)
            count = std::min(count, n - 1);
    }
    bytes = {static_cast<unsigned char>(bits >> 16U), static_cast<unsigned char>(bits >> 8U),
             static_cast<unsigned char>(bits)};
    return count;
}

std::int64_t Base64Text::bytesBehind(int bytesOfNumber, std::int64_t most, kernel::Progress const& progress)
{
    Triplet bytes{};
    for (int whole = bytesOfNumber / 3; whole > 0; --whole) {
        if (next(bytes) < 3)
            return 0;
    }
    int const ofNumber = bytesOfNumber % 3; // in the triplet that it ends in
    int const last = next(bytes);
    if (last < ofNumber)
        return 0;
    std::int64_t count = last - ofNumber;
    std::int64_t nextCheck = bytesBetweenChecks;
    for (int more = 3; more == 3 && count < most;) {
        count += more = next(bytes);
        if (count < nextCheck)
            continue;
        progress.check();
        nextCheck += bytesBetweenChecks;
    }
    return count;
}

} // namespace veldraw::app
