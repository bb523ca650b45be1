#pragma once

#include <locale>
#include <string>

namespace veldraw::tests {

/// Numbers with a comma and with points between groups of digits, as German programs write them.
class GermanNumbers : public std::numpunct<char>
{
protected:
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
};

} // namespace veldraw::tests
