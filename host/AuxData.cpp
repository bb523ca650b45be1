#include "platform/vdtoolbox/AuxData.h"

#include "kernel/api/ApiSupport.h"
#include "kernel/frames/AuxiliaryOwner.h"
#include "kernel/operations/DeleteAuxiliaryItem.h"
#include "kernel/operations/SetAuxiliaryItem.h"
#include "kernel/session/Session.h"

#include <algorithm>
#include <optional>

namespace veldraw::toolbox {

using kernel::AuxiliaryData;

namespace {

AuxiliaryData* dataAt(AuxDataLocation_e location, int object)
{
    return kernel::AuxiliaryOwner(kernel::Session::instance().pages(), location, object).data();
}

std::optional<AuxiliaryData::Item> itemAt(AuxDataLocation_e location, int object, int n)
{
    AuxiliaryData const* const data = dataAt(location, object);
    if (!data || n < 1 || n > data->size())
        return std::nullopt;
    return data->item(n);
}

} // namespace

AuxData::AuxData(AuxDataLocation_e location, int object)
    : m_location(location)
    , m_object(object)
{
}

bool AuxData::isValid() const
{
    return dataAt(m_location, m_object) != nullptr;
}

int AuxData::size() const
{
    AuxiliaryData const* const data = dataAt(m_location, m_object);
    return data ? data->size() : 0;
}

std::string AuxData::name(int n) const
{
    auto const item = itemAt(m_location, m_object, n);
    return item ? item->name : std::string();
}

std::string AuxData::value(int n) const
{
    auto const item = itemAt(m_location, m_object, n);
    return item ? item->value : std::string();
}

bool AuxData::boolValue(int n) const
{
    std::string text = value(n);
    std::transform(text.begin(), text.end(), text.begin(),
                   [](char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; });
    return text == "TRUE" || text == "YES" || text == "ON" || text == "1";
}

int AuxData::indexOf(std::string const& name) const
{
    AuxiliaryData const* const data = dataAt(m_location, m_object);
    return data ? data->indexOf(name) : 0;
}

bool AuxData::set(std::string const& name, bool value, bool retain) const
{
    return setText(name, value ? "TRUE" : "FALSE", retain);
}

bool AuxData::setText(std::string const& name, std::string const& value, bool retain) const
{
    return kernel::api::answerOr(false, [&] {
        return kernel::Session::instance().perform(kernel::SetAuxiliaryItem(m_location, m_object, name, value, retain));
    });
}

bool AuxData::remove(std::string const& name) const
{
    return kernel::api::answerOr(false, [&] {
        return kernel::Session::instance().perform(kernel::DeleteAuxiliaryItem(m_location, m_object, name));
    });
}

} // namespace veldraw::toolbox
