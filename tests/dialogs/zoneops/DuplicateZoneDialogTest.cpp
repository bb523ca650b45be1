#include "kernel/operations/EnableZone.h"
#include "kernel/operations/RenameZone.h"
#include "tests/dialogs/support/FormTable.h"
#include "tests/dialogs/support/NotingTranslator.h"
#include "tests/dialogs/zoneops/DuplicateZoneFixture.h"

#include <QItemSelectionModel>
#include <QLabel>
#include <QVBoxLayout>

#include <gmock/gmock.h>
#include <string>

namespace veldraw::tests {
namespace {

using testing::Contains;
using testing::ElementsAre;
using testing::EndsWith;
using testing::IsEmpty;
using testing::IsSupersetOf;
using testing::Not;

class DuplicateZoneDialogTest : public DuplicateZoneFixture
{
};

TEST_F(DuplicateZoneDialogTest, LooksAsItsFormSays)
{
    EXPECT_THAT(formTable(launched()),
                ElementsAre("DuplicateZone | veldraw::dialogs::common::QtDialogAbstract | Create Duplicate Zone |  | ",
                            "duplicateZone_SourceZone_Static | QLabel | Source &zone |  | duplicateZone_Source_MList",
                            "duplicateZone_Source_MList | QListView |  |  | ", "buttonBox | QDialogButtonBox |  |  | ",
                            " | QPushButton | Close |  | ", " | QPushButton | C&reate |  | ",
                            " | QPushButton | Help |  | "));
    EXPECT_EQ(dialog().size(), QSize(274, 270));
    EXPECT_FALSE(dialog().isModal());
    auto const* const label = dialog().findChild<QLabel*>(QStringLiteral("duplicateZone_SourceZone_Static"));
    EXPECT_EQ(label->sizePolicy().horizontalPolicy(), QSizePolicy::Fixed);
    EXPECT_EQ(label->sizePolicy().verticalPolicy(), QSizePolicy::Fixed);
    EXPECT_TRUE(qobject_cast<QVBoxLayout*>(dialog().layout()));
    EXPECT_EQ(dialog().layout()->objectName(), QStringLiteral("verticalLayout"));
    EXPECT_EQ(buttonBox().standardButtons(), QDialogButtonBox::Close | QDialogButtonBox::Help);
    EXPECT_EQ(buttonBox().buttonRole(&actionButton()), QDialogButtonBox::ActionRole);
    EXPECT_FALSE(actionButton().isDefault() || actionButton().autoDefault());
}

TEST_F(DuplicateZoneDialogTest, CanBeWalkedByTabInReadingOrder)
{
    EXPECT_THAT(tabOrder(launched()), ElementsAre("duplicateZone_Source_MList", "[C&reate]", "[Close]", "[Help]"));
    EXPECT_EQ(dialog().focusWidget(), &list());
    EXPECT_EQ(list().accessibleName(), QStringLiteral("Source zone"));
}

TEST_F(DuplicateZoneDialogTest, ListsTheEnabledZones)
{
    launched();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 2, false));
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "3: Tail"));
}

TEST_F(DuplicateZoneDialogTest, ListsZonesOfEveryKind)
{
    sample.dataSet().zone(1)->type = ZoneType_FETriangle;
    sample.dataSet().zone(2)->j = 1; // a line
    sample.dataSet().zone(3)->i = sample.dataSet().zone(3)->j = 1;
    launched();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
}

TEST_F(DuplicateZoneDialogTest, LetsSeveralZonesBeSelected)
{
    launched();
    EXPECT_EQ(list().selectionMode(), QAbstractItemView::ExtendedSelection);
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "2: Body", "*3: Tail"));
    clickRow(1);
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail"));
    clickRow(2, Qt::ShiftModifier);
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "*3: Tail"));
}

TEST_F(DuplicateZoneDialogTest, CreatesCopiesThatAppearInTheListAndKeepsTheSelection)
{
    launched();
    clickRow(0);
    clickRow(2, Qt::ControlModifier);
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("information: Duplicate zone(s) created"));
    EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Wing", "Tail"));
    EXPECT_TRUE(dialog().isVisible());
    EXPECT_THAT(rows(), ElementsAre("*1: Wing", "2: Body", "*3: Tail", "4: Wing", "5: Tail"));
    clickAction();
    EXPECT_EQ(zoneNames().size(), 7u) << "what is selected can be duplicated again";
}

