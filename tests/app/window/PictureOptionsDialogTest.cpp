#include "app/window/PictureOptionsDialog.h"

#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QDoubleSpinBox>
#include <QLabel>
#include <QPushButton>
#include <QSpinBox>
#include <QTest>
#include <QTimer>

#include <functional>

namespace veldraw::tests {

namespace {

class PictureOptionsDialogTest : public WindowTest
{
protected:
    PictureOptionsDialogTest()
    {
        openFlow();
        showWindow();
    }

    /// Lets @p user act on the dialog of the File menu.
    void withDialog(std::function<void(QDialog&)> const& user)
    {
        bool wasOpen = false;
        QTimer::singleShot(0, window.get(), [&] {
            auto* const dialog = dynamic_cast<app::PictureOptionsDialog*>(QApplication::activeModalWidget());
            ASSERT_TRUE(dialog);
            wasOpen = true;
            user(*dialog);
        });
        action("pictureOptionsAction").trigger();
        EXPECT_TRUE(wasOpen);
        settle();
    }

    template <typename Widget>
    static Widget& part(QDialog& dialog, char const* name)
    {
        return *dialog.findChild<Widget*>(QString::fromLatin1(name));
    }

    template <typename Box>
    static void type(QDialog& dialog, char const* name, char const* text)
    {
        Box& box = part<Box>(dialog, name);
        box.setFocus();
        box.selectAll();
        QTest::keyClicks(&box, QString::fromLatin1(text));
        QTest::keyClick(&box, Qt::Key_Tab);
    }

    static void click(QDialog& dialog, char const* name)
    {
        auto& box = part<QCheckBox>(dialog, name);
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
    }

    static QPushButton& ok(QDialog& dialog)
    {
        return *dialog.findChild<QDialogButtonBox*>()->button(QDialogButtonBox::Ok);
    }

    static std::string outcome(QDialog& dialog) { return part<QLabel>(dialog, "pictureOutcome").text().toStdString(); }

    app::PictureOptions const& ofTheNextPicture()
    {
        action("copyPictureAction").trigger();
        return pictureOptions;
    }
};

} // namespace

TEST_F(PictureOptionsDialogTest, PicturesAreLikeTheScreenAtFirst)
{
    withDialog([this](QDialog& dialog) {
        QSize const page = window->centralWidget()->size();
        EXPECT_TRUE(part<QCheckBox>(dialog, "pictureAsOnScreen").isChecked());
        EXPECT_FALSE(part<QSpinBox>(dialog, "pictureWidth").isEnabled());
        EXPECT_EQ(page.width(), part<QSpinBox>(dialog, "pictureWidth").value());
        EXPECT_EQ(page.height(), part<QSpinBox>(dialog, "pictureHeight").value());
        EXPECT_EQ(std::to_string(page.width()) + " x " + std::to_string(page.height()) + " pixels", outcome(dialog));
        QTest::mouseClick(&ok(dialog), Qt::LeftButton);
    });
    EXPECT_TRUE(ofTheNextPicture().size.isEmpty());
    EXPECT_EQ(0.0, pictureOptions.scale);
    EXPECT_FALSE(pictureOptions.isTransparent);
    EXPECT_FALSE(pictureOptions.activeFrameOnly);
}

TEST_F(PictureOptionsDialogTest, WhatIsChosenHoldsForTheFollowingPicturesAndIsShownAgain)
{
    withDialog([](QDialog& dialog) {
        QTest::keyClick(&part<QComboBox>(dialog, "pictureFrames"), Qt::Key_Down);
        click(dialog, "pictureAsOnScreen");
        type<QSpinBox>(dialog, "pictureWidth", "600");
        type<QSpinBox>(dialog, "pictureHeight", "400");
        type<QDoubleSpinBox>(dialog, "pictureScale", "2.5");
        click(dialog, "pictureTransparent");
        EXPECT_EQ("1500 x 1000 pixels", outcome(dialog));
        QTest::mouseClick(&ok(dialog), Qt::LeftButton);
    });
    app::PictureOptions const options = ofTheNextPicture();
    EXPECT_EQ(QSize(600, 400), options.size);
    EXPECT_EQ(2.5, options.scale);
    EXPECT_TRUE(options.isTransparent);
    EXPECT_TRUE(options.activeFrameOnly);
    EXPECT_EQ(QSize(8, 6), QApplication::clipboard()->image().size());
    withDialog([](QDialog& dialog) {
        EXPECT_EQ(600, part<QSpinBox>(dialog, "pictureWidth").value());
        EXPECT_EQ(2.5, part<QDoubleSpinBox>(dialog, "pictureScale").value());
        EXPECT_TRUE(part<QCheckBox>(dialog, "pictureTransparent").isChecked());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(PictureOptionsDialogTest, EscapeKeepsWhatWasChosenBefore)
{
    withDialog([](QDialog& dialog) {
        click(dialog, "pictureTransparent");
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    EXPECT_FALSE(ofTheNextPicture().isTransparent);
}

TEST_F(PictureOptionsDialogTest, APictureThatIsTooLargeIsRefusedWithTheReason)
{
    withDialog([](QDialog& dialog) {
        click(dialog, "pictureAsOnScreen");
        type<QSpinBox>(dialog, "pictureWidth", "9000");
        type<QDoubleSpinBox>(dialog, "pictureScale", "2");
        EXPECT_FALSE(ok(dialog).isEnabled());
        EXPECT_NE(std::string::npos, outcome(dialog).find("is too large"));
        type<QSpinBox>(dialog, "pictureWidth", "900");
        EXPECT_TRUE(ok(dialog).isEnabled());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
}

TEST_F(PictureOptionsDialogTest, TheJournalRepeatsAPictureWithItsOptions)
{
    withDialog([](QDialog& dialog) {
        click(dialog, "pictureAsOnScreen");
        type<QSpinBox>(dialog, "pictureWidth", "600");
        type<QSpinBox>(dialog, "pictureHeight", "400");
        click(dialog, "pictureTransparent");
        QTest::mouseClick(&ok(dialog), Qt::LeftButton);
    });
    QString const path = folder.filePath(QStringLiteral("page.png"));
    ASSERT_TRUE(window->documents().savePicture(blueSquares({8, 6}), ofTheNextPicture(), path));
    EXPECT_EQ("save-picture file=" + path.toStdString() + " width=600 height=400 transparent=yes",
              session.journal().entries().back()->text);
}

} // namespace veldraw::tests
