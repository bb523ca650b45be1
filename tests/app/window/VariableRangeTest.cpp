#include "app/window/VariableRange.h"

#include "app/commandline/DataSetReport.h"
#include "app/window/DataDescription.h"
#include "app/window/DataSetSize.h"
#include "app/window/VariableTableModel.h"
#include "kernel/operations/LoadVariables.h"
#include "tests/app/support/WindowTest.h"
#include "tests/support/WriteValue.h"

#include <QLabel>
#include <QTest>

#include <limits>

namespace veldraw::tests {

namespace {

using State = kernel::ValueRange::State;

/// Brings 0, 1, 4, 9, 16, and says beforehand what it is told to.
class SquareLoader : public kernel::ValueLoader
{
public:
    SquareLoader(kernel::ValueRange const& knownRange, bool maps)
        : m_range(knownRange)
        , m_isMapped(maps)
    {
    }

    std::shared_ptr<kernel::Buffer> load(kernel::Progress&) override
    {
        auto const buffer = kernel::Buffer::allocate(FieldDataType_Double, 5);
        for (int n = 0; n < 5; ++n)
            buffer->setValue(n, n * n);
        return buffer;
    }
    kernel::ValueRange range() const override { return m_range; }
    bool isMapped() const override { return m_isMapped; }

private:
    kernel::ValueRange m_range;
    bool m_isMapped;
};

/// A series with five values of t loaded, and others of v that are not.
class VariableRangeTest : public WindowTest
{
protected:
    void openDeferred(kernel::ValueRange const& knownRange, bool maps = false)
    {
        auto const series = makeSeries();
        defer(*series, knownRange, maps);
        openFrames({{"series", series}});
    }

    static void defer(kernel::DataSet& dataSet, kernel::ValueRange const& knownRange, bool maps = false)
    {
        auto const loader = std::make_shared<SquareLoader>(knownRange, maps);
        dataSet.zone(1)->fields[1] =
            kernel::Field(std::make_shared<kernel::ShareGroup>(FieldDataType_Double, 5, loader), ValueLocation_Nodal);
    }

    kernel::DataSet& dataSet() { return *session.activeDataSet(); }
    void load() { ASSERT_TRUE(session.perform(kernel::LoadVariables(dataSet(), {1}, {2}))); }
    app::VariableRange range() { return app::VariableRange(dataSet(), 2); }

