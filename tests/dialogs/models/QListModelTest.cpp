#include "dialogs/models/QListModel.h"

#include "tests/dialogs/models/Rows.h"
#include "tests/dialogs/models/ScriptedList.h"

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <QSignalSpy>

#include <gtest/gtest.h>
#include <random>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using namespace sdk::ui::dialogs::propertybindings::models;

/// A list, its Qt model, and a tester that ends the program at the first thing that a Qt model must not do.
class QListModelTest : public ::testing::Test
{
protected:
    ScriptedList list{{{0, "Zones", true}, {4, "four"}, {6, "six"}}};
    QListModel model{list};
    QAbstractItemModelTester const tester{&model, QAbstractItemModelTester::FailureReportingMode::Fatal};
};

TEST_F(QListModelTest, ShowsTextEditTextAndValue)
{
    QModelIndex const second = model.index(1);
    EXPECT_EQ(second.data(Qt::DisplayRole), QVariant(QStringLiteral("four")));
    EXPECT_EQ(second.data(Qt::EditRole), QVariant(QStringLiteral("edit four")));
    EXPECT_EQ(second.data(Qt::UserRole), QVariant(4));
    EXPECT_FALSE(second.data(Qt::DecorationRole).isValid());
    EXPECT_EQ(rows(model), "0=Zones | 4=four | 6=six");
}

TEST_F(QListModelTest, ShowsTextsInUtf8)
{
    list.change(1, {4, "Gr\xC3\xBC\xC3\x9F"
                       "e"});
    EXPECT_EQ(model.index(1).data().toString(), QString::fromUtf8("Gr\xC3\xBC\xC3\x9F"
                                                                  "e"));
    list.editable = true;
    EXPECT_TRUE(model.setData(model.index(1), QString::fromUtf8("\xCF\x81")));
    EXPECT_EQ(list.edits.back(), "1: \xCF\x81");
}

TEST_F(QListModelTest, AnswersNothingForRowsThatAreNotThere)
{
    QModelIndex const last = model.index(2);
    EXPECT_FALSE(model.index(3).isValid());
    EXPECT_FALSE(model.index(-1).isValid());
    EXPECT_FALSE(model.index(0, 1).isValid());
    EXPECT_FALSE(model.index(0, 0, last).isValid());
    EXPECT_EQ(model.rowCount(last), 0);
    EXPECT_FALSE(model.data(QModelIndex(), Qt::DisplayRole).isValid());
    list.reset(ScriptedList::numbered(1));
    EXPECT_FALSE(model.data(last, Qt::DisplayRole).isValid());
    EXPECT_EQ(model.flags(last), Qt::NoItemFlags);
    EXPECT_FALSE(model.setData(last, QStringLiteral("text")));
}

TEST_F(QListModelTest, MakesHeadingsNeitherEnabledNorSelectable)
{
    EXPECT_EQ(model.flags(model.index(0)), Qt::NoItemFlags);
    EXPECT_EQ(model.flags(model.index(1)), Qt::ItemIsEnabled | Qt::ItemIsSelectable);
    list.editable = true;
    EXPECT_EQ(model.flags(model.index(0)), Qt::NoItemFlags);
    EXPECT_EQ(model.flags(model.index(1)), Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsEditable);
}

TEST_F(QListModelTest, HandsEditedTextToTheListAndItsAnswerBack)
{
    EXPECT_TRUE(model.setData(model.index(2), QStringLiteral("seven"), Qt::EditRole));
    list.acceptsEdits = false;
    EXPECT_FALSE(model.setData(model.index(2), QStringLiteral("eight"), Qt::EditRole));
    EXPECT_FALSE(model.setData(model.index(2), QStringLiteral("nine"), Qt::DisplayRole));
    EXPECT_EQ(list.edits, (std::vector<std::string>{"2: seven", "2: eight"}));
    EXPECT_EQ(rows(model), "0=Zones | 4=four | 6=six");
}

