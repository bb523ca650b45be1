#include "kernel/base/BackgroundWork.h"
#include "kernel/operations/SetValue.h"
#include "tests/dialogs/spreadsheet/SpreadsheetDriver.h"

#include <QComboBox>
#include <QListView>
#include <QPushButton>

#include <functional>
#include <gmock/gmock.h>

namespace veldraw::tests {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Edits beside which something else happens. The first zone is a line of four points, its third variable not loaded.
class DataSpreadsheetEditingTest : public SpreadsheetDriver
{
protected:
    DataSpreadsheetEditingTest()
    {
        stage.addZone("Line", ZoneType_Ordered, 4, 1, 1);
        stage.addZone("Other", ZoneType_Ordered, 4, 1, 1);
        stage.fillAll(1);
        stage.fillAll(2);
        loader = stage.defer(1, 3, 7.0);
        stage.show();
        launched();
    }

    QLineEdit* editor() { return table().viewport()->findChild<QLineEdit*>(); }
    void beginEdit(int row, int column, std::string const& text)
    {
        table().setFocus();
        goTo(row, column);
        type(text);
        ASSERT_TRUE(editor());
        ASSERT_EQ(editor()->text().toStdString(), text);
    }
    void settleEditors()
    {
        settle();
        QApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    }

    QDialog& loadDialog()
    {
        QTest::mouseClick(&widget<QPushButton>("LoadVariables_PushButton"), Qt::LeftButton);
        settle();
        auto* const found = dialog().findChild<QDialog*>(QStringLiteral("LoadVariables"));
        if (!found)
            throw std::logic_error("there is no dialog for loading");
        return *found;
    }
    /// Selects the only variable that can be loaded and clicks on Load.
    void load()
    {
        QDialog& box = loadDialog();
        auto& list = *box.findChild<QListView*>();
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::NoModifier,
                          list.visualRect(list.model()->index(0, 0)).center());
        settle();
        for (auto* const button : box.findChildren<QPushButton*>())
            if (button->text() == QStringLiteral("&Load"))
                QTest::mouseClick(button, Qt::LeftButton);
        settle();
        box.close();
        settle();
    }

    std::shared_ptr<ConstantLoader> loader;
};

TEST_F(DataSpreadsheetEditingTest, KeepsWhatIsTypedWhileTheFormatChanges)
{
    beginEdit(1, 0, "12");
    Choices::spreadsheetFormat()->setValue(NumberFormat_Exponent);
    settle();
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->text(), QStringLiteral("12"));
    pressInEditor(Qt::Key_Return);
    EXPECT_EQ(stage.stored(1, 1, 1), 12.0);
    EXPECT_EQ(shown(1, 0), "1.200E+01");
}

TEST_F(DataSpreadsheetEditingTest, KeepsWhatIsTypedWhileValuesOfTheTableAreAlteredElsewhere)
{
    beginEdit(1, 0, "12");
    ASSERT_TRUE(stage.session().perform(kernel::SetValue(stage.dataSet(), 1, 1, 2, 55.0, false)));
    settle();
    EXPECT_EQ(shown(2, 0), "55");
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->text(), QStringLiteral("12"));
    pressInEditor(Qt::Key_Escape);
    EXPECT_EQ(stage.stored(1, 1, 1), 101.0);
}

TEST_F(DataSpreadsheetEditingTest, ShowsTheNewValueInAnEditorInWhichNothingIsTyped)
{
    goTo(2, 0);
    QTest::keyClick(&table(), Qt::Key_F2);
    ASSERT_TRUE(editor());
    EXPECT_EQ(editor()->text(), QStringLiteral("102"));
    ASSERT_TRUE(stage.session().perform(kernel::SetValue(stage.dataSet(), 1, 1, 2, 55.0, false)));
    settle();
    EXPECT_EQ(editor()->text(), QStringLiteral("55"));
}

TEST_F(DataSpreadsheetEditingTest, TakesWhatIsTypedBeforeAnotherZoneIsChosen)
{
    beginEdit(1, 0, "12");
    auto& zones = widget<QComboBox>("Zone_ComboBox");
    zones.setFocus();
    QTest::keyClick(&zones, Qt::Key_Down);
    settleEditors();
    EXPECT_EQ(zones.currentText(), QStringLiteral("2: Other"));
    EXPECT_FALSE(editor());
    EXPECT_EQ(stage.stored(1, 1, 1), 12.0);
    EXPECT_EQ(stage.stored(2, 1, 1), 101.0);
}

TEST_F(DataSpreadsheetEditingTest, ShowsWhatWasNotLoadedOnceItIs)
{
    EXPECT_EQ(shown(0, 2), "Not Loaded");
    load();
    EXPECT_EQ(shown(0, 2), "7");
    edit(0, 2, "8");
    EXPECT_EQ(stage.stored(1, 3, 0), 8.0);
    EXPECT_THAT(messages.take(), IsEmpty());
}

TEST_F(DataSpreadsheetEditingTest, LosesNothingWhenTheFileHasGone)
{
    loader->fails = true;
    load();
    EXPECT_THAT(messages.take(), IsEmpty());
    EXPECT_EQ(shown(0, 2), "Not Loaded");
    EXPECT_EQ(shown(0, 1), "200");
    edit(0, 1, "5");
    EXPECT_EQ(stage.stored(1, 2, 0), 5.0);
    edit(0, 2, "5");
    EXPECT_EQ(shown(0, 2), "Not Loaded");
    EXPECT_THAT(messages.take(), IsEmpty());
    loader->fails = false;
    load();
    EXPECT_EQ(shown(0, 2), "7");
    EXPECT_EQ(shown(0, 1), "5");
}

/// Lets the user act while an operation computes.
class BusyUser : public kernel::Waiter
{
public:
    BusyUser(kernel::Session& session, std::function<void()> act)
        : m_session(session)
        , m_act(std::move(act))
    {
        m_session.setWaiter(this);
    }
    ~BusyUser() override { m_session.setWaiter(nullptr); }

    void wait(std::string const&, kernel::Progress&, std::shared_future<void> const& work) override
    {
        ++operations;
        m_act();
        work.wait();
    }

    int operations = 0;

private:
    kernel::Session& m_session;
    std::function<void()> m_act;
};

TEST_F(DataSpreadsheetEditingTest, RefusesAnEditWhileValuesAreBeingLoadedAndTellsIt)
{
    BusyUser user(stage.session(), [this] { edit(1, 0, "12"); });
    load();
    EXPECT_EQ(user.operations, 1);
    EXPECT_THAT(messages.take(), ElementsAre("error: Error while setting variable value"));
    EXPECT_EQ(stage.stored(1, 1, 1), 101.0);
    EXPECT_EQ(shown(1, 0), "101");
    EXPECT_EQ(shown(0, 2), "7") << "the load is not disturbed";
    edit(1, 0, "12");
    EXPECT_EQ(stage.stored(1, 1, 1), 12.0);
}

} // namespace
} // namespace veldraw::tests
