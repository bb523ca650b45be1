#include "dialogs/bindings/StringMassager.h"

#include "dialogs/property/Property.h"

#include <QString>

#include <gtest/gtest.h>

namespace veldraw::tests {
namespace {

TEST(StringMassager, LeavesEveryTextAndTheValueAlone)
{
    Property<double> property(0.5);
    for (char const* const text : {"", " 1,5 ", "1.5", "1d5", "abc"}) {
        QString massaged = QString::fromUtf8(text);
        sdk::ui::dialogs::propertybindings::StringMassager().prepareText(property, massaged);
        EXPECT_EQ(massaged, QString::fromUtf8(text));
    }
    EXPECT_EQ(property.value(), 0.5);
}

} // namespace
} // namespace veldraw::tests