    void expectReport(QString const& words)
    {
        QString const report = app::dataSetReport(QStringLiteral("series"), dataSet());
        EXPECT_TRUE(report.contains(QStringLiteral("  2  v  nodal double, %1\n").arg(words))) << report.toStdString();
    }
};

QString const notLoaded = QStringLiteral("The values are not loaded. Data > Load Variable... loads them.");

} // namespace

TEST_F(VariableRangeTest, IsThatOfAllZones)
{
    app::VariableRange const range(*makeFlow(), 1);
    EXPECT_EQ(0, range.limits().min);
    EXPECT_EQ(3, range.limits().max);
    EXPECT_EQ(State::Exact, range.limits().state);
    EXPECT_EQ(QString::fromUtf8("0 … 3"), range.text());
    EXPECT_EQ(QString(), range.explanation());
}

TEST_F(VariableRangeTest, OfAVariableThatIsNotThereHasNoValues)
{
    app::VariableRange const range(*makeFlow(), 99);
    EXPECT_FALSE(range.limits().isValid());
    EXPECT_EQ(QStringLiteral("no values"), range.text());
    EXPECT_EQ(QString(), range.explanation());
}

TEST_F(VariableRangeTest, WithoutAFiniteValueIsKnownToBeNone)
{
    auto const series = makeSeries();
    kernel::ShareGroup& values = *series->zone(1)->fields[1].group();
    for (int n = 0; n < 5; ++n)
        writeValue(values, n, std::numeric_limits<double>::quiet_NaN());
    EXPECT_EQ(QStringLiteral("no values"), app::VariableRange(*series, 2).text());
}

TEST_F(VariableRangeTest, IsNotLoadedUntilTheValuesAre)
{
    openDeferred({});
    EXPECT_EQ(QStringLiteral("not loaded"), range().text());
    EXPECT_EQ(notLoaded, range().explanation());
    expectReport(QStringLiteral("not loaded"));
    load();
    EXPECT_EQ(QString::fromUtf8("0 … 16"), range().text());
    EXPECT_EQ(QString(), range().explanation());
    expectReport(QStringLiteral("0 to 16"));
}

TEST_F(VariableRangeTest, ThatAFileStatesIsMarkedAsAnEstimateUntilTheValuesAreLoaded)
{
    openDeferred({State::Estimated, -1, 20});
    EXPECT_EQ(State::Estimated, range().limits().state);
    EXPECT_EQ(QString::fromUtf8("≈ -1 … 20"), range().text());
    EXPECT_EQ(
        QStringLiteral("The range is estimated, since values are not loaded. Data > Load Variable... loads them."),
        range().explanation());
    expectReport(QStringLiteral("about -1 to 20"));
    load();
    EXPECT_EQ(QString::fromUtf8("0 … 16"), range().text());
    expectReport(QStringLiteral("0 to 16"));
}

TEST_F(VariableRangeTest, ThatIsKnownExactlyBeforehandHasNoMark)
{
    openDeferred({State::Exact, 0, 16});
    EXPECT_EQ(QString::fromUtf8("0 … 16"), range().text());
    EXPECT_EQ(QString(), range().explanation());
}

TEST_F(VariableRangeTest, OfMappedValuesStaysAnEstimateOrUnknown)
{
    openDeferred({State::Estimated, -1, 20}, true);
    load();
    EXPECT_EQ(QString::fromUtf8("≈ -1 … 20"), range().text());
    EXPECT_EQ(QStringLiteral("The range is estimated, since values are mapped from a file, and too many to be looked "
                             "through unasked."),
              range().explanation());
    openDeferred({}, true);
    load();
    EXPECT_EQ(QStringLiteral("not known"), range().text());
    EXPECT_EQ(QStringLiteral("The values are mapped from a file, and too many to be looked through unasked."),
              range().explanation());
    expectReport(QStringLiteral("not known"));
}

TEST_F(VariableRangeTest, AndTheMemoryOfMappedValuesIsNotTakenForMemoryInUse)
{
    openDeferred({}, true);
    EXPECT_EQ(0, app::valueBytes(dataSet()).mapped);
    load();
    EXPECT_EQ(5 * 8, app::valueBytes(dataSet()).mapped);
    EXPECT_EQ(5 * 8, app::valueBytes(dataSet()).inMemory) << "that of the other variable";
    showWindow();
    auto const* const status = window->findChild<QLabel*>(QStringLiteral("dataSetStatus"));
    EXPECT_TRUE(status->text().endsWith(QString::fromUtf8("40 bytes  ·  40 bytes mapped")))
        << status->text().toStdString();
}

TEST_F(VariableRangeTest, IsAnEstimateWhileTheValuesOfOneZoneAreUnknown)
{
    auto const series = makeSeries();
    auto const other = std::make_shared<kernel::Zone>(*series->zone(1));
    other->fields[1] = kernel::Field(std::make_shared<kernel::ShareGroup>(other->fields[1].group()->buffer()->clone()),
                                     ValueLocation_Nodal);
    series->addZone(other); // 0 to 4, loaded
    defer(*series, {});
    openFrames({{"series", series}});
    EXPECT_EQ(QString::fromUtf8("≈ 0 … 4"), range().text());
    load();
    EXPECT_EQ(QString::fromUtf8("0 … 16"), range().text());
}

TEST_F(VariableRangeTest, IsReportedByTheShortestTextThatReadsBackAsTheSameFloat)
{
    auto const series = makeSeries();
    auto const values = kernel::Buffer::allocate(FieldDataType_Float, 5);
    for (int n = 0; n < 5; ++n)
        values->setValue(n, 0.1F + 16777216.0F * static_cast<float>(n / 4));
    series->zone(1)->fields[1] = kernel::Field(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
    EXPECT_EQ(QStringLiteral("0.1 to 16777216"), app::VariableRange(*series, 2).reportText());
}

TEST_F(VariableRangeTest, IsReportedByNineDigitsInDoublePrecisionAlsoBesideAZoneOfFloats)
{
    auto const series = makeSeries();
    auto const other = std::make_shared<kernel::Zone>(*series->zone(1));
    auto const values = kernel::Buffer::allocate(FieldDataType_Float, 5);
    for (int n = 0; n < 5; ++n)
        values->setValue(n, -0.3F);
    other->fields[1] = kernel::Field(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
    series->addZone(other);
    writeValue(*series->zone(1)->fields[1].group(), 4, 10.0 / 3.0 + 1.0);
    EXPECT_EQ(QStringLiteral("-0.3 to 4.33333333"), app::VariableRange(*series, 2).reportText());
}

TEST_F(VariableRangeTest, AndWhyItIsNotExactIsToldInTheTableOfVariables)
{
    openDeferred({State::Estimated, -1, 20});
    app::VariableTableModel model(session);
    QModelIndex const cell = model.index(1, app::VariableTableModel::rangeColumn);
    cell.data();
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell.data().toString() == QString::fromUtf8("≈ -1 … 20"); }));
    EXPECT_EQ(range().explanation(), cell.data(Qt::ToolTipRole).toString());
    load();
    model.refresh();
    cell.data();
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell.data().toString() == QString::fromUtf8("0 … 16"); }));
    EXPECT_TRUE(cell.data(Qt::ToolTipRole).toString().contains(QStringLiteral("nodal, double")));
}

} // namespace veldraw::tests
