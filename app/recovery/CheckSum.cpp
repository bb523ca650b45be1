#include "app/recovery/CheckSum.h"

#include <boost/crc.hpp>

#include <array>
#include <cstdio>

namespace veldraw::app {

std::string checkSumOf(std::string const& text)
{
    boost::crc_32_type sum;
    sum.process_bytes(text.data(), text.size());
    std::array<char, lengthOfSum + 1> digits{};
    std::snprintf(digits.data(), digits.size(), "%08x", static_cast<unsigned>(sum.checksum()));
    return digits.data();
}

} // namespace veldraw::app
