#pragma once

#include <string>
#include <vector>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// What a list of numbered, named things shows: a number and a name a row, as they were when the list last read them.
struct NamedNumbers
{
    std::vector<int> numbers;
    std::vector<std::string> names;

    int size() const;

    /// "<number>: <name>"
    std::string text(int row) const;

    /// The rows, ascending, whose names differ from those of another snapshot with the same numbers.
    std::vector<int> rowsNamedOtherwise(NamedNumbers const& other) const;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
