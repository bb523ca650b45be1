#include "dialogs/variableops/DeleteVariablePropertiesManager.h"
#include "tests/dialogs/variableops/DeleteVariableFixture.h"

#include <QPointer>

#include <gmock/gmock.h>
#include <stdexcept>

namespace veldraw::tests {
namespace {

using sdk::integration::StateChangeEventObservable;
using testing::ElementsAre;
using testing::IsEmpty;

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

class DeleteVariableLifecycleTest : public DeleteVariableFixture
{
};

TEST_F(DeleteVariableLifecycleTest, AnswersItsRuleWithAndWithoutADialog)
{
    auto const before = DeleteVariableDialog::relevance();
    EXPECT_TRUE(before->isRelevant());
    dialog();
    EXPECT_EQ(DeleteVariableDialog::relevance(), before);
    mainWindow.reset();
    EXPECT_EQ(DeleteVariableDialog::relevance(), before);
    EXPECT_TRUE(before->isRelevant());
    sample.session().clear();
    EXPECT_FALSE(before->isRelevant());
    sample.session().removeAllPages();
    EXPECT_FALSE(before->isRelevant());
}

TEST_F(DeleteVariableLifecycleTest, ExistsOnceAndKeepsItsFirstParent)
{
    QWidget other;
    DeleteVariableDialog& first = dialog();
    EXPECT_EQ(&DeleteVariableDialog::getInstance(other), &first);
    EXPECT_EQ(first.parentWidget(), mainWindow.get());
}

TEST_F(DeleteVariableLifecycleTest, EndsWithItsParentAndBeginsAnewWithDefaults)
{
    launched();
    clickRow(1);
    QPointer<QDialog> const first = &dialog();
    mainWindow = std::make_unique<QWidget>();
    EXPECT_TRUE(first.isNull());
    mainWindow->show();
    launched();
    EXPECT_THAT(rows(), ElementsAre("1: X", "2: Y", "3: P", "4: T"));
}

TEST_F(DeleteVariableLifecycleTest, IsNoLongerHandedOutWhileItIsTornDown)
{
    QWidget other;
    DeleteVariableDialog* const first = &dialog();
    QPointer<DeleteVariableDialog> second;
    // The bindings go first of all that the dialog owns, and the list binding takes its item model along.
    QObject::connect(list().model(), &QObject::destroyed, &other,
                     [&] { second = &DeleteVariableDialog::getInstance(other); });
    delete first;
    ASSERT_FALSE(second.isNull());
    EXPECT_NE(second.data(), first);
    EXPECT_EQ(second->parentWidget(), &other);
}

TEST_F(DeleteVariableLifecycleTest, EndsItsBindingsBeforeItsManagerAndWidgets)
{
    std::vector<std::string> order;
    // The list binding takes its item model away from the view when it goes.
    QObject::connect(list().model(), &QObject::destroyed, mainWindow.get(),
                     [&] { order.emplace_back("list binding"); });
    QObject::connect(&deleteButton(), &QObject::destroyed, mainWindow.get(), [&] { order.emplace_back("button"); });
    QObject::connect(&list(), &QObject::destroyed, mainWindow.get(), [&] { order.emplace_back("list"); });
    delete &dialog();
    ASSERT_EQ(order.size(), 3u);
    EXPECT_EQ(order.front(), "list binding");
}

TEST_F(DeleteVariableLifecycleTest, EndsItsBindingsInTheOrderOfTheirCreation)
{
    QPushButton& button = deleteButton();
    bool isListBindingGone = false;
    // When the list binding, the last one, takes its item model along, the button's binding has gone already.
    QObject::connect(list().model(), &QObject::destroyed, mainWindow.get(), [&] {
        isListBindingGone = true;
        button.click();
    });
    clickDelete();
    EXPECT_THAT(messages.take(), ElementsAre("error: No variables are selected"));
    delete &dialog();
    EXPECT_TRUE(isListBindingGone);
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(DeleteVariableLifecycleTest, CanBeMadeAfterAFirstTryThatFailed)
{
    DeleteVariableDialog::relevance();
    int const listeners = listenerCount();
    {
        FailingForms const failing;
        EXPECT_THROW(dialog(), std::runtime_error);
    }
    EXPECT_TRUE(mainWindow->findChildren<QDialog*>().isEmpty());
    EXPECT_EQ(listenerCount(), listeners);
    launched();
    EXPECT_EQ(rows().size(), 4u);
}

TEST_F(DeleteVariableLifecycleTest, LeavesNothingBehindAfterTwoHundredLives)
{
    dialog();
    delete &dialog();
    IdleDispatcher::flush();
    int const listeners = listenerCount();
    int const windows = static_cast<int>(QApplication::topLevelWidgets().size());
    for (int life = 0; life < 200; ++life) {
        dialog().launch();
        clickRow(life % 4);
        dialog().close();
        delete &dialog();
    }
    IdleDispatcher::flush();
    EXPECT_EQ(listenerCount(), listeners);
    EXPECT_EQ(QApplication::topLevelWidgets().size(), windows);
    mainWindow.reset();
    EXPECT_TRUE(QApplication::topLevelWidgets().isEmpty());
}

TEST_F(DeleteVariableLifecycleTest, HearsNothingOfTheKernelAfterItsEnd)
{
    launched();
    clickRow(1);
    mainWindow.reset();
    sample.session().deleteVariables(sample.dataSet(), kernel::NumberSet{2});
    IdleDispatcher::flush();
    EXPECT_EQ(variableNames().size(), 3u);
}

TEST(DeleteVariablePropertiesManager, StartsEmptyAndSharesItsMembers)
{
    test::SampleSession const sample({"Wing"}, {"X", "Y"});
    boost::weak_ptr<Property<std::set<int>>> selection;
    boost::shared_ptr<sdk::ui::propertymanager::DeleteVariablePropertiesManager::VariablesListModel> model;
    {
        sdk::ui::propertymanager::DeleteVariablePropertiesManager const manager;
        EXPECT_TRUE(manager.selectedVariables()->value().empty());
        EXPECT_EQ(manager.selectedVariables(), manager.selectedVariables());
        selection = manager.selectedVariables();
        model = manager.variablesListModel();
        EXPECT_EQ(model->size(), 2);
        EXPECT_FALSE(model->isEditable());
    }
    EXPECT_TRUE(selection.expired());
    EXPECT_EQ(model->size(), 2) << "whoever shares the list keeps it alive";
}

} // namespace
} // namespace veldraw::tests
