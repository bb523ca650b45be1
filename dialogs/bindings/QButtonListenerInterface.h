#pragma once

#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

class QButtonObservable;

/// Who wants to know whether a button is checked.
class VDSDKDIALOGS_DATA_QT_API QButtonListenerInterface
{
public:
    QButtonListenerInterface() = default;
    QButtonListenerInterface(QButtonListenerInterface const&) = delete;
    QButtonListenerInterface& operator=(QButtonListenerInterface const&) = delete;
    virtual ~QButtonListenerInterface() = default;

    /// The button of the observable was checked or unchecked.
    virtual void buttonStateChanged(QButtonObservable& observable) = 0;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
