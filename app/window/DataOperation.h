#pragma once

#include "dialogs/frame/DialogInterface.h"
#include "dialogs/property/RelevanceInterface.h"

#include <QString>

#include <boost/shared_ptr.hpp>

#include <vector>

class QWidget;

namespace veldraw::app {

/// One entry of the Data menu: a dialog of the library, what its menu entry says, and when it can be used.
struct DataOperation
{
    char const* name; ///< object name of the menu's action
    char const* text; ///< with mnemonic
    boost::shared_ptr<sdk::ui::propertymanager::RelevanceInterface const> (*relevance)();
    DialogInterface& (*dialog)(QWidget& parent);
};

/// All dialogs there are, in the order of the menu. A new dialog is one more line here.
std::vector<DataOperation> const& dataOperations();

} // namespace veldraw::app