TEST_F(DuplicateZoneDialogTest, SharesTheValuesWithTheCopies)
{
    auto buffer = kernel::Buffer::allocate(FieldDataType_Float, 6);
    sample.dataSet().zone(2)->fields[0] =
        kernel::Field(std::make_shared<kernel::ShareGroup>(std::move(buffer)), ValueLocation_Nodal);
    launched();
    clickRow(1);
    clickAction();
    clickAction();
    EXPECT_EQ(sample.dataSet().field(5, 1)->group(), sample.dataSet().field(2, 1)->group());
    EXPECT_EQ(sample.dataSet().field(2, 1)->shareCount(), 3);
}

TEST_F(DuplicateZoneDialogTest, SaysSoWhenNothingIsSelected)
{
    std::string const stepBefore = sample.session().history().undoName();
    launched();
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: No zones are selected"));
    EXPECT_EQ(zoneNames().size(), 3u);
    EXPECT_EQ(sample.session().history().undoName(), stepBefore);
}

TEST_F(DuplicateZoneDialogTest, DuplicatesAllZonesIfAsked)
{
    launched();
    list().setFocus();
    QTest::keyClick(&list(), Qt::Key_A, Qt::ControlModifier);
    clickAction();
    EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Wing", "Body", "Tail"));
}

TEST_F(DuplicateZoneDialogTest, CanBeUsedByKeyboardAlone)
{
    launched();
    QTest::keyClick(dialog().focusWidget(), Qt::Key_Z, Qt::AltModifier);
    EXPECT_EQ(dialog().focusWidget(), &list());
    QTest::keyClick(&list(), Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Down);
    QTest::keyClick(&list(), Qt::Key_Down, Qt::ShiftModifier);
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "*3: Tail"));
    QTest::keyClick(&list(), Qt::Key_R, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return zoneNames().size() == 5; }));
    EXPECT_THAT(messages.take(), ElementsAre("information: Duplicate zone(s) created"));
    EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Body", "Tail"));
    QTest::keyClick(&list(), Qt::Key_Escape);
    EXPECT_FALSE(dialog().isVisible());
}

TEST_F(DuplicateZoneDialogTest, PressesCreateBySpace)
{
    launched();
    clickRow(2);
    actionButton().setFocus();
    QTest::keyClick(&actionButton(), Qt::Key_Space);
    EXPECT_THAT(zoneNames(), ElementsAre("Wing", "Body", "Tail", "Tail"));
}

TEST_F(DuplicateZoneDialogTest, AppliesItsSelectionToAChangedListAtIdle)
{
    launched();
    clickRow(1);
    sample.session().perform(kernel::EnableZone(sample.dataSet(), 1, false));
    EXPECT_EQ(list().model()->rowCount(), 2);
    EXPECT_FALSE(list().selectionModel()->hasSelection());
    EXPECT_THAT(rows(), ElementsAre("*2: Body", "3: Tail"));
}

TEST_F(DuplicateZoneDialogTest, FollowsUndoRedoAndRenaming)
{
    launched();
    clickRow(1);
    clickAction();
    sample.session().undo();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail"));
    sample.session().redo();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "*2: Body", "3: Tail", "4: Body"));
    sample.session().perform(kernel::RenameZone(sample.dataSet(), 4, "Body 2"));
    EXPECT_EQ(rows().back(), "4: Body 2");
}

TEST_F(DuplicateZoneDialogTest, ForgetsASelectedCopyThatUndoTakesAway)
{
    launched();
    clickRow(0);
    clickAction();
    IdleDispatcher::flush();
    clickRow(3);
    sample.session().undo();
    EXPECT_THAT(rows(), ElementsAre("1: Wing", "2: Body", "3: Tail"));
    messages.take();
    clickAction();
    EXPECT_THAT(messages.take(), ElementsAre("error: No zones are selected"));
}

TEST_F(DuplicateZoneDialogTest, TranslatesTheTextsOfItsFormOnly)
{
    NotingTranslator const translator;
    EXPECT_EQ(dialog().windowTitle(), QStringLiteral("<Create Duplicate Zone>"));
    EXPECT_THAT(translator.asked,
                IsSupersetOf({"DuplicateZone: Create Duplicate Zone", "DuplicateZone: Source &zone"}));
    EXPECT_EQ(actionButton().text(), QStringLiteral("C&reate"));
    EXPECT_THAT(translator.asked, Not(Contains(EndsWith("C&reate"))));
}

} // namespace
} // namespace veldraw::tests
