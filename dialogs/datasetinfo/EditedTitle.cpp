#include "dialogs/datasetinfo/EditedTitle.h"

#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkbase/VelUtilDialog.h"
#include "platform/vdsdkcommon/ActionReporter.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/Names.h"

namespace veldraw::sdk::ui::propertymanager {

namespace {

void show(DataSetTitleProperty const& title, ShownName const& shown)
{
    shown.id->setValue(title.dataSet());
    shown.text->setValue(title.value());
}

char setTitle(DataSetTitleProperty& title, long long dataSet, std::string const& text)
{
    if (dataSet != VelUtilDataSetGetUniqueID())
        return renameDataSet(dataSet, text.c_str());
    title.setValue(text);
    return static_cast<char>(title.value() == text);
}

bool rename(DataSetTitleProperty& title, long long dataSet, std::string const& text)
{
    AppLock const lock(AppLock::RecordAsUsual);
    if (!dataSetExists(dataSet)) {
        std::string const reason = "The title " + text + " was not given: its data set is not there any more.";
        VelUtilDialogErrMsg(reason.c_str());
        return false;
    }
    return velUtilActionReporter([&] { return setTitle(title, dataSet, text); },
                                 "Error changing the title of the data set.", "") != 0;
}

} // namespace

EditedTitle::EditedTitle(boost::shared_ptr<DataSetTitleProperty> const& title)
    : EditedTitle(title, ShownName())
{
}

EditedTitle::EditedTitle(boost::shared_ptr<DataSetTitleProperty> const& title, ShownName const& shown)
    : EditedName(
          shown,
          [title](long long dataSet, std::string const& text) {
              boost::shared_ptr<DataSetTitleProperty> const kept = title; // a message may end the field
              return rename(*kept, dataSet, text);
          },
          [title](long long) { return title->value(); })
{
    show(*title, shown);
    // The title keeps no one alive who listens to it.
    DataSetTitleProperty const& told = *title;
    m_titleConnections.add(title->connectValueChanged([&told, shown](std::string const&) { show(told, shown); }));
}

EditedTitle::~EditedTitle() = default;

} // namespace veldraw::sdk::ui::propertymanager
