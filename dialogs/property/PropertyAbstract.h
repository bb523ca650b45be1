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

/// One typed value with a validator and a change signal: the unit of dialog state. Where the value lives is up to the
/// derived class: in itself (`Property`), in another property, in the kernel's style tree.
///
/// Setting a value always runs the same steps: validate, compare, store, read back, signal. So a signal always means a
/// real change, and it carries the value that is now in force, which may differ from the one that was asked for.
///
/// While the signal runs:
/// - A slot may set the property again. The new value's signal runs to its end first; the outer run then goes on and
///   hands its own, by now older, value to the slots that are left. Who needs the value that holds asks `value()`.
/// - A slot may connect and disconnect. Who came is called from the next signal on, who left is not called any more.
/// - A slot may destroy any listener, itself included, as long as that listener disconnects.
/// - A slot that throws ends the run; its exception reaches the caller of `setValue`, and the new value stays.
/// - The property itself has to live until `setValue` returns.
template <typename T>
class PropertyAbstract : public PropertyItemInterface
{
public:
    using ValueChangedSignal = boost::signals2::signal<void(T const&)>;

    /// Every value is allowed.
    PropertyAbstract();
    explicit PropertyAbstract(boost::shared_ptr<ValidatorInterface<T> const> validator);
    /// Takes the value only, as `setValue` would; validator and listeners stay those of the left side.
    PropertyAbstract& operator=(PropertyAbstract const& other);

    /// Throws `InvalidPropertyValueException` for an invalid value, also for one that equals the present one;
    /// nothing has changed then.
    void setValue(T const& newValue);
    T value() const;
    operator T() const;
    /// The same as `setValue`.
    void operator=(T const& newValue);

    boost::shared_ptr<ValidatorInterface<T> const> validator() const;

    /// Connects a slot and then runs the hook `signalValueChangedConnected()`. Listeners to the untyped signal hear a
    /// change before all slots connected at the back.
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
