#include "dialogs/property/BoundedValueValidator.h"
#include "dialogs/property/PropertyAbstract.h"
#include "dialogs/variableops/DeleteVariableDialog.h"
#include "dialogs/zoneops/AxialDuplicationDialog.h"
#include "dialogs/zoneops/AxialRotationDialog.h"
#include "dialogs/zoneops/CreateMirrorZoneDialog.h"
#include "dialogs/zoneops/DuplicateZoneDialog.h"
#include "platform/exception/InvalidPropertyValueException.h"

#include <QWidget>

#include <boost/make_shared.hpp>

#include <gtest/gtest.h>

namespace veldraw {
namespace {

using dialogs::data::AxialDuplicationDialog;
using dialogs::data::AxialRotationDialog;
using dialogs::data::CreateMirrorZoneDialog;
using dialogs::data::DeleteVariableDialog;
using dialogs::data::DuplicateZoneDialog;

/// A property of the application's own, on a base that the library exports.
template <typename T>
class ApplicationProperty : public PropertyAbstract<T>
{
public:
    using PropertyAbstract<T>::PropertyAbstract;

protected:
    void storeValue(T const& newValue) override { m_value = newValue; }

private:
    T retrieveValue() const override { return m_value; }

    T m_value{};
};

TEST(DialogLibrary, LetsAnApplicationHaveItsOwnPropertiesWithBounds)
{
    using Bounds = BoundedValueValidator<long long>;
    boost::shared_ptr<ValidatorInterface<long long> const> const bounds =
        boost::make_shared<Bounds>(0, 10, Bounds::LowerInclusive, Bounds::UpperInclusive);
    ApplicationProperty<long long> property(bounds);
    long long heard = -1;
    property.connectValueChanged([&](long long value) { heard = value; });
    property.setValue(7);
    EXPECT_EQ(heard, 7);
    EXPECT_THROW(property.setValue(11), InvalidPropertyValueException);

    ApplicationProperty<PtSelection_e> selection;
    selection.setValue(PtSelection_Octant);
    EXPECT_EQ(selection.value(), PtSelection_Octant);
}

/// Drives a dialog as an application does that knows no more of it than its class.
template <typename Dialog>
void expectDrivenThroughTheCommonInterface()
{
    auto const rule = Dialog::relevance();
    EXPECT_FALSE(rule->isRelevant()) << "no data set is open";
    QWidget window;
    DialogInterface& dialog = Dialog::getInstance(window);
    dialog.launch();
    EXPECT_TRUE(Dialog::getInstance(window).isVisible());
    dialog.updateContent();
    dialog.drop();
    EXPECT_FALSE(Dialog::getInstance(window).isVisible());
    EXPECT_EQ(Dialog::relevance(), rule);
    EXPECT_TRUE(dynamic_cast<Dialog*>(&dialog));
}

TEST(DialogLibrary, GivesTheApplicationItsDialogsThroughTheCommonInterface)
{
    expectDrivenThroughTheCommonInterface<AxialDuplicationDialog>();
    expectDrivenThroughTheCommonInterface<AxialRotationDialog>();
    expectDrivenThroughTheCommonInterface<CreateMirrorZoneDialog>();
    expectDrivenThroughTheCommonInterface<DeleteVariableDialog>();
    expectDrivenThroughTheCommonInterface<DuplicateZoneDialog>();
}

} // namespace
} // namespace veldraw
