#pragma once

#include "dialogs/bindings/QComboBoxListenerInterface.h"
#include "dialogs/models/ListenerList.h"
#include "dialogs/property/DialogsApi.h"

#include <QObject>

class QComboBox;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Tells listeners each change of a combo box's current row, whoever made it: a person, the program, a list that
/// changed. Belongs to whoever makes it; the combo box may go first.
class VDSDKDIALOGS_DATA_QT_API QComboBoxObservable : public QObject
{
public:
    explicit QComboBoxObservable(QComboBox* comboBox);
    ~QComboBoxObservable() override;

    /// What a listener throws goes to whoever changed the row. See `ListenerList`.
    void addListener(QComboBoxListenerInterface* listener);
    void removeListener(QComboBoxListenerInterface* listener);

private:
    ListenerList<QComboBoxListenerInterface> m_listeners;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
