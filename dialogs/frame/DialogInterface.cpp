#include "dialogs/frame/DialogInterface.h"

namespace veldraw {

DialogInterface::~DialogInterface() = default;

} // namespace veldraw
