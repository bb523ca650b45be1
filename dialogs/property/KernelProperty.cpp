#include "dialogs/property/KernelProperty.h"

#include "dialogs/property/KernelText.h"
#include "platform/exception/InvalidPropertyValueException.h"
#include "platform/vdsdkbase/StateChange.h"
#include "platform/vdsdkbase/VelUtilStyle.h"
#include "platform/vdsdkcommon/StateChangeEventObservable.h"

#include <string>
#include <type_traits>

namespace veldraw::sdk::styleproperties {

using integration::StateChangeEventObservable;
using toolbox::StyleValue;

namespace {

// What the kernel keeps a value as: numbers with a fraction as such, all others as whole numbers.
template <typename T>
using KernelNumber = std::conditional_t<std::is_same_v<T, double>, double, long long>;

std::string reasonOfRefusal()
{
    ui::propertymanager::KernelText reason;
    return VelUtilStyleGetLastErrorString(reason.place()) && reason.get() ? reason.get() : "Unknown error";
}

} // namespace

template <typename T>
KernelProperty<T>::KernelProperty(toolbox::CheckedStyleValue const& styleValue)
    : m_cachedValue()
    , m_styleValue(styleValue)
{
    m_cachedValue = this->value();
}

template <typename T>
KernelProperty<T>::~KernelProperty() = default;

template <typename T>
KernelProperty<T>& KernelProperty<T>::operator=(KernelProperty const& other)
{
    PropertyAbstract<T>::operator=(other);
    return *this;
}

template <typename T>
void KernelProperty<T>::setOffsets(long long offset1, long long offset2)
{
    m_offset1 = offset1;
    m_offset2 = offset2;
    retrieveValue();
}

template <typename T>
T KernelProperty<T>::retrieveValue() const
{
    KernelNumber<T> number{};
    bool const isKnown = StyleValue::returnCodeOk(m_styleValue.get().getValue(number, m_offset1, m_offset2));
    T const found = static_cast<T>(number);
    if (isKnown && !(found == m_cachedValue)) {
        m_cachedValue = found;
        if (m_emitOnRead)
            this->signalValueChanged(found);
    }
    return m_cachedValue;
}

template <typename T>
void KernelProperty<T>::storeValue(T const& newValue)
{
    SetValueReturnCode_e code = SetValueReturnCode_Ok;
    {
        SignalConnectionCollection::ConnectionBlocker const noEcho(m_connections);
        code = m_styleValue.get().setValue(static_cast<KernelNumber<T>>(newValue), m_offset1, m_offset2);
        if (code == SetValueReturnCode_Ok)
            m_cachedValue = newValue;
    }
    m_mustWriteNext = code == SetValueReturnCode_Pending;
    if (m_mustWriteNext || StyleValue::returnCodeOk(code))
        return;
    throw InvalidPropertyValueException(reasonOfRefusal());
}

template <typename T>
bool KernelProperty<T>::isEqual(T const& other) const
{
    return !m_mustWriteNext && other == retrieveValue();
}

template <typename T>
void KernelProperty<T>::refreshSilently() const
{
    m_emitOnRead = false;
    try {
        retrieveValue();
    } catch (...) {
        m_emitOnRead = true;
        throw;
    }
    m_emitOnRead = true;
}

template <typename T>
void KernelProperty<T>::signalValueChangedConnected() const
{
    // The first listener starts from the value of now, which is no change to it.
    if (this->valueChangedListenerCount() == 1)
        refreshSilently();
    m_connections.add(StateChangeEventObservable::getInstance().connectStateChanged(
        [this](toolbox::StateChangeEventInterface const& event) { onStateChange(event); }));
}

template <typename T>
void KernelProperty<T>::onStateChange(toolbox::StateChangeEventInterface const& event) const
{
    if (this->valueChangedListenerCount() == 0)
        return;
    if (event.kind() == StateChange_KernelGoesDown)
        m_connections.clear();
    else
        retrieveValue();
}

#define VELDRAW_DEFINE(T) template class KernelProperty<T>;
VELDRAW_FOR_EACH_KERNEL_TYPE(VELDRAW_DEFINE)
#undef VELDRAW_DEFINE

} // namespace veldraw::sdk::styleproperties
