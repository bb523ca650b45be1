#pragma once

#include "tests/tour/TourContext.h"

class QTableView;

namespace veldraw::tests {

/// The part of the tour that looks at a line of three thousand million points in the data spreadsheet, from its first row to its
/// last.
class LongTableStation
{
public:
    /// @param file the sparse sample
    LongTableStation(TourContext& context, QString file);

    void run();

private:
    void open();
    void goToTheEnd(QTableView& table);
    void goToARow(QTableView& table);
    void goToTheStart(QTableView& table);
    void checkCurrent(char const* step, QString const& rowNameAndValue, QTableView const& table);

    TourContext& m_tour;
    QString m_file;
};

} // namespace veldraw::tests
