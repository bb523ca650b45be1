#pragma once

#include <cstdint>
#include <fstream>
#include <initializer_list>
#include <string>
#include <vector>

namespace veldraw::app {

/// The lines "Key = value" at the start of a MetaImage file, one after the other. Who asks for a value of another kind than there is
/// gets an ImportError that names the line and what is wrong in it.
class MetaImageLines
{
public:
    explicit MetaImageLines(std::string const& path);

    /// Goes to the next line. @return false at the end of the file
    bool next();

    bool isBlank() const { return m_key.empty(); }
    int number() const { return m_number; } ///< of the line, from 1
    std::int64_t end();                     ///< of the line, in bytes from the start of the file

    bool isKey(std::initializer_list<char const*> names) const;
    std::string const& value() const { return m_value; }
    std::int64_t integer(std::int64_t least, std::int64_t most) const;
    std::vector<std::int64_t> counts() const;            ///< whole numbers from 1; may be none
    std::vector<double> numbers(std::size_t most) const; ///< finite, one at least; what is beyond @p most is left out
    bool flag() const;

    [[noreturn]] void fail(std::string const& reason) const;

private:
    std::ifstream m_file;
    int m_number = 0;
    std::string m_key;
    std::string m_value;
};

} // namespace veldraw::app
