#pragma once

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Who wants to know which row of a combo box is the current one.
class QComboBoxListenerInterface
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
