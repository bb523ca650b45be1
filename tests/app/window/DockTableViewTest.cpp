#include "app/window/DockTableView.h"

#include "app/window/VariableTableModel.h"
#include "tests/app/support/WindowTest.h"

#include <QApplication>
#include <QDockWidget>
#include <QHeaderView>
#include <QImage>
#include <QScrollBar>
#include <QTest>

namespace veldraw::tests {

namespace {

/// The lists of the dock over many variables, some of which have ranges that take a lot of room.
class DockTableViewTest : public WindowTest
{
protected:
    ~DockTableViewTest() override
    {
        window.reset();
        QApplication::setFont(m_font);
    }

    static std::shared_ptr<kernel::DataSet> makeVariables(int count, std::string const& name)
    {
        auto const dataSet = std::make_shared<kernel::DataSet>("many");
        auto const zone = std::make_shared<kernel::Zone>("zone", ZoneType_Ordered, 3, 2, 1);
        for (int variable = 0; variable < count; ++variable) {
            dataSet->addVariable(std::make_shared<kernel::Variable>(name + std::to_string(variable + 1)));
            auto const values = kernel::Buffer::allocate(FieldDataType_Double, 6);
            for (int i = 0; i < 6; ++i)
                values->setValue(i, variable % 4 == 3 ? (i - 2.7) * 1.234567e-105 : i);
            zone->fields.emplace_back(std::make_shared<kernel::ShareGroup>(values), ValueLocation_Nodal);
        }
        dataSet->addZone(zone);
        return dataSet;
    }

    void showVariables(int count, int fontSize, std::string const& name = "v")
    {
        QFont font = m_font;
        font.setPointSize(fontSize);
        QApplication::setFont(font);
        openFrames({{"many", makeVariables(count, name)}});
        showWindow();
    }

    app::DockTableView& view(char const* name = "variableView")
    {
        return *window->findChild<app::DockTableView*>(QString::fromLatin1(name));
    }

    std::vector<int> widths()
    {
        std::vector<int> found;
        for (int column = 0; column < view().header()->count(); ++column)
            found.push_back(view().columnWidth(column));
        return found;
    }

    QString cell(int row, int column) { return view().model()->index(row, column).data().toString(); }

    int textWidth(QString const& text) { return view().fontMetrics().horizontalAdvance(text); }

    /// Scrolls through the list, so that every range is asked for, and waits for all of them.
    void seeAllRanges()
    {
        auto const& model = dynamic_cast<app::VariableTableModel const&>(*view().model());
        EXPECT_TRUE(QTest::qWaitFor([&] {
            bool isKnown = true;
            for (int row = 0; row < model.rowCount(); ++row) {
                view().scrollTo(model.index(row, 0));
                isKnown = isKnown && cell(row, app::VariableTableModel::rangeColumn) != QString::fromUtf8("…");
            }
            return isKnown;
        }));
        view().scrollToTop();
        settle();
    }

private:
    QFont const m_font = QApplication::font();
};

} // namespace

TEST_F(DockTableViewTest, ColumnsDoNotChangeWithTheRowsInSight)
{
    showVariables(60, 12);
    seeAllRanges();
    std::vector<int> const before = widths();
    view().scrollToBottom();
    settle();
    EXPECT_EQ(before, widths());
    view().verticalScrollBar()->setValue(view().verticalScrollBar()->maximum() / 2);
    settle();
    EXPECT_EQ(before, widths());
}

TEST_F(DockTableViewTest, TheLayoutComesToRestAtEveryHeight)
{
    showVariables(14, 12);
    seeAllRanges();
    int resizes = 0;
    QObject::connect(view().header(), &QHeaderView::sectionResized, window.get(), [&] {
        if (++resizes == 500)
            view().setModel(nullptr); // else the event loop would never come back
    });
    auto* const dock = window->findChild<QDockWidget*>(QStringLiteral("dataDock"));
    for (int height = 420; height <= 700; ++height) {
        window->resize(1100, height);
        window->resizeDocks({dock}, {384}, Qt::Horizontal);
        resizes = 0;
        QCoreApplication::processEvents();
        ASSERT_LT(resizes, 100) << "at a height of " << height;
    }
}

TEST_F(DockTableViewTest, EveryRangeIsReadWhole)
{
    showVariables(14, 12);
    seeAllRanges();
    for (int row = 0; row < 14; ++row)
        EXPECT_GE(view().columnWidth(2), textWidth(cell(row, 2))) << cell(row, 2).toStdString();
}

TEST_F(DockTableViewTest, ARangeThatNobodyLooksAtIsNotComputedForTheWidth)
{
    showVariables(400, 12);
    auto const& model = dynamic_cast<app::VariableTableModel const&>(*view().model());
    ASSERT_TRUE(QTest::qWaitFor([&] { return cell(0, 2) != QString::fromUtf8("…"); }));
    QTest::qWait(50);
    QString const unknown = model.knownText(399, 2);
    EXPECT_EQ(unknown, model.knownText(398, 2));
    EXPECT_NE(unknown, model.knownText(0, 2));
    EXPECT_EQ(QString::fromUtf8("…"), cell(399, 2));
}

TEST_F(DockTableViewTest, ShortNamesAreReadWholeWithLargeFonts)
{
    showVariables(14, 18, "pressure_");
    seeAllRanges();
    EXPECT_GT(view().columnWidth(1), textWidth(QStringLiteral("pressure_14")));
    EXPECT_GT(view("zoneView").columnWidth(1), textWidth(QStringLiteral("zone")));
}

TEST_F(DockTableViewTest, OfLongNamesTwentyLettersAreReadBesideTheWidestRanges)
{
    for (int const size : {9, 18}) {
        showVariables(14, size, "pressure_coefficient_of_the_suction_side_of_the_first_blade_");
        seeAllRanges();
        EXPECT_GE(view().columnWidth(1), 20 * view().fontMetrics().averageCharWidth()) << size << " pt";
        EXPECT_EQ(Qt::ElideMiddle, view().textElideMode()) << "names of components differ at their ends";
        EXPECT_TRUE(view().model()->index(13, 1).data(Qt::ToolTipRole).toString().contains(cell(13, 1)));
    }
}

TEST_F(DockTableViewTest, TheNameHasWhatTheOthersLeave)
{
    showVariables(3, 9);
    seeAllRanges();
    std::vector<int> const found = widths();
    EXPECT_EQ(view().viewport()->width(), found[0] + found[1] + found[2] + found[3]);
}

TEST_F(DockTableViewTest, NamesAreNoMarkupInToolTips)
{
    showVariables(1, 9, "<b>");
    EXPECT_TRUE(view().model()->index(0, 1).data(Qt::ToolTipRole).toString().contains(QStringLiteral("&lt;b&gt;1")));
}

TEST_F(DockTableViewTest, TheListWithTheKeyboardIsSeenToHaveIt)
{
    showVariables(3, 9);
    auto const frameOf = [&] { return view().grab().toImage().pixelColor(0, view().height() / 2); };
    view("zoneView").setFocus();
    QColor const without = frameOf();
    view().setFocus();
    EXPECT_NE(without, frameOf());
    EXPECT_EQ(view().palette().color(QPalette::Highlight), frameOf());
}

TEST_F(DockTableViewTest, AListWithTheKeyboardHasACurrentRowAsSoonAsItHasRows)
{
    showWindow();
    view().setFocus();
    openFlow();
    EXPECT_EQ(0, view().currentIndex().row());
    EXPECT_TRUE(view().selectionModel()->selectedRows().isEmpty());
}

} // namespace veldraw::tests
