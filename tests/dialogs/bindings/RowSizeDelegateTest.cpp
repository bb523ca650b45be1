#include "dialogs/bindings/RowSizeDelegate.h"

#include "dialogs/bindings/ListViewPropertyBinding.h"
#include "dialogs/property/Property.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/models/ScriptedList.h"

#include <QApplication>
#include <QListView>
#include <QProxyStyle>
#include <QScrollBar>
#include <QStandardItemModel>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings;
using sdk::ui::common::IdleDispatcher;

/// Counts how many rows are measured.
class CountingStyle : public QProxyStyle
{
public:
    QSize sizeFromContents(ContentsType type, QStyleOption const* option, QSize const& size,
                           QWidget const* widget) const override
    {
        if (type == CT_ItemViewItem)
            ++measured;
        return QProxyStyle::sizeFromContents(type, option, size, widget);
    }
    mutable int measured = 0;
};

class RowSizeDelegateTest : public ::testing::Test
{
protected:
    void bind()
    {
        binding = std::make_unique<ListViewPropertyBinding>(&view, list, selection,
                                                            BindingInterface::ModelUpdateDeferredOnBusy);
    }

    void show()
    {
        view.resize(120, 200);
        view.show();
        settle();
    }

    void settle()
    {
        IdleDispatcher::flush();
        QApplication::processEvents();
    }

    QSize sizeOf(int row) const { return view.sizeHintForIndex(view.model()->index(row, 0)); }

    QSize sizeByQt(int row) const
    {
        QStyleOptionViewItem option;
        option.initFrom(&view);
        option.font = view.font();
        option.styleObject = nullptr;
        option.widget = &view;
        return QStyledItemDelegate().sizeHint(option, view.model()->index(row, 0));
    }

    CountingStyle style;
    QListView view;
    boost::shared_ptr<ScriptedList> list = boost::make_shared<ScriptedList>(std::vector<ScriptedList::Item>{
        {1, "W"}, {2, "a much longer name of a zone"}, {3, ""}, {4, "W"}, {5, "\u00e9\u4e2d"}});
    boost::shared_ptr<Property<std::set<int>>> selection = boost::make_shared<Property<std::set<int>>>();
    std::unique_ptr<ListViewPropertyBinding> binding;
};

TEST_F(RowSizeDelegateTest, GivesRowsTheSizesThatQtGivesThem)
{
    bind();
    show();
    for (int pass = 0; pass < 2; ++pass)
        for (int row = 0; row < 5; ++row)
            EXPECT_EQ(sizeOf(row), sizeByQt(row)) << row;
    EXPECT_NE(sizeOf(0).width(), sizeOf(1).width());
}

TEST_F(RowSizeDelegateTest, MeasuresNoTextASecondTime)
{
    view.setStyle(&style);
    bind();
    show();
    style.measured = 0;
    list->reset({{2, "a much longer name of a zone"}, {3, ""}, {1, "W"}});
    settle();
    EXPECT_EQ(view.model()->rowCount(), 3);
    EXPECT_EQ(style.measured, 0);
    list->reset({{2, "another name"}, {1, "W"}});
    settle();
    EXPECT_EQ(style.measured, 1);
}

TEST_F(RowSizeDelegateTest, LetsTheViewScrollAsFarAsItsLongestRowNeeds)
{
    bind();
    show();
    int const before = view.horizontalScrollBar()->maximum();
    list->change(0, {1, "a name that is longer than that of all the other zones of this list"});
    list->reset(ScriptedList::numbered(3));
    settle();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), 0);
    list->reset({{1, "W"}, {2, "a much longer name of a zone"}});
    settle();
    EXPECT_EQ(view.horizontalScrollBar()->maximum(), before);
    EXPECT_GT(before, 0);
}

TEST_F(RowSizeDelegateTest, FollowsTheFontAndTheStyle)
{
    bind();
    show();
    QSize const before = sizeOf(1);
    QFont font = view.font();
    font.setPointSize(2 * font.pointSize());
    view.setFont(font);
    EXPECT_EQ(sizeOf(1), sizeByQt(1));
    EXPECT_GT(sizeOf(1).width(), before.width());
    int const height = sizeOf(1).height();
    view.setStyleSheet(QStringLiteral("QListView::item { padding: 9px; }"));
    EXPECT_GT(sizeOf(1).height(), height);
}

TEST_F(RowSizeDelegateTest, ForgetsTextsThatNoListHasAnyMore)
{
    view.setStyle(&style);
    bind();
    show();
    for (int round = 0; round < 300; ++round) {
        list->reset({{1, "name " + std::to_string(5 * round)},
                     {2, "name " + std::to_string(5 * round + 1)},
                     {3, "name " + std::to_string(5 * round + 2)},
                     {4, "name " + std::to_string(5 * round + 3)},
                     {5, "name " + std::to_string(5 * round + 4)}});
        settle();
    }
    style.measured = 0;
    list->reset({{1, "name 0"}});
    settle();
    EXPECT_EQ(style.measured, 1);
}

TEST_F(RowSizeDelegateTest, MeasuresTextsThatWrapAsEver)
{
    view.setStyle(&style);
    view.setWordWrap(true);
    bind();
    show();
    style.measured = 0;
    list->reset(ScriptedList::numbered(2));
    list->reset(ScriptedList::numbered(2));
    settle();
    EXPECT_GE(style.measured, 2);
}

TEST_F(RowSizeDelegateTest, LeavesADelegateOfAnotherKindAlone)
{
    class Other : public QStyledItemDelegate
    {
    } other;
    view.setItemDelegate(&other);
    bind();
    EXPECT_EQ(view.itemDelegate(), &other);
}

TEST_F(RowSizeDelegateTest, IsInstalledOnceHoweverOftenTheViewIsBound)
{
    bind();
    QAbstractItemDelegate const* const first = view.itemDelegate();
    EXPECT_TRUE(dynamic_cast<RowSizeDelegate const*>(first));
    binding.reset();
    bind();
    EXPECT_EQ(view.itemDelegate(), first);
}

TEST_F(RowSizeDelegateTest, MeasuresTheRowsOfOtherModelsAsEver)
{
    RowSizeDelegate::install(view);
    QStandardItemModel model(1, 1);
    model.setData(model.index(0, 0), QSize(77, 33), Qt::SizeHintRole);
    view.setModel(&model);
    EXPECT_EQ(sizeOf(0), QSize(77, 33));
    view.setModel(nullptr);
}

} // namespace
} // namespace veldraw::tests
