#pragma once

#include "dialogs/variableops/DeleteVariableDialog.h"
#include "host/KernelBridge.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QTest>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;

inline DialogTraits deleteVariable()
{
    auto traits = DialogTraits::of<dialogs::data::DeleteVariableDialog>();
    traits.list = "deleteVariable_Select_MList";
    traits.action = "&Delete";
    traits.refusal = "error: No variables are selected";
    traits.helpTopic = "delete_variable.html";
    return traits;
}

/// The dialog over a data set with the variables X, Y, P and T.
class DeleteVariableFixture : public DialogFixture
{
protected:
    DeleteVariableFixture()
        : DialogFixture(deleteVariable())
    {
    }
};

} // namespace veldraw::tests
