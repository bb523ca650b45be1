#pragma once

#include <QString>

#include <vector>

namespace veldraw::tests {

/// What the tour did and whether each step came out as expected.
class TourReport
{
public:
    /// Notes a step with what was expected and what was found. @return true when both are equal
    bool check(QString const& step, QString const& expected, QString const& found);

    /// Notes a step that is right or wrong. @return @p asExpected
    bool check(QString const& step, bool asExpected);

    bool allAsExpected() const;
    int stepCount() const { return static_cast<int>(m_rows.size()); }

    /// The table for standard output, one line a step, with what was found where it was not what was expected.
    QString toText() const;

private:
    struct Row
    {
        QString step;
        QString expected;
        QString found;
        bool asExpected;
    };

    std::vector<Row> m_rows;
};

} // namespace veldraw::tests
