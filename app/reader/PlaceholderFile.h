#pragma once

#include "app/handover/Descriptor.h"

#include <vtkDataObject.h>

#include <array>
#include <cstddef>
#include <optional>
#include <string>

namespace veldraw::app {

/// A copy in memory of a legacy VTK file of text, in which rare numbers stand in the place of those that are not finite: VTK's legacy readers
/// stop at "nan" and "inf", also where VTK itself wrote them.
///
/// Whoever has read the copy puts the numbers back. That as many are found as were replaced tells that no other number was taken for them.
class PlaceholderFile
{
public:
    /// @param attempt from 0 to attempts - 1: each has other placeholders
    /// @return none where all numbers of the file are finite, or it is no text
    static std::optional<PlaceholderFile> of(std::string const& path, int attempt);
    static constexpr int attempts = 3;

    /// Of the copy, as long as this lives.
    std::string path() const;

    /// Puts the numbers in the place of their placeholders. @return false when there are not as many
    bool restore(vtkDataObject& data) const;

private:
    static constexpr std::size_t kinds = 3; // not a number, infinity, minus infinity

    PlaceholderFile() = default;
    void copy(std::string const& path);
    void add(std::string const& line);
    void write();

    Descriptor m_file;
    std::array<std::string, kinds> m_placeholders;
    std::array<std::size_t, kinds> m_counts{};
    std::string m_bytes; // that have not been written yet
};

} // namespace veldraw::app
