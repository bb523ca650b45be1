#pragma once

#include "tests/dialogs/support/DialogFixture.h"

namespace veldraw::tests {

/// What holds for the life of every dialog: one instance, its rule, closing and coming back, its end. A dialog joins by
///
///     INSTANTIATE_TEST_SUITE_P(DuplicateZone, DialogLifecycleTest, testing::Values(duplicateZone()));
///
/// with a function that returns its traits, in a program that links `veldraw_dialog_lifecycle`.
class DialogLifecycleTest : public DialogFixture, public testing::WithParamInterface<DialogTraits>
{
protected:
    DialogLifecycleTest()
        : DialogFixture(GetParam())
    {
    }

    /// Changes and takes away zones and variables, as another dialog would.
    void changeTheDataSet();
};

/// What holds besides for a dialog with a button of its own. It joins by a second line, with `DialogActionLifecycleTest`.
class DialogActionLifecycleTest : public DialogLifecycleTest
{
};

} // namespace veldraw::tests
