#pragma once

#include "tests/tour/TourContext.h"

class QTableView;

namespace veldraw::tests {

/// The part of the tour that opens a file without reading its values, and loads two of them from the data spreadsheet.
class LoadVariableStation
{
public:
    /// @param file the unstructured sample
    LoadVariableStation(TourContext& context, QString file);

    void run();

private:
    void open();
    void loadByMouse();

    TourContext& m_tour;
    QString m_file;
};

} // namespace veldraw::tests
