#pragma once

#include "dialogs/property/Property.h"

#include <boost/shared_ptr.hpp>
#include <boost/weak_ptr.hpp>

#include <functional>
#include <gtest/gtest.h>
#include <memory>
#include <set>

namespace veldraw::tests {

/// A manager starts with nothing selected in a list of two and gives the same selection each time; whoever shares its list keeps the list
/// alive, and nobody its selection.
template <typename Manager, typename Selection, typename List>
void expectStartsEmptyAndSharesItsMembers(Selection selectionOf, List listOf)
{
    auto manager = std::make_unique<Manager const>();
    boost::weak_ptr<Property<std::set<int>>> const selection = std::invoke(selectionOf, *manager);
    EXPECT_TRUE(selection.lock()->value().empty());
    EXPECT_EQ(std::invoke(selectionOf, *manager), selection.lock());
    auto const list = std::invoke(listOf, *manager);
    EXPECT_EQ(list->size(), 2);
    EXPECT_FALSE(list->isEditable());
    manager.reset();
    EXPECT_TRUE(selection.expired());
    EXPECT_EQ(list->size(), 2) << "whoever shares the list keeps it alive";
}

} // namespace veldraw::tests
