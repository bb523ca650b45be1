#include "dialogs/datasetinfo/DataSetTitleProperty.h"

#include "dialogs/property/KernelText.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkbase/VelUtilDataSet.h"
#include "platform/vdsdkcommon/AppLock.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"
#include "platform/vdsdkuicommon/StateChangePredicates.h"
#include "platform/vdtoolbox/StateChangeEventInterface.h"
#include "platform/vdtoolbox/StateChangeListenerInterface.h"

#include <utility>

namespace veldraw::sdk::ui::propertymanager {

using integration::StateChangeEventObservable;

struct DataSetTitleProperty::Impl
{
    class StateChangeListener : public toolbox::StateChangeListenerInterface
    {
    public:
        explicit StateChangeListener(DataSetTitleProperty const& property)
            : m_property(property)
        {
            StateChangeEventObservable::getInstance().addListener(this);
        }
        ~StateChangeListener() override { StateChangeEventObservable::getInstance().removeListener(this); }
        StateChangeListener(StateChangeListener const&) = delete;
        StateChangeListener& operator=(StateChangeListener const&) = delete;

        void stateChanged(toolbox::StateChangeEventInterface const& event) override;

    private:
        DataSetTitleProperty const& m_property;
    };

    // A title and the data set that it belongs to.
    using Title = std::pair<long long, std::string>;

    explicit Impl(DataSetTitleProperty const& property)
        : listener(property)
    {
        read();
        told = last;
    }

    void read();

    Title last;
    Title told;
    StateChangeListener listener;
};

void DataSetTitleProperty::Impl::StateChangeListener::stateChanged(toolbox::StateChangeEventInterface const& event)
{
    if (event.kind() == StateChange_DataSetTitle || event.kind() == StateChange_FrameDataSet ||
        common::isNewActiveFrameStateChange(event))
        m_property.emitValueChangedSignal(m_property.retrieveValue());
}

void DataSetTitleProperty::Impl::read()
{
    AppLock const lock(AppLock::RecordAsUsual);
    KernelText title;
    if (VelUtilDataSetIsAvailable() && VelUtilDataSetGetInfo(title.place(), nullptr, nullptr))
        last = Title(VelUtilDataSetGetUniqueID(), title.get() ? title.get() : "");
}

DataSetTitleProperty::DataSetTitleProperty()
    : m_impl(std::make_unique<Impl>(*this))
{
}

DataSetTitleProperty::~DataSetTitleProperty() = default;

long long DataSetTitleProperty::dataSet() const
{
    m_impl->read();
    return m_impl->last.first;
}

void DataSetTitleProperty::storeValue(std::string const& newValue)
{
    AppLock const lock(AppLock::RecordAsUsual);
    VelUtilDataSetSetTitle(newValue.c_str());
    m_impl->read();
}

std::string DataSetTitleProperty::retrieveValue() const
{
    m_impl->read();
    return m_impl->last.second;
}

// The kernel's event has told a new title already when the property was set.
void DataSetTitleProperty::emitValueChangedSignal(std::string const& newValue) const
{
    if (m_impl->last == m_impl->told)
        return;
    m_impl->told = m_impl->last;
    signalValueChanged(newValue);
}

} // namespace veldraw::sdk::ui::propertymanager