TEST_F(QListModelTest, TurnsAChangeOfTheWholeIntoAReset)
{
    QSignalSpy const resets(&model, &QAbstractItemModel::modelReset);
    QPersistentModelIndex const kept = model.index(1);
    list.reset({{1, "one"}});
    EXPECT_EQ(resets.count(), 1);
    EXPECT_FALSE(kept.isValid());
    EXPECT_EQ(rows(model), "1=one");
}

TEST_F(QListModelTest, TellsTheOneRowThatChanged)
{
    QSignalSpy changes(&model, &QAbstractItemModel::dataChanged);
    list.change(2, {7, "seven"});
    ASSERT_EQ(changes.count(), 1);
    EXPECT_EQ(changes[0][0].value<QModelIndex>(), model.index(2));
    EXPECT_EQ(changes[0][1].value<QModelIndex>(), model.index(2));
    list.claimChanged(3);
    list.claimChanged(-1);
    EXPECT_EQ(changes.count(), 1);
}

TEST_F(QListModelTest, AnnouncesInsertedRowsBeforeTheyCount)
{
    QPersistentModelIndex const six = model.index(2);
    std::string duringAnnouncement;
    QObject::connect(&model, &QAbstractItemModel::rowsAboutToBeInserted, [&] { duringAnnouncement = rows(model); });
    list.insert(1, {{1, "one"}, {2, "two"}});
    EXPECT_EQ(duringAnnouncement, "0=Zones | 4=four | 6=six");
    EXPECT_EQ(rows(model), "0=Zones | 1=one | 2=two | 4=four | 6=six");
    EXPECT_EQ(six.row(), 4);
    EXPECT_EQ(six.data(Qt::UserRole).toInt(), 6);
}

TEST_F(QListModelTest, RemovesTheAnnouncedRows)
{
    QPersistentModelIndex const four = model.index(1);
    QPersistentModelIndex const six = model.index(2);
    QSignalSpy const resets(&model, &QAbstractItemModel::modelReset);
    list.remove(1, 1);
    EXPECT_FALSE(four.isValid());
    EXPECT_EQ(six.row(), 1);
    EXPECT_EQ(rows(model), "0=Zones | 6=six");
    EXPECT_EQ(resets.count(), 0);
}

TEST_F(QListModelTest, ResetsWhenARangeCannotBe)
{
    QSignalSpy const resets(&model, &QAbstractItemModel::modelReset);
    list.claimInserted(2, 3);
    list.claimInserted(-1, 0);
    list.claimInserted(1, 0);
    EXPECT_EQ(resets.count(), 3);
    list.announceRemoval(2, 3);
    list.claimRemoved();
    EXPECT_EQ(resets.count(), 4);
    EXPECT_EQ(rows(model), "0=Zones | 4=four | 6=six");
}

TEST_F(QListModelTest, IgnoresARemovalThatWasNotAnnounced)
{
    QSignalSpy const removals(&model, &QAbstractItemModel::rowsRemoved);
    list.claimRemoved();
    EXPECT_EQ(removals.count(), 0);
    list.remove(0, 0);
    EXPECT_EQ(removals.count(), 1);
}

TEST_F(QListModelTest, StandsAListThatShrinksInsideItsOwnSignal)
{
    ScriptedList shrinking(ScriptedList::numbered(6));
    bool shrunk = false;
    SignalConnectionCollection connections;
    connections.add(shrinking.connectDataChanged([&] {
        if (!std::exchange(shrunk, true))
            shrinking.reset(ScriptedList::numbered(2));
    }));
    QListModel const shown(shrinking);
    QAbstractItemModelTester const shownTester(const_cast<QListModel*>(&shown),
                                               QAbstractItemModelTester::FailureReportingMode::Fatal);
    shrinking.reset(ScriptedList::numbered(9));
    EXPECT_EQ(rows(shown), "1=1 | 2=2");
}

