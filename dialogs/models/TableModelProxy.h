#pragma once

#include "dialogs/models/TableModelAbstract.h"
#include "dialogs/models/TableModelListenerInterface.h"
#include "dialogs/property/DialogsApi.h"

#include <boost/shared_ptr.hpp>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// A table that shows another one, which can be replaced: a view keeps one proxy for its life while what it shows comes
/// and goes. What the inner table tells is passed on in the proxy's own name.
class VDSDKDIALOGS_DATA_QT_API TableModelProxy : public TableModelAbstract, public TableModelListenerInterface
{
public:
    /// @param model never null; shared
    explicit TableModelProxy(boost::shared_ptr<TableModelInterface> const& model);
    ~TableModelProxy() override;

    /// Shows another table from now on and says that the data changed, also when it is the same one. The old table is
    /// let go before that is told.
    void setModel(boost::shared_ptr<TableModelInterface> const& model);

    unsigned long long columnCount() const override;
    unsigned long long rowCount() const override;
    std::string columnName(unsigned long long column) const override;
    std::string rowName(unsigned long long row) const override;
    bool isEditable(ModelIndex const& index) const override;
    std::string getStr(ModelIndex const& index) const override;
    bool setStr(ModelIndex const& index, std::string const& text) override;

private:
    void dataChanged(TableModelInterface& model) override;
    void itemChanged(ModelIndex const& index, TableModelInterface& model) override;
    void rowsInserted(unsigned long long first, unsigned long long last, TableModelInterface& model) override;
    void rowsRemoved(unsigned long long first, unsigned long long last, TableModelInterface& model) override;

    boost::shared_ptr<TableModelInterface> m_model;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
