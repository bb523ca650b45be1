#pragma once

#include "platform/PlatformApi.h"
#include "platform/vdsdkbase/VelUtilTypes.h"

#include <string>
#include <vector>

namespace veldraw::toolbox {

class ArgList;
class StringList;

/// The address of a value in the kernel's style tree: up to seven names, from the top level down, and access to the
/// value. Two offsets pick a member of a collection on the way, for instance a line map; -1 means unset.
class VELDRAW_PLATFORM_API StyleValue
{
public:
    StyleValue(char const* n1, char const* n2 = nullptr, char const* n3 = nullptr, char const* n4 = nullptr,
               char const* n5 = nullptr, char const* n6 = nullptr, char const* n7 = nullptr);

    /// An address in a frame that need not be the active one.
    StyleValue(long long frameID, char const* n1, char const* n2 = nullptr, char const* n3 = nullptr,
               char const* n4 = nullptr, char const* n5 = nullptr, char const* n6 = nullptr);

    explicit StyleValue(StringList const& names);
    virtual ~StyleValue();

    /// Writes the value. A refusal leaves the old one; VelUtilStyleGetLastErrorString() tells why.
    SetValueReturnCode_e setValue(long long value, long long offset1, long long offset2);
    SetValueReturnCode_e setValue(double value, long long offset1, long long offset2);

    /// Reads the value. @p value is unchanged when the answer is not ok.
    GetValueReturnCode_e getValue(long long& value, long long offset1 = -1, long long offset2 = -1) const;
    GetValueReturnCode_e getValue(double& value, long long offset1 = -1, long long offset2 = -1) const;
    GetValueReturnCode_e getValue(bool& value, long long offset1 = -1, long long offset2 = -1) const;

    /// The address one level further down.
    StyleValue child(char const* name) const;

    /// True for a value that is in force, newly or already; false for a refusal and for a value that is still pending.
    static bool returnCodeOk(SetValueReturnCode_e code);
    static bool returnCodeOk(GetValueReturnCode_e code);

protected:
    void setupSetValueArgList(ArgList& list, long long offset1, long long offset2, int assignOperator) const;
    void setupGetValueArgList(ArgList& list, long long offset1, long long offset2) const;
    SetValueReturnCode_e setFinalValue(double value, ArgList& list);
    GetValueReturnCode_e getFinalValue(double* value, ArgList& list) const;

private:
    void initMacroIDsfromStyleValueNames();

    std::vector<std::string> m_names;
    std::vector<int> m_macroIDs; // the names as the kernel's identifiers
    long long m_frameID = 0;     // 0: the active frame
};

} // namespace veldraw::toolbox
