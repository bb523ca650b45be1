#include "dialogs/zoneops/DuplicateZonePropertiesManager.h"
#include "tests/dialogs/zoneops/DuplicateZoneFixture.h"

#include <QPointer>

#include <gmock/gmock.h>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using sdk::integration::StateChangeEventObservable;
using testing::ElementsAre;

int listenerCount()
{
    return StateChangeEventObservable::getInstance().listenerCount();
}

// Lets the set-up of a dialog's form fail half-way, when it sets the title.
class FailingForms : public QObject
{
public:
    FailingForms() { qApp->installEventFilter(this); }

    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::WindowTitleChange && qobject_cast<QDialog*>(watched))
            throw std::runtime_error("no form");
        return false;
    }
};

class DuplicateZoneLifecycleTest : public DuplicateZoneFixture
{
};

TEST_F(DuplicateZoneLifecycleTest, AnswersItsRuleWithAndWithoutADialog)
{
    auto const before = DuplicateZoneDialog::relevance();
    EXPECT_TRUE(before->isRelevant());
    dialog();
    EXPECT_EQ(DuplicateZoneDialog::relevance(), before);
    mainWindow.reset();
    EXPECT_EQ(DuplicateZoneDialog::relevance(), before);
    EXPECT_TRUE(before->isRelevant());
    sample.session().clear();
    EXPECT_FALSE(before->isRelevant());
    sample.session().removeAllPages();
    EXPECT_FALSE(before->isRelevant());
}

TEST_F(DuplicateZoneLifecycleTest, ExistsOnceAndKeepsItsFirstParent)
{
    QWidget other;
    DuplicateZoneDialog& first = dialog();
    EXPECT_EQ(&DuplicateZoneDialog::getInstance(other), &first);
    EXPECT_EQ(first.parentWidget(), mainWindow.get());
}

TEST_F(DuplicateZoneLifecycleTest, EndsWithItsParentAndBeginsAnewWithDefaults)
{
    launched();
    clickRow(1);
    QPointer<QDialog> const first = &dialog();
    mainWindow = std::make_unique<QWidget>();
    EXPECT_TRUE(first.isNull());
    mainWindow->show();
    launched();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
}

TEST_F(DuplicateZoneLifecycleTest, IsNoLongerHandedOutWhileItIsTornDown)
{
    QWidget other;
    DuplicateZoneDialog* const first = &dialog();
    QPointer<DuplicateZoneDialog> second;
    // The bindings go first of all that the dialog owns, and the list binding takes its item model along.
    QObject::connect(list().model(), &QObject::destroyed, &other,
                     [&] { second = &DuplicateZoneDialog::getInstance(other); });
    delete first;
    ASSERT_FALSE(second.isNull());
    EXPECT_NE(second.data(), first);
    EXPECT_EQ(second->parentWidget(), &other);
}

TEST_F(DuplicateZoneLifecycleTest, EndsItsBindingsBeforeItsManagerAndWidgets)
{
    std::vector<std::string> order;
    // The list binding takes its item model away from the view when it goes.
    QObject::connect(list().model(), &QObject::destroyed, mainWindow.get(),
                     [&] { order.emplace_back("list binding"); });
    QObject::connect(&createButton(), &QObject::destroyed, mainWindow.get(), [&] { order.emplace_back("button"); });
    QObject::connect(&list(), &QObject::destroyed, mainWindow.get(), [&] { order.emplace_back("list"); });
    delete &dialog();
    ASSERT_EQ(order.size(), 3u);
    EXPECT_EQ(order.front(), "list binding");
}

TEST_F(DuplicateZoneLifecycleTest, CanBeMadeAfterAFirstTryThatFailed)
{
    DuplicateZoneDialog::relevance();
    int const listeners = listenerCount();
    {
        FailingForms const failing;
        EXPECT_THROW(dialog(), std::runtime_error);
    }
    EXPECT_TRUE(mainWindow->findChildren<QDialog*>().isEmpty());
    EXPECT_EQ(listenerCount(), listeners);
    launched();
    EXPECT_EQ(rows().size(), 3u);
}

TEST_F(DuplicateZoneLifecycleTest, LeavesNothingBehindAfterTwoHundredLives)
{
    dialog();
    delete &dialog();
    IdleDispatcher::flush();
    int const listeners = listenerCount();
    int const windows = static_cast<int>(QApplication::topLevelWidgets().size());
    for (int life = 0; life < 200; ++life) {
        dialog().launch();
        clickRow(life % 3);
        dialog().close();
        delete &dialog();
    }
    IdleDispatcher::flush();
    EXPECT_EQ(listenerCount(), listeners);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
    mainWindow.reset();
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(DuplicateZoneLifecycleTest, HearsNothingOfTheKernelAfterItsEnd)
{
    launched();
    clickRow(1);
    mainWindow.reset();
    sample.session().duplicateZones(sample.dataSet(), kernel::NumberSet{2});
    IdleDispatcher::flush();
    EXPECT_EQ(zoneNames().size(), 4u);
}

TEST(DuplicateZonePropertiesManager, StartsEmptyAndSharesItsMembers)
{
    test::SampleSession const sample({"Wing", "Body"}, {"X"});
    boost::weak_ptr<Property<std::set<int>>> selection;
    boost::shared_ptr<sdk::ui::propertymanager::DuplicateZonePropertiesManager::ZonesListModel> model;
    {
        sdk::ui::propertymanager::DuplicateZonePropertiesManager const manager;
        EXPECT_TRUE(manager.sourceZones()->value().empty());
        EXPECT_EQ(manager.sourceZones(), manager.sourceZones());
        selection = manager.sourceZones();
        model = manager.zonesListModel();
        EXPECT_EQ(model->size(), 2);
        EXPECT_FALSE(model->isEditable());
    }
    EXPECT_TRUE(selection.expired());
    EXPECT_EQ(model->size(), 2) << "whoever shares the list keeps it alive";
}

} // namespace
} // namespace veldraw::tests
