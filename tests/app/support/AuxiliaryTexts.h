#pragma once

#include "kernel/data/DataSet.h"

#include <string>

namespace veldraw::tests {

/// The items as "a=1|b=two", those that are not retained with "!" behind them.
inline std::string textOf(kernel::AuxiliaryData const& data)
{
    std::string text;
    for (int n = 1; n <= data.size(); ++n)
        text += (n > 1 ? "|" : "") + data.item(n).name + "=" + data.item(n).value + (data.item(n).retain ? "" : "!");
    return text;
}

/// The items of the data set, of its zones and of its variables, a line each; owners without items are left out.
inline std::string allTextsOf(kernel::DataSet const& dataSet)
{
    std::string text = "data set: " + textOf(dataSet.auxiliaryData()) + "\n";
    auto const add = [&text](auto const& owners) {
        for (auto const& owner : owners) {
            if (owner->auxiliaryData.size() > 0)
                text += owner->name + ": " + textOf(owner->auxiliaryData) + "\n";
        }
    };
    add(dataSet.zones());
    add(dataSet.variables());
    return text;
}

} // namespace veldraw::tests
