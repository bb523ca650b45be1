#pragma once

#include "dialogs/datasetinfo/DataSetTitleProperty.h"
#include "dialogs/datasetinfo/EditedName.h"

namespace veldraw::sdk::ui::propertymanager {

/// The title of the active frame's data set as a field edits it. What is typed is for the data set whose title the field showed, even
/// if another frame has become active since; the user is told when that data set is gone.
class EditedTitle : public EditedName
{
public:
    explicit EditedTitle(boost::shared_ptr<DataSetTitleProperty> const& title);
    ~EditedTitle() override;

    using EditedName::operator=;

private:
    EditedTitle(boost::shared_ptr<DataSetTitleProperty> const& title, ShownName const& shown);

    SignalConnectionCollection m_titleConnections;
};

} // namespace veldraw::sdk::ui::propertymanager
