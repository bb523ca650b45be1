#pragma once

#include "dialogs/property/DialogsApi.h"
#include "dialogs/property/PropertyAbstract.h"

class QString;

namespace veldraw::sdk::ui::dialogs::propertybindings {

/// Where the text of a number field may be rewritten before it is validated. This one leaves it alone: the conversion
/// reads the field itself, so a rewritten text would pass the validator and the field's own be misread.
class VDSDKDIALOGS_DATA_QT_API StringMassager
{
public:
    StringMassager();
    virtual ~StringMassager();

    virtual void prepareText(PropertyAbstract<double>& property, QString& text);
};

} // namespace veldraw::sdk::ui::dialogs::propertybindings
