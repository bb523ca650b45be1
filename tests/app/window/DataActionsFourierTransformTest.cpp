#include "dialogs/fourier/FourierTransformDialog.h"
#include "tests/app/support/WindowTest.h"

#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QTest>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

using dialogs::data::FourierTransformDialog;
using testing::ElementsAre;
using testing::IsEmpty;

/// A time series beside a flow, transformed by somebody who has no mouse.
class FourierTransformActionTest : public WindowTest
{
protected:
    FourierTransformActionTest()
    {
        openFrames({{"series", makeSeries()}, {"flow", makeFlow()}});
        showWindow();
    }

    FourierTransformDialog* openDialog()
    {
        QTest::keyClick(window.get(), Qt::Key_D, Qt::AltModifier);
        if (QWidget* const menu = QApplication::activePopupWidget())
            QTest::keyClick(menu, Qt::Key_F);
        settle();
        for (QWidget* const widget : QApplication::topLevelWidgets())
            if (auto* const dialog = dynamic_cast<FourierTransformDialog*>(widget); dialog && dialog->isVisible())
                return dialog;
        return nullptr;
    }

    /// The names of the frames in their list beside the plots.
    std::vector<std::string> listedFrames()
    {
        settle();
        auto const* const view = window->findChild<QAbstractItemView*>(QStringLiteral("frameView"));
        std::vector<std::string> names;
        for (int row = 0; row < view->model()->rowCount(); ++row)
            names.push_back(view->model()->index(row, 1).data().toString().toStdString());
        return names;
    }
};

TEST_F(FourierTransformActionTest, IsOfferedWhileTheFrameHasALineToTransform)
{
    QAction const& offered = action("fourierTransformAction");
    settle();
    EXPECT_TRUE(offered.isEnabled());
    session.activateFrame(session.activePage()->frames[1]->id);
    settle();
    EXPECT_FALSE(offered.isEnabled()) << "the flow has no lines";
    session.activateFrame(session.activePage()->frames[0]->id);
    settle();
    EXPECT_TRUE(offered.isEnabled());
    session.clear();
    settle();
    EXPECT_FALSE(offered.isEnabled());
}

TEST_F(FourierTransformActionTest, ShowsItsFrameInTheListAndTakesItBackByKeysAlone)
{
    std::vector<std::string> const before = listedFrames();
    FourierTransformDialog* const dialog = openDialog();
    ASSERT_TRUE(dialog);
    ASSERT_TRUE(QTest::qWaitForWindowActive(dialog));
    QTest::keyClick(dialog->focusWidget(), Qt::Key_D, Qt::AltModifier);
    QTest::keyClick(dialog->focusWidget(), Qt::Key_A, Qt::ControlModifier);
    settle();
    QTest::keyClick(dialog->focusWidget(), Qt::Key_T, Qt::AltModifier);
    EXPECT_TRUE(QTest::qWaitFor([this] { return session.activePage()->frames.size() == 3; }));
    EXPECT_THAT(messages, IsEmpty());
    std::vector<std::string> expected = before;
    expected.emplace_back("Fourier Transform (Frame 3)");
    EXPECT_EQ(listedFrames(), expected);
    EXPECT_EQ(session.activeFrame(), session.activePage()->frames.front());
    QTest::keyClick(dialog->focusWidget(), Qt::Key_Escape);
    EXPECT_FALSE(dialog->isVisible());
    ASSERT_TRUE(QTest::qWaitFor([this] {
        window->activateWindow(); // as a window manager does
        return QApplication::activeWindow() == window.get();
    }));
    while (session.history().canUndo())
        QTest::keyClick(window.get(), Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(listedFrames(), before);
    EXPECT_EQ(session.activeDataSet()->variableCount(), 2);
}

} // namespace

} // namespace veldraw::tests
