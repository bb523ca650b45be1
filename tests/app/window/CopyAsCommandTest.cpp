#include "app/window/CopyAsCommand.h"

#include "host/MessageLog.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractItemView>
#include <QAbstractSpinBox>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QDialog>
#include <QDialogButtonBox>
#include <QLabel>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class CopyAsCommandTest : public WindowTest
{
protected:
    CopyAsCommandTest() { QApplication::clipboard()->setText(QStringLiteral("before")); }
    ~CopyAsCommandTest() override
    {
        if (m_dialog)
            m_dialog->close();
    }

    void openFlowIn(PlotType_e plotType)
    {
        openFlow();
        session.perform(kernel::SetPlotType(session.activeFrame()->id, plotType));
        session.history().clear();
        session.journal().clear();
        showWindow();
    }

    // Opens a dialog and selects the first row of each of its lists.
    void openDialog(char const* name)
    {
        settle();
        action(name).trigger();
        settle();
        m_dialog = nullptr;
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const dialog = qobject_cast<QDialog*>(widget); dialog && dialog->isVisible())
                m_dialog = dialog;
        ASSERT_TRUE(m_dialog) << name;
        for (QAbstractItemView* const view : m_dialog->findChildren<QAbstractItemView*>())
            if (view->isVisible() && view->model() && view->model()->rowCount() > 0)
                QTest::mouseClick(view->viewport(), Qt::LeftButton, {},
                                  view->visualRect(view->model()->index(0, 0)).center());
        settle();
    }

    QPushButton& applyButton()
    {
        auto const* const box = m_dialog->findChild<QDialogButtonBox*>();
        for (QAbstractButton* const button : box->buttons())
            if (box->buttonRole(button) != QDialogButtonBox::HelpRole &&
                box->buttonRole(button) != QDialogButtonBox::RejectRole)
                return *qobject_cast<QPushButton*>(button);
        throw std::runtime_error("The dialog has no such button.");
    }

    // By the context menu of a button, and a key.
    std::string copied()
    {
        // As the right button of a mouse has it; what is disabled hears nothing.
        QWidget& target =
            applyButton().isEnabled() ? static_cast<QWidget&>(applyButton()) : *applyButton().parentWidget();
        QPoint const place = target.rect().center();
        QContextMenuEvent asked(QContextMenuEvent::Mouse, place, target.mapToGlobal(place));
        QApplication::sendEvent(&target, &asked);
        QWidget* const menu = QApplication::activePopupWidget();
        if (!menu)
            return "no menu";
        QTest::keyClick(menu, Qt::Key_C);
        settle();
        return QApplication::clipboard()->text().toStdString();
    }

    // What the dialog does when its button is clicked, as the journal has it.
    std::string carriedOut()
    {
        QTest::mouseClick(&applyButton(), Qt::LeftButton);
        settle();
        auto const& entries = session.journal().entries();
        return entries.empty() ? "nothing" : entries.front()->text;
    }

    QDialog* m_dialog = nullptr;
};

class CopiedFrom : public CopyAsCommandTest, public testing::WithParamInterface<std::pair<char const*, char const*>>
{
};

} // namespace

TEST_P(CopiedFrom, IsWhatTheButtonThenDoes)
{
    auto const [name, start] = GetParam();
    openFlowIn(PlotType_Cartesian2D);
    openDialog(name);
    if (auto* const angle = m_dialog->findChild<QAbstractSpinBox*>(QStringLiteral("angle_spinBox"))) {
        angle->setFocus();
        angle->selectAll();
        QTest::keyClicks(angle, QStringLiteral("30"));
    }
    std::string const command = copied();
    EXPECT_EQ(command.compare(0, std::string(start).size(), start), 0) << command;
    EXPECT_FALSE(session.history().canUndo()) << "nothing has been done";
    EXPECT_THAT(session.journal().entries(), IsEmpty());
    EXPECT_THAT(messages, IsEmpty());
    EXPECT_TRUE(m_dialog->isVisible());
    EXPECT_EQ(carriedOut(), command);
    EXPECT_TRUE(session.history().canUndo());
}

INSTANTIATE_TEST_SUITE_P(Dialogs, CopiedFrom,
                         testing::Values(std::pair("createMirrorZoneAction", "mirror-zones zones=1 plane="),
                                         std::pair("duplicateZoneAction", "duplicate-zones zones=1"),
                                         std::pair("axialDuplicationAction", "duplicate-zones-axially zones=1 "),
                                         std::pair("axialRotationAction", "rotate-zones zones=1 "),
                                         std::pair("deleteVariableAction", "delete-variables variables=1")),
                         [](auto const& each) { return std::string(each.param.first); });

TEST_F(CopyAsCommandTest, OfATransformMakesNoFrame)
{
    openFrames({{"series", makeSeries()}});
    session.history().clear();
    session.journal().clear();
    showWindow();
    openDialog("fourierTransformAction");
    ASSERT_TRUE(QTest::qWaitForWindowActive(m_dialog));
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_D, Qt::AltModifier);
    QTest::keyClick(m_dialog->focusWidget(), Qt::Key_A, Qt::ControlModifier);
    settle();
    EXPECT_EQ(copied().compare(0, 18, "fourier-transform "), 0);
    EXPECT_EQ(session.activePage()->frames.size(), 1U);
    EXPECT_THAT(messages, IsEmpty());
}

TEST_F(CopyAsCommandTest, OfASmoothingHasAllOfItsChoices)
{
    openFlowIn(PlotType_Cartesian2D);
    openDialog("smoothAction");
    EXPECT_EQ(copied(), "smooth zone=1 variable=3 passes=1 coefficient=0.5 boundary=fixed");
}

TEST_F(CopyAsCommandTest, TellsWhyTheDialogWouldNot)
{
    openFlowIn(PlotType_Cartesian2D);
    openDialog("deleteVariableAction");
    auto* const list = m_dialog->findChild<QAbstractItemView*>();
    QTest::keyClick(list, Qt::Key_A, Qt::ControlModifier);
    settle();
    ASSERT_TRUE(applyButton().isEnabled());
    EXPECT_EQ(copied(), "before");
    std::vector<std::string> const told = messages;
    messages.clear();
    carriedOut();
    EXPECT_EQ(told, messages) << "in the words of the dialog";
    EXPECT_EQ(told.size(), 1U);
}

TEST_F(CopyAsCommandTest, IsLoggedByTheStatusBarAlone)
{
    openFlowIn(PlotType_Cartesian2D);
    openDialog("duplicateZoneAction");
    std::size_t const logged = host::MessageLog::instance().entries().size();
    EXPECT_EQ(copied(), "duplicate-zones zones=1");
    EXPECT_EQ(host::MessageLog::instance().entries().size(), logged);
}

TEST_F(CopyAsCommandTest, IsNothingWhereTheButtonIsOff)
{
    openFlowIn(PlotType_Cartesian2D);
    openDialog("duplicateZoneAction");
    session.clear();
    settle();
    ASSERT_FALSE(applyButton().isEnabled());
    EXPECT_EQ(copied(), "before");
}

} // namespace veldraw::tests
