#pragma once

#include <string>

namespace veldraw::app {

/// @param start of a file @throws ImportError when this is no text, or text in another encoding than the ones of asUtf8()
void checkIsText(std::string const& start);

/// The separator that the header line has most of, outside of quotes; a tab wins over a semicolon over a comma.
/// @param start of a file
char separatorOf(std::string const& start);

enum class Number
{
    Good,
    NoNumber,
    OutOfRange
};

/// Reads the text of a cell as a number with a decimal point, nan or inf. @return Good where @p value is the number
Number toNumber(std::string const& text, double& value);

} // namespace veldraw::app
