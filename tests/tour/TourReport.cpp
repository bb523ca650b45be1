#include "tests/tour/TourReport.h"

#include <algorithm>

namespace veldraw::tests {

bool TourReport::check(QString const& step, QString const& expected, QString const& found)
{
    m_rows.push_back({step, expected, found, expected == found});
    return expected == found;
}

bool TourReport::check(QString const& step, bool asExpected)
{
    return check(step, QStringLiteral("yes"), asExpected ? QStringLiteral("yes") : QStringLiteral("no"));
}

bool TourReport::allAsExpected() const
{
    return std::all_of(m_rows.begin(), m_rows.end(), [](Row const& row) { return row.asExpected; });
}

QString TourReport::toText() const
{
    int width = 0;
    for (Row const& row : m_rows)
        width = std::max(width, row.step.size());
    QString text;
    for (Row const& row : m_rows) {
        text += row.step.leftJustified(width + 2);
        text += row.asExpected ? QStringLiteral("ok      ") + row.found
                               : QStringLiteral("WRONG   ") + row.found + QStringLiteral("   (expected: ") +
                                     row.expected + QLatin1Char(')');
        text += QLatin1Char('\n');
    }
    auto const right = std::count_if(m_rows.begin(), m_rows.end(), [](Row const& row) { return row.asExpected; });
    text += QStringLiteral("%1 of %2 steps as expected\n").arg(right).arg(m_rows.size());
    return text;
}

} // namespace veldraw::tests
