#pragma once

#include <cstdint>
#include <fstream>
#include <string>
#include <vector>

namespace veldraw::app {

/// Goes through a file of an EnSight Gold case without keeping its values.
class EnSightInput
{
public:
    enum class Form
    {
        Text,
        Bytes,  ///< "C Binary"
        Records ///< "Fortran Binary": all that is written at once stands between two counts of its bytes
    };

    /// Of a geometry. @throws ImportError when it cannot be read
    static Form formOf(std::string const& path);

    /// @throws ImportError as all below, where the file ends too early or has something else
    EnSightInput(std::string const& path, Form form);

    bool isAtEnd();

    /// A line of text without blanks at its ends.
    std::string line();

    /// Whole numbers that stand together, as text in one line.
    std::vector<std::int32_t> wholes(std::size_t count);

    /// A number of things; none is negative, or more than the file has room for.
    std::int64_t count();

    /// A list of whole numbers that are counts themselves, as text one a line. @return their sum
    std::int64_t sumOf(std::int64_t count);

    /// Passes numbers, as text one a line.
    void skipNumbers(std::int64_t count);

    /// Passes whole numbers of @p lines things, @p each as many.
    void skipRows(std::int64_t lines, std::int64_t each);

private:
    std::string bytes(std::int64_t count);
    void skip(std::int64_t count);
    void passMark(std::int64_t bytesBetween);
    std::int32_t whole(char const* bytes);
    std::string textLine();

    std::ifstream m_file;
    Form m_form;
    std::int64_t m_size; // of the file
    bool m_isKnown = false;
    bool m_isSwapped = false;
};

} // namespace veldraw::app
