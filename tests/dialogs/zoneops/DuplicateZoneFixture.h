#pragma once

#include "dialogs/zoneops/DuplicateZoneDialog.h"
#include "host/KernelBridge.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/models/SampleSession.h"
#include "tests/dialogs/support/RecordedMessages.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QItemSelectionModel>
#include <QListView>
#include <QPushButton>
#include <QTest>

#include <gtest/gtest.h>
#include <memory>
#include <string>
#include <vector>

namespace veldraw::tests {

using dialogs::data::DuplicateZoneDialog;
using sdk::ui::common::IdleDispatcher;

/// The dialog over a data set with the zones Wing, Body and Tail.
class DuplicateZoneFixture : public testing::Test
{
protected:
    DuplicateZoneFixture() { mainWindow->show(); }

    DuplicateZoneDialog& dialog() { return DuplicateZoneDialog::getInstance(*mainWindow); }

    DuplicateZoneDialog& launched()
    {
        dialog().launch();
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &dialog(); }));
        IdleDispatcher::flush();
        return dialog();
    }

    QListView& list() { return *dialog().findChild<QListView*>(QStringLiteral("duplicateZone_Source_MList")); }
    QDialogButtonBox& buttonBox() { return *dialog().findChild<QDialogButtonBox*>(QStringLiteral("buttonBox")); }

    QPushButton& createButton()
    {
        for (QAbstractButton* const button : buttonBox().buttons())
            if (button->text() == QStringLiteral("C&reate"))
                return *qobject_cast<QPushButton*>(button);
        throw std::logic_error("there is no create button");
    }

    void clickRow(int row, Qt::KeyboardModifiers modifiers = Qt::NoModifier)
    {
        QRect const place = list().visualRect(list().model()->index(row, 0));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, modifiers, place.center());
    }

    void clickCreate() { QTest::mouseClick(&createButton(), Qt::LeftButton); }

    /// Texts of all rows, selected ones with a star.
    std::vector<std::string> rows()
    {
        IdleDispatcher::flush();
        std::vector<std::string> texts;
        for (int row = 0; row < list().model()->rowCount(); ++row) {
            QModelIndex const index = list().model()->index(row, 0);
            std::string const mark = list().selectionModel()->isSelected(index) ? "*" : "";
            texts.push_back(mark + index.data().toString().toStdString());
        }
        return texts;
    }

    std::vector<std::string> zoneNames() const
    {
        std::vector<std::string> names;
        for (auto const& zone : sample.dataSet().zones())
            names.push_back(zone->name);
        return names;
    }

    RecordedMessages messages;
    test::SampleSession sample{{"Wing", "Body", "Tail"}, {"X", "Y", "P"}};
    std::unique_ptr<QWidget> mainWindow = std::make_unique<QWidget>();
};

} // namespace veldraw::tests
