#include "dialogs/zoneops/CreateMirrorZoneDialog.h"
#include "kernel/operations/SetPlotType.h"
#include "tests/app/support/WindowTest.h"

#include <QAction>
#include <QApplication>
#include <QListView>
#include <QListWidget>
#include <QPushButton>
#include <QTest>

#include <gmock/gmock.h>

namespace veldraw::tests {

namespace {

using dialogs::data::CreateMirrorZoneDialog;
using testing::ElementsAre;

/// Zones in the plane with a force that is not the frame's vector, mirrored in the window.
class UnturnedVectorsTest : public WindowTest
{
protected:
    UnturnedVectorsTest()
    {
        auto const flow = makeFlow();
        for (char const* const name : {"FX", "FY", "FZ"}) {
            flow->addVariable(std::make_shared<kernel::Variable>(name));
            for (int zone = 1; zone <= flow->zoneCount(); ++zone)
                flow->zone(zone)->fields.back() = flow->zone(zone)->fields.front();
        }
        openFrames({{"flow", flow}});
        showWindow();
    }

    void mirrorFirstZone()
    {
        action("createMirrorZoneAction").trigger();
        settle();
        for (QWidget* const widget : QApplication::topLevelWidgets()) {
            auto* const dialog = dynamic_cast<CreateMirrorZoneDialog*>(widget);
            if (!dialog || !dialog->isVisible())
                continue;
            auto& list = *dialog->findChild<QListView*>(QStringLiteral("createMirrorZone_Source_MList"));
            QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualRect(list.model()->index(0, 0)).center());
            settle();
            for (QPushButton* const button : dialog->findChildren<QPushButton*>())
                if (button->text() == QLatin1String("C&reate"))
                    QTest::mouseClick(button, Qt::LeftButton);
        }
        settle();
    }

    QStringList log()
    {
        auto const& list = *window->findChild<QListWidget*>(QStringLiteral("messageView"));
        QStringList lines;
        for (int row = 0; row < list.count(); ++row)
            lines << list.item(row)->text();
        return lines.filter(QStringLiteral("left as they are"));
    }
};

} // namespace

TEST_F(UnturnedVectorsTest, AreNamedInTheMessageLogAndInNoMessageBox)
{
    mirrorFirstZone();
    ASSERT_EQ(3, session.activeDataSet()->zoneCount());
    ASSERT_EQ(1, log().size());
    EXPECT_TRUE(log().front().endsWith(
        QStringLiteral("Create Mirror Zone: vectors and tensors that were left as they are: \"FX, FY, FZ\". Only the "
                       "frame's vector is transformed.")))
        << log().front().toStdString();
    EXPECT_THAT(messages, ElementsAre("Mirror zone creation successful."));
}

TEST_F(UnturnedVectorsTest, AreNotNamedWhenTheyAreTheFramesVector)
{
    kernel::UniqueId const frame = session.activeFrame()->id;
    ASSERT_TRUE(session.perform(kernel::AssignVariable(frame, 'U', 4)));
    ASSERT_TRUE(session.perform(kernel::AssignVariable(frame, 'V', 5)));
    mirrorFirstZone();
    ASSERT_EQ(3, session.activeDataSet()->zoneCount());
    EXPECT_EQ(QStringList(), log());
}

} // namespace veldraw::tests