TEST_F(QListModelTest, HearsTheNextChangeAfterAListenerBeforeItHasThrown)
{
    ScriptedList failing(ScriptedList::numbered(3));
    bool fails = true;
    SignalConnectionCollection connections;
    connections.add(failing.connectDataChanged([&fails] {
        if (fails)
            throw std::runtime_error("listener");
    }));
    QListModel shown(failing);
    QSignalSpy const resets(&shown, &QAbstractItemModel::modelReset);
    EXPECT_THROW(failing.reset(ScriptedList::numbered(1)), std::runtime_error);
    EXPECT_EQ(rows(shown), "1=1");
    fails = false;
    failing.reset(ScriptedList::numbered(2));
    EXPECT_EQ(resets.count(), 1);
    EXPECT_EQ(rows(shown), "1=1 | 2=2");
}

TEST_F(QListModelTest, LeavesTheListAloneOnceItIsGone)
{
    {
        QListModel const shortLived(list);
    }
    list.reset(ScriptedList::numbered(2));
    list.insert(0, ScriptedList::numbered(1));
    EXPECT_EQ(rows(model), "1=1 | 1=1 | 2=2");
}

TEST_F(QListModelTest, ServesListsOfEnumerations)
{
    class Units : public ListModelAbstract<ThetaMode_e>
    {
    public:
        int size() const override { return 2; }
        ThetaMode_e get(int index) const override { return index == 0 ? ThetaMode_Radians : ThetaMode_Degrees; }
        std::string getStr(int index) const override { return index == 0 ? "Radians" : "Degrees"; }
    };
    Units const units;
    QListModel const shown(units);
    EXPECT_EQ(rows(shown), "1=Radians | 0=Degrees");
    EXPECT_EQ(shown.index(0).data(Qt::EditRole).toString(), QStringLiteral("Radians"));
}

/// Random changes; after each, what Qt sees must be the list, and Qt's persistent indexes must have moved with their
/// items unless there was a reset.
class QListModelStorm : public ::testing::TestWithParam<unsigned>
{
};

TEST_P(QListModelStorm, StaysEqualToTheList)
{
    SCOPED_TRACE("seed " + std::to_string(GetParam()));
    std::mt19937 random(GetParam());
    auto const below = [&random](int end) { return std::uniform_int_distribution<int>(0, end - 1)(random); };
    int nextValue = 1000;
    auto const fresh = [&nextValue](int count) {
        std::vector<ScriptedList::Item> items;
        for (int n = 0; n < count; ++n, ++nextValue)
            items.push_back({nextValue, std::to_string(nextValue), nextValue % 7 == 0});
        return items;
    };

    ScriptedList list(fresh(10));
    QListModel model(list);
    QAbstractItemModelTester const tester(&model, QAbstractItemModelTester::FailureReportingMode::Fatal);
    QPersistentModelIndex kept;
    int keptValue = 0;
    for (int step = 0; step < 400; ++step) {
        int const size = list.size();
        int const first = size > 0 ? below(size) : 0;
        switch (below(5)) {
        case 0:
            list.reset(fresh(below(30)));
            break;
        case 1:
            if (size > 0)
                list.change(first, fresh(1).front());
            if (kept.isValid() && kept.row() == first)
                keptValue = nextValue - 1;
            break;
        case 2:
            list.insert(below(size + 1), fresh(1 + below(4)));
            break;
        case 3:
            if (size > 0)
                list.remove(first, first + below(size - first));
            break;
        default:
            kept = model.index(first);
            keptValue = kept.data(Qt::UserRole).toInt();
            break;
        }
        ASSERT_EQ(rows(model), rows(list)) << "step " << step;
        if (kept.isValid()) {
            ASSERT_EQ(kept.data(Qt::UserRole).toInt(), keptValue) << "step " << step;
        }
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, QListModelStorm, ::testing::Range(1u, 21u));

} // namespace
} // namespace veldraw::tests
