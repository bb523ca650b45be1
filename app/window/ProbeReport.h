#pragma once

#include "app/plot/ProbedPlace.h"

#include <QString>

#include <vector>

namespace veldraw::app {

/// What is told of probed places, line by line: a name and a value.
class ProbeReport
{
public:
    struct Line
    {
        QString name;
        QString value; ///< in ten digits
        QString exact; ///< in as many digits as it takes to read the same number back
    };
    using Lines = std::vector<Line>;

    /// Zone, index or cell, position, and every variable. One line that says why where the place is gone.
    static Lines ofPlace(ProbedPlace const& place);

    /// The way from one place to another along each axis, and its length. Empty where one of them is gone, or they are of plots with
    /// different axes.
    static Lines ofDistance(ProbedPlace const& from, ProbedPlace const& to);

    /// Lines of name, tabulator, exact value.
    static QString text(Lines const& lines);
};

} // namespace veldraw::app
