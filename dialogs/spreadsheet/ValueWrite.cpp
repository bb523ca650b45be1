#include "dialogs/spreadsheet/ValueWrite.h"

#include "dialogs/bindings/ScopedExitAction.h"
#include "platform/vdsdkbase/VelUtilDataValue.h"
#include "platform/vdsdkcommon/ActionReporter.h"

#include <locale>
#include <sstream>

namespace veldraw::sdk::ui::dialogs::propertybindings::models {

namespace {

// Zero for a text that is no number; the cell editor has validated what the user typed.
double numberOf(std::string const& text)
{
    double number = 0.0;
    std::istringstream stream(text);
    stream.imbue(std::locale::classic()); // what a table writes, whatever the user's locale
    stream >> number;
    return number;
}

} // namespace

ValueWrite::ValueWrite(int zone, int variable, long long offset, std::string const& text, bool alterInAllSharedZones)
{
    m_arguments.appendInt("Zone", zone);
    m_arguments.appendInt("Var", variable);
    m_arguments.appendInt("Index", offset + 1);
    m_arguments.appendDouble("FieldValue", numberOf(text));
    m_arguments.appendInt("AutoBranch", alterInAllSharedZones ? 0 : 1);
}

bool ValueWrite::run(std::function<void()> const& beforeWrite, std::function<void()> const& afterWrite)
{
    auto const write = [&] {
        beforeWrite();
        ScopedExitAction const after(afterWrite);
        return static_cast<char>(VelUtilDataValueSetByZoneVarX(m_arguments.getRef()));
    };
    return velUtilActionReporter(write, "Error while setting variable value", "") != 0;
}

} // namespace veldraw::sdk::ui::dialogs::propertybindings::models
