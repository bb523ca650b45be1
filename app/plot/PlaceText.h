#pragma once

#include "app/plot/ZonePlace.h"
#include "kernel/frames/Frame.h"

#include <QCoreApplication>
#include <QString>

namespace veldraw::app {

/// What is told of a place in a zone, in words and numbers. Numbers of zones, points and cells are one-based.
class PlaceText
{
    Q_DECLARE_TR_FUNCTIONS(veldraw::app::PlaceText)

public:
    /// Of a box beside the mouse, as rich text: zone, position, index or cell, value of the contour variable. Empty where the frame's
    /// data do not have the place.
    static QString tip(kernel::Frame const& frame, ZonePlace const& place);

    /// "Zone 3: wing".
    static QString ofZone(kernel::DataSet const& dataSet, kernel::Zone const& zone);

    /// The nearest point by its index in an ordered zone, otherwise the cell and the nearest point: a name and a value.
    static std::pair<QString, QString> ofPart(kernel::Zone const& zone, ZonePlace const& place,
                                              std::array<int, 3> const& axes);

    /// The value, or why there is none. @param digits significant ones; 0: as many as it takes to read the same number back
    static QString ofValue(PlaceValue const& value, int digits);

    static QString ofNumber(double number, int digits);
};

} // namespace veldraw::app
