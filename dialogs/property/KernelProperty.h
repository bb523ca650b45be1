#pragma once

#include "dialogs/property/KernelPropertyAbstract.h"
#include "platform/signals/SignalConnectionCollection.h"
#include "platform/styleproperties/CheckedStyleValue.h"

namespace veldraw::toolbox {
class StateChangeEventInterface;
}

namespace veldraw::sdk::styleproperties {

/// Reads and writes a value of the kernel's style tree at once, so that it always shows what the application has.
///
/// A read that finds another value than the last one tells the listeners: that is how a change made elsewhere reaches
/// them. While somebody listens, each state change of the kernel makes it read. A write that the kernel refuses throws
/// `InvalidPropertyValueException` with the kernel's words; a value that the kernel has accepted but not yet put in force
/// is told when it is.
template <typename T>
class KernelProperty : public KernelPropertyAbstract<T>
{
public:
    explicit KernelProperty(toolbox::CheckedStyleValue const& styleValue);
    ~KernelProperty() override;

    using PropertyAbstract<T>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    KernelProperty& operator=(KernelProperty const& other);

    void setOffsets(long long offset1, long long offset2) override;

private:
    void signalValueChangedConnected() const override;

protected:
    void storeValue(T const& newValue) override;
    bool isEqual(T const& other) const override;

private:
    T retrieveValue() const override;
    void onStateChange(toolbox::StateChangeEventInterface const& event) const;
    void refreshSilently() const;

    mutable T m_cachedValue; // the last value read or written
    toolbox::CheckedStyleValue m_styleValue;
    long long m_offset1 = -1;
    long long m_offset2 = -1;
    bool m_mustWriteNext = false;     // the last value is not in force: write again, even if it looks equal
    mutable bool m_emitOnRead = true; // a read that finds a new value tells the listeners
    mutable SignalConnectionCollection m_connections;
};

#define VELDRAW_DECLARE(T) extern template class KernelProperty<T>;
VELDRAW_FOR_EACH_KERNEL_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw::sdk::styleproperties
