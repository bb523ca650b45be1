#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Who wants to know which row of a combo box is the current one.
class VDSDKDIALOGS_DATA_QT_API QComboBoxListenerInterface
{
public:
    QComboBoxListenerInterface() = default;
    QComboBoxListenerInterface(QComboBoxListenerInterface const&) = delete;
    QComboBoxListenerInterface& operator=(QComboBoxListenerInterface const&) = delete;
    virtual ~QComboBoxListenerInterface() = default;

    /// @param index the row from 0, -1 if there is none
    virtual void currentIndexChanged(int index) = 0;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
