#include "host/MessageBox.h"

#include "platform/vdsdkcommon/WaitState.h"

#include <QApplication>
#include <QCursor>
#include <QDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>
#include <QTimer>

#include <functional>
#include <gtest/gtest.h>
#include <memory>

namespace veldraw::tests {

using host::MessageBox;

class TheMessageBox : public ::testing::Test
{
protected:
    /// Shows a text; @p look sees the box while it is open, then a click on OK closes it.
    void show(std::string const& text, MessageBoxType_e type, std::function<void(QMessageBox&)> const& look)
    {
        QTimer::singleShot(0, qApp, [this, look] {
            auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
            ASSERT_NE(box, nullptr);
            m_wasSeen = true;
            look(*box);
            QTest::mouseClick(box->button(QMessageBox::Ok), Qt::LeftButton);
        });
        MessageBox::show(text, type);
        EXPECT_TRUE(m_wasSeen);
        EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
    }

    bool m_wasSeen = false;
};

TEST_F(TheMessageBox, ShowsTheTextAsItStands)
{
    show("<b>1 < 2</b> Gr\xc3\xb6\xc3\x9f"
         "e",
         MessageBoxType_Error, [](QMessageBox& box) {
             EXPECT_EQ(box.text(), QString::fromUtf8("<b>1 < 2</b> Gr\xc3\xb6\xc3\x9f"
                                                     "e"));
             EXPECT_EQ(box.textFormat(), Qt::PlainText);
             EXPECT_EQ(box.icon(), QMessageBox::Critical);
             EXPECT_TRUE(box.isModal());
         });
}

TEST_F(TheMessageBox, ShowsTheReasonToThoseWhoAskForIt)
{
    QTimer::singleShot(0, qApp, [this] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        m_wasSeen = true;
        EXPECT_EQ(box->text(), QStringLiteral("It failed."));
        EXPECT_EQ(box->detailedText(), QStringLiteral("The Z axis has no variable."));
        EXPECT_EQ(box->buttons().size(), 2) << "the other one shows the details";
        QTest::keyClick(box, Qt::Key_Escape);
    });
    MessageBox::show("It failed.", MessageBoxType_Error, "The Z axis has no variable.");
    EXPECT_TRUE(m_wasSeen);
    show("It failed.", MessageBoxType_Error, [](QMessageBox& box) { EXPECT_EQ(box.buttons().size(), 1); });
}

TEST_F(TheMessageBox, ShowsItsType)
{
    show("text", MessageBoxType_Information, [](QMessageBox& box) { EXPECT_EQ(box.icon(), QMessageBox::Information); });
    show("text", MessageBoxType_Warning, [](QMessageBox& box) { EXPECT_EQ(box.icon(), QMessageBox::Warning); });
}

TEST_F(TheMessageBox, StandsOverTheModalDialog)
{
    QDialog dialog;
    dialog.setModal(true);
    dialog.show();
    bool wasOver = false;
    QTimer::singleShot(0, qApp, [&] {
        auto* const box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
        ASSERT_NE(box, nullptr);
        wasOver = box->parentWidget() == &dialog;
        QTest::keyClick(box, Qt::Key_Escape);
    });
    MessageBox::show("text", MessageBoxType_Error);
    EXPECT_TRUE(wasOver);
}

TEST_F(TheMessageBox, ShowsAnArrowWhileTheApplicationIsBusy)
{
    sdk::WaitState const busy;
    show("text", MessageBoxType_Error, [](QMessageBox&) {
        ASSERT_NE(QApplication::overrideCursor(), nullptr);
        EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::ArrowCursor);
    });
    ASSERT_NE(QApplication::overrideCursor(), nullptr);
    EXPECT_EQ(QApplication::overrideCursor()->shape(), Qt::WaitCursor);
}

TEST_F(TheMessageBox, LeavesTheCursorAloneOtherwise)
{
    show("text", MessageBoxType_Error, [](QMessageBox&) { EXPECT_EQ(QApplication::overrideCursor(), nullptr); });
}

TEST_F(TheMessageBox, SurvivesTheEndOfTheWindowBelowIt)
{
    auto dialog = std::make_unique<QDialog>();
    dialog->setModal(true);
    dialog->show();
    QTimer::singleShot(0, qApp, [&dialog] { dialog.reset(); });
    MessageBox::show("text", MessageBoxType_Error);
    EXPECT_EQ(dialog, nullptr);
}

TEST_F(TheMessageBox, IsNotForPlatformsThatNobodyLooksAt)
{
    ASSERT_EQ(QGuiApplication::platformName(), QLatin1String("offscreen"));
    EXPECT_FALSE(MessageBox::canBeShown());
}

} // namespace veldraw::tests
