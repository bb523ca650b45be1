#pragma once

#include "dialogs/property/Property.h"
#include "dialogs/property/UILocalStyleProperty.h"

#include <boost/make_shared.hpp>
#include <boost/shared_ptr.hpp>

#include <string>

namespace veldraw::sdk::ui::propertymanager {

/// A name together with the unique identifier of what has it: numbers change, and two zones may have the same name.
struct ShownName
{
    boost::shared_ptr<UILocalStyleProperty<std::string>> const text =
        boost::make_shared<UILocalStyleProperty<std::string>>();
    boost::shared_ptr<Property<long long>> const id = boost::make_shared<Property<long long>>(0); ///< 0: of nothing yet
};

} // namespace veldraw::sdk::ui::propertymanager
