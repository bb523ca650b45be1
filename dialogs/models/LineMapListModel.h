#pragma once

#include "dialogs/models/NamedNumbersListModelAbstract.h"
#include "dialogs/property/DialogsApi.h"
#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// All line maps of the active frame, in ascending order: "<number>: <name>". Reads them again after the kernel's events
/// and tells what really changed.
class VDSDKDIALOGS_DATA_QT_API LineMapListModel : public NamedNumbersListModelAbstract
{
public:
    LineMapListModel();

private:
    void readAnew() const override;

    common::StateChangeActionPerformer m_watcher;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
