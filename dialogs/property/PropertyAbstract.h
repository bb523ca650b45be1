#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyItemInterface.h"
#include "dialogs/property/PropertyTypes.h"
#include "dialogs/property/ValidatorInterface.h"

#include <boost/shared_ptr.hpp>
#include <boost/signals2/connection.hpp>
#include <boost/signals2/signal.hpp>

#include <cstddef>

namespace veldraw {

template <typename T>
class PropertyProxy;

/// A property is one typed value with a validator and a signal that tells changes. All state of a dialog consists of
/// properties, so that bindings, rules and the program itself share it without knowing each other:
///
///     Property<int> count(1);
///     boost::signals2::scoped_connection const listening =
///         count.connectValueChanged([](int value) { std::cout << value; });
///     count.setValue(5); // prints 5
///     count.setValue(5); // prints nothing: an equal value is no change
///
/// A derived class says where the value is stored: in itself (`Property`), in another property (`PropertyTypeAdapter`) or
/// in the kernel's style tree (`KernelProperty`).
///
/// `setValue` validates, compares with the present value, stores, reads the stored value back, and then sends the signal.
/// So a signal always means a change, and it carries the value that was stored, which may differ from the one passed to
/// `setValue`.
///
/// While the signal runs:
/// - A slot may set the property again. That change is signalled to all slots at once, inside; afterwards the remaining
///   slots of the first signal are still called with the older value. A slot that needs the present one asks `value()`.
/// - A slot may connect and disconnect slots. New ones are called from the next signal on, disconnected ones no more.
/// - A slot may destroy any listener, itself included, provided that the listener disconnects.
/// - An exception of a slot ends the signal and reaches the caller of `setValue`; the new value stays.
/// - The property itself must live until `setValue` returns.
template <typename T>
class PropertyAbstract : public PropertyItemInterface
{
public:
    using ValueChangedSignal = boost::signals2::signal<void(T const&)>;

    /// Every value is allowed.
    PropertyAbstract();
    explicit PropertyAbstract(boost::shared_ptr<ValidatorInterface<T> const> validator);
    /// Sets the value of @p other by `setValue`; validator and listeners are not copied.
    PropertyAbstract& operator=(PropertyAbstract const& other);

    /// Throws `InvalidPropertyValueException`, and changes nothing, if the validator refuses the value; also if it is the
    /// present one.
    void setValue(T const& newValue);
    T value() const;
    operator T() const;
    /// The same as `setValue`.
    void operator=(T const& newValue);

    boost::shared_ptr<ValidatorInterface<T> const> validator() const;

    /// Connects a slot and then calls the virtual function `signalValueChangedConnected()`. Slots of the untyped signal
    /// of `PropertyItemInterface` are called before all slots that are connected at the back here.
    boost::signals2::connection
    connectValueChanged(typename ValueChangedSignal::slot_type const& slot,
                        boost::signals2::connect_position position = boost::signals2::at_back) const;

    ~PropertyAbstract() override;

private:
    virtual void signalValueChangedConnected() const;

protected:
    virtual void storeValue(T const& newValue) = 0;
    /// Compares exactly, numbers too.
    virtual bool isEqual(T const& other) const;
    /// Throws `InvalidPropertyValueException` with the validator's text.
    virtual void validate(T const& newValue) const;

private:
    virtual T retrieveValue() const = 0;
    virtual void emitValueChangedSignal(T const& newValue) const;

protected:
    /// How many slots others have connected to the value signal.
    std::size_t valueChangedListenerCount() const;

    mutable ValueChangedSignal signalValueChanged;

private:
    void callBaseClassSignalIfThereAreListeners() const;

    boost::shared_ptr<ValidatorInterface<T> const> m_validator;
    boost::signals2::scoped_connection m_baseSignalConnection;

    template <typename>
    friend class PropertyProxy;
};

#define VELDRAW_DECLARE(T) extern template class VDSDKDIALOGS_DATA_QT_API PropertyAbstract<T>;
VELDRAW_FOR_EACH_SHARED_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE
#define VELDRAW_DECLARE(T) extern template class PropertyAbstract<T>;
VELDRAW_FOR_EACH_PROPERTY_TYPE(VELDRAW_DECLARE)
#undef VELDRAW_DECLARE

} // namespace veldraw
