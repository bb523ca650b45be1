#pragma once

#include "dialogs/models/TableModelAbstract.h"
#include "platform/vdsdkuicommon/StateChangeActionPerformer.h"
#include "platform/vdtoolbox/AuxData.h"
#include "platform/vdtoolbox/StringList.h"

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

/// The auxiliary data of one owner as a table of names and values, which cannot be edited. An owner that does not exist has an
/// empty table. It says that the data changed whenever the kernel says so of any auxiliary data.
class AuxDataModel : public TableModelAbstract
{
public:
    /// @param location kind of owner
    /// @param objectNumber one-based number of the owner among those of its kind; 1 where there is but one
    AuxDataModel(AuxDataLocation_e location, int objectNumber);

    unsigned long long columnCount() const override;
    unsigned long long rowCount() const override;
    std::string columnName(unsigned long long column) const override;
    /// The same text for every row; a table that shows it hides its row names.
    std::string rowName(unsigned long long row) const override;
    std::string getStr(ModelIndex const& index) const override;

private:
    int const m_columnCount = 2;
    toolbox::AuxData const m_auxData;
    toolbox::StringList const m_columnNames;
    common::StateChangeActionPerformer m_refreshPerformer;
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
