#include "platform/styleproperties/StyleValue.h"

#include "kernel/api/StyleAccess.h"
#include "platform/vdtoolbox/ArgList.h"
#include "platform/vdtoolbox/StringList.h"

#include <cstdint>
#include <initializer_list>
#include <limits>

namespace veldraw::toolbox {

namespace {

namespace api = kernel::api;
namespace argument = kernel::api::styleArgument;

// The names up to the first null one.
std::vector<std::string> namesOf(std::initializer_list<char const*> names)
{
    std::vector<std::string> given;
    for (char const* const name : names) {
        if (!name)
            break;
        given.emplace_back(name);
    }
    return given;
}

// The number without its fraction, held at the ends of the range; 0 for not a number.
long long wholePart(double value)
{
    constexpr double limit = 9223372036854775808.0; // 2^63
    if (value >= limit)
        return std::numeric_limits<long long>::max();
    if (value < -limit)
        return std::numeric_limits<long long>::min();
    return value == value ? static_cast<long long>(value) : 0;
}

long long addressOf(void* result)
{
    return static_cast<long long>(reinterpret_cast<std::intptr_t>(result));
}

} // namespace

StyleValue::StyleValue(char const* n1, char const* n2, char const* n3, char const* n4, char const* n5, char const* n6,
                       char const* n7)
    : m_names(namesOf({n1, n2, n3, n4, n5, n6, n7}))
{
    initMacroIDsfromStyleValueNames();
}

StyleValue::StyleValue(long long frameID, char const* n1, char const* n2, char const* n3, char const* n4,
                       char const* n5, char const* n6)
    : m_names(namesOf({n1, n2, n3, n4, n5, n6}))
    , m_frameID(frameID)
{
    initMacroIDsfromStyleValueNames();
}

StyleValue::StyleValue(StringList const& names)
{
    for (int i = 0; i < names.size(); ++i)
        m_names.push_back(names[i]);
    initMacroIDsfromStyleValueNames();
}

StyleValue::~StyleValue() = default;

void StyleValue::initMacroIDsfromStyleValueNames()
{
    m_macroIDs.clear();
    for (std::string const& name : m_names)
        m_macroIDs.push_back(api::styleNameId(name));
}

StyleValue StyleValue::child(char const* name) const
{
    StyleValue below(*this);
    below.m_names.emplace_back(name ? name : "");
    below.initMacroIDsfromStyleValueNames();
    return below;
}

void StyleValue::setupGetValueArgList(ArgList& list, long long offset1, long long offset2) const
{
    list.appendInt(argument::frame, m_frameID);
    int number = 0;
    for (int const id : m_macroIDs)
        list.appendInt(argument::name + std::to_string(++number), id);
    list.appendInt(argument::offset1, offset1);
    list.appendInt(argument::offset2, offset2);
}

void StyleValue::setupSetValueArgList(ArgList& list, long long offset1, long long offset2, int assignOperator) const
{
    setupGetValueArgList(list, offset1, offset2);
    list.appendInt(argument::assignOperator, assignOperator);
}

SetValueReturnCode_e StyleValue::setValue(long long value, long long offset1, long long offset2)
{
    ArgList list;
    setupSetValueArgList(list, offset1, offset2, api::plainAssignment);
    list.appendInt(argument::whole, value);
    list.appendDouble(argument::real, static_cast<double>(value));
    return api::setStyleValue(list.getRef());
}

SetValueReturnCode_e StyleValue::setValue(double value, long long offset1, long long offset2)
{
    ArgList list;
    setupSetValueArgList(list, offset1, offset2, api::plainAssignment);
    return setFinalValue(value, list);
}

SetValueReturnCode_e StyleValue::setFinalValue(double value, ArgList& list)
{
    list.appendInt(argument::whole, wholePart(value));
    list.appendDouble(argument::real, value);
    return api::setStyleValue(list.getRef());
}

GetValueReturnCode_e StyleValue::getValue(long long& value, long long offset1, long long offset2) const
{
    ArgList list;
    setupGetValueArgList(list, offset1, offset2);
    list.appendArbParam(argument::whole, addressOf(&value));
    return api::getStyleValue(list.getRef());
}

GetValueReturnCode_e StyleValue::getValue(double& value, long long offset1, long long offset2) const
{
    ArgList list;
    setupGetValueArgList(list, offset1, offset2);
    return getFinalValue(&value, list);
}

GetValueReturnCode_e StyleValue::getFinalValue(double* value, ArgList& list) const
{
    list.appendArbParam(argument::real, addressOf(value));
    return api::getStyleValue(list.getRef());
}

GetValueReturnCode_e StyleValue::getValue(bool& value, long long offset1, long long offset2) const
{
    long long number = 0;
    GetValueReturnCode_e const code = getValue(number, offset1, offset2);
    if (returnCodeOk(code))
        value = number != 0;
    return code;
}

bool StyleValue::returnCodeOk(SetValueReturnCode_e code)
{
    return code == SetValueReturnCode_Ok || code == SetValueReturnCode_Duplicate;
}

bool StyleValue::returnCodeOk(GetValueReturnCode_e code)
{
    return code == GetValueReturnCode_Ok;
}

} // namespace veldraw::toolbox
