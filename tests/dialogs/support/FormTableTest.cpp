#include "tests/dialogs/support/FormTable.h"

#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QListView>
#include <QPushButton>
#include <QStackedWidget>
#include <QTabWidget>
#include <QVBoxLayout>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

template <typename Widget>
Widget* add(QDialog& dialog, char const* name)
{
    auto* const widget = new Widget(&dialog);
    widget->setObjectName(QString::fromUtf8(name));
    dialog.layout()->addWidget(widget);
    return widget;
}

class FormTableTest : public testing::Test
{
protected:
    FormTableTest()
    {
        dialog.setObjectName(QStringLiteral("sample"));
        dialog.setWindowTitle(QStringLiteral("Sample"));
        new QVBoxLayout(&dialog);
    }

    QDialog dialog;
};

TEST_F(FormTableTest, HasALineForEachWidgetOfTheFormAndNoneForTheInsidesOfOthers)
{
    auto* const label = add<QLabel>(dialog, "label");
    auto* const list = add<QListView>(dialog, "list");
    auto* const buttons = add<QDialogButtonBox>(dialog, "buttons");
    label->setText(QStringLiteral("&List"));
    label->setBuddy(list);
    list->setToolTip(QStringLiteral("choose"));
    buttons->addButton(QStringLiteral("&Go"), QDialogButtonBox::ActionRole);
    EXPECT_THAT(formTable(dialog), ElementsAre("sample | QDialog | Sample |  | ", "label | QLabel | &List |  | list",
                                               "list | QListView |  | choose | ", "buttons | QDialogButtonBox |  |  | ",
                                               " | QPushButton | &Go |  | "));
}

TEST_F(FormTableTest, TellsTheTabOrder)
{
    auto* const first = add<QLineEdit>(dialog, "first");
    auto* const second = add<QLineEdit>(dialog, "second");
    add<QDialogButtonBox>(dialog, "buttons")->addButton(QStringLiteral("&Go"), QDialogButtonBox::ActionRole);
    EXPECT_THAT(tabOrder(dialog), ElementsAre("first", "second", "[&Go]"));
    QWidget::setTabOrder(second, first);
    EXPECT_THAT(tabOrder(dialog), ElementsAre("second", "first", "[&Go]"));
}

TEST_F(FormTableTest, FindsMnemonicsThatAreTakenTwice)
{
    add<QPushButton>(dialog, "one")->setText(QStringLiteral("&Save"));
    auto* const tabs = add<QTabWidget>(dialog, "tabs");
    tabs->addTab(new QWidget, QStringLiteral("&Size"));
    tabs->addTab(new QWidget, QStringLiteral("&Tail"));
    EXPECT_THAT(repeatedMnemonics(dialog), ElementsAre("Alt+S"));
    tabs->setTabText(0, QStringLiteral("Si&ze"));
    EXPECT_THAT(repeatedMnemonics(dialog), IsEmpty());
}

TEST_F(FormTableTest, LetsPagesOfOneStackUseTheSameMnemonic)
{
    auto* const stack = add<QStackedWidget>(dialog, "stack");
    auto* const page = new QWidget;
    stack->addWidget(page);
    add<QPushButton>(dialog, "one")->setText(QStringLiteral("&Save"));
    dialog.findChild<QPushButton*>(QStringLiteral("one"))->setParent(page);
    auto* const second = add<QPushButton>(dialog, "two");
    second->setText(QStringLiteral("&Send"));
    stack->addWidget(second);
    EXPECT_THAT(repeatedMnemonics(dialog), IsEmpty());
    second->setParent(page);
    EXPECT_THAT(repeatedMnemonics(dialog), ElementsAre("Alt+S"));
    second->setParent(&dialog);
    EXPECT_THAT(repeatedMnemonics(dialog), ElementsAre("Alt+S"));
}

TEST_F(FormTableTest, FindsInputsThatNobodyCouldName)
{
    add<QLineEdit>(dialog, "nameless");
    auto* const named = add<QLineEdit>(dialog, "named");
    auto* const label = add<QLabel>(dialog, "label");
    label->setText(QStringLiteral("&Name"));
    label->setBuddy(named);
    EXPECT_THAT(inputsWithoutAccessibleName(dialog), ElementsAre("nameless"));
}

} // namespace
} // namespace veldraw::tests
