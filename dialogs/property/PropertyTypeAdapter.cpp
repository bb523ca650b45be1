#include "dialogs/property/PropertyTypeAdapter.h"

#include "platform/exception/ExceptionBase.h"
#include "platform/exception/InvalidPropertyValueException.h"

#include <boost/lexical_cast.hpp>
#include <boost/make_shared.hpp>
#include <boost/signals2/shared_connection_block.hpp>

#include <utility>

namespace veldraw {

namespace {

constexpr char invalidValue[] = "Invalid value.";

} // namespace

template <typename Outer, typename Inner>
PropertyTypeAdapter<Outer, Inner>::AdapterValidator::AdapterValidator(boost::shared_ptr<PropertyAbstract<Inner>> inner,
                                                                      boost::function<Inner(Outer)> toInner)
    : m_inner(std::move(inner))
    , m_toInner(std::move(toInner))
{
}

template <typename Outer, typename Inner>
PropertyTypeAdapter<Outer, Inner>::AdapterValidator::~AdapterValidator() = default;

template <typename Outer, typename Inner>
ValidationResult PropertyTypeAdapter<Outer, Inner>::AdapterValidator::validate(Outer const& value) const
{
    try {
        return m_inner->validator()->validate(m_toInner(value));
    } catch (ExceptionBase const&) {
        ValidationResult result;
        result.setErrorString(invalidValue);
        return result;
    }
}

template <typename Outer, typename Inner>
PropertyTypeAdapter<Outer, Inner>::PropertyTypeAdapter(boost::shared_ptr<PropertyAbstract<Inner>> inner,
                                                       boost::function<Outer(Inner)> toOuter,
                                                       boost::function<Inner(Outer)> toInner)
    : PropertyAbstract<Outer>(boost::make_shared<AdapterValidator>(inner, toInner))
    , m_inner(std::move(inner))
    , m_toOuter(std::move(toOuter))
    , m_toInner(std::move(toInner))
    , m_innerConnection(
          m_inner->connectValueChanged([this](Inner const& value) { this->signalValueChanged(m_toOuter(value)); }))
{
}

template <typename Outer, typename Inner>
PropertyTypeAdapter<Outer, Inner>::~PropertyTypeAdapter() = default;

template <typename Outer, typename Inner>
PropertyTypeAdapter<Outer, Inner>& PropertyTypeAdapter<Outer, Inner>::operator=(PropertyTypeAdapter const& other)
{
    PropertyAbstract<Outer>::operator=(other);
    return *this;
}

template <typename Outer, typename Inner>
void PropertyTypeAdapter<Outer, Inner>::storeValue(Outer const& newValue)
{
    boost::signals2::shared_connection_block const noEcho(m_innerConnection);
    try {
        m_inner->setValue(m_toInner(newValue));
    } catch (ExceptionBase const&) {
        throw InvalidPropertyValueException(invalidValue);
    }
}

template <typename Outer, typename Inner>
Outer PropertyTypeAdapter<Outer, Inner>::retrieveValue() const
{
    return m_toOuter(m_inner->value());
}

template class PropertyTypeAdapter<int, double>;
template class PropertyTypeAdapter<std::string, long long>;

std::string wholeNumberToText(long long number)
{
    try {
        return boost::lexical_cast<std::string>(number);
    } catch (boost::bad_lexical_cast const&) {
        throw ExceptionBase();
    }
}

long long textToWholeNumber(std::string const& text)
{
    try {
        return boost::lexical_cast<long long>(text);
    } catch (boost::bad_lexical_cast const&) {
        throw ExceptionBase();
    }
}

} // namespace veldraw
