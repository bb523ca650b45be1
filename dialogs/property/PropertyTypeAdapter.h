#pragma once

#include "dialogs/property/PropertyAbstract.h"

#include <boost/function.hpp>

#include <string>

namespace veldraw {

/// Shows a property of one type as a property of another.
///
/// A conversion that can't be done throws an `ExceptionBase`; to whoever sets a value it reads "Invalid value.". Limits
/// of the inner property, with their words, rule the outer one too.
template <typename Outer, typename Inner>
class PropertyTypeAdapter : public PropertyAbstract<Outer>
{
public:
    /// Asks the inner property's validator about the converted value.
    class AdapterValidator : public virtual ValidatorInterface<Outer>
    {
    public:
        AdapterValidator(boost::shared_ptr<PropertyAbstract<Inner>> inner, boost::function<Inner(Outer)> toInner);
        ~AdapterValidator() override;

        ValidationResult validate(Outer const& value) const override;

    private:
        boost::shared_ptr<PropertyAbstract<Inner>> m_inner;
        boost::function<Inner(Outer)> m_toInner;
    };

    /// The inner property must not be empty and is kept alive. An empty conversion throws `boost::bad_function_call`
    /// when it is needed.
    PropertyTypeAdapter(boost::shared_ptr<PropertyAbstract<Inner>> inner, boost::function<Outer(Inner)> toOuter,
                        boost::function<Inner(Outer)> toInner);
    ~PropertyTypeAdapter() override;

    using PropertyAbstract<Outer>::operator=;
    /// Takes the value only, see `PropertyAbstract`.
    PropertyTypeAdapter& operator=(PropertyTypeAdapter const& other);

protected:
    void storeValue(Outer const& newValue) override;

private:
    Outer retrieveValue() const override;

    boost::shared_ptr<PropertyAbstract<Inner>> m_inner;
    boost::function<Outer(Inner)> m_toOuter;
    boost::function<Inner(Outer)> m_toInner;
    boost::signals2::scoped_connection m_innerConnection;
};

extern template class PropertyTypeAdapter<int, double>;
extern template class PropertyTypeAdapter<std::string, long long>;

/// The two directions between a whole number and its text, for `PropertyTypeAdapter<std::string, long long>`.
std::string wholeNumberToText(long long number);

/// Throws an `ExceptionBase` without a text unless all of @p text is one whole number that fits.
long long textToWholeNumber(std::string const& text);

} // namespace veldraw
