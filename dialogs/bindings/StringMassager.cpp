#include "dialogs/bindings/StringMassager.h"

namespace veldraw::sdk::ui::dialogs::propertybindings {

StringMassager::StringMassager() = default;

StringMassager::~StringMassager() = default;

void StringMassager::prepareText(PropertyAbstract<double>&, QString&) {}

} // namespace veldraw::sdk::ui::dialogs::propertybindings
