#pragma once

#include "dialogs/variableops/DeleteVariableDialog.h"
#include "host/KernelBridge.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
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

using dialogs::data::DeleteVariableDialog;
using sdk::ui::common::IdleDispatcher;

/// The dialog over a data set with the variables X, Y, P and T.
class DeleteVariableFixture : public testing::Test
{
protected:
    DeleteVariableFixture() { mainWindow->show(); }

    DeleteVariableDialog& dialog() { return DeleteVariableDialog::getInstance(*mainWindow); }

    DeleteVariableDialog& launched()
    {
        dialog().launch();
        EXPECT_TRUE(QTest::qWaitFor([this] { return QApplication::activeWindow() == &dialog(); }));
        IdleDispatcher::flush();
        return dialog();
    }

    QListView& list() { return *dialog().findChild<QListView*>(QStringLiteral("deleteVariable_Select_MList")); }
    QDialogButtonBox& buttonBox() { return *dialog().findChild<QDialogButtonBox*>(QStringLiteral("buttonBox")); }

    QPushButton& deleteButton()
    {
        for (QAbstractButton* const button : buttonBox().buttons())
            if (button->text() == QStringLiteral("&Delete"))
                return *qobject_cast<QPushButton*>(button);
        throw std::logic_error("there is no delete button");
    }

    void clickRow(int row)
    {
        QRect const place = list().visualRect(list().model()->index(row, 0));
        QTest::mouseClick(list().viewport(), Qt::LeftButton, Qt::NoModifier, place.center());
    }

    void clickDelete() { QTest::mouseClick(&deleteButton(), Qt::LeftButton); }

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

    std::vector<std::string> variableNames() const
    {
        std::vector<std::string> names;
        for (auto const& variable : sample.dataSet().variables())
            names.push_back(variable->name);
        return names;
    }

    RecordedMessages messages;
    test::SampleSession sample{{"Wing", "Body"}, {"X", "Y", "P", "T"}};
    std::unique_ptr<QWidget> mainWindow = std::make_unique<QWidget>();
};

} // namespace veldraw::tests
