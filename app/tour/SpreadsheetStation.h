#pragma once

#include "app/tour/TourContext.h"

class QTableView;

namespace veldraw::app {

/// The part of the tour that corrects a value by hand in the data spreadsheet, and takes it back.
class SpreadsheetStation
{
public:
    explicit SpreadsheetStation(TourContext& context);

    void run();

private:
    void editByKeyboard(QTableView& table);
    void takeBack(QTableView& table);
    void goToTheEnd(QTableView& table);

    TourContext& m_tour;
};

} // namespace veldraw::app
