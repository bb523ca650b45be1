#pragma once

#include "dialogs/zoneops/DuplicateZoneDialog.h"
#include "host/KernelBridge.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/WaitState.h"
#include "platform/vdsdkuicommon/IdleDispatcher.h"
#include "tests/dialogs/support/DialogFixture.h"

#include <QApplication>
#include <QDialogButtonBox>
#include <QListView>
#include <QPushButton>
#include <QTest>

namespace veldraw::tests {

using sdk::ui::common::IdleDispatcher;

inline DialogTraits duplicateZone()
{
    auto traits = DialogTraits::of<dialogs::data::DuplicateZoneDialog>();
    traits.list = "duplicateZone_Source_MList";
    traits.action = "C&reate";
    traits.refusal = "error: No zones are selected";
    traits.helpTopic = "create_zone_duplicate.html";
    return traits;
}

/// The dialog over a data set with the zones Wing, Body and Tail.
class DuplicateZoneFixture : public DialogFixture
{
protected:
    DuplicateZoneFixture()
        : DialogFixture(duplicateZone())
    {
    }
};

} // namespace veldraw::tests
