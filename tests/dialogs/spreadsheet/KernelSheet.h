#pragma once

#include "tests/dialogs/spreadsheet/SheetStage.h"

#include <cstdint>
#include <string>
#include <vector>

namespace veldraw::tests {

/// What a spreadsheet with its present choices must show of a stage, read from the kernel without the tables' help.
struct KernelSheet
{
    explicit KernelSheet(SheetStage const& stage);

    std::vector<std::string> rowNames;
    std::vector<std::string> columnNames;
    /// Rows of cells; rows without cells don't count.
    std::vector<std::vector<std::string>> texts;

private:
    void readList(SheetStage const& stage, int zone);
    void readPlane(SheetStage const& stage, int zone);
    std::string text(SheetStage const& stage, int zone, int variable, std::int64_t offset) const;
};

} // namespace veldraw::tests
