#pragma once

#include <string>

namespace veldraw {

/// The two directions between a whole number and its text, for `PropertyTypeAdapter<std::string, long long>`.
std::string wholeNumberToText(long long number);

/// Throws an `ExceptionBase` without a text unless all of @p text is one whole number that fits.
long long textToWholeNumber(std::string const& text);

} // namespace veldraw
