#include "app/window/DataOperation.h"

#include "dialogs/variableops/DeleteVariableDialog.h"
#include "dialogs/zoneops/AxialDuplicationDialog.h"
#include "dialogs/zoneops/AxialRotationDialog.h"
#include "dialogs/zoneops/CreateMirrorZoneDialog.h"
#include "dialogs/zoneops/DuplicateZoneDialog.h"

namespace veldraw::app {

namespace {

template <typename Dialog>
DialogInterface& dialog(QWidget& parent)
{
    return Dialog::getInstance(parent);
}

} // namespace

std::vector<DataOperation> const& dataOperations()
{
    using namespace dialogs::data;
    static std::vector<DataOperation> const operations{
        {"axialDuplicationAction", "&Axial Duplication...", &AxialDuplicationDialog::relevance,
         &dialog<AxialDuplicationDialog>},
        {"axialRotationAction", "Axial &Rotation...", &AxialRotationDialog::relevance, &dialog<AxialRotationDialog>},
        {"createMirrorZoneAction", "Create &Mirror Zone...", &CreateMirrorZoneDialog::relevance,
         &dialog<CreateMirrorZoneDialog>},
        {"duplicateZoneAction", "Create D&uplicate Zone...", &DuplicateZoneDialog::relevance,
         &dialog<DuplicateZoneDialog>},
        {"deleteVariableAction", "&Delete Variable...", &DeleteVariableDialog::relevance,
         &dialog<DeleteVariableDialog>},
    };
    return operations;
}

} // namespace veldraw::app
