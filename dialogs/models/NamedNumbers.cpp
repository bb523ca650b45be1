#include "dialogs/models/NamedNumbers.h"

#include <cstddef>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

int NamedNumbers::size() const
{
    return static_cast<int>(numbers.size());
}

std::string NamedNumbers::text(int row) const
{
    std::size_t const place = static_cast<std::size_t>(row);
    return std::to_string(numbers.at(place)) + ": " + names.at(place);
}

std::vector<int> NamedNumbers::rowsNamedOtherwise(NamedNumbers const& other) const
{
    std::vector<int> rows;
    for (std::size_t place = 0; place < names.size(); ++place) {
        if (names[place] != other.names.at(place))
            rows.push_back(static_cast<int>(place));
    }
    return rows;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
