#pragma once

#include "dialogs/bindings/QButtonListenerInterface.h"
#include "dialogs/models/ListenerList.h"
#include "dialogs/property/DialogsApi.h"

#include <QObject>
#include <QPointer>

class QAbstractButton;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Tells listeners each change of a button's checked state, whoever made it. A click on the member of a group that is
/// checked already changes nothing and is not told; arrow keys are. Belongs to whoever makes it; the button may go
/// first.
class VDSDKDIALOGS_DATA_QT_API QButtonObservable : public QObject
{
public:
    explicit QButtonObservable(QAbstractButton* button);
    ~QButtonObservable() override;

    /// See `ListenerList`.
    void addListener(QButtonListenerInterface* listener);
    void removeListener(QButtonListenerInterface* listener);

    /// Null when the button is gone, which no listener meets.
    QAbstractButton* buttonWidget() const;

private:
    QPointer<QAbstractButton> const m_button;
    ListenerList<QButtonListenerInterface> m_listeners;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
