#pragma once

#include "tests/tour/TourContext.h"

#include <QImage>
#include <QString>

class QTableView;

namespace veldraw::tests {

/// The part of the tour that corrects a value by hand in the data spreadsheet, and takes it back.
class SpreadsheetStation
{
public:
    explicit SpreadsheetStation(TourContext& context);

    void run();

private:
    /// @param variable that the table shows
    void editByKeyboard(QTableView& table, QString const& variable);
    void takeBack(QTableView& table, QString const& variable);
    void goToTheEnd(QTableView& table);

    TourContext& m_tour;
    QString m_rangeBefore; // in the dock
    QString m_valueBefore; // in the first cell
    QImage m_plotBefore;
};

} // namespace veldraw::tests
