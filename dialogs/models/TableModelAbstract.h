#pragma once

#include "dialogs/models/ListenerList.h"
#include "dialogs/models/TableModelInterface.h"
#include "dialogs/property/DialogsApi.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// What tables have in common: the listeners, and that nothing can be edited unless a table says otherwise.
class VDSDKDIALOGS_DATA_QT_API TableModelAbstract : public TableModelInterface
{
public:
    TableModelAbstract();
    ~TableModelAbstract() override;
    TableModelAbstract(TableModelAbstract const&) = delete;
    TableModelAbstract& operator=(TableModelAbstract const&) = delete;

    /// False.
    bool isEditable(ModelIndex const& index) const override;
    /// Refuses.
    bool setStr(ModelIndex const& index, std::string const& text) override;
    void addListener(TableModelListenerInterface* listener) override;
    void removeListener(TableModelListenerInterface* listener) override;

protected:
    void notifyOfDataChanged();
    void notifyOfItemChanged(ModelIndex const& index);

    ListenerList<TableModelListenerInterface> const& listeners() const { return m_listeners; }

private:
    ListenerList<TableModelListenerInterface> m_listeners;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
